#include "printer/JobTypeOffers.h"

#include "settings/JobMaps.h"

#include <algorithm>

namespace tarvo {
namespace {

bool IsOffered(const CFDictionary* keywords, const char* keyword)
{
    const auto* entry = keywords == nullptr ? nullptr : keywords->get<CFDictionary>(keyword);
    const auto* properties =
        entry == nullptr ? nullptr : entry->get<CFDictionary>(FeaturePropertiesKey);
    return properties != nullptr && properties->isTrue(OfferedProperty);
}

} // namespace

std::vector<JobTypeOffer> JobTypeOffers(const FeatureDatabase& features)
{
    const CFDictionary* feature = features.feature(JobTypeFeature);
    const auto* syntax =
        feature == nullptr ? nullptr : feature->get<CFDictionary>(FeatureSyntaxKey);
    const auto* keywords = syntax == nullptr ? nullptr : syntax->get<CFDictionary>(KeywordSyntax);
    std::vector<JobTypeOffer> offers;
    for (const auto* row = JobTypeMap; row->key != nullptr; ++row) {
        offers.push_back({row->value, row->key});
    }
    for (const auto* row = OptionalJobTypeMap; row->key != nullptr; ++row) {
        if (IsOffered(keywords, row->key)) {
            offers.push_back({row->value, row->key});
        }
    }
    std::sort(offers.begin(), offers.end(), [](const JobTypeOffer& one, const JobTypeOffer& other) {
        return one.type < other.type;
    });
    return offers;
}

} // namespace tarvo
