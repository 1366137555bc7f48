// Any property list as a device profile: every query of every feature must answer, and what it
// answers must be what was asked for.
#include "platform/cf/PropertyListReader.h"
#include "printer/FeatureDatabase.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace tarvo {
namespace {

void Expect(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

bool Contains(const FeatureDictionaries& dictionaries, const CFDictionary* dictionary)
{
    return std::find(dictionaries.begin(), dictionaries.end(), dictionary) != dictionaries.end();
}

// Not a number equals nothing, itself neither.
bool EqualsItself(const CFPropertyList& value)
{
    return value == value;
}

void QueryKeywords(const CFDictionary& feature, const CFDictionary& keywords)
{
    for (const auto& entry : keywords) {
        const auto* keyword = entry.value.get<CFDictionary>();
        const auto* word = TDPGetFeatureProperty(keyword, TPIFValueProperty);
        if (word != nullptr && EqualsItself(*word)) {
            Expect(Contains(TDPGetKeywordsWithPropertyAndValue(&feature, TPIFValueProperty, *word),
                            keyword));
        }
    }
}

void QueryDefault(const CFDictionary& feature)
{
    const auto value = TDPGetFeatureDefaultValue(&feature);
    if (value) {
        const auto* syntax = TDPGetFeatureSyntax(&feature, value->syntax);
        Expect(syntax != nullptr);
        const auto* keyword = value->value.get<std::string>();
        Expect(value->syntax != KeywordSyntax ||
               (keyword != nullptr && syntax->get<CFDictionary>(*keyword) != nullptr));
    }
}

void QueryFeature(const FeatureDatabase& database, const std::string& name)
{
    const CFDictionary* feature = database.feature(name);
    for (const auto property : {TPIFProperty, KeywordsUseNameSyntaxProperty}) {
        const auto* value = TDPGetFeatureProperty(feature, property);
        Expect(Contains(database.featuresWithProperty(property), feature) == (value != nullptr));
        if (value != nullptr && EqualsItself(*value)) {
            Expect(Contains(database.featuresWithPropertyAndValue(property, *value), feature));
        }
    }
    if (const auto* keywords = TDPGetFeatureSyntax(feature, KeywordSyntax)) {
        QueryKeywords(*feature, *keywords);
    }
    if (feature != nullptr) {
        QueryDefault(*feature);
    }
}

} // namespace
} // namespace tarvo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tarvo;
    ParseError error;
    auto profile = ReadPropertyListDictionary({reinterpret_cast<const char*>(bytes), size}, error);
    if (!profile) {
        return 0;
    }
    const CFDictionary copy = *profile;
    const FeatureDatabase database(std::move(*profile));
    const auto* features = copy.get<CFDictionary>(FeaturesKey);
    if (features == nullptr) {
        Expect(database.featuresWithProperty(TPIFProperty).empty());
        return 0;
    }
    for (const auto& entry : *features) {
        QueryFeature(database, entry.key);
    }
    return 0;
}
