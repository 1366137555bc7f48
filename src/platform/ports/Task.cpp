#include "platform/ports/Task.h"

#include <unistd.h>

#include <exception>
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
            } catch (const std::exception&) {
                return; // its state tells what it did not finish
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
