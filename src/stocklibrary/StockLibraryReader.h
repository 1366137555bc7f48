#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/files/FileIdentity.h"
#include "prefs/PreferenceFiles.h"

#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace tarvo {

/// The user's file of named papers for who only looks, such as the stock menu: it is read again
/// only when it is another one than at the last look, whoever has changed it. Threads may share it.
class StockLibraryReader {
public:
    explicit StockLibraryReader(PreferenceFolders folders) : folders_(std::move(folders)) {}

    /// The one of all who look at the files of the process's user at a time. For the main thread.
    static std::shared_ptr<StockLibraryReader> Shared();

    /// As ReadStockLibraryFile; later changes make another one. May wait for the disk unless the
    /// file is known.
    std::shared_ptr<const CFDictionary> read();
    /// Whether read has no file to wait for but the site's.
    bool isFileKnown() const;

private:
    std::optional<FileIdentity> identity() const;

    const PreferenceFolders folders_;
    mutable std::mutex mutex_; // of what follows
    std::optional<FileIdentity> known_;
    std::shared_ptr<const CFDictionary> contents_; // of the known file
};

/// Reads in a task, for who is going to look soon.
void ReadAhead(const std::shared_ptr<StockLibraryReader>& reader);

} // namespace tarvo
