#pragma once

#include "cli/Arguments.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tarvo {

/// Reads the words behind a verb by the rows of OptionMap.
/// @return nullopt with what is wrong in `reason`
[[nodiscard]] std::optional<Arguments>
ParseArguments(std::string_view verb, std::span<char* const> words, std::string& reason);

} // namespace tarvo
