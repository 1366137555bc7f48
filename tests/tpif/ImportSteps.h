#pragma once

#include "tpif/TPIFImport.h"

#include <string>
#include <string_view>

namespace tarvo {

/// Imports a document that can be read, watched.
/// @return what is wrong with what the observer is told; "" when it is told of each element that
/// holds no others, and each value that it is told was taken is in the result
std::string FaultOfSteps(const TPIFImportFeatures& features, std::string_view xml);

} // namespace tarvo
