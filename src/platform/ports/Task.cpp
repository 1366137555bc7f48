#include "platform/ports/Task.h"

#include <unistd.h>

#include <system_error>
#include <thread>
#include <utility>

namespace tarvo {

OSStatus StartTask(std::function<void()> body)
{
    try {
        std::thread([body = std::move(body)] {
            try {
                body();
            } catch (...) { // the toolkit's exceptions are none of the standard's
                return;     // its state tells what it did not finish
            }
        }).detach();
        return StatusOk;
    } catch (const std::system_error&) {
        return StatusNoTask;
    }
}

int CurrentTaskID()
{
    return gettid();
}

} // namespace tarvo
