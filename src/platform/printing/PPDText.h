#pragma once

#include <string>
#include <string_view>

namespace tarvo {

/// Decodes a text as it stands in a PPD file: a "<" and a hexadecimal digit begin a run of bytes,
/// two digits each, that ends at the first character which is none; all up to the next ">" is
/// dropped, and so is every ">" there. A single digit begins one only when a ">" stands somewhere
/// behind it. The printing system's reader has done this already to what
/// PPDFile holds: decoding twice would change texts that look encoded.
/// @return the bytes, at most 511; NUL may be among them
std::string ppd_decode(std::string_view text);

/// A decoded text as UTF-8: what is not UTF-8 already is taken for Mac Roman. A NUL ends it.
std::string Utf8OfPPDText(std::string bytes);

} // namespace tarvo
