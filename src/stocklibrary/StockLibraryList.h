#pragma once

#include "stocklibrary/StockIndex.h"
#include "stocklibrary/StockLibrary.h"
#include "stocklibrary/StockLibraryStore.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tarvo {

/// Named papers by their uuids, in the order in which they came: the user's, whose every change is
/// written at once, or a list in memory only. Several lists of the user's, in other processes too,
/// lose no change of one another, but each sees the others' only when it reads again. What is no
/// entry in the file is passed over and stays.
class StockLibraryList {
public:
    /// A list in memory only.
    StockLibraryList() = default;
    explicit StockLibraryList(CFDictionary entries);
    /// The user's list.
    explicit StockLibraryList(const PreferenceFolders& folders);
    StockLibraryList(const StockLibraryList&) = delete;
    StockLibraryList& operator=(const StockLibraryList&) = delete;
    /// Writes once more, which makes the user's file when there is none.
    ~StockLibraryList();

    /// Forgets what is in memory and reads the user's file or, when it cannot be read, the site's.
    /// Nothing for a list in memory only.
    void read();
    /// Saves what could not be saved before. Nothing for a list in memory only.
    void write();

    /// Whether the user's file has every change; always for a list in memory only.
    bool isSaved() const { return !file_ || file_->isSaved(); }
    /// As of StockLibraryFileValue; null and "" for a list in memory only.
    const PreferenceFailure* unread() const { return file_ ? file_->unread() : nullptr; }
    std::string keptAs() const { return file_ ? file_->keptAs() : ""; }

    /// uuid to entry, keys of StockLibraryKeys.h.
    const CFDictionary& stockList() const { return entries_; }
    /// The same; the list is of no use afterwards.
    CFDictionary takeStockList() && { return std::move(entries_); }
    /// @return nullopt when there is none of that uuid
    std::optional<StockLibrary> entry(std::string_view uuid) const;

    /// Gives the entry a new uuid and appends it, whether or not its like is there.
    /// @return the uuid
    std::string add(StockLibrary& entry);
    /// Stores the entry under the uuid; appends it when that is absent.
    void update(const std::string& uuid, const StockLibrary& entry);
    /// Gives the entry's stock to the first entry whose stock has the same custom name, in any
    /// case; that one's uuid, name and status stay. Nothing for a stock without a custom name.
    void replace(const StockLibrary& entry);
    /// @param rider  if given, goes into the user's file with it; nothing for a list in memory only
    void remove(const std::string& uuid, const StockLibraryRider& rider = nullptr);

    /// Whether the stock of an entry has that custom name, in any case; never for "".
    bool isDuplicate(std::string_view name) const;
    /// @return the uuid of the first entry with an equal stock, borrowed until the next change;
    /// null when there is none
    const std::string* findMatch(const Stock& stock) const;
    /// Makes now what the first findMatch would have to make: some milliseconds for many papers.
    void prepareSearch() const { index(); }

    // For an absent uuid nothing changes.
    void setInUse(const std::string& uuid) { setStatus(uuid, StockEntryStatus::InUse); }
    /// The same with something else for the user's file, which goes there for an absent uuid too.
    void setInUse(const std::string& uuid, const StockLibraryRider& rider);
    void setNotInUse(const std::string& uuid) { setStatus(uuid, StockEntryStatus::NotInUse); }
    /// Marks every entry that is not invalid as not in use.
    void clearStatus();

    /// Makes a change in memory only, as one that somebody else makes in the file.
    void changeInMemory(const std::function<void(StockLibraryList& list)>& change);

private:
    using File = StockLibraryFileValue<CFDictionary>;

    void change(File::Change change, const StockLibraryRider& rider = nullptr);
    const StockIndex& index() const;
    void setStatus(const std::string& uuid, StockEntryStatus status);

    CFDictionary entries_;
    // Of the entries' stocks; made when it is next needed after a change that moves or alters them.
    mutable StockIndex index_;
    mutable bool isIndexed_ = false;
    std::optional<File> file_; // none: in memory only
};

/// The user's list in memory, for who only looks: nothing is written, no file made.
std::unique_ptr<StockLibraryList> ReadUserStockList(const PreferenceFolders& folders,
                                                    PreferenceFailure* failure = nullptr);

/// The papers that a printer reports, as a list in memory under new uuids.
std::unique_ptr<StockLibraryList> MakePrinterStockLibraryList(std::span<const Stock> stocks);

/// Changes the user's list, as one in memory, and the order of its menu; both are written at once.
/// @param change  returns false to leave the file as it is
/// @return as ChangeUserPreferences
using StockLibraryChange = std::function<bool(StockLibraryList& list, CFArray& order)>;
[[nodiscard]] bool ChangeStockLibrary(const PreferenceFolders& folders,
                                      const StockLibraryChange& change, PreferenceFailure& failure);
/// The same for somebody who cannot do anything about a failure, see WriteOrReport.
void SaveStockLibrary(const PreferenceFolders& folders, const StockLibraryChange& change);

} // namespace tarvo
