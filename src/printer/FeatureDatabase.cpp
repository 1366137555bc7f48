#include "printer/FeatureDatabase.h"

#include "printer/PrinterDescription.h"

namespace tarvo {
namespace {

const CFDictionary* DictionaryIn(const CFDictionary* dictionary, std::string_view key)
{
    return dictionary == nullptr ? nullptr : dictionary->get<CFDictionary>(key);
}

// The property of a feature or a keyword.
const CFPropertyList* PropertyOf(const CFDictionary* dictionary, std::string_view property)
{
    const auto* properties = DictionaryIn(dictionary, FeaturePropertiesKey);
    return properties == nullptr ? nullptr : properties->find(property);
}

// Those of the entries that are dictionaries and that the predicate accepts.
template <typename Predicate>
FeatureDictionaries EntriesWhere(const CFDictionary* entries, Predicate accepts)
{
    FeatureDictionaries found;
    if (entries == nullptr) {
        return found;
    }
    for (const auto& entry : *entries) {
        const auto* dictionary = entry.value.get<CFDictionary>();
        if (dictionary != nullptr && accepts(*dictionary)) {
            found.push_back(dictionary);
        }
    }
    return found;
}

FeatureDictionaries EntriesWithPropertyAndValue(const CFDictionary* entries,
                                                std::string_view property,
                                                const CFPropertyList& value)
{
    return EntriesWhere(entries, [&](const CFDictionary& entry) {
        const auto* present = PropertyOf(&entry, property);
        return present != nullptr && *present == value;
    });
}

std::optional<FeatureDefault> DefaultKeyword(const CFDictionary* keywords)
{
    if (keywords == nullptr) {
        return std::nullopt;
    }
    for (const auto& [keyword, value] : *keywords) {
        const auto* dictionary = value.get<CFDictionary>();
        if (dictionary != nullptr && dictionary->isTrue(SyntaxDefaultKey)) {
            return FeatureDefault{KeywordSyntax, keyword};
        }
    }
    return std::nullopt;
}

const FeatureDatabase& CurrentDatabase()
{
    static const FeatureDatabase Empty;
    const auto* current = PrinterDescription::Current();
    return current == nullptr ? Empty : current->features();
}

} // namespace

const CFDictionary* FeatureDatabase::feature(std::string_view name) const
{
    return DictionaryIn(profile_.get<CFDictionary>(FeaturesKey), name);
}

FeatureDictionaries FeatureDatabase::featuresWithProperty(std::string_view property) const
{
    return EntriesWhere(profile_.get<CFDictionary>(FeaturesKey), [&](const CFDictionary& feature) {
        return PropertyOf(&feature, property) != nullptr;
    });
}

FeatureDictionaries FeatureDatabase::featuresWithPropertyAndValue(std::string_view property,
                                                                  const CFPropertyList& value) const
{
    return EntriesWithPropertyAndValue(profile_.get<CFDictionary>(FeaturesKey), property, value);
}

const CFDictionary* TDPGetFeature(std::string_view name)
{
    return CurrentDatabase().feature(name);
}

FeatureDictionaries TDPGetFeaturesWithProperty(std::string_view property)
{
    return CurrentDatabase().featuresWithProperty(property);
}

FeatureDictionaries TDPGetFeaturesWithPropertyAndValue(std::string_view property,
                                                       const CFPropertyList& value)
{
    return CurrentDatabase().featuresWithPropertyAndValue(property, value);
}

const CFPropertyList* TDPGetFeatureProperty(const CFDictionary* feature, std::string_view property)
{
    return PropertyOf(feature, property);
}

const CFDictionary* TDPGetFeatureSyntax(const CFDictionary* feature, std::string_view syntax)
{
    return DictionaryIn(DictionaryIn(feature, FeatureSyntaxKey), syntax);
}

FeatureDictionaries TDPGetKeywordsWithPropertyAndValue(const CFDictionary* feature,
                                                       std::string_view property,
                                                       const CFPropertyList& value)
{
    return EntriesWithPropertyAndValue(TDPGetFeatureSyntax(feature, KeywordSyntax), property,
                                       value);
}

std::optional<FeatureDefault> TDPGetFeatureDefaultValue(const CFDictionary* feature)
{
    if (auto keyword = DefaultKeyword(TDPGetFeatureSyntax(feature, KeywordSyntax))) {
        return keyword;
    }
    for (const auto syntax : {NameSyntax, NumberSyntax}) {
        const auto* description = TDPGetFeatureSyntax(feature, syntax);
        const auto* value = description == nullptr ? nullptr : description->find(SyntaxDefaultKey);
        if (value != nullptr) {
            return FeatureDefault{syntax, *value};
        }
    }
    return std::nullopt;
}

} // namespace tarvo
