#include "tpif/TPIFFeatureReader.h"

#include "platform/text/Utf8.h"
#include "platform/text/WhiteSpace.h"
#include "printer/FeatureDatabase.h"
#include "tpif/TPIFMaps.h"

#include <algorithm>
#include <charconv>

namespace tarvo {
namespace {

// The ticket's numbers for a feature's keywords, where they are not those of the feature's words.
struct NumberRow {
    std::string_view feature;
    const TPIFWord* map;    // of keywords; null: the words' own numbers
    std::int32_t added = 0; // to the words' own
    bool alsoWords = false; // for the keywords that the map lacks
};

constexpr NumberRow Numbers[] = {
    {"ColorEffects",      TPIFColorEffectsMap,      0, false},
    {"Sides",             TPIFSidesMap,             0, false},
    {"OutputDestination", TPIFOutputDestinationMap, 0, false},
    {"StockWeight",       TPIFMediaWeightMetricMap, 0, false},
    {"StockGrain",        TPIFMediaGrainMap,        0, false},
    {"StockFinish",       TPIFMediaFinishMap,       0, false},
    {"StockColor",        TPIFMediaColorMap,        0, false},
    {"StockType",         TPIFMediaTypeMap,         0, true }, // bond, tab stock and others
    {"StockCoatingType",  TPIFMediaCoatingTypeMap,  0, false},
    {JobTypeFeature,      TPIFJobTypeMap,           0, false},
    {"JobHold",           TPIFJobTypeMap,           0, false},
    {"SaveFormat",        TPIFSaveFormatMap,        0, false},
    {"SlipSheets",        TPIFSlipSheetMap,         0, false},
    {"LightenDarken",     TPIFLightenDarkenMap,     0, false},
    {"HalftoneScreen",    TPIFHalftoneScreenMap,    0, false},
    {"AntiAliasing",      TPIFAntialiasingMap,      0, false},
    {"PageRotation",      TPIFRotationMap,          0, false},
    {"OPIImageInsertion", nullptr,                  2, false}, // the ticket counts from 2
    {"OPIPreScan",        nullptr,                  2, false},
};

std::optional<std::int32_t> NumberOfWord(const TPIFWord* words, std::string_view keyword)
{
    for (; words != nullptr && words->word != nullptr; ++words) {
        if (words->keyword != nullptr && words->keyword == keyword) {
            return words->value;
        }
    }
    return std::nullopt;
}

std::optional<std::int32_t> TicketNumber(const TPIFFeature& feature, std::string_view keyword)
{
    const auto* row =
        std::find_if(std::begin(Numbers), std::end(Numbers),
                     [&](const NumberRow& each) { return each.feature == feature.name; });
    const bool hasRow = row != std::end(Numbers);
    if (hasRow && row->map != nullptr) {
        const auto mapped = TPIFConvertKeyword(row->map, keyword);
        if (mapped || !row->alsoWords) {
            return mapped;
        }
    }
    for (const TPIFWord* words : {feature.syntax.keywords, feature.syntax.moreKeywords}) {
        if (const auto number = NumberOfWord(words, keyword)) {
            return *number + (hasRow ? row->added : 0);
        }
    }
    return std::nullopt;
}

std::vector<TPIFFeatureSyntaxes::Keyword> KeywordsOf(const CFDictionary& entries,
                                                     const TPIFFeature& feature)
{
    std::vector<TPIFFeatureSyntaxes::Keyword> keywords;
    for (const auto& [keyword, value] : entries) {
        const auto* entry = value.get<CFDictionary>();
        const auto* properties =
            entry == nullptr ? nullptr : entry->get<CFDictionary>(FeaturePropertiesKey);
        const auto* word =
            properties == nullptr ? nullptr : properties->get<std::string>(TPIFValueProperty);
        if (word == nullptr) {
            continue;
        }
        const auto* id = entry->get<std::string>(FeatureIDKey);
        keywords.push_back({*word, keyword, properties->isTrue(NameSyntaxProperty),
                            TicketNumber(feature, keyword),
                            id == nullptr ? std::nullopt : TicketNumber(feature, *id)});
    }
    return keywords;
}

TPIFFeatureSyntaxes::NameLimits NameLimitsOf(const CFDictionary& entry)
{
    TPIFFeatureSyntaxes::NameLimits limits;
    limits.longest = entry.int32(NameLengthKey);
    if (const auto* characters = entry.get<std::string>(NameCharacterSetKey)) {
        limits.characters = *characters;
    }
    return limits;
}

// The words without a keyword, but for those of several numbers of which one has it.
std::vector<std::string_view> LostWordsOf(const TPIFFeature& feature)
{
    std::vector<std::string_view> lost;
    for (const auto* row = feature.syntax.keywords; row != nullptr && row->word != nullptr; ++row) {
        if (row->keyword == nullptr) {
            lost.emplace_back(row->word);
        }
    }
    return lost;
}

std::optional<std::int32_t> NumberOf(std::string_view text)
{
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) {
            return std::nullopt;
        }
    }
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && !text.empty()
               ? std::optional(number)
               : std::nullopt;
}

