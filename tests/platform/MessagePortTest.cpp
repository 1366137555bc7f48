#include "platform/ports/MessagePort.h"

#include "platform/events/WindowEvents.h"
#include "platform/ports/RunLoop.h"
#include "platform/ports/Task.h"

#include <gmock/gmock.h>

#include <future>
#include <stdexcept>
#include <thread>
#include <vector>

namespace tarvo {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

constexpr milliseconds Short{20};
constexpr milliseconds Long{30'000}; // only a hang takes so long

// A port whose messages are handled where the test turns the loop.
class Ports : public testing::Test {
protected:
    void listen(MessageHandler handler)
    {
        port_ = MessagePort::CreateLocal("here", std::move(handler));
        ASSERT_NE(port_, nullptr);
        port_->addToRunLoop(loop_);
        remote_ = RemoteMessagePort::Create("here");
        ASSERT_TRUE(remote_);
    }
    void turnAll()
    {
        while (loop_.turn()) {
        }
    }

    RunLoop loop_;
    std::unique_ptr<MessagePort> port_;
    std::optional<RemoteMessagePort> remote_;
    std::string answer_;
};

TEST_F(Ports, HandleEverySendersMessagesInOrderInTheirOwnThread)
{
    constexpr int Senders = 3;
    constexpr int Messages = 200;
    std::vector<std::vector<int>> received(Senders);
    int done = 0;
    listen([&, own = std::this_thread::get_id()](std::int32_t sender, const std::string& data) {
        EXPECT_EQ(std::this_thread::get_id(), own);
        if (data == "done") {
            done += 1;
            if (done == Senders) {
                loop_.stop();
            }
            return std::optional<std::string>();
        }
        received[static_cast<std::size_t>(sender)].push_back(std::stoi(data));
        return std::optional<std::string>("answer to " + std::to_string(sender) + " " + data);
    });
    std::vector<std::jthread> senders;
    for (int sender = 0; sender < Senders; ++sender) {
        senders.emplace_back([remote = *remote_, sender] {
            for (int number = 0; number < Messages; ++number) {
                const std::string data = std::to_string(number);
                std::string answer;
                EXPECT_EQ(remote.request(sender, data, Long, {}, answer),
                          MessagePortStatus::Success);
                EXPECT_EQ(answer, "answer to " + std::to_string(sender) + " " + data);
            }
            while (remote.send(sender, "done") == MessagePortStatus::SendTimeout) {
            }
        });
    }
    loop_.run();
    for (const auto& numbers : received) {
        ASSERT_EQ(numbers.size(), std::size_t{Messages});
        EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    }
}

TEST_F(Ports, OwnTheirNamesForAsLongAsTheyLive)
{
    listen([](std::int32_t, const std::string&) { return std::nullopt; });
    EXPECT_EQ(MessagePort::CreateLocal("here", nullptr), nullptr);
    EXPECT_FALSE(RemoteMessagePort::Create("there"));
    port_.reset();
    EXPECT_FALSE(RemoteMessagePort::Create("here"));
    EXPECT_EQ(remote_->send(1, ""), MessagePortStatus::IsInvalid);
    EXPECT_NE(MessagePort::CreateLocal("here", nullptr), nullptr);
}

TEST_F(Ports, TellASenderThatNobodyReceives)
{
    int handled = 0;
    listen([&](std::int32_t, const std::string&) {
        handled += 1;
        return "late";
    });
    EXPECT_EQ(remote_->request(1, "", Short, {}, answer_), MessagePortStatus::ReceiveTimeout);
    turnAll(); // the answer finds nobody who waits
    EXPECT_EQ(handled, 1);

    std::stop_source stop;
    std::jthread stopper([&] { stop.request_stop(); });
    EXPECT_EQ(remote_->request(2, "", Long, stop.get_token(), answer_),
              MessagePortStatus::ReceiveTimeout);

    int sent = 0;
    while (sent < 10'000 && remote_->send(3, "") == MessagePortStatus::Success) {
        sent += 1;
    }
    EXPECT_LT(sent, 10'000);
    EXPECT_GT(sent, 10);

    auto waiting = std::async(std::launch::async, [&] {
        MessagePortStatus status = MessagePortStatus::SendTimeout;
        while (status == MessagePortStatus::SendTimeout) { // until there is room
            status = remote_->request(4, "", Long, {}, answer_);
        }
        return status;
    });
    loop_.turn();
    loop_.turn();
    std::this_thread::sleep_for(Short);
    port_.reset();
    EXPECT_THAT(waiting.get(), testing::AnyOf(MessagePortStatus::BecameInvalid, // was in the queue
                                              MessagePortStatus::IsInvalid));
}

TEST_F(Ports, HandleMessagesInsideAHandlerThatTurnsTheLoop)
{
    std::vector<int> order;
    listen([&](std::int32_t identifier, const std::string&) {
        order.push_back(identifier);
        if (identifier == 1) { // as a modal dialog does
            turnAll();
        }
        order.push_back(-identifier);
        return std::nullopt;
    });
    for (const int identifier : {1, 2, 3}) {
        remote_->send(identifier, "");
    }
    turnAll();
    EXPECT_THAT(order, ElementsAre(1, 2, -2, 3, -3, -1));
}

TEST_F(Ports, SurviveHandlersThatThrowOrEndThem)
{
    listen([&](std::int32_t identifier, const std::string&) -> std::optional<std::string> {
        if (identifier == 1) {
            throw std::runtime_error("handler");
        }
        port_.reset();
        return "last words";
    });
    for (const int identifier : {1, 2}) {
        auto answered = std::async(std::launch::async, [&, identifier] {
            std::string answer = "none";
            EXPECT_EQ(remote_->request(identifier, "", Long, {}, answer),
                      MessagePortStatus::Success);
            return answer;
        });
        while (answered.wait_for(milliseconds(1)) != std::future_status::ready) {
            loop_.turn();
        }
        EXPECT_EQ(answered.get(), identifier == 1 ? "" : "last words");
    }
}

TEST(Tasks, TurnALoopOfTheirOwnUntilTheyAreStopped)
{
    std::promise<int> ended;
    RunLoop loop;
    ASSERT_EQ(StartTask([&ended, loop]() mutable {
                  loop.run();
                  ended.set_value(CurrentTaskID());
                  throw std::runtime_error("the task's own affair");
              }),
              StatusOk);
    loop.stop(); // maybe before it runs
    auto end = ended.get_future();
    ASSERT_EQ(end.wait_for(Long), std::future_status::ready);
    EXPECT_NE(end.get(), CurrentTaskID());
}

TEST(WindowEvents, ReachTheirWindowWhileItIsThere)
{
    std::vector<std::uint32_t> kinds;
    std::unique_ptr<WindowEventHandler> first;
    first = std::make_unique<WindowEventHandler>([&](const Event& event) {
        kinds.push_back(event.kind);
        first.reset(); // closes its window
        return StatusOk;
    });
    const WindowEventHandler second([](const Event&) { return StatusBadArgument; });
    const WindowID window = first->window();
    EXPECT_EQ(SendEventToWindow(window, {1, 7}), StatusOk);
    EXPECT_EQ(SendEventToWindow(window, {1, 8}), EventNotHandled);
    EXPECT_EQ(SendEventToWindow(second.window(), {1, 9}), StatusBadArgument);
    EXPECT_EQ(SendEventToWindow(0, {1, 9}), EventNotHandled);
    EXPECT_THAT(kinds, ElementsAre(7));
}

} // namespace
} // namespace tarvo
