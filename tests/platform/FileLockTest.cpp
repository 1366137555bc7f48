#include "platform/files/FileLock.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>

namespace tarvo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class FileLockTest : public testing::Test {
protected:
    FileLockTest() { EXPECT_NE(mkdtemp(folder_.data()), nullptr); }
    ~FileLockTest() override { fs::remove_all(folder_); }
    std::string path(const char* name) const { return folder_ + "/" + name; }
    // The system lists who waits for a lock: "1: -> FLOCK ... device:inode 0 EOF".
    bool somebodyWaits() const
    {
        struct stat status = {};
        EXPECT_EQ(stat(path("lock").c_str(), &status), 0);
        const std::string file = ':' + std::to_string(status.st_ino) + ' ';
        std::ifstream locks("/proc/locks");
        for (std::string line; std::getline(locks, line);) {
            if (line.find("-> FLOCK") != line.npos && line.find(file) != line.npos) {
                return true;
            }
        }
        return false;
    }

    std::string folder_ = testing::TempDir() + "tarvo-lock-XXXXXX";
};

TEST_F(FileLockTest, IsHeldByOneAtATime)
{
    std::optional<FileLock> first(std::in_place, path("lock"), 0ms);
    EXPECT_EQ(first->state(), FileLock::State::Held);
    EXPECT_EQ(FileLock(path("other"), 0ms).state(), FileLock::State::Held);
    const auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(FileLock(path("lock"), 30ms).state(), FileLock::State::TimedOut);
    EXPECT_GE(std::chrono::steady_clock::now() - before, 30ms);
    std::thread release([&first] {
        std::this_thread::sleep_for(20ms);
        first.reset();
    });
    EXPECT_EQ(FileLock(path("lock"), 60s).state(), FileLock::State::Held);
    release.join();
    // Nothing of the one that gave up keeps it.
    EXPECT_EQ(FileLock(path("lock"), 60s).state(), FileLock::State::Held);
}

TEST_F(FileLockTest, GoesToWhoWaitsBeforeWhoComesAgain)
{
    for (int round = 0; round < 20; ++round) {
        std::optional<FileLock> mine(std::in_place, path("lock"), 0ms);
        std::atomic<bool> isTaken = false;
        std::thread other([this, &isTaken] {
            const FileLock lock(path("lock"), 60s);
            isTaken = true;
        });
        while (!somebodyWaits()) {
            std::this_thread::yield();
        }
        int turns = 0;
        while (!isTaken && turns < 1000) {
            mine.reset();
            mine.emplace(path("lock"), 60s);
            ++turns;
        }
        mine.reset();
        other.join();
        EXPECT_EQ(turns, 1);
    }
}

TEST_F(FileLockTest, GoesWithItsProcess)
{
    const pid_t holder = fork();
    if (holder == 0) {
        const FileLock lock(path("lock"), 0ms);
        raise(lock.state() == FileLock::State::Held ? SIGSTOP : SIGABRT);
        pause();
    }
    int status = 0;
    ASSERT_EQ(waitpid(holder, &status, WUNTRACED), holder);
    ASSERT_TRUE(WIFSTOPPED(status));
    EXPECT_EQ(FileLock(path("lock"), 0ms).state(), FileLock::State::TimedOut);
    ASSERT_EQ(kill(holder, SIGKILL), 0);
    ASSERT_EQ(waitpid(holder, &status, 0), holder);
    EXPECT_EQ(FileLock(path("lock"), 0ms).state(), FileLock::State::Held);
}

TEST_F(FileLockTest, IsImpossibleWhereNoFileOfItsOwnCanBe)
{
    fs::create_symlink("elsewhere", path("link"));
    fs::create_directory(path("folder"));
    for (const char* name : {"missing/lock", "link", "folder"}) {
        EXPECT_EQ(FileLock(path(name), 0ms).state(), FileLock::State::Impossible) << name;
    }
    EXPECT_FALSE(fs::exists(path("elsewhere")));
}

} // namespace
} // namespace tarvo
