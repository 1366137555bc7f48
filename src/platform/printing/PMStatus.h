#pragma once

#include <cstdint>

namespace tarvo {

/// Result of an operation of the print dialog, a panel or a ticket; 0 is done.
using OSStatus = std::int32_t;

inline constexpr OSStatus StatusOk = 0;
inline constexpr OSStatus StatusBadArgument = -50;    // a null argument
inline constexpr OSStatus StatusItemLocked = -9588;   // the item's owner alone may change it
inline constexpr OSStatus StatusItemNotFound = -9589; // absent, or of another type than asked for
inline constexpr OSStatus StatusEventNotHandled = -9874; // the event goes on to the next handler

} // namespace tarvo
