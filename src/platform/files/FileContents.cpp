#include "platform/files/FileContents.h"

#include "platform/files/Descriptor.h"

#include <sys/stat.h>

#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

namespace tarvo {
namespace {

std::string SystemReason(int error)
{
    return std::generic_category().message(error);
}

std::string TooLarge(std::size_t maximumBytes)
{
    constexpr std::size_t Mebibyte = std::size_t{1024} * 1024;
    return "larger than " + std::to_string(maximumBytes / Mebibyte) + " MiB";
}

// The file that a chain of symbolic links ends at, there or not; nullopt when it has no end.
std::optional<std::filesystem::path> BehindLinks(std::filesystem::path path)
{
    constexpr int LongestChain = 40; // as in the kernel
    std::error_code notALink;
    for (int links = 0; links < LongestChain; ++links) {
        const auto next = std::filesystem::read_symlink(path, notALink);
        if (notALink) {
            return path;
        }
        path = path.parent_path() / next;
    }
    return std::nullopt;
}

// The open descriptor that a path stands for; nullopt for any other path.
std::optional<int> DescriptorOfPath(std::string_view path)
{
    if (path == "/dev/stdout") {
        return STDOUT_FILENO;
    }
    if (path == "/dev/stderr") {
        return STDERR_FILENO;
    }
    for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
        int number = -1;
        const char* end = path.data() + path.size();
        if (path.starts_with(folder) &&
            std::from_chars(path.data() + folder.size(), end, number).ptr == end && number >= 0) {
            return number;
        }
    }
    return std::nullopt;
}

// Writes all bytes.
// @return errno; 0 when it is done
int WriteAll(int descriptor, std::string_view contents)
{
    while (!contents.empty()) {
        const ssize_t written = write(descriptor, contents.data(), contents.size());
        if (written < 0 && errno != EINTR) {
            return errno;
        }
        contents.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return 0;
}

// Lets the writer write to an open file.
// @return false with errno in `error`; 0 there when it is the writer that gave up
bool WriteThrough(int descriptor, const FileContentsWriter& writer, int& error)
{
    error = 0;
    return writer([&](std::string_view piece) {
        error = error == 0 ? WriteAll(descriptor, piece) : error;
        return error == 0;
    });
}

FileContentsWriter WriterOf(std::string_view contents)
{
    return [contents](const FilePut& put) { return put(contents); };
}

// A file beside another one, whose place it takes once it is written; else it goes.
class FileBeside {
public:
    FileBeside(const std::string& path, mode_t mode)
        : path_(path),
          name_(path + ".XXXXXX"),
          file_(g_mkstemp_full(name_.data(), O_WRONLY | O_CLOEXEC, static_cast<int>(mode)))
    {
    }
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;
    ~FileBeside()
    {
        if (file_.valid()) {
            unlink(name_.c_str());
        }
    }

    const Descriptor& file() const { return file_; }
    // On the disk first, so that after a crash there is the one or the other.
    bool takePlace()
    {
        if (fsync(file_.number()) != 0 || rename(name_.c_str(), path_.c_str()) != 0) {
            return false;
        }
        file_ = Descriptor();
        return true;
    }

private:
    std::string path_;
    std::string name_;
    Descriptor file_;
};

// The name's own link is replaced.
// @return false with `error` as of WriteThrough, the former contents untouched
bool SetContents(const std::string& path, const FileContentsWriter& writer, mode_t mode, int& error)
{
    FileBeside beside(path, mode);
    if (!beside.file().valid()) {
        error = errno;
        return false;
    }
    if (!WriteThrough(beside.file().number(), writer, error)) {
        return false;
    }
    const bool isDone = beside.takePlace();
    error = isDone ? 0 : errno;
    return isDone;
}

// The errno that a reason tells of.
int ErrorWithText(const std::string& text)
{
    constexpr int HighestError = 133; // on Linux
    for (int error = 1; error <= HighestError; ++error) {
        if (text == g_strerror(error)) {
            return error;
        }
    }
    return EIO;
}

FileFailure SystemFailure(int error)
{
    return {error, SystemReason(error)};
}

// Why a file of that type is none of the program's own; 0 when it may be one.
int ErrorOfType(mode_t mode)
{
    switch (mode & S_IFMT) {
    case S_IFREG:
        return 0;
    case S_IFLNK:
        return ELOOP;
    case S_IFDIR:
        return EISDIR;
    default:
        return EINVAL;
    }
}

bool WriteInPlace(const std::string& path, const FileContentsWriter& writer, int& error)
{
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file.valid()) {
        error = errno;
        return false;
    }
    return WriteThrough(file.number(), writer, error);
}

bool ReplaceContents(const std::string& path, const FileContentsWriter& writer, int& error)
{
    // Opened or replaced by its name, a redirected file would lose what is in it already.
    if (const auto descriptor = DescriptorOfPath(path)) {
        return WriteThrough(*descriptor, writer, error);
    }
    const auto resolved = BehindLinks(path);
    if (!resolved) {
        error = ELOOP;
        return false;
    }
    const std::string& target = resolved->native();
    struct stat status = {};
    const bool exists = stat(target.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) {
        return WriteInPlace(target, writer, error);
    }
    constexpr mode_t NewFileMode = 0666; // less the user's mask
    constexpr mode_t Permissions = 0777;
    // From the beginning: what is private must not be readable for a moment either.
    const mode_t mode = exists ? status.st_mode & Permissions : NewFileMode;
    if (!SetContents(target, writer, mode, error)) {
        return false;
    }
    if (exists) {
        // What the mask took away. The contents are in place: a file system without permissions is
        // no failure.
        static_cast<void>(chmod(target.c_str(), mode));
    }
    return true;
}

} // namespace

