#include "platform/ports/RunLoop.h"

#include <glib.h>

#include <utility>

namespace tarvo {

RunLoop::RunLoop(std::shared_ptr<GMainContext> context)
    : context_(std::move(context)), isStopped_(std::make_shared<std::atomic<bool>>(false))
{
}

RunLoop::RunLoop()
    : RunLoop(std::shared_ptr<GMainContext>(g_main_context_new(), g_main_context_unref))
{
}

RunLoop RunLoop::Current()
{
    return RunLoop(
        std::shared_ptr<GMainContext>(g_main_context_ref_thread_default(), g_main_context_unref));
}

void RunLoop::run()
{
    g_main_context_push_thread_default(context());
    while (!*isStopped_) {
        g_main_context_iteration(context(), TRUE);
    }
    g_main_context_pop_thread_default(context());
}

void RunLoop::stop()
{
    *isStopped_ = true;
    g_main_context_wakeup(context());
}

bool RunLoop::turn() const
{
    return g_main_context_iteration(context(), FALSE) != FALSE;
}

} // namespace tarvo
