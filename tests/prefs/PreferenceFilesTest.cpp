#include "prefs/PreferenceFiles.h"

#include "FailingCall.h"
#include "PreferenceFolderFixture.h"
#include "platform/files/FileContents.h"

namespace tarvo {
namespace {

namespace fs = std::filesystem;

using PreferenceFiles = PreferenceFolderFixture;

CFDictionary Number(const char* key, int number)
{
    CFDictionary root;
    root.set(key, number);
    return root;
}

std::string ReadText(const std::string& path)
{
    std::string reason;
    return ReadFileContents(path, 10000, reason).value_or(reason);
}

TEST_F(PreferenceFiles, AreThereForTheirUserAlone)
{
    const auto mode = [](const std::string& path) { return fs::status(path).permissions(); };
    EXPECT_EQ(CopyUserPreferences(folders_, "a", &failure_), std::nullopt);
    EXPECT_EQ(failure_.error, ENOENT);
    ASSERT_TRUE(WriteUserPreferences(folders_, "a", Number("x", 1)));
    EXPECT_EQ(CopyUserPreferences(folders_, "a"), Number("x", 1));
    EXPECT_EQ(mode(folders_.user), fs::perms(0700));
    EXPECT_EQ(mode(userPath("a")), fs::perms(0600));
    fs::permissions(userPath("a"), fs::perms(0644));
    ASSERT_TRUE(change("a", "y", 2));
    EXPECT_EQ(CopyUserPreferences(folders_, "a")->size(), 2U);
    EXPECT_EQ(mode(userPath("a")), fs::perms(0600));
    EXPECT_EQ(names(folders_.user), (std::vector<std::string>{"a", "a.lock"}));
    EXPECT_EQ(mode(userPath("a.lock")), fs::perms(0600));
}

TEST_F(PreferenceFiles, AreReadFromTheFirstSiteFolderAndWrittenToTheUsers)
{
    EXPECT_EQ(CopyXMLData(folders_, "w"), std::nullopt);
    putNumber(sitePath("w", 1), "x", 1);
    EXPECT_EQ(CopyXMLData(folders_, "w"), Number("x", 1));
    const auto setX = [](CFDictionary& root, bool isPresent) {
        EXPECT_TRUE(isPresent);
        root.set("x", 2);
        return true;
    };
    ASSERT_TRUE(ChangeXMLData(folders_, "w", setX, failure_)) << failure_.message();
    EXPECT_EQ(CopyXMLData(folders_, "w"), Number("x", 2));
    fs::remove(sitePath("w"));
    EXPECT_EQ(CopyXMLData(folders_, "w"), Number("x", 1));
    EXPECT_EQ(names(folders_.site[1]), std::vector<std::string>{"w"});
}

TEST_F(PreferenceFiles, HaveAFolderMadeForTheirPath)
{
    EXPECT_EQ(CopyPreferenceFileURL(folders_, "w"), sitePath("w"));
    EXPECT_TRUE(fs::is_directory(folders_.site[0]));
    put(sitePath("file"), "");
    folders_.site[0] = sitePath("file");
    EXPECT_EQ(CopyPreferenceFileURL(folders_, "w"), std::nullopt);
}

TEST_F(PreferenceFiles, BehindALinkAreLeftAlone)
{
    putNumber(root_ + "/target", "x", 1);
    const std::string before = ReadText(root_ + "/target");
    for (const auto& path : {userPath("a"), sitePath("a")}) {
        fs::create_directories(fs::path(path).parent_path());
        fs::create_symlink(root_ + "/target", path);
    }
    const auto isRefused = [this](bool done) {
        return !done && std::exchange(failure_, {}).error == ELOOP;
    };
    EXPECT_TRUE(isRefused(CopyUserPreferences(folders_, "a", &failure_).has_value()));
    EXPECT_TRUE(isRefused(CopyXMLData(folders_, "a", &failure_).has_value()));
    EXPECT_TRUE(isRefused(change("a", "x", 2)));
    EXPECT_TRUE(isRefused(ChangeXMLData(
        folders_, "a", [](CFDictionary&, bool) { return true; }, failure_)));
    testing::internal::CaptureStderr();
    EXPECT_TRUE(isRefused(WriteUserPreferences(folders_, "a", Number("x", 2), &failure_)));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "WriteUserPreferences() failed (40)\n");
    EXPECT_EQ(ReadText(root_ + "/target"), before);
    EXPECT_TRUE(fs::is_symlink(userPath("a")));
}

TEST_F(PreferenceFiles, ThatAreNoFilesFailAtOnce)
{
    fs::create_directories(userPath("folder"));
    ASSERT_EQ(mkfifo(userPath("pipe").c_str(), 0600), 0);
    for (const auto& [name, error] : {
             std::pair("folder", EISDIR), {"pipe", EINVAL}
    }) {
        EXPECT_FALSE(change(name, "x", 1));
        EXPECT_EQ(failure_.error, error);
        EXPECT_EQ(failure_.path, userPath(name));
    }
}

TEST_F(PreferenceFiles, ThatNobodyUnderstandsAreSetAside)
{
    const std::pair<const char*, const char*> broken[] = {
        {"a.unreadable",   "not a list"                             },
        {"a.unreadable.2", "<plist version=\"1.0\"><array/></plist>"},
    };
    for (const auto& [kept, text] : broken) {
        put(userPath("a"), text);
        EXPECT_EQ(CopyUserPreferences(folders_, "a", &failure_), std::nullopt);
        EXPECT_EQ(failure_.error, 0);
        ASSERT_TRUE(change("a", "x", 1)) << failure_.message();
        EXPECT_EQ(failure_.keptAs, userPath(kept));
        EXPECT_EQ(CopyUserPreferences(folders_, "a"), Number("x", 1));
    }
    put(userPath("a"), "of no use to this writer");
    ASSERT_TRUE(WriteUserPreferences(folders_, "a", Number("x", 1)));
    EXPECT_EQ(ReadText(userPath("a.unreadable.3")), "of no use to this writer");
    for (const auto& [kept, text] : broken) {
        EXPECT_EQ(ReadText(userPath(kept)), text);
    }
}

TEST_F(PreferenceFiles, AreSetAsideOnlyToBeReplacedAndAHundredTimes)
{
    const auto leaveIt = [](CFDictionary&, bool isPresent) { return isPresent; };
    put(userPath("a"), "broken");
    EXPECT_TRUE(ChangeUserPreferences(folders_, "a", leaveIt, failure_));
    EXPECT_EQ(names(folders_.user), (std::vector<std::string>{"a", "a.lock"}));
    for (int time = 0; time < 2; ++time) {
        const FailingCall call("write", ENOSPC);
        EXPECT_FALSE(change("a", "x", 1));
        EXPECT_EQ(names(folders_.user), (std::vector<std::string>{"a", "a.lock", "a.unreadable"}));
    }
    for (int time = 1; time <= 100; ++time) {
        put(userPath("a"), "broken");
        EXPECT_TRUE(change("a", "x", 1)) << failure_.message();
    }
    put(userPath("a"), "broken");
    EXPECT_FALSE(change("a", "x", 1));
    EXPECT_EQ(failure_.message(), "cannot set aside " + userPath("a") + ": File exists");
    EXPECT_EQ(ReadText(userPath("a")), "broken");
}

TEST_F(PreferenceFiles, OfASiteSayOnStandardErrorWhatIsWrongWithThem)
{
    put(sitePath("w", 1), "<plist version=\"1.0\">\n<dict>\n<integer>x</integer></dict></plist>");
    testing::internal::CaptureStderr();
    EXPECT_EQ(CopyXMLData(folders_, "w", &failure_), std::nullopt);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "CopyXMLData()::CFPropertyListCreateFromXMLData() error: " + failure_.reason + "\n");
    EXPECT_EQ(failure_.message().substr(0, failure_.message().rfind(':')),
              "cannot read " + sitePath("w", 1) + ":3");
    testing::internal::CaptureStderr();
    EXPECT_EQ(CopyXMLData(folders_, "missing"), std::nullopt);
    put(userPath("w"), "x");
    EXPECT_EQ(CopyUserPreferences(folders_, "w"), std::nullopt);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(PreferenceFiles, KeepWhatCannotBeWrittenOrNeedNotBe)
{
    ASSERT_TRUE(change("a", "x", 1));
    const auto inode = [this] {
        struct stat status = {};
        EXPECT_EQ(stat(userPath("a").c_str(), &status), 0);
        return status.st_ino;
    };
    const auto before = inode();
    EXPECT_FALSE(ChangeUserPreferences(
        folders_, "a",
        [](CFDictionary& root, bool) {
            root.set("y", "\xff");
            return true;
        },
        failure_));
    EXPECT_EQ(failure_.error, EINVAL);
    EXPECT_TRUE(ChangeUserPreferences(
        folders_, "a", [](CFDictionary&, bool) { return false; }, failure_));
    EXPECT_EQ(inode(), before);
    EXPECT_EQ(CopyUserPreferences(folders_, "a"), Number("x", 1));
}

} // namespace
} // namespace tarvo
