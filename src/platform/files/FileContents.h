#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tarvo {

/// Reads a whole file, a pipe included.
/// @param path          "-" is an ordinary name here
/// @param maximumBytes  a larger file is refused after that many bytes
/// @return the bytes; nullopt with the system's reason in `reason`
[[nodiscard]] std::optional<std::string>
ReadFileContents(const std::string& path, std::size_t maximumBytes, std::string& reason);

/// The same from an open file, up to its end; the file stays open.
[[nodiscard]] std::optional<std::string>
ReadDescriptorContents(int descriptor, std::size_t maximumBytes, std::string& reason);

/// Writes all bytes to an open file.
/// @return false with the system's reason in `reason`
[[nodiscard]] bool WriteDescriptorContents(int descriptor, std::string_view contents,
                                           std::string& reason);

/// Replaces a file whole or not at all, through a file beside it that is renamed. A symbolic link
/// is followed, permissions of a present file stay, and what is no regular file (a pipe, a device)
/// is written to as it is.
/// @return false with the system's reason in `reason`, the former contents untouched
[[nodiscard]] bool ReplaceFileContents(const std::string& path, std::string_view contents,
                                       std::string& reason);

} // namespace tarvo
