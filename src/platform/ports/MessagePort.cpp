#include "platform/ports/MessagePort.h"

#include "platform/ports/RunLoop.h"

#include <glib.h>

#include <condition_variable>
#include <deque>
#include <exception>
#include <map>
#include <mutex>
#include <utility>

namespace tarvo {
namespace {

constexpr std::chrono::milliseconds SendTimeout{100};
constexpr std::size_t LongestQueue = 64;

// Where an answer is awaited. Shared by both sides, so that a late one finds its place.
class Reply {
public:
    void settle(MessagePortStatus status, std::string answer)
    {
        const std::lock_guard lock(mutex_);
        if (!status_) {
            status_ = status;
            answer_ = std::move(answer);
            settled_.notify_all();
        }
    }

    MessagePortStatus await(std::chrono::milliseconds timeout, const std::stop_token& stop,
                            std::string& answer)
    {
        std::unique_lock lock(mutex_);
        const auto deadline = std::chrono::steady_clock::now() + timeout;
        settled_.wait_until(lock, stop, deadline, [this] { return status_.has_value(); });
        if (!status_) {
            return MessagePortStatus::ReceiveTimeout;
        }
        answer = std::move(answer_);
        return *status_;
    }

private:
    std::mutex mutex_;
    std::condition_variable_any settled_;
    std::optional<MessagePortStatus> status_;
    std::string answer_;
};

struct Message {
    std::int32_t identifier = 0;
    std::string data;
    std::shared_ptr<Reply> reply; // null when nobody waits
};

// Every port of the process.
struct Registry {
    std::mutex mutex;
    std::map<std::string, std::shared_ptr<MessageQueue>> queues;
};

// Each queue holds it too, since ports may go after this function's static.
std::shared_ptr<Registry> ThePorts()
{
    static const auto ports = std::make_shared<Registry>();
    return ports;
}

} // namespace

// The messages of a port. The run loop's source only wakes the receiver: what threads share is
// here, under the mutex.
class MessageQueue : public std::enable_shared_from_this<MessageQueue> {
public:
    MessageQueue(std::string name, MessageHandler handler)
        : name_(std::move(name)), handler_(std::move(handler)), ports_(ThePorts())
    {
    }

    MessagePortStatus add(Message message)
    {
        std::unique_lock lock(mutex_);
        const bool hasRoom = roomMade_.wait_for(
            lock, SendTimeout, [this] { return isClosed_ || messages_.size() < LongestQueue; });
        if (isClosed_) {
            return MessagePortStatus::IsInvalid;
        }
        if (!hasRoom) {
            return MessagePortStatus::SendTimeout;
        }
        messages_.push_back(std::move(message));
        wake();
        return MessagePortStatus::Success;
    }

    void attach(GMainContext* context)
    {
        static GSourceFuncs functions = {nullptr, nullptr, Dispatch, nullptr, nullptr, nullptr};
        const std::lock_guard lock(mutex_);
        source_ = g_source_new(&functions, sizeof(GSource));
        g_source_set_callback(source_, HandleNext, this, nullptr);
        // A handler may show a dialog that turns the loop itself; messages arrive there too.
        g_source_set_can_recurse(source_, TRUE);
        g_source_attach(source_, context);
        if (!messages_.empty()) {
            wake();
        }
    }

    void close()
    {
        {
            const std::lock_guard lock(ports_->mutex);
            ports_->queues.erase(name_);
        }
        std::deque<Message> unhandled;
        {
            const std::lock_guard lock(mutex_);
            isClosed_ = true;
            unhandled.swap(messages_);
            roomMade_.notify_all();
            if (source_ != nullptr) {
                g_source_destroy(source_);
                g_source_unref(source_);
                source_ = nullptr;
            }
        }
        for (const Message& message : unhandled) {
            if (message.reply) {
                message.reply->settle(MessagePortStatus::BecameInvalid, "");
            }
        }
    }

private:
    static gboolean Dispatch(GSource* /*source*/, GSourceFunc callback, gpointer data)
    {
        return callback(data);
    }

    static gboolean HandleNext(gpointer data)
    {
        // The handler may end the port, and the queue with it.
        const auto queue = static_cast<MessageQueue*>(data)->shared_from_this();
        if (const std::optional<Message> message = queue->next()) {
            queue->handle(*message);
        }
        return G_SOURCE_CONTINUE;
    }

    // Takes the oldest message and asks for another turn if there are more.
    std::optional<Message> next()
    {
        const std::lock_guard lock(mutex_);
        if (messages_.empty()) {
            return std::nullopt;
        }
        Message message = std::move(messages_.front());
        messages_.pop_front();
        roomMade_.notify_one();
        g_source_set_ready_time(source_, messages_.empty() ? -1 : 0);
        return message;
    }

    void handle(const Message& message) const
    {
        std::optional<std::string> answer;
        try {
            answer = handler_(message.identifier, message.data);
        } catch (...) {            // the toolkit's are none of the standard's
            answer = std::nullopt; // must not reach the main loop, which is C
        }
        if (message.reply) {
            message.reply->settle(MessagePortStatus::Success, std::move(answer).value_or(""));
        }
    }

    void wake()
    {
        if (source_ != nullptr) {
            g_source_set_ready_time(source_, 0);
        }
    }

    const std::string name_;
    const MessageHandler handler_;
    const std::shared_ptr<Registry> ports_;
    std::mutex mutex_;
    std::condition_variable roomMade_;
    std::deque<Message> messages_;
    GSource* source_ = nullptr;
    bool isClosed_ = false;
};

std::unique_ptr<MessagePort> MessagePort::CreateLocal(const std::string& name,
                                                      MessageHandler handler)
{
    auto queue = std::make_shared<MessageQueue>(name, std::move(handler));
    const auto ports = ThePorts();
    const std::lock_guard lock(ports->mutex);
    if (!ports->queues.try_emplace(name, queue).second) {
        return nullptr;
    }
    return std::make_unique<MessagePort>(std::move(queue));
}

MessagePort::MessagePort(std::shared_ptr<MessageQueue> queue) : queue_(std::move(queue)) {}

MessagePort::~MessagePort()
{
    queue_->close();
}

void MessagePort::addToRunLoop(const RunLoop& loop)
{
    queue_->attach(loop.context());
}

std::optional<RemoteMessagePort> RemoteMessagePort::Create(const std::string& name)
{
    const auto ports = ThePorts();
    const std::lock_guard lock(ports->mutex);
    const auto found = ports->queues.find(name);
    if (found == ports->queues.end()) {
        return std::nullopt;
    }
    return RemoteMessagePort(found->second);
}

RemoteMessagePort::RemoteMessagePort(std::shared_ptr<MessageQueue> queue) : queue_(std::move(queue))
{
}

MessagePortStatus RemoteMessagePort::send(std::int32_t identifier, std::string_view data) const
{
    return queue_->add({identifier, std::string(data), nullptr});
}

MessagePortStatus RemoteMessagePort::request(std::int32_t identifier, std::string_view data,
                                             std::chrono::milliseconds timeout,
                                             const std::stop_token& stop, std::string& answer) const
{
    const auto reply = std::make_shared<Reply>();
    const MessagePortStatus sent = queue_->add({identifier, std::string(data), reply});
    return sent == MessagePortStatus::Success ? reply->await(timeout, stop, answer) : sent;
}

} // namespace tarvo
