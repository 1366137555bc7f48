#pragma once

#include "platform/bundle/CFBundle.h"
#include "printer/FeatureDatabase.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvo {

/// The bundle that belongs to this program: beside it in the build folder, or where it is installed
/// from the program's own place.
/// @return nullopt, with a message printed, when there is none
std::optional<CFBundle> OpenProgramBundle(const std::vector<std::string>& languages);

/// The features of the family, from the bundle's device profile.
/// @return nullopt, with a message printed, when it is absent, cannot be read or has none
std::optional<FeatureDatabase> ReadFeatureDatabase(const CFBundle& bundle);

} // namespace tarvo
