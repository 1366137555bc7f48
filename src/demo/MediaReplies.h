#pragma once

#include "demo/MediaFile.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// The answer of a well-behaved printer, written by the printing system's library.
/// @param request  of any kind; another than for the printer's attributes is answered with an error
/// @param repeat   how often each medium is reported; repeated ones have a number behind their key
/// @return nullopt when the request is no IPP
std::optional<std::string> MediaReplyTo(std::string_view request,
                                        const std::vector<DemoMedium>& media, std::size_t repeat);

} // namespace tarvo