bool HasOnly(std::string_view text, std::string_view characters)
{
    while (!text.empty()) {
        std::size_t length = 1;
        while (Utf8Prefix(text, length).empty()) {
            ++length;
        }
        if (characters.find(text.substr(0, length)) == std::string_view::npos) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

using Converted = std::optional<TPIFImportValue>;
using Keyword = TPIFFeatureSyntaxes::Keyword;

Converted Refuse(TPIFImportRefusal& refusal, std::string reason)
{
    refusal = {TPIFImportOutcome::Refused, std::move(reason)};
    return std::nullopt;
}

Converted ValueOf(const Keyword& keyword, std::optional<std::int32_t> number,
                  TPIFImportRefusal& refusal)
{
    if (!number) {
        refusal = {TPIFImportOutcome::Lost, "no ticket value stands for it"};
        return std::nullopt;
    }
    return TPIFImportValue{TPIFImportSyntax::Keyword, *number, keyword.keyword, ""};
}

Converted KeywordValue(std::string_view text, const TPIFFeatureSyntaxes& syntaxes,
                       TPIFImportRefusal& refusal)
{
    for (const Keyword& keyword : *syntaxes.keywords) {
        if (keyword.word == text) {
            return ValueOf(keyword, keyword.value, refusal);
        }
    }
    const auto& lost = syntaxes.lostWords;
    if (std::find(lost.begin(), lost.end(), text) != lost.end()) {
        refusal = {TPIFImportOutcome::Lost, "no ticket value stands for it"};
        return std::nullopt;
    }
    return Refuse(refusal, "an unknown word");
}

Converted NumberValue(std::string_view text, const TPIFFeatureSyntaxes::NumberLimits& limits,
                      TPIFImportRefusal& refusal)
{
    const auto number = NumberOf(text);
    if (!number) {
        return Refuse(refusal, "not a whole number of 32 bits");
    }
    if (limits.minimum && *number < *limits.minimum) {
        return Refuse(refusal, "below " + std::to_string(*limits.minimum));
    }
    if (limits.maximum && *number > *limits.maximum) {
        return Refuse(refusal, "above " + std::to_string(*limits.maximum));
    }
    return TPIFImportValue{TPIFImportSyntax::Number, *number, "", ""};
}

// Exactly one keyword that is a name in documents has that name; null when none has.
const Keyword* KeywordOfName(std::string_view name, const TPIFFeatureSyntaxes& syntaxes)
{
    const Keyword* found = nullptr;
    if (!syntaxes.keywordsUseNameSyntax || !syntaxes.keywords) {
        return nullptr;
    }
    for (const Keyword& keyword : *syntaxes.keywords) {
        if (keyword.isName && keyword.word == name) {
            if (found != nullptr) {
                return nullptr;
            }
            found = &keyword;
        }
    }
    return found;
}

Converted NameValue(const std::string& text, const TPIFFeatureSyntaxes& syntaxes,
                    TPIFImportRefusal& refusal)
{
    const auto& limits = *syntaxes.name;
    if (limits.characters && !HasOnly(text, *limits.characters)) {
        return Refuse(refusal, "a character that is not allowed");
    }
    if (limits.longest &&
        Utf8Length(text) > static_cast<std::size_t>(std::max(*limits.longest, 0))) {
        return Refuse(refusal, "longer than " + std::to_string(*limits.longest) + " characters");
    }
    if (const Keyword* keyword = KeywordOfName(text, syntaxes)) {
        return ValueOf(*keyword, keyword->idValue, refusal);
    }
    return TPIFImportValue{TPIFImportSyntax::Name, 0, "", text};
}

} // namespace

CFPropertyList TPIFImportValue::asTicketValue() const
{
    return kind == TPIFImportSyntax::Name ? CFPropertyList(name) : CFPropertyList(number);
}

TPIFFeatureSyntaxes::TPIFFeatureSyntaxes(const CFDictionary& entry, const TPIFFeature& feature)
{
    if (const auto* words = TDPGetFeatureSyntax(&entry, KeywordSyntax)) {
        keywords = KeywordsOf(*words, feature);
        lostWords = LostWordsOf(feature);
    }
    if (const auto* limits = TDPGetFeatureSyntax(&entry, NumberSyntax)) {
        number = NumberLimits{limits->int32(NumberMinimumKey), limits->int32(NumberMaximumKey)};
    }
    if (const auto* limits = TDPGetFeatureSyntax(&entry, NameSyntax)) {
        name = NameLimitsOf(*limits);
    }
    const auto* property = TDPGetFeatureProperty(&entry, KeywordsUseNameSyntaxProperty);
    keywordsUseNameSyntax = property != nullptr && *property == CFPropertyList(true);
}

std::optional<TPIFImportValue> TPIFImportNodeValue(const TPIFImportNode& node,
                                                   const TPIFFeatureSyntaxes& syntaxes,
                                                   TPIFImportRefusal& refusal)
{
    switch (node.syntax) {
    case TPIFImportSyntax::Keyword:
        if (syntaxes.keywords) {
            return KeywordValue(Trimmed(node.text), syntaxes, refusal);
        }
        break;
    case TPIFImportSyntax::Number:
        if (syntaxes.number) {
            return NumberValue(Trimmed(node.text), *syntaxes.number, refusal);
        }
        break;
    case TPIFImportSyntax::Name:
        if (syntaxes.name) {
            return NameValue(node.text, syntaxes, refusal);
        }
        break;
    case TPIFImportSyntax::Unknown:
        break;
    }
    return Refuse(refusal, "of a syntax that it may not have");
}

std::optional<TPIFImportValue> TPIFFeatureReader::valueOf(const TPIFImportGroup& group,
                                                          const TPIFImportNode* node) const
{
    if (node == nullptr) {
        return std::nullopt;
    }
    TPIFImportRefusal refusal;
    auto value = TPIFImportNodeValue(*node, syntaxes_, refusal);
    if (!value) {
        TellRefusal(group, *node, refusal);
    }
    return value;
}

std::optional<TPIFImportValue> TPIFFeatureReader::value(const TPIFImportGroup& group,
                                                        std::size_t path) const
{
    return valueOf(group, node(group, path));
}

std::optional<std::int32_t> TPIFFeatureReader::number(const TPIFImportGroup& group,
                                                      std::size_t path) const
{
    const auto found = value(group, path);
    return found ? std::optional(found->number) : std::nullopt;
}

void TellRefusal(const TPIFImportGroup& group, const TPIFImportNode& node,
                 const TPIFImportRefusal& refusal)
{
    if (group.isObserved() && !node.hasElements) {
        group.tell(refusal.outcome, node, refusal.reason);
    }
}

} // namespace tarvo
