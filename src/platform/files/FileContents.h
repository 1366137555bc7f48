#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

/// Reads a whole file, a pipe included.
/// @param path          "-" is an ordinary name here
/// @param maximumBytes  a larger file is refused after that many bytes
/// @return the bytes; nullopt with the system's reason in `reason`
[[nodiscard]] std::optional<std::string>
ReadFileContents(const std::string& path, std::size_t maximumBytes, std::string& reason);

/// The same from an open file, up to its end; the file stays open.
[[nodiscard]] std::optional<std::string>
ReadDescriptorContents(int descriptor, std::size_t maximumBytes, std::string& reason);

/// A file that is read in pieces, so that a large one is never in memory at once.
class FileReader {
public:
    /// Opens a regular file; anything else is refused and not waited for.
    /// @param maximumBytes  a file that is larger is refused before any of it is read
    /// @return nullopt with the reason in `reason`
    [[nodiscard]] static std::optional<FileReader>
    Open(const std::string& path, std::size_t maximumBytes, std::string& reason);
    /// Reads from an open file, from where it stands; the file stays open.
    explicit FileReader(int descriptor) : descriptor_(descriptor) {}
    FileReader(FileReader&& other) noexcept;
    FileReader& operator=(FileReader&&) = delete;
    ~FileReader();

    /// @return how many bytes; 0 at the end; nullopt with the system's reason in `reason`
    [[nodiscard]] std::optional<std::size_t> read(char* bytes, std::size_t size,
                                                  std::string& reason);

private:
    int descriptor_;
    bool isOwner_ = false;
};

/// Writes all bytes to an open file.
/// @return false with the system's reason in `reason`
[[nodiscard]] bool WriteDescriptorContents(int descriptor, std::string_view contents,
                                           std::string& reason);

/// Replaces a file whole or not at all, through a file beside it that is renamed. A symbolic link
/// is followed, permissions of a present file stay, and what is no regular file (a pipe, a device)
/// is written to as it is.
/// @return false with the system's reason in `reason`, the former contents untouched
[[nodiscard]] bool ReplaceFileContents(const std::string& path, std::string_view contents,
                                       std::string& reason);

/// Writes the next piece of a file; false when that fails.
using FilePut = std::function<bool(std::string_view piece)>;
/// Hands over a file's contents piece by piece; false when there is no whole of them.
using FileContentsWriter = std::function<bool(const FilePut& put)>;

/// The same for contents that are never in memory at once.
/// @return false also when the writer gave up; `reason` is left alone then
[[nodiscard]] bool ReplaceFileContents(const std::string& path, const FileContentsWriter& writer,
                                       std::string& reason);

/// Why a file could not be read or written.
struct FileFailure {
    int error = 0;      // errno; 0 when it is no fault of the system
    std::string reason; // for people
};

/// Reads a file of the program's own: a regular file under that very name, so no symbolic link, and
/// nothing to wait for.
/// @param maximumBytes  a larger file is refused
/// @return nullopt with `failure` filled; its error is ENOENT when there is no file, and 0 when it
/// is too large
[[nodiscard]] std::optional<std::string>
ReadOwnFile(const std::string& path, std::size_t maximumBytes, FileFailure& failure);

/// Replaces a file of the program's own whole or not at all, readable for its owner alone, and on
/// the disk when this returns. What is no regular file, a symbolic link too, is refused.
/// @return false with `failure` filled, the former contents untouched
[[nodiscard]] bool ReplaceOwnFile(const std::string& path, std::string_view contents,
                                  FileFailure& failure);

} // namespace tarvo
