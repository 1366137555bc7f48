#include "stocklibrary/StockLibraryList.h"

#include "platform/text/CaseFolding.h"
#include "platform/text/Uuid.h"
#include "records/StockKeys.h"
#include "stocklibrary/StockLibraryKeys.h"

#include <algorithm>
#include <utility>

namespace tarvo {
namespace {

using Entry = CFDictionary::Entry;

// The stock's dictionary of an entry; null when it has none, or is no entry.
const CFDictionary* StockTicketOf(const CFPropertyList& value)
{
    const auto* entry = value.get<CFDictionary>();
    return entry == nullptr ? nullptr : entry->get<CFDictionary>(EntryStockKey);
}

Stock StockOf(const CFDictionary& entry)
{
    const auto* ticket = entry.get<CFDictionary>(EntryStockKey);
    return ticket == nullptr ? Stock() : Stock(*ticket);
}

// The first entry whose stock has that custom name.
const Entry* FindCustomName(const CFDictionary& entries, std::string_view name)
{
    const auto hasName = [name](const Entry& each) {
        const auto* ticket = StockTicketOf(each.value);
        const auto* own =
            ticket == nullptr ? nullptr : ticket->get<std::string>(StockCustomNameKey);
        return own != nullptr && EqualIgnoringCase(*own, name);
    };
    const auto found = std::find_if(entries.begin(), entries.end(), hasName);
    return name.empty() || found == entries.end() ? nullptr : &*found;
}

void ReplaceStock(CFDictionary& entries, const Stock& stock)
{
    const Entry* present = FindCustomName(entries, stock.customName());
    if (present == nullptr) {
        return;
    }
    StockLibrary entry(*present->value.get<CFDictionary>());
    entry.setStock(stock);
    entries.set(std::string(present->key), entry.asTicket());
}

void StoreStatus(CFDictionary& entries, const std::string& uuid, StockEntryStatus status)
{
    if (const auto* present = entries.get<CFDictionary>(uuid)) {
        StockLibrary entry(*present);
        entry.setStatus(status);
        entries.set(uuid, entry.asTicket());
    }
}

void ClearStatus(CFDictionary& entries)
{
    constexpr auto NotInUse = static_cast<std::int32_t>(StockEntryStatus::NotInUse);
    std::vector<Entry> all = std::exchange(entries, {}).takeEntries();
    for (Entry& each : all) {
        const auto* present = each.value.get<CFDictionary>();
        if (present == nullptr || present->int32(EntryStatusKey) == NotInUse) {
            continue; // most of thousands: rebuilding each would be felt
        }
        StockLibrary entry(*present);
        if (!entry.isInvalid()) {
            entry.setStatus(StockEntryStatus::NotInUse);
            each.value = entry.asTicket();
        }
    }
    entries.assign(std::move(all));
}

// The value of a type is moved out of a dictionary; it leaves its place there.
template <typename Value>
Value Take(CFDictionary& root, std::string_view key)
{
    CFPropertyList* present = root.find(key);
    Value* value = present == nullptr ? nullptr : present->get<Value>();
    return value == nullptr ? Value() : std::move(*value);
}

} // namespace

StockLibraryList::StockLibraryList(CFDictionary entries) : entries_(std::move(entries)) {}

StockLibraryList::StockLibraryList(const PreferenceFolders& folders)
    : file_(std::in_place, folders, StockListKey)
{
    read();
}

StockLibraryList::~StockLibraryList()
{
    if (file_) {
        file_->writeAtEnd(entries_);
    }
}

void StockLibraryList::read()
{
    if (file_) {
        entries_ = file_->read();
        isIndexed_ = false;
        index(); // so that not even the first search takes long
    }
}

void StockLibraryList::write()
{
    if (file_) {
        file_->write(entries_);
    }
}

std::optional<StockLibrary> StockLibraryList::entry(std::string_view uuid) const
{
    const auto* entry = entries_.get<CFDictionary>(uuid);
    return entry == nullptr ? std::nullopt : std::optional<StockLibrary>(*entry);
}

std::string StockLibraryList::add(StockLibrary& entry)
{
    entry.setUUID(NewUuid());
    update(entry.uuid(), entry);
    return entry.uuid();
}

void StockLibraryList::update(const std::string& uuid, const StockLibrary& entry)
{
    CFDictionary ticket = entry.asTicket();
    isIndexed_ = isIndexed_ && !entries_.contains(uuid);
    if (isIndexed_) {
        index_.add(StockOf(ticket), entries_.size());
    }
    change(
        [uuid, ticket = std::move(ticket)](CFDictionary& entries) { entries.set(uuid, ticket); });
}

void StockLibraryList::replace(const StockLibrary& entry)
{
    change([stock = entry.stock()](CFDictionary& entries) { ReplaceStock(entries, stock); });
    isIndexed_ = false;
}

void StockLibraryList::remove(const std::string& uuid, const StockLibraryRider& rider)
{
    change([uuid](CFDictionary& entries) { entries.remove(uuid); }, rider);
    isIndexed_ = false;
}

bool StockLibraryList::isDuplicate(std::string_view name) const
{
    return FindCustomName(entries_, name) != nullptr;
}

const std::string* StockLibraryList::findMatch(const Stock& stock) const
{
    const auto first = index().firstPosition(stock);
    if (!first) {
        return nullptr;
    }
    // The first one it is, unless another stock has the same hash.
    const auto found = std::find_if(entries_.begin() + static_cast<std::ptrdiff_t>(*first),
                                    entries_.end(), [&stock](const Entry& each) {
                                        const auto* entry = each.value.get<CFDictionary>();
                                        return entry != nullptr && StockOf(*entry) == stock;
                                    });
    return found == entries_.end() ? nullptr : &found->key;
}

void StockLibraryList::clearStatus()
{
    change(ClearStatus);
}

void StockLibraryList::setInUse(const std::string& uuid, const StockLibraryRider& rider)
{
    change([uuid](CFDictionary& entries) { StoreStatus(entries, uuid, StockEntryStatus::InUse); },
           rider);
}

void StockLibraryList::changeInMemory(const std::function<void(StockLibraryList&)>& change)
{
    std::optional<File> file = std::exchange(file_, std::nullopt);
    change(*this);
    file_ = std::move(file);
}

void StockLibraryList::setStatus(const std::string& uuid, StockEntryStatus status)
{
    if (entries_.get<CFDictionary>(uuid) != nullptr) {
        change([uuid, status](CFDictionary& entries) { StoreStatus(entries, uuid, status); });
    }
}

void StockLibraryList::change(File::Change change, const StockLibraryRider& rider)
{
    if (file_) {
        file_->change(entries_, std::move(change), rider);
    } else {
        change(entries_);
    }
}

const StockIndex& StockLibraryList::index() const
{
    if (isIndexed_) {
        return index_;
    }
    index_.clear();
    index_.reserve(entries_.size());
    std::size_t position = 0;
    for (const Entry& each : entries_) {
        if (const auto* entry = each.value.get<CFDictionary>()) {
            index_.add(StockOf(*entry), position);
        }
        ++position;
    }
    isIndexed_ = true;
    return index_;
}

std::unique_ptr<StockLibraryList> ReadUserStockList(const PreferenceFolders& folders,
                                                    PreferenceFailure* failure)
{
    CFDictionary root = ReadStockLibraryFile(folders, failure);
    return std::make_unique<StockLibraryList>(Take<CFDictionary>(root, StockListKey));
}

std::unique_ptr<StockLibraryList> MakePrinterStockLibraryList(std::span<const Stock> stocks)
{
    auto list = std::make_unique<StockLibraryList>();
    for (const Stock& stock : stocks) {
        StockLibrary entry;
        entry.setStock(stock);
        entry.setName(stock.customName());
        list->add(entry);
    }
    list->prepareSearch();
    return list;
}

bool ChangeStockLibrary(const PreferenceFolders& folders, const StockLibraryChange& change,
                        PreferenceFailure& failure)
{
    const auto changeRoot = [&change](CFDictionary& root, bool) {
        StockLibraryList list(Take<CFDictionary>(root, StockListKey));
        auto order = Take<CFArray>(root, StockMenuListKey);
        if (!change(list, order)) {
            return false;
        }
        root.set(StockListKey, std::move(list).takeStockList());
        if (!order.empty() || root.contains(StockMenuListKey)) {
            root.set(StockMenuListKey, std::move(order));
        }
        return true;
    };
    return ChangeStockLibraryFile(folders, changeRoot, failure);
}

void SaveStockLibrary(const PreferenceFolders& folders, const StockLibraryChange& change)
{
    WriteOrReport([&folders, &change](PreferenceFailure& failure) {
        return ChangeStockLibrary(folders, change, failure);
    });
}

} // namespace tarvo
