#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tarvo {

/// Reads a whole file that the command line names, a pipe included.
/// @param file          "-" is standard input
/// @param maximumBytes  a larger file is refused after that many bytes
/// @return nullopt with the reason in `reason`, for a message that names the file
[[nodiscard]] std::optional<std::string> ReadInput(const std::string& file,
                                                   std::size_t maximumBytes, std::string& reason);

} // namespace tarvo
