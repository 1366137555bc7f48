#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

namespace tarvo {

class RunLoop;

/// How a message fared, numbered as the print dialog's ports number it.
enum class MessagePortStatus : std::int32_t {
    Success = 0,
    SendTimeout = -1,    // the port's queue stayed full
    ReceiveTimeout = -2, // or the wait was called off
    IsInvalid = -3,      // the port is gone
    BecameInvalid = -5,  // it went before it answered
};

/// Handles a message in the thread of the port's run loop. What it returns answers a request; the
/// sender of anything else never sees it. An exception answers a request with nothing.
using MessageHandler =
    std::function<std::optional<std::string>(std::int32_t identifier, const std::string& data)>;

class MessageQueue;

/// A named place in this process that other threads send messages to. They are handled in the order
/// in which they came, one for each turn of the run loop. To be destroyed by that loop's thread.
class MessagePort {
public:
    /// @return null when a port of that name stands already
    static std::unique_ptr<MessagePort> CreateLocal(const std::string& name,
                                                    MessageHandler handler);
    explicit MessagePort(std::shared_ptr<MessageQueue> queue);
    MessagePort(const MessagePort&) = delete;
    MessagePort& operator=(const MessagePort&) = delete;
    /// Frees the name; whoever still waits for an answer is told.
    ~MessagePort();

    void addToRunLoop(const RunLoop& loop);

private:
    std::shared_ptr<MessageQueue> queue_;
};

/// A port as its senders know it; may outlive it, and may be used from any thread.
class RemoteMessagePort {
public:
    /// @return nullopt when no port has that name
    static std::optional<RemoteMessagePort> Create(const std::string& name);
    explicit RemoteMessagePort(std::shared_ptr<MessageQueue> queue);

    /// Sends without an answer. Waits up to 0.1 s while the port's queue is full.
    MessagePortStatus send(std::int32_t identifier, std::string_view data) const;
    /// Sends and waits for the answer up to `timeout`, or until the wait is called off.
    MessagePortStatus request(std::int32_t identifier, std::string_view data,
                              std::chrono::milliseconds timeout, const std::stop_token& stop,
                              std::string& answer) const;

private:
    std::shared_ptr<MessageQueue> queue_;
};

} // namespace tarvo
