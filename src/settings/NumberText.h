#pragma once

#include <cstdint>
#include <string>

namespace tarvo {

/// A number as people of the process's locale write it: 1250 with 2 decimals is "12.5" or "12,5".
/// The value passes through single precision, so a large one shows its rounding: 12345678 with 2
/// decimals is "123,456.781". The locale is the one of the first call.
/// @param value     in units of 10 to the power -decimals
/// @param decimals  0 for a whole number
std::string CreateLocalizedCFStringFromNumberWithDecimals(std::int32_t value,
                                                          std::int32_t decimals);

/// The same for a locale by name, such as "de_DE".
std::string CreateLocalizedCFStringFromNumberWithDecimals(std::int32_t value, std::int32_t decimals,
                                                          const char* localeName);

} // namespace tarvo
