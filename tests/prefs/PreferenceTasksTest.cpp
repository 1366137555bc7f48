#include "prefs/PreferenceTasks.h"

#include "prefs/PreferenceFolderFixture.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace tarvo {
namespace {

using namespace std::chrono_literals;

// Keeps the task of the changes busy until it is opened.
class Gate {
public:
    void open()
    {
        const std::lock_guard lock(mutex_);
        isOpen_ = true;
        opened_.notify_all();
    }
    void pass()
    {
        std::unique_lock lock(mutex_);
        opened_.wait(lock, [this] { return isOpen_; });
    }

private:
    std::mutex mutex_;
    std::condition_variable opened_;
    bool isOpen_ = false;
};

// Its destruction is a change too, as that of a list of papers.
class Last {
public:
    explicit Last(std::string& words) : words_(words) {}
    Last(const Last&) = delete;
    Last& operator=(const Last&) = delete;
    ~Last() { words_ += "destroyed "; }

private:
    std::string& words_;
};

TEST(PreferenceTasks, AreDoneInTheOrderInWhichTheyCame)
{
    Gate gate;
    std::string words;
    testing::internal::CaptureStderr();
    StartPreferenceChange([&] {
        gate.pass();
        words += "choose ";
        throw std::runtime_error("no memory");
    });
    StartPreferenceChange([&, last = std::make_shared<Last>(words)] { words += "clear "; });
    StartPreferenceChange([&] { words += "choose again"; });
    EXPECT_FALSE(AwaitPreferenceChanges(20ms));
    EXPECT_EQ(words, "");
    gate.open();
    EXPECT_TRUE(AwaitPreferenceChanges(20s));
    EXPECT_EQ(words, "choose clear destroyed choose again");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "WriteUserPreferences() failed: no memory\n");
}

using PreferenceTasksTest = PreferenceFolderFixture;

TEST_F(PreferenceTasksTest, AreDoneBeforeTheProcessEnds)
{
    const auto changeAndEnd = [this] {
        StartPreferenceChange([this] {
            std::this_thread::sleep_for(100ms);
            static_cast<void>(change("file", "number", 7));
        });
        std::exit(0);
    };
    EXPECT_EXIT(changeAndEnd(), testing::ExitedWithCode(0), "^$");
    EXPECT_TRUE(CopyUserPreferences(folders_, "file"));
}

} // namespace
} // namespace tarvo
