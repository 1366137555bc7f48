#pragma once

#include "platform/cf/CFPropertyList.h"
#include "prefs/PreferenceFiles.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// What the user's file of named papers holds. In place of a file that cannot be read, the papers,
/// the order and the columns that the site gives.
/// @param failure  if given, why the user's file was not read; the error is ENOENT when there is
/// none
CFDictionary ReadStockLibraryFile(const PreferenceFolders& folders,
                                  PreferenceFailure* failure = nullptr);

/// Changes that file by the rules of ChangeUserPreferences. One that is new begins with everything
/// that the site gives, whatever the change is about: a user's file hides the site's, so the order
/// would go with the first paper that is added, and the columns with it.
/// @param change  is told whether the user has a file; the root is what the site gives if not
[[nodiscard]] bool ChangeStockLibraryFile(const PreferenceFolders& folders,
                                          const PreferenceChange& change,
                                          PreferenceFailure& failure);

/// What somebody who changes the file for one reason brings into it for another, in the same write.
using StockLibraryRider = std::function<void(CFDictionary& root)>;

/// One value of that file, which somebody keeps in memory. A change is made in memory and in the
/// file alike, so that what others change in the file meanwhile stays.
template <typename Value>
class StockLibraryFileValue {
public:
    using Change = std::function<void(Value&)>;

    /// @param key  of StockLibraryKeys.h
    StockLibraryFileValue(PreferenceFolders folders, std::string_view key)
        : folders_(std::move(folders)), key_(key)
    {
    }

    /// The value of the file, empty when there is none; unsaved changes are forgotten.
    Value read();
    /// Makes the change in memory, then in the file.
    /// @param rider  if given, goes with it; without a file to write to it is lost
    void change(Value& inMemory, Change change, const StockLibraryRider& rider = nullptr);
    /// Makes the changes in the file that could not be saved before; a file that had no value yet
    /// gets the one in memory, and a user without a file one with that and whatever else the site
    /// gives. So does a user whose file is gone or broken since it was read: what is on the screen
    /// is the last that there is of it. A file that could not be read stays until something is
    /// changed. A failure is told as by WriteOrReport.
    void write(const Value& inMemory, const StockLibraryRider& rider = nullptr);
    /// The same for a destructor: an exception is told on standard error.
    void writeAtEnd(const Value& inMemory) noexcept;
    /// Whether the file has every change.
    bool isSaved() const { return unsaved_.empty(); }
    /// Why the user's file could not be read; null when it was, when there is none, and once
    /// another has taken its place.
    const PreferenceFailure* unread() const { return unread_ ? &*unread_ : nullptr; }
    /// The path under which a write has kept a file that could not be understood; "" for none.
    const std::string& keptAs() const { return keptAs_; }

private:
    bool bringUpToDate(CFDictionary& root, bool isPresent, const Value& inMemory) const;

    PreferenceFolders folders_;
    std::string_view key_;
    bool isInFile_ = false; // of the user
    std::vector<Change> unsaved_;
    std::optional<PreferenceFailure> unread_;
    std::string keptAs_;
};

} // namespace tarvo
