#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvo {

/// A medium of a demonstration printer: members of a media collection and their values as texts, a
/// size as "21000 x 29700".
using DemoMedium = std::vector<std::pair<std::string, std::string>>;

/// Reads lines "member: value"; an empty line ends a medium, "#" begins a comment.
/// @return nullopt, with "file:line: fault", when the file cannot be read or a line is none of
/// these
std::optional<std::vector<DemoMedium>> ReadMediaFile(const std::string& path, std::string& fault);

} // namespace tarvo
