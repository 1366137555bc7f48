#include "platform/events/WindowEvents.h"

#include <map>
#include <utility>

namespace tarvo {
namespace {

using Handlers = std::map<WindowID, std::shared_ptr<const WindowEventFunction>>;

Handlers& TheHandlers()
{
    static Handlers handlers;
    return handlers;
}

WindowID NextWindow()
{
    static WindowID last = 0;
    return ++last;
}

} // namespace

WindowEventHandler::WindowEventHandler(WindowEventFunction function) : window_(NextWindow())
{
    TheHandlers().emplace(window_,
                          std::make_shared<const WindowEventFunction>(std::move(function)));
}

WindowEventHandler::~WindowEventHandler()
{
    TheHandlers().erase(window_);
}

OSStatus SendEventToWindow(WindowID window, const Event& event)
{
    const auto found = TheHandlers().find(window);
    if (found == TheHandlers().end()) {
        return EventNotHandled;
    }
    const auto function = found->second; // it may close its window
    return (*function)(event);
}

} // namespace tarvo
