#include "stocklibrary/UserPapers.h"

#include "platform/text/CaseFolding.h"
#include "prefs/PreferenceTasks.h"
#include "records/TicketSpecialPages.h"
#include "stocklibrary/RecentPapers.h"
#include "stocklibrary/StockLibraryKeys.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryOrderList.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tarvo {
namespace {

// An entry that was not offered may be one that is.
void SetPaper(StockLibrary& entry, const Stock& stock)
{
    entry.setStock(stock);
    entry.setName(stock.customName());
    if (entry.isInvalid()) {
        entry.setStatus(StockEntryStatus::NotInUse);
    }
    entry.validateStockEntry();
}

std::vector<std::string> PapersInUse(const CFDictionary& papers)
{
    std::vector<std::string> uuids;
    for (const auto& each : papers) {
        const auto* entry = each.value.get<CFDictionary>();
        const auto status = entry == nullptr ? std::nullopt : entry->int32(EntryStatusKey);
        if (status == static_cast<std::int32_t>(StockEntryStatus::InUse)) {
            uuids.push_back(each.key);
        }
    }
    return uuids;
}

// A library in which nothing changes is not written.
void MarkInFile(const PreferenceFolders& folders, const std::vector<std::string>& inUse)
{
    const auto mark = [&inUse](StockLibraryList& list, CFArray&) {
        const CFDictionary before = list.stockList();
        list.clearStatus();
        for (const std::string& uuid : inUse) {
            list.setInUse(uuid);
        }
        return list.stockList() != before;
    };
    SaveStockLibrary(folders, mark);
}

void ChangeOrder(CFDictionary& library, void (*change)(CFArray&, std::string_view),
                 const std::string& uuid)
{
    const auto* present = library.get<CFArray>(StockMenuListKey);
    CFArray order = present == nullptr ? CFArray() : *present;
    change(order, uuid);
    if (present != nullptr || !order.empty()) {
        library.set(StockMenuListKey, std::move(order));
    }
}

// The stock of an entry when it has that custom name, in any case; null when not.
const CFDictionary* NamedStock(const CFDictionary::Entry& each, const std::string& name)
{
    const auto* entry = each.value.get<CFDictionary>();
    const auto* ticket = entry == nullptr ? nullptr : entry->get<CFDictionary>(EntryStockKey);
    const auto* own = ticket == nullptr ? nullptr : ticket->get<std::string>(StockCustomNameKey);
    return own != nullptr && EqualIgnoringCase(*own, name) ? ticket : nullptr;
}

} // namespace

// By the name first: few papers share one, and making a stock of each would be felt.
bool HasPaper(const CFDictionary& papers, const Stock& stock)
{
    return std::any_of(papers.begin(), papers.end(), [&stock](const CFDictionary::Entry& each) {
        const auto* ticket = NamedStock(each, stock.customName());
        return ticket != nullptr && Stock(*ticket) == stock;
    });
}

void UserPapers::load(const Stock& jobStock, const TicketSpecialPages& pages)
{
    list_ = std::make_shared<StockLibraryList>(folders_);
    list_->changeInMemory([&](StockLibraryList& list) { MarkStocksInUse(list, jobStock, pages); });
    changed();
    if (list_->unread() == nullptr) {
        StartPreferenceChange(
            [folders = folders_, inUse = PapersInUse(*papers_)] { MarkInFile(folders, inUse); });
    }
}

std::string UserPapers::add(const Stock& stock)
{
    StockLibrary entry;
    SetPaper(entry, stock);
    std::string uuid = list_->add(entry);
    changed();
    return uuid;
}

std::string UserPapers::edit(const std::string& uuid, const Stock& stock)
{
    auto entry = list_->entry(uuid);
    if (!entry) {
        return add(stock);
    }
    SetPaper(*entry, stock);
    list_->update(uuid, *entry);
    changed();
    return uuid;
}

std::string UserPapers::replace(const Stock& stock, const std::string& renamed)
{
    std::string uuid = uuidOfName(stock.customName());
    if (uuid.empty() || uuid == renamed) {
        return renamed.empty() ? add(stock) : edit(renamed, stock);
    }
    edit(uuid, stock);
    if (!renamed.empty()) {
        remove(renamed);
    }
    return uuid;
}

void UserPapers::remove(const std::string& uuid)
{
    list_->remove(uuid,
                  [&uuid](CFDictionary& library) { ChangeOrder(library, RemoveFromOrder, uuid); });
    changed();
}

void UserPapers::use(const std::string& uuid, const StockLibraryViewChange& view)
{
    list_->setInUse(uuid, [&uuid, &view](CFDictionary& library) {
        ChangeOrder(library, MoveToFront, uuid);
        ChangeStockLibraryView(library, view);
    });
    changed();
}

UserPapersState UserPapers::state() const
{
    if (list_ == nullptr) {
        return {};
    }
    const PreferenceFailure* unread = list_->unread();
    return {list_->isSaved(), unread == nullptr ? "" : unread->reason, list_->keptAs()};
}

bool UserPapers::hasName(const std::string& name) const
{
    return list_ && list_->isDuplicate(name);
}

void UserPapers::changed()
{
    papers_ = std::make_shared<const CFDictionary>(list_->stockList());
}

std::string UserPapers::uuidOfName(const std::string& name) const
{
    const CFDictionary& papers = *papers_;
    const auto found =
        std::find_if(papers.begin(), papers.end(), [&name](const CFDictionary::Entry& each) {
            return NamedStock(each, name) != nullptr;
        });
    return found == papers.end() ? "" : found->key;
}

} // namespace tarvo
