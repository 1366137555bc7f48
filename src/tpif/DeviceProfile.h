#pragma once

#include "platform/cf/CFPropertyList.h"

namespace tarvo {

/// The bundle's device profile, made from the table of features; FeatureDatabase.h says what is in
/// it.
CFDictionary DeviceProfile();

} // namespace tarvo
