#pragma once

#include <chrono>
#include <functional>

namespace tarvo {

/// Makes a change of preference files for which nobody waits: the disk may be slow, or another
/// program hold the file. Changes are made in a task, one after the other in the order in which
/// they came, so that the user's last word is the last in the file too. A process that ends waits
/// some seconds for them; what is not done then is told on standard error,
/// "WriteUserPreferences() failed (errno)". Without a task the change is made at once.
/// @param change  owns what it uses; it is destroyed in the task as well
void StartPreferenceChange(std::function<void()> change);

/// Waits until all of those changes are made.
/// @return false when some are left
bool AwaitPreferenceChanges(std::chrono::milliseconds patience);

} // namespace tarvo
