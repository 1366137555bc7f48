#include "platform/files/FileContents.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <utility>

namespace tarvo {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t Megabyte = 1024 * 1024;

// Every test has a folder of its own.
class FileContents : public testing::Test {
protected:
    FileContents()
    {
        EXPECT_NE(mkdtemp(folder_.data()), nullptr);
        umask(022);
    }
    ~FileContents() override { fs::remove_all(folder_); }

    std::string path(const char* name) const { return fs::path(folder_) / name; }
    void write(const char* name, std::string_view bytes) { std::ofstream(path(name)) << bytes; }
    std::optional<std::string> read(const char* name)
    {
        return ReadFileContents(path(name), Megabyte, reason_);
    }
    bool replace(const char* name, std::string_view bytes)
    {
        return ReplaceFileContents(path(name), bytes, reason_);
    }
    std::ptrdiff_t fileCount() const
    {
        return std::distance(fs::directory_iterator(folder_), fs::directory_iterator());
    }

    std::string folder_ = testing::TempDir() + "tarvo-files-XXXXXX";
    std::string reason_;
};

TEST_F(FileContents, AreReadUpToTheLimitWithASizeOrWithout)
{
    const std::string bytes(Megabyte, '\0');
    write("a", bytes);
    EXPECT_EQ(read("a"), bytes);
    write("a", bytes + "x");
    for (const char* large : {"a", "/dev/zero"}) {
        EXPECT_EQ(read(large), std::nullopt);
        EXPECT_EQ(std::exchange(reason_, ""), "larger than 1 MiB");
    }
    EXPECT_GT(read("/proc/self/stat").value_or("").size(), 50U);
}

TEST_F(FileContents, ThatCannotBeHadSayWhyAndStay)
{
    fs::create_symlink("loop", path("loop"));
    write("file", "old");
    const std::pair<const char*, const char*> cases[] = {
        {"missing/a", "No such file or directory"        },
        {"file/a",    "Not a directory"                  },
        {".",         "Is a directory"                   },
        {"loop",      "Too many levels of symbolic links"},
    };
    for (const auto& [name, reason] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(read(name), std::nullopt);
        EXPECT_EQ(std::exchange(reason_, ""), reason);
        EXPECT_FALSE(replace(name, "new"));
        EXPECT_EQ(reason_, reason);
    }
    EXPECT_EQ(read("file"), "old");
    EXPECT_EQ(fileCount(), 2);
}

TEST_F(FileContents, GoToPipesAndDevicesAsTheyAre)
{
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    const int pipe = open(path("pipe").c_str(), O_RDWR | O_NONBLOCK);
    EXPECT_TRUE(replace("pipe", "text")) << reason_;
    char got[8] = {};
    EXPECT_EQ(::read(pipe, got, sizeof got), 4);
    EXPECT_STREQ(got, "text");
    close(pipe);
    ASSERT_TRUE(fs::is_fifo(path("pipe"))); // or root would replace the devices below
    fs::create_symlink("/dev/null", path("null"));
    EXPECT_TRUE(replace("null", "text")) << reason_;
    EXPECT_FALSE(replace("/dev/full", "text"));
    EXPECT_EQ(reason_, "No space left on device");
}

TEST_F(FileContents, AreReadInPiecesFromRegularFilesOnly)
{
    write("a", "text");
    constexpr std::size_t Most = std::size_t{1} << 20;
    auto file = FileReader::Open(path("a"), Most, reason_);
    ASSERT_TRUE(file) << reason_;
    char got[3] = {};
    EXPECT_EQ(file->read(got, sizeof got, reason_), 3U);
    EXPECT_EQ(std::string(got, 3), "tex");
    EXPECT_EQ(file->read(got, sizeof got, reason_), 1U);
    EXPECT_EQ(file->read(got, sizeof got, reason_), 0U);
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    write("large", std::string(Most + 1, 'x'));
    const std::pair<std::string, const char*> refused[] = {
        {path("large"),  "larger than 1 MiB"        },
        {path("pipe"),   "not a regular file"       }, // nobody writes: it must not be waited for
        {"/dev/zero",    "not a regular file"       },
        {folder_,        "Is a directory"           },
        {path("absent"), "No such file or directory"},
    };
    for (const auto& [name, reason] : refused) {
        EXPECT_FALSE(FileReader::Open(name, Most, reason_)) << name;
        EXPECT_EQ(reason_, reason) << name;
    }
}

TEST_F(FileContents, AreReplacedWithNothingLeftBesideAndTheirPermissions)
{
    using namespace std::string_literals;
    const auto mode = [this] { return fs::status(path("a")).permissions(); };
    ASSERT_TRUE(replace("a", "long text")) << reason_;
    EXPECT_EQ(mode(), fs::perms(0644));
    fs::create_hard_link(path("a"), path("other name"));
    for (const fs::perms kept : {fs::perms(0600), fs::perms(0666), fs::perms(0444)}) {
        fs::permissions(path("a"), kept);
        ASSERT_TRUE(replace("a", "a\0b"s)) << reason_;
        EXPECT_EQ(mode(), kept);
    }
    EXPECT_EQ(read("a"), "a\0b"s);
    EXPECT_EQ(read("other name"), "long text"); // never written into
    ASSERT_TRUE(replace("a", {})) << reason_;
    EXPECT_EQ(read("a"), "");
    EXPECT_EQ(fileCount(), 2);
}

TEST_F(FileContents, AreReplacedPieceByPieceOrNotAtAll)
{
    const auto pieces = [](bool isWhole) {
        return [isWhole](const FilePut& put) { return put("one ") && put("two") && isWhole; };
    };
    ASSERT_TRUE(ReplaceFileContents(path("a"), pieces(true), reason_)) << reason_;
    EXPECT_EQ(read("a"), "one two");
    write("a", "old");
    EXPECT_FALSE(ReplaceFileContents(path("a"), pieces(false), reason_));
    EXPECT_EQ(reason_, "");
    EXPECT_EQ(read("a"), "old");
    EXPECT_EQ(fileCount(), 1);
    EXPECT_FALSE(ReplaceFileContents("/dev/full", pieces(true), reason_));
    EXPECT_EQ(reason_, "No space left on device");
}

TEST_F(FileContents, AreReplacedBehindLinks)
{
    fs::create_directory(path("sub"));
    fs::create_symlink("sub/second", path("first"));
    fs::create_symlink("file", path("sub/second"));
    for (const char* text : {"made", "replaced"}) {
        ASSERT_TRUE(replace("first", text)) << reason_;
        EXPECT_EQ(read("sub/file"), text);
    }
    EXPECT_TRUE(fs::is_symlink(path("first")));
    EXPECT_TRUE(fs::is_symlink(path("sub/second")));
}

TEST_F(FileContents, StayInAReadOnlyFolder)
{
    write("a", "old");
    fs::permissions(folder_, fs::perms(0555));
    const uid_t user = geteuid();
    constexpr uid_t Nobody = 65534; // nothing is read-only for root
    ASSERT_EQ(user == 0 ? seteuid(Nobody) : 0, 0);
    EXPECT_FALSE(replace("a", "new"));
    EXPECT_EQ(reason_, "Permission denied");
    ASSERT_EQ(user == 0 ? seteuid(user) : 0, 0);
    fs::permissions(folder_, fs::perms(0755));
    EXPECT_EQ(read("a"), "old");
}

} // namespace
} // namespace tarvo
