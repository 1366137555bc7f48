#pragma once

#include <atomic>
#include <memory>

using GMainContext = struct _GMainContext; // NOLINT(bugprone-reserved-identifier): GLib's

namespace tarvo {

/// What delivers the messages of a thread's ports: its main context.
class RunLoop {
public:
    /// A loop of its own, for a thread that has none.
    RunLoop();
    /// The loop that the calling thread already turns. In the main thread that is the
    /// application's, which turns inside modal dialogs too.
    static RunLoop Current();

    /// Delivers messages until stop() was called, before or meanwhile.
    void run();
    /// Ends run() once the handler that is at work returns; from any thread.
    void stop();
    /// Delivers what is waiting. @return whether there was anything
    bool turn() const;

    GMainContext* context() const { return context_.get(); }

private:
    explicit RunLoop(std::shared_ptr<GMainContext> context);

    std::shared_ptr<GMainContext> context_;
    std::shared_ptr<std::atomic<bool>> isStopped_;
};

} // namespace tarvo
