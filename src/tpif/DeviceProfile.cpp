#include "tpif/DeviceProfile.h"

#include "printer/FeatureDatabase.h"
#include "tpif/TPIFFeatures.h"

#include <string_view>

namespace tarvo {
namespace {

CFDictionary KeywordEntry(const TPIFWord& row, bool isDefault)
{
    CFDictionary properties;
    properties.set(TPIFValueProperty, row.word);
    if (row.isName) {
        properties.set(NameSyntaxProperty, true);
    }
    CFDictionary entry;
    entry.set(FeatureIDKey, row.keyword);
    if (isDefault) {
        entry.set(SyntaxDefaultKey, true);
    }
    entry.set(FeaturePropertiesKey, std::move(properties));
    return entry;
}

void AddKeywords(CFDictionary& keywords, const TPIFWord* words, const char* byDefault)
{
    for (const TPIFWord* row = words; row != nullptr && row->word != nullptr; ++row) {
        if (row->keyword != nullptr) {
            const bool isDefault =
                byDefault != nullptr && std::string_view(byDefault) == row->keyword;
            keywords.set(row->keyword, KeywordEntry(*row, isDefault));
        }
    }
}

// An offered job type may be one that no document has a word for.
void AddOffers(CFDictionary& keywords, const TPIFOffer* offers)
{
    for (const TPIFOffer* row = offers; row != nullptr && row->keyword != nullptr; ++row) {
        CFDictionary entry;
        CFDictionary properties;
        if (const auto* present = keywords.get<CFDictionary>(row->keyword)) {
            entry = *present;
            properties = *present->get<CFDictionary>(FeaturePropertiesKey);
        }
        properties.set(OfferedProperty, row->isOffered);
        entry.set(FeatureIDKey, row->keyword);
        entry.set(FeaturePropertiesKey, std::move(properties));
        keywords.set(row->keyword, std::move(entry));
    }
}

CFDictionary KeywordSyntaxOf(const TPIFFeatureSyntax& syntax)
{
    CFDictionary keywords;
    AddKeywords(keywords, syntax.keywords, syntax.defaultKeyword);
    AddKeywords(keywords, syntax.moreKeywords, syntax.defaultKeyword);
    AddOffers(keywords, syntax.offers);
    return keywords;
}

CFDictionary NumberSyntaxOf(const TPIFFeatureSyntax& syntax)
{
    CFDictionary limits;
    if (syntax.numberLimits) {
        limits.set(NumberMinimumKey, syntax.numberLimits->minimum);
        limits.set(NumberMaximumKey, syntax.numberLimits->maximum);
    }
    return limits;
}

CFDictionary NameSyntaxOf(const TPIFFeatureSyntax& syntax)
{
    CFDictionary limits;
    if (syntax.longestName) {
        limits.set(NameLengthKey, *syntax.longestName);
    }
    return limits;
}

CFDictionary SyntaxOf(const TPIFFeatureSyntax& syntax)
{
    CFDictionary syntaxes;
    if (syntax.keywords != nullptr) {
        syntaxes.set(KeywordSyntax, KeywordSyntaxOf(syntax));
    }
    if (syntax.takesNumbers) {
        syntaxes.set(NumberSyntax, NumberSyntaxOf(syntax));
    }
    if (syntax.takesNames) {
        syntaxes.set(NameSyntax, NameSyntaxOf(syntax));
    }
    return syntaxes;
}

CFDictionary FeatureEntry(const TPIFFeature& feature)
{
    CFDictionary properties;
    if (feature.use == TPIFFeatureUse::Attribute) {
        properties.set(TPIFProperty, true);
    }
    if (feature.syntax.keywordsUseNameSyntax) {
        properties.set(KeywordsUseNameSyntaxProperty, true);
    }
    CFDictionary entry;
    entry.set(FeatureIDKey, feature.name);
    entry.set(FeaturePropertiesKey, std::move(properties));
    entry.set(FeatureSyntaxKey, SyntaxOf(feature.syntax));
    return entry;
}

} // namespace

CFDictionary DeviceProfile()
{
    CFDictionary features;
    for (const TPIFFeature& feature : TPIFFeatures()) {
        features.set(feature.name, FeatureEntry(feature));
    }
    CFDictionary profile;
    profile.set(FeaturesKey, std::move(features));
    return profile;
}

} // namespace tarvo
