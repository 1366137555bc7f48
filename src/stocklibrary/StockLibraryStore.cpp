#include "stocklibrary/StockLibraryStore.h"

#include "stocklibrary/StockLibraryKeys.h"

#include <cstdio>
#include <exception>
#include <utility>

namespace tarvo {
namespace {

// What a site may give; only the user has a selected row and column widths.
constexpr std::string_view SiteKeys[] = {StockListKey, StockMenuListKey,
                                         StockLibraryPreferencesKey};

CFDictionary SiteDefaults(const PreferenceFolders& folders)
{
    CFDictionary defaults;
    auto site = CopyXMLData(folders, SiteDefaultsFile);
    for (const std::string_view key : SiteKeys) {
        if (CFPropertyList* value = site ? site->find(key) : nullptr) {
            defaults.set(key, std::move(*value));
        }
    }
    return defaults;
}

} // namespace

CFDictionary ReadStockLibraryFile(const PreferenceFolders& folders, PreferenceFailure* failure)
{
    auto root = CopyUserPreferences(folders, StockLibraryFile, failure);
    return root ? std::move(*root) : SiteDefaults(folders);
}

bool ChangeStockLibraryFile(const PreferenceFolders& folders, const PreferenceChange& change,
                            PreferenceFailure& failure)
{
    const auto changeRoot = [&folders, &change](CFDictionary& root, bool isPresent) {
        if (!isPresent) {
            root = SiteDefaults(folders);
        }
        return change(root, isPresent);
    };
    return ChangeUserPreferences(folders, StockLibraryFile, changeRoot, failure);
}

template <typename Value>
Value StockLibraryFileValue<Value>::read()
{
    unsaved_.clear();
    PreferenceFailure unread;
    CFDictionary root = ReadStockLibraryFile(folders_, &unread);
    CFPropertyList* present = root.find(key_);
    Value* value = present == nullptr ? nullptr : present->get<Value>();
    isInFile_ = value != nullptr && unread.reason.empty();
    unread_.reset();
    if (!unread.reason.empty() && !unread.isAbsence()) {
        unread_ = std::move(unread);
    }
    return value == nullptr ? Value() : std::move(*value);
}

template <typename Value>
void StockLibraryFileValue<Value>::change(Value& inMemory, Change change,
                                          const StockLibraryRider& rider)
{
    change(inMemory);
    unsaved_.push_back(std::move(change));
    write(inMemory, rider);
}

template <typename Value>
void StockLibraryFileValue<Value>::write(const Value& inMemory, const StockLibraryRider& rider)
{
    if (unsaved_.empty() && (isInFile_ || unread_)) {
        return; // reading thousands of papers again would change nothing
    }
    const auto change = [this, &inMemory, &rider](CFDictionary& root, bool isPresent) {
        const bool isChanged = bringUpToDate(root, isPresent, inMemory);
        if (rider) {
            rider(root);
        }
        return isChanged || rider;
    };
    const auto write = [this, &change](PreferenceFailure& failure) {
        const bool isWritten = ChangeStockLibraryFile(folders_, change, failure);
        keptAs_ = failure.keptAs.empty() ? keptAs_ : failure.keptAs;
        return isWritten;
    };
    if (WriteOrReport(write)) {
        unsaved_.clear();
        unread_.reset();
        isInFile_ = true;
    }
}

template <typename Value>
void StockLibraryFileValue<Value>::writeAtEnd(const Value& inMemory) noexcept
{
    try {
        write(inMemory);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "WriteUserPreferences() failed: %s\n", error.what());
    }
}

template <typename Value>
bool StockLibraryFileValue<Value>::bringUpToDate(CFDictionary& root, bool isPresent,
                                                 const Value& inMemory) const
{
    const bool isLost = isInFile_ && !isPresent;
    CFPropertyList* present = root.find(key_);
    Value* value = present == nullptr ? nullptr : present->get<Value>();
    if (value == nullptr || isLost) {
        root.set(key_, inMemory);
        return true;
    }
    for (const Change& change : unsaved_) {
        change(*value);
    }
    return !unsaved_.empty() || !isInFile_; // the site's value becomes the user's
}

template class StockLibraryFileValue<CFDictionary>;
template class StockLibraryFileValue<CFArray>;

} // namespace tarvo
