#pragma once

#include <string>

namespace tarvo {

/// The bundle that belongs to this program: beside it in the build folder, or where it is installed
/// from the program's own place. "" when there is none; texts then read "STRING NOT FOUND".
std::string BundleLocation();

} // namespace tarvo
