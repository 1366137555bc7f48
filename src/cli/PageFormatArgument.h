#pragma once

#include "platform/printing/PMPrintSession.h"

#include <optional>
#include <string_view>

namespace tarvo {

/// Reads "width,length,orientation": decimals above 0, in points and not rounded, and 0 to 3.
/// @return nullopt for anything else; the locale has no say
std::optional<PageFormat> PageFormatFromText(std::string_view text);

} // namespace tarvo
