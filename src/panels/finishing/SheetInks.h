#pragma once

#include <cstdint>

namespace tarvo {

/// A colour of a picture; each part from 0 to 1.
struct Ink {
    double red;
    double green;
    double blue;
    double opacity = 1;
};

inline constexpr Ink EdgeInk = {0.22, 0.26, 0.30};
inline constexpr Ink PrintInk = {0.22, 0.26, 0.30, 0.38};
inline constexpr Ink StapleInk = {0.20, 0.24, 0.29};
inline constexpr Ink StapleLight = {1, 1, 1, 0.85};    // around staples, for dark paper
inline constexpr Ink AccentInk = {0.114, 0.42, 0.451}; // binding, what a template does
inline constexpr Ink SlipSheetInk = {0.95, 0.72, 0.29};

/// What paper of a colour looks like: white where that is not known, as with the printer's default
/// and with colours of the user's own.
/// @param color  a value of StockColorMap
Ink PaperInk(std::int32_t color);

/// @param brightness  1 leaves the colour as it is, 0 makes it black
Ink Shaded(const Ink& ink, double brightness);

} // namespace tarvo
