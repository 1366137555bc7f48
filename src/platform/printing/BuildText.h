#pragma once

namespace tarvo {

/// Names the build: the same text in all modules between which tickets and sessions may cross as
/// they lie in memory. Another version, compiler or declaration of them makes another one.
const char* BuildText();

} // namespace tarvo
