#pragma once

#include "platform/cf/CFPropertyList.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

// The text forms of a property list's scalars. The readers refuse what is not exactly of the form;
// white space around the text is allowed. No locale is involved.

/// @return nullopt unless decimal and within 64 signed bits
std::optional<std::int64_t> IntegerFromText(std::string_view text);

/// @return nullopt unless decimal and within the range of a double, or nan, inf or infinity
std::optional<double> RealFromText(std::string_view text);
/// The shortest text that reads back as the same double.
std::string TextFromReal(double value);

/// @param text  as 2026-11-21T07:30:00Z, in the years 1 to 9999
std::optional<CFDate> DateFromText(std::string_view text);
/// @return nullopt outside the years 1 to 9999
std::optional<std::string> TextFromDate(CFDate date);

/// @param text  base64 with padding; white space is skipped
std::optional<CFData> DataFromBase64(std::string_view text);
/// One line, without white space.
std::string Base64FromData(const CFData& data);

} // namespace tarvo
