#include "prefs/PreferenceFiles.h"

#include "platform/cf/PropertyListReader.h"
#include "platform/cf/PropertyListWriter.h"
#include "platform/files/FileContents.h"
#include "platform/files/FileLock.h"

#include <sys/stat.h>

#include <glib.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <system_error>
#include <utility>

namespace tarvo {
namespace {

// Many writers in a row take a second or two; a holder that is stopped never lets go.
constexpr std::chrono::seconds LockPatience(20);

std::string SystemReason(int error)
{
    return std::generic_category().message(error);
}

PreferenceFailure SystemFailure(std::string action, std::string path, int error)
{
    return {std::move(action), std::move(path), error, SystemReason(error)};
}

std::string PathIn(const std::string& folder, std::string_view fileName)
{
    return folder + "/" + std::string(fileName);
}

std::optional<CFDictionary> ReadRoot(const std::string& path, PreferenceFailure& failure)
{
    FileFailure unread;
    const auto xml = ReadOwnFile(path, PropertyListLimits.bytes, unread);
    if (!xml) {
        failure = {"read", path, unread.error, unread.reason};
        return std::nullopt;
    }
    ParseError wrong;
    auto root = ReadPropertyListDictionary(*xml, wrong);
    if (!root) {
        failure = {"read", path, 0, wrong.reason, wrong.line};
    }
    return root;
}

bool WriteRoot(const std::string& path, const CFDictionary& root, PreferenceFailure& failure)
{
    ParseError wrong;
    const auto xml = WritePropertyList(root, wrong);
    if (!xml) {
        failure = {"write", path, EINVAL, wrong.reason};
        return false;
    }
    FileFailure unwritten;
    if (!ReplaceOwnFile(path, *xml, unwritten)) {
        failure = {"write", path, unwritten.error, unwritten.reason};
        return false;
    }
    return true;
}

bool MakeFolder(const std::string& folder, PreferenceFailure& failure)
{
    constexpr int OwnerOnly = 0700;
    if (g_mkdir_with_parents(folder.c_str(), OwnerOnly) != 0) {
        failure = SystemFailure("make", folder, errno);
        return false;
    }
    return true;
}

bool IsSameFile(const std::string& left, const std::string& right)
{
    struct stat one = {};
    struct stat other = {};
    return lstat(left.c_str(), &one) == 0 && lstat(right.c_str(), &other) == 0 &&
           one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

// Another link to the same file, so that its name is never without one. What was kept before stays.
bool SetAside(const std::string& path, PreferenceFailure& failure)
{
    constexpr int MostKept = 100; // beyond, something breaks them for ever
    int error = EEXIST;
    for (int number = 1; number <= MostKept && error == EEXIST; ++number) {
        std::string aside = path + ".unreadable";
        aside += number == 1 ? "" : "." + std::to_string(number);
        error = link(path.c_str(), aside.c_str()) == 0 ? 0 : errno;
        // One whose successor could not be written is there already.
        if (error == 0 || (error == EEXIST && IsSameFile(path, aside))) {
            failure.keptAs = std::move(aside);
            return true;
        }
    }
    failure = SystemFailure("set aside", path, error);
    return false;
}

using RootReader = std::function<std::optional<CFDictionary>(PreferenceFailure&)>;

bool ChangeFile(const std::string& folder, std::string_view fileName, const RootReader& read,
                const PreferenceChange& change, PreferenceFailure& failure)
{
    if (!MakeFolder(folder, failure)) {
        return false;
    }
    const std::string path = PathIn(folder, fileName);
    const FileLock lock(path + ".lock", LockPatience);
    if (lock.state() == FileLock::State::TimedOut) {
        failure = {"lock", path, EAGAIN, "in use by another program"};
        return false;
    } // where no lock can be had, as under a confinement, saving alone is better than not saving
    auto root = read(failure);
    const bool isPresent = root.has_value();
    const bool isBroken = !isPresent && failure.error == 0;
    if (!isPresent && !isBroken && !failure.isAbsence()) {
        return false;
    }
    if (!isPresent) {
        root.emplace();
    }
    if (!change(*root, isPresent)) {
        return true;
    }
    const bool isInTheWay = isBroken && failure.path == path; // another folder's stays where it is
    return (!isInTheWay || SetAside(path, failure)) && WriteRoot(path, *root, failure);
}

std::optional<CFDictionary> ReadSiteRoot(const PreferenceFolders& folders,
                                         std::string_view fileName, PreferenceFailure& failure)
{
    for (const std::string& folder : folders.site) {
        auto root = ReadRoot(PathIn(folder, fileName), failure);
        if (root || !failure.isAbsence()) {
            return root;
        }
    }
    return std::nullopt;
}

// A relative path would lead to wherever the program happens to run.
std::string AbsoluteOr(const char* folder, const char* belowHome)
{
    return g_path_is_absolute(folder) == TRUE ? folder : PathIn(g_get_home_dir(), belowHome);
}

} // namespace

PreferenceFolders UserPreferenceFolders()
{
    PreferenceFolders folders;
    folders.user = AbsoluteOr(g_get_user_config_dir(), ".config") + "/tarvo";
    folders.site.push_back(AbsoluteOr(g_get_user_data_dir(), ".local/share") + "/Tarvo");
    for (const gchar* const* folder = g_get_system_data_dirs(); *folder != nullptr; ++folder) {
        if (g_path_is_absolute(*folder) == TRUE) {
            folders.site.push_back(PathIn(*folder, "Tarvo"));
        }
    }
    return folders;
}

bool PreferenceFailure::isAbsence() const
{
    return error == ENOENT || error == ENOTDIR;
}

std::string PreferenceFailure::message() const
{
    const std::string place = line == 0 ? path : path + ":" + std::to_string(line);
    return "cannot " + action + " " + place + ": " + reason;
}

std::optional<CFDictionary> CopyUserPreferences(const PreferenceFolders& folders,
                                                std::string_view fileName,
                                                PreferenceFailure* failure)
{
    PreferenceFailure unread;
    auto root = ReadRoot(PathOfUserPreferences(folders, fileName), unread);
    if (!root && failure != nullptr) {
        *failure = std::move(unread);
    }
    return root;
}

std::string PathOfUserPreferences(const PreferenceFolders& folders, std::string_view fileName)
{
    return PathIn(folders.user, fileName);
}

bool WriteUserPreferences(const PreferenceFolders& folders, std::string_view fileName,
                          const CFDictionary& root, PreferenceFailure* failure)
{
    // Needs nothing of the former file, but sees whether it is to be kept.
    const auto read = [&](PreferenceFailure& unread) -> std::optional<CFDictionary> {
        auto former = CopyUserPreferences(folders, fileName, &unread);
        return former || unread.error != 0 ? std::optional<CFDictionary>(std::in_place)
                                           : std::nullopt;
    };
    // Takes its turn: a change that another has begun would undo this one.
    const auto replace = [&root](CFDictionary& replaced, bool) {
        replaced = root;
        return true;
    };
    return WriteOrReport(
        [&](PreferenceFailure& unwritten) {
            return ChangeFile(folders.user, fileName, read, replace, unwritten);
        },
        failure);
}

bool WriteOrReport(const PreferenceWrite& write, PreferenceFailure* failure)
{
    PreferenceFailure unwritten;
    if (write(unwritten)) {
        return true;
    }
    std::fprintf(stderr, "WriteUserPreferences() failed (%d)\n", unwritten.error);
    if (failure != nullptr) {
        *failure = std::move(unwritten);
    }
    return false;
}

std::optional<std::string> CopyPreferenceFileURL(const PreferenceFolders& folders,
                                                 std::string_view fileName)
{
    PreferenceFailure unmade; // silent, as every reader of the path is
    if (!MakeFolder(folders.site.front(), unmade)) {
        return std::nullopt;
    }
    return PathIn(folders.site.front(), fileName);
}

std::optional<CFDictionary> CopyXMLData(const PreferenceFolders& folders, std::string_view fileName,
                                        PreferenceFailure* failure)
{
    PreferenceFailure unread;
    auto root = ReadSiteRoot(folders, fileName, unread);
    if (root) {
        return root;
    }
    if (unread.error == 0) {
        std::fprintf(stderr, "CopyXMLData()::CFPropertyListCreateFromXMLData() error: %s\n",
                     unread.reason.c_str());
    }
    if (failure != nullptr) {
        *failure = std::move(unread);
    }
    return std::nullopt;
}

bool ChangeUserPreferences(const PreferenceFolders& folders, std::string_view fileName,
                           const PreferenceChange& change, PreferenceFailure& failure)
{
    const auto read = [&](PreferenceFailure& unread) {
        return CopyUserPreferences(folders, fileName, &unread);
    };
    return ChangeFile(folders.user, fileName, read, change, failure);
}

bool ChangeXMLData(const PreferenceFolders& folders, std::string_view fileName,
                   const PreferenceChange& change, PreferenceFailure& failure)
{
    const auto read = [&](PreferenceFailure& unread) {
        return CopyXMLData(folders, fileName, &unread);
    };
    return ChangeFile(folders.site.front(), fileName, read, change, failure);
}

} // namespace tarvo
