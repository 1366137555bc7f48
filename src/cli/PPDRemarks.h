#pragma once

#include "cli/PPDOutline.h"
#include "platform/printing/PPDFile.h"

#include <vector>

namespace tarvo {

/// What is wrong with a description, and what the print features miss in it, by line.
/// @param outline  of the contents that it was read from
std::vector<PPDRemark> RemarksOn(const PPDFile& ppd, const PPDOutline& outline);

} // namespace tarvo
