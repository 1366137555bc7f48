#pragma once

#include <string>

namespace tarvo {

/// A script that teaches bash the verbs, their options and what stands behind each.
std::string BashCompletion();

} // namespace tarvo
