#pragma once

#include "platform/printing/PMStatus.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace tarvo {

inline constexpr OSStatus EventNotHandled = -9874; // let the event continue

/// Something that happened, told by two codes of four characters.
struct Event {
    std::uint32_t eventClass = 0;
    std::uint32_t kind = 0;
};

/// A window as a thread or a message may name it: the number stays without a window behind it when
/// the window goes. 0 is none.
using WindowID = std::uint32_t;

using WindowEventFunction = std::function<OSStatus(const Event&)>;

/// Gives a window a number and takes the events sent to it, until destroyed. In the main thread
/// only.
class WindowEventHandler {
public:
    explicit WindowEventHandler(WindowEventFunction function);
    WindowEventHandler(const WindowEventHandler&) = delete;
    WindowEventHandler& operator=(const WindowEventHandler&) = delete;
    ~WindowEventHandler();

    WindowID window() const { return window_; }

private:
    WindowID window_;
};

/// Hands an event to a window's handler, in the main thread only.
/// @return what the handler returned; EventNotHandled when the window is gone
OSStatus SendEventToWindow(WindowID window, const Event& event);

} // namespace tarvo
