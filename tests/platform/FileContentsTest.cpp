#include "platform/files/FileContents.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <thread>

namespace tarvo {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t Megabyte = 1024 * 1024;

std::string BytesOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteBytes(const fs::path& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

unsigned ModeOf(const fs::path& path)
{
    return static_cast<unsigned>(fs::status(path).permissions());
}

// Every test has a folder of its own and the usual mask.
class FileContents : public testing::Test {
protected:
    void SetUp() override
    {
        std::string name = (fs::temp_directory_path() / "tarvo-files-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder_ = name;
        mask_ = umask(022);
    }
    void TearDown() override
    {
        umask(mask_);
        fs::permissions(folder_, fs::perms::owner_all);
        fs::remove_all(folder_);
    }

    std::string path(const char* name) const { return (folder_ / name).string(); }
    std::ptrdiff_t fileCount() const
    {
        return std::distance(fs::directory_iterator(folder_), fs::directory_iterator());
    }

    fs::path folder_;
    mode_t mask_ = 0;
    std::string reason_;
};

TEST_F(FileContents, AreReadUpToTheLimit)
{
    const std::string bytes(Megabyte, '\0');
    WriteBytes(path("a"), bytes);
    EXPECT_EQ(ReadFileContents(path("a"), Megabyte, reason_), bytes);
    WriteBytes(path("a"), bytes + "x");
    EXPECT_EQ(ReadFileContents(path("a"), Megabyte, reason_), std::nullopt);
    EXPECT_EQ(reason_, "larger than 1 MiB");
    WriteBytes(path("a"), "");
    EXPECT_EQ(ReadFileContents(path("a"), Megabyte, reason_), "");
}

TEST_F(FileContents, AreReadFromWhatHasNoSize)
{
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    const std::string bytes(300'000, 'x');
    std::thread writer([this, &bytes] { WriteBytes(path("pipe"), bytes); });
    EXPECT_EQ(ReadFileContents(path("pipe"), Megabyte, reason_), bytes);
    writer.join();
    EXPECT_TRUE(ReadFileContents("/proc/self/stat", Megabyte, reason_).value_or("").size() > 50);
    EXPECT_EQ(ReadFileContents("/dev/zero", Megabyte, reason_), std::nullopt);
    EXPECT_EQ(reason_, "larger than 1 MiB");
}

TEST_F(FileContents, ThatCannotBeReadSayWhy)
{
    fs::create_symlink("loop", folder_ / "loop");
    struct UnreadableCase {
        std::string path;
        const char* reason;
    };
    const UnreadableCase cases[] = {
        {path("missing"), "No such file or directory"        },
        {path("."),       "Is a directory"                   },
        {path("loop"),    "Too many levels of symbolic links"},
        {"",              "No such file or directory"        },
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(ReadFileContents(row.path, Megabyte, reason_), std::nullopt);
        EXPECT_EQ(reason_, row.reason);
    }
}

TEST_F(FileContents, AreReplacedWithNothingLeftBeside)
{
    using namespace std::string_literals;
    ASSERT_TRUE(ReplaceFileContents(path("a"), "long text", reason_)) << reason_;
    EXPECT_EQ(ModeOf(path("a")), 0644U);
    fs::create_hard_link(path("a"), path("other name"));
    ASSERT_TRUE(ReplaceFileContents(path("a"), "a\0b"s, reason_)) << reason_;
    EXPECT_EQ(BytesOf(path("a")), "a\0b"s);
    EXPECT_EQ(BytesOf(path("other name")), "long text"); // never written into
    ASSERT_TRUE(ReplaceFileContents(path("a"), {}, reason_)) << reason_;
    EXPECT_EQ(BytesOf(path("a")), "");
    EXPECT_EQ(fileCount(), 2);
}

TEST_F(FileContents, KeepTheirPermissions)
{
    WriteBytes(path("a"), "old");
    for (const unsigned mode : {0600U, 0666U, 0444U}) {
        SCOPED_TRACE(mode);
        fs::permissions(path("a"), static_cast<fs::perms>(mode));
        ASSERT_TRUE(ReplaceFileContents(path("a"), "new", reason_)) << reason_;
        EXPECT_EQ(ModeOf(path("a")), mode);
    }
}

TEST_F(FileContents, AreReplacedBehindLinks)
{
    fs::create_directory(folder_ / "sub");
    WriteBytes(path("sub/file"), "old");
    fs::create_symlink("sub/second", folder_ / "first");
    fs::create_symlink("file", folder_ / "sub/second");
    ASSERT_TRUE(ReplaceFileContents(path("first"), "new", reason_)) << reason_;
    EXPECT_EQ(BytesOf(path("sub/file")), "new");

    fs::remove(folder_ / "sub/file");
    ASSERT_TRUE(ReplaceFileContents(path("first"), "made", reason_)) << reason_;
    EXPECT_EQ(BytesOf(path("sub/file")), "made");
    EXPECT_TRUE(fs::is_symlink(folder_ / "first"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "sub/second"));
}

TEST_F(FileContents, GoToPipesAndDevicesAsTheyAre)
{
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    std::string got;
    std::thread reader([this, &got] { got = BytesOf(path("pipe")); });
    EXPECT_TRUE(ReplaceFileContents(path("pipe"), "text", reason_)) << reason_;
    reader.join();
    EXPECT_EQ(got, "text");
    EXPECT_TRUE(fs::is_fifo(path("pipe")));
    fs::create_symlink("/dev/null", folder_ / "null");
    EXPECT_TRUE(ReplaceFileContents(path("null"), "text", reason_)) << reason_;
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(FileContents, ThatCannotBeReplacedSayWhyAndStay)
{
    fs::create_symlink("loop", folder_ / "loop");
    WriteBytes(path("file"), "old");
    struct UnwritableCase {
        std::string path;
        const char* reason;
    };
    const UnwritableCase cases[] = {
        {path("missing/a"), "No such file or directory"        },
        {path("file/a"),    "Not a directory"                  },
        {path("."),         "Is a directory"                   },
        {path("loop"),      "Too many levels of symbolic links"},
        {"/dev/full",       "No space left on device"          },
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.path);
        EXPECT_FALSE(ReplaceFileContents(row.path, "new", reason_));
        EXPECT_EQ(reason_, row.reason);
    }
    EXPECT_EQ(BytesOf(path("file")), "old");
    EXPECT_EQ(fileCount(), 2);
}

TEST_F(FileContents, StayInAReadOnlyFolder)
{
    WriteBytes(path("a"), "old");
    fs::permissions(folder_, static_cast<fs::perms>(0555));
    const uid_t user = geteuid();
    constexpr uid_t Nobody = 65534; // nothing is read-only for root
    ASSERT_EQ(user == 0 ? seteuid(Nobody) : 0, 0);
    EXPECT_FALSE(ReplaceFileContents(path("a"), "new", reason_));
    ASSERT_EQ(user == 0 ? seteuid(user) : 0, 0);
    EXPECT_EQ(reason_, "Permission denied");
    EXPECT_EQ(BytesOf(path("a")), "old");
    EXPECT_EQ(fileCount(), 1);
}

} // namespace
} // namespace tarvo
