#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/files/FileIdentity.h"
#include "prefs/PreferenceFiles.h"

#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace tarvo {

/// The user's file of named papers, or what the site gives in its place, for who only looks, such
/// as the stock menu: it is read again only when a file is another one than at the last look,
/// whoever has changed it. Threads may share it.
class StockLibraryReader {
public:
    explicit StockLibraryReader(PreferenceFolders folders) : folders_(std::move(folders)) {}

    /// The one of all who look at the files of the process's user at a time. For the main thread.
    static std::shared_ptr<StockLibraryReader> Shared();

    /// As ReadStockLibraryFile; later changes make another one. May wait for the disk unless the
    /// files are known.
    std::shared_ptr<const CFDictionary> read();
    /// Whether read has no file to wait for.
    bool isFileKnown() const;

private:
    // Of the user's file, then of the site's; none for a file that is not there.
    using Identities = std::vector<std::optional<FileIdentity>>;
    Identities identities() const;

    const PreferenceFolders folders_;
    mutable std::mutex mutex_; // of what follows
    std::optional<Identities> known_;
    std::shared_ptr<const CFDictionary> contents_; // of the known files
};

/// Reads in a task, for who is going to look soon.
void ReadAhead(const std::shared_ptr<StockLibraryReader>& reader);

} // namespace tarvo
