#pragma once

#include "printer/FeatureDatabase.h"

#include <cstdint>
#include <vector>

namespace tarvo {

/// A job type that a printer offers.
struct JobTypeOffer {
    std::int32_t type; // ticket value
    const char* key;   // of its text in the bundle
};

/// The job types that every printer has and those that the feature "JobType" offers, by number.
std::vector<JobTypeOffer> JobTypeOffers(const FeatureDatabase& features);

} // namespace tarvo
