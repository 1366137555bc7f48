#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tarvo {

/// Tells a file from another one of its name, and from what it was before its contents changed.
struct FileIdentity {
    bool operator==(const FileIdentity&) const = default;

    std::uint64_t device = 0;
    std::uint64_t number = 0; // on the device
    std::int64_t bytes = 0;
    std::int64_t changedSeconds = 0; // of the contents, since 1970
    std::int64_t changedNanoseconds = 0;
    std::int64_t touchedSeconds = 0; // of anything about it; nobody can set this back
    std::int64_t touchedNanoseconds = 0;
};

/// A symbolic link is not followed.
/// @return nullopt when there is no file, or the system does not tell
std::optional<FileIdentity> IdentityOfFile(const std::string& path);

} // namespace tarvo
