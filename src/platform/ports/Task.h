#pragma once

#include "platform/printing/PMStatus.h"

#include <functional>

namespace tarvo {

inline constexpr OSStatus StatusNoTask = -29298; // the system has no thread left

/// Runs a function in a thread of its own. Nobody waits for its end, so it must own what it uses.
/// An exception ends the task alone.
/// @return StatusOk or StatusNoTask
[[nodiscard]] OSStatus StartTask(std::function<void()> body);

/// The system's number of the calling thread.
int CurrentTaskID();

} // namespace tarvo
