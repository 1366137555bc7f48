#include "prefs/PreferenceTasks.h"

#include "platform/ports/Task.h"

#include <cerrno>
#include <condition_variable>
#include <cstdio>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <utility>

namespace tarvo {
namespace {

// A writer takes some milliseconds; behind one that is stopped no application shall hang.
constexpr std::chrono::seconds PatienceAtEnd(5);

using Change = std::function<void()>;

// One that fails keeps nothing from the next one.
void Make(Change change)
{
    try {
        change();
        change = nullptr; // what it owns may write when it goes
    } catch (const std::exception& error) {
        std::fprintf(stderr, "WriteUserPreferences() failed: %s\n", error.what());
    }
}

// The changes that are still to be made, and a task as long as there are any.
class ChangeQueue : public std::enable_shared_from_this<ChangeQueue> {
public:
    void add(Change change)
    {
        std::unique_lock lock(mutex_);
        changes_.push_back(std::move(change));
        if (isRunning_) {
            return;
        }
        isRunning_ = true;
        lock.unlock();
        if (StartTask([queue = shared_from_this()] { queue->run(); }) != StatusOk) {
            run();
        }
    }

    bool await(std::chrono::milliseconds patience)
    {
        std::unique_lock lock(mutex_);
        return done_.wait_for(lock, patience, [this] { return !isRunning_; });
    }

private:
    void run()
    {
        std::unique_lock lock(mutex_);
        while (!changes_.empty()) {
            Change change = std::move(changes_.front());
            changes_.pop_front();
            lock.unlock();
            Make(std::move(change));
            lock.lock();
        }
        isRunning_ = false;
        done_.notify_all();
    }

    std::mutex mutex_; // of what follows
    std::condition_variable done_;
    std::deque<Change> changes_;
    bool isRunning_ = false;
};

// The process's queue; the task may outlive this, which is destroyed when the process ends.
struct TheQueue {
    TheQueue() = default;
    TheQueue(const TheQueue&) = delete;
    TheQueue& operator=(const TheQueue&) = delete;
    ~TheQueue()
    {
        if (!queue->await(PatienceAtEnd)) {
            std::fprintf(stderr, "WriteUserPreferences() failed (%d)\n", EAGAIN);
        }
    }

    std::shared_ptr<ChangeQueue> queue = std::make_shared<ChangeQueue>();
};

ChangeQueue& Queue()
{
    static const TheQueue the;
    return *the.queue;
}

} // namespace

void StartPreferenceChange(std::function<void()> change)
{
    Queue().add(std::move(change));
}

bool AwaitPreferenceChanges(std::chrono::milliseconds patience)
{
    return Queue().await(patience);
}

} // namespace tarvo
