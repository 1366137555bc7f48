// What happens to a preference file when its writer is killed, has rivals, or when the system
// refuses something half-way.
#include "FailingCall.h"
#include "PreferenceFolderFixture.h"

#include <sys/wait.h>

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <thread>

namespace tarvo {
namespace {

namespace fs = std::filesystem;

class PreferenceFaults : public PreferenceFolderFixture {
protected:
    std::int32_t number(std::string_view key) const
    {
        const auto root = CopyUserPreferences(folders_, "file");
        return root ? root->int32(key).value_or(-1) : -2;
    }
};

struct FaultCase {
    const char* name;
    const char* call;
    int error;
    int after;
};

constexpr FaultCase FaultCases[] = {
    {"disk full at once",     "write",  ENOSPC, 0},
    {"disk full half-way",    "write",  ENOSPC, 2},
    {"over the user's share", "write",  EDQUOT, 1},
    {"disk broken",           "write",  EIO,    1},
    {"never on the disk",     "fsync",  EIO,    0},
    {"not renamed",           "rename", EPERM,  0},
};

TEST_F(PreferenceFaults, LeaveTheOldFileAndSayWhy)
{
    ASSERT_TRUE(change("file", "x", 1));
    for (const FaultCase& row : FaultCases) {
        SCOPED_TRACE(row.name);
        testing::internal::CaptureStderr();
        {
            const FailingCall call(row.call, row.error, row.after);
            EXPECT_FALSE(change("file", "x", 2));
            EXPECT_FALSE(WriteUserPreferences(folders_, "file", CFDictionary()));
        }
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "WriteUserPreferences() failed (" + std::to_string(row.error) + ")\n");
        EXPECT_EQ(failure_.message(),
                  "cannot write " + userPath("file") + ": " + strerror(row.error));
        EXPECT_EQ(number("x"), 1);
        EXPECT_EQ(names(folders_.user), (std::vector<std::string>{"file", "file.lock"}));
    }
    EXPECT_TRUE(change("file", "x", 3)) << failure_.message();
    EXPECT_EQ(number("x"), 3);
}

TEST_F(PreferenceFaults, LeaveTheOldFileInAReadOnlyFolder)
{
    constexpr uid_t Nobody = 65534; // nothing is read-only for root
    const uid_t user = geteuid();
    ASSERT_TRUE(change("file", "x", 1));
    if (user == 0) {
        for (const auto& path : {root_, folders_.user, userPath("file"), userPath("file.lock")}) {
            ASSERT_EQ(chown(path.c_str(), Nobody, Nobody), 0);
        }
        fs::permissions(root_ + "/config", fs::perms(0755));
        ASSERT_EQ(seteuid(Nobody), 0);
    }
    fs::permissions(folders_.user, fs::perms(0500));
    EXPECT_FALSE(change("file", "x", 2));
    EXPECT_EQ(failure_.message(), "cannot write " + userPath("file") + ": Permission denied");
    EXPECT_FALSE(change("new", "x", 2));
    EXPECT_EQ(failure_.error, EACCES);
    folders_.user += "/below";
    EXPECT_FALSE(change("file", "x", 2));
    EXPECT_EQ(failure_.message(), "cannot make " + folders_.user + ": Permission denied");
    folders_.user = fs::path(folders_.user).parent_path();
    ASSERT_EQ(user == 0 ? seteuid(user) : 0, 0);
    EXPECT_EQ(number("x"), 1);
}

// Runs the work in a process of its own.
template <typename Work>
pid_t Start(const Work& work)
{
    const pid_t process = fork();
    if (process == 0) {
        _exit(work() ? 0 : 1);
    }
    return process;
}

TEST_F(PreferenceFaults, LoseNoChangeOfManyWriters)
{
    constexpr int Processes = 64;
    constexpr int Changes = 20;
    std::vector<pid_t> writers;
    writers.reserve(Processes);
    for (int writer = 0; writer < Processes; ++writer) {
        writers.push_back(Start([this, writer] {
            for (int round = 0; round < Changes; ++round) {
                const std::string key = std::to_string(writer) + "." + std::to_string(round);
                while (!change("file", key, round)) {
                    if (failure_.error != EAGAIN) { // a turn may come late on a busy machine
                        return false;
                    }
                }
            }
            return true;
        }));
    }
    for (const pid_t writer : writers) {
        int status = -1;
        EXPECT_EQ(waitpid(writer, &status, 0), writer);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(CopyUserPreferences(folders_, "file").value_or(CFDictionary()).size(),
              std::size_t{Processes} * Changes);
    EXPECT_EQ(names(folders_.user), (std::vector<std::string>{"file", "file.lock"}));
}

// The file that the writer below makes: its text tells whether it is whole.
CFDictionary NumberedRoot(std::int32_t number)
{
    CFDictionary root;
    root.set("number", number);
    root.set("text", std::string(20000, static_cast<char>('a' + number % 26)));
    return root;
}

// Saves one numbered file after the other and tells each that is saved.
[[noreturn]] void SaveForEver(const PreferenceFolders& folders, std::int32_t number, int saved)
{
    PreferenceFailure failure;
    while (ChangeUserPreferences(
        folders, "file",
        [&number](CFDictionary& root, bool) {
            root = NumberedRoot(++number);
            return true;
        },
        failure)) {
        if (write(saved, &number, sizeof number) != sizeof number) {
            break;
        }
    }
    _exit(1);
}

// The number that an environment variable gives.
unsigned NumberOf(const char* variable, unsigned otherwise)
{
    const char* text = std::getenv(variable);
    return text == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

// TARVO_TEST_KILLS and TARVO_TEST_SEED make it longer and repeat it.
TEST_F(PreferenceFaults, LeaveAWholeFileWhenTheWriterIsKilled)
{
    const unsigned moments = NumberOf("TARVO_TEST_KILLS", 50);
    const unsigned seed = NumberOf("TARVO_TEST_SEED", std::random_device{}());
    std::printf("TARVO_TEST_KILLS=%u TARVO_TEST_SEED=%u\n", moments, seed);
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> microseconds(0, 4000);
    ASSERT_TRUE(WriteUserPreferences(folders_, "file", NumberedRoot(0)));
    std::int32_t number = 0;
    for (unsigned moment = 0; moment < moments; ++moment) {
        int saved[2] = {};
        ASSERT_EQ(pipe(saved), 0);
        const pid_t writer = fork();
        if (writer == 0) {
            close(saved[0]);
            SaveForEver(folders_, number, saved[1]);
        }
        close(saved[1]);
        ASSERT_EQ(read(saved[0], &number, sizeof number), ssize_t{sizeof number}); // it is at work
        const int pause = microseconds(random);
        std::this_thread::sleep_for(std::chrono::microseconds(pause));
        int status = 0;
        ASSERT_EQ(kill(writer, SIGKILL), 0);
        ASSERT_EQ(waitpid(writer, &status, 0), writer);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the writer failed";
        std::int32_t told = 0;
        while (read(saved[0], &told, sizeof told) == sizeof told) {
            number = told;
        }
        close(saved[0]);
        // What was saved is there, or what was about to be.
        const auto root = CopyUserPreferences(folders_, "file", &failure_);
        ASSERT_TRUE(root.has_value()) << failure_.message();
        const std::int32_t found = root->int32("number").value_or(-1);
        ASSERT_TRUE(found == number || found == number + 1) << found << ", told " << number;
        ASSERT_EQ(*root, NumberedRoot(found));
        number = found;
    }
}

} // namespace
} // namespace tarvo