std::optional<std::string> ReadFileContents(const std::string& path, std::size_t maximumBytes,
                                            std::string& reason)
{
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.valid()) {
        reason = SystemReason(errno);
        return std::nullopt;
    }
    return ReadDescriptorContents(file.number(), maximumBytes, reason);
}

std::optional<std::string> ReadDescriptorContents(int descriptor, std::size_t maximumBytes,
                                                  std::string& reason)
{
    constexpr std::size_t Kibibyte = 1024;
    constexpr std::size_t Step = 64 * Kibibyte;
    struct stat status = {};
    const bool sized = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    std::string contents;
    // One byte more than the file holds finds its end without another step.
    std::size_t wanted = sized ? static_cast<std::size_t>(status.st_size) + 1 : Step;
    while (contents.size() <= maximumBytes) {
        const std::size_t used = contents.size();
        contents.resize(used + std::min(wanted, maximumBytes + 1 - used));
        const ssize_t got = read(descriptor, contents.data() + used, contents.size() - used);
        const int error = errno;
        contents.resize(used + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got == 0) {
            return contents;
        }
        if (got < 0 && error != EINTR) {
            reason = SystemReason(error);
            return std::nullopt;
        }
        wanted = Step;
    }
    reason = TooLarge(maximumBytes);
    return std::nullopt;
}

std::optional<FileReader> FileReader::Open(const std::string& path, std::size_t maximumBytes,
                                           std::string& reason)
{
    struct stat status = {};
    FileReader file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    file.isOwner_ = file.descriptor_ >= 0;
    if (!file.isOwner_ || fstat(file.descriptor_, &status) != 0) {
        reason = SystemReason(errno);
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        reason = S_ISDIR(status.st_mode) ? SystemReason(EISDIR) : "not a regular file";
        return std::nullopt;
    }
    if (static_cast<std::uintmax_t>(status.st_size) > maximumBytes) {
        reason = TooLarge(maximumBytes);
        return std::nullopt;
    }
    return file;
}

FileReader::FileReader(FileReader&& other) noexcept
    : descriptor_(other.descriptor_), isOwner_(std::exchange(other.isOwner_, false))
{
}

FileReader::~FileReader()
{
    if (isOwner_) {
        close(descriptor_);
    }
}

// NOLINTNEXTLINE(readability-make-member-function-const): the place in the file moves
std::optional<std::size_t> FileReader::read(char* bytes, std::size_t size, std::string& reason)
{
    ssize_t got = -1;
    do {
        got = ::read(descriptor_, bytes, size);
    } while (got < 0 && errno == EINTR);
    if (got < 0) {
        reason = SystemReason(errno);
        return std::nullopt;
    }
    return static_cast<std::size_t>(got);
}

bool WriteDescriptorContents(int descriptor, std::string_view contents, std::string& reason)
{
    const int error = WriteAll(descriptor, contents);
    if (error != 0) {
        reason = SystemReason(error);
    }
    return error == 0;
}

bool ReplaceFileContents(const std::string& path, const FileContentsWriter& writer,
                         std::string& reason)
{
    int error = 0;
    const bool isDone = ReplaceContents(path, writer, error);
    if (error != 0) {
        reason = SystemReason(error);
    }
    return isDone;
}

bool ReplaceFileContents(const std::string& path, std::string_view contents, std::string& reason)
{
    return ReplaceFileContents(path, WriterOf(contents), reason);
}

std::optional<std::string> ReadOwnFile(const std::string& path, std::size_t maximumBytes,
                                       FileFailure& failure)
{
    // Opening a pipe would wait for its writer.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (!file.valid() || fstat(file.number(), &status) != 0) {
        failure = SystemFailure(errno);
        return std::nullopt;
    }
    if (const int error = ErrorOfType(status.st_mode)) {
        failure = SystemFailure(error);
        return std::nullopt;
    }
    failure = {};
    auto contents = ReadDescriptorContents(file.number(), maximumBytes, failure.reason);
    const bool isTooLarge = status.st_size > 0 && std::cmp_greater(status.st_size, maximumBytes);
    if (!contents && !isTooLarge) {
        failure.error = ErrorWithText(failure.reason);
    }
    return contents;
}

bool ReplaceOwnFile(const std::string& path, std::string_view contents, FileFailure& failure)
{
    struct stat status = {};
    if (lstat(path.c_str(), &status) == 0) {
        if (const int error = ErrorOfType(status.st_mode)) {
            failure = SystemFailure(error);
            return false;
        }
    }
    constexpr mode_t OwnerOnly = 0600;
    int error = 0;
    const bool isDone = SetContents(path, WriterOf(contents), OwnerOnly, error);
    failure = isDone ? FileFailure() : SystemFailure(error);
    return isDone;
}

} // namespace tarvo
