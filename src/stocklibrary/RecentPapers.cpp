#include "stocklibrary/RecentPapers.h"

#include "records/TicketSpecialPages.h"
#include "stocklibrary/StockLibraryKeys.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryOrderList.h"

#include <algorithm>
#include <cstdio>

namespace tarvo {
namespace {

// The name of a paper in one list; null when the list does not have the paper, or no name for it.
const std::string* NameIn(const CFDictionary* list, const std::string& uuid)
{
    const auto* entry = list == nullptr ? nullptr : list->get<CFDictionary>(uuid);
    const auto* name = entry == nullptr ? nullptr : entry->get<std::string>(EntryNameKey);
    return name == nullptr || name->empty() ? nullptr : name;
}

// Marks the paper in the list.
// @return its stock; nullopt when the list does not have it
std::optional<Stock> StockInUse(StockLibraryList& list, const std::string& uuid)
{
    const auto entry = list.entry(uuid);
    list.setInUse(uuid);
    return entry ? std::optional(entry->stock()) : std::nullopt;
}

void PrintUnsaved(const PreferenceFailure& failure)
{
    std::fprintf(stderr, "WriteUserPreferences() failed (%d)\n", failure.error);
}

void MarkMatch(StockLibraryList& list, const Stock& stock)
{
    const std::string* match = stock.customName().empty() ? nullptr : list.findMatch(stock);
    if (match == nullptr) {
        return;
    }
    const std::string uuid = *match;
    if (list.entry(uuid)->status() != static_cast<std::int32_t>(StockEntryStatus::InUse)) {
        list.setInUse(uuid); // once, for however many pages
    }
}

void MarkMatches(StockLibraryList& list, const SpecialPageList& pages)
{
    for (std::int32_t index = 0; index < pages.count(); ++index) {
        MarkMatch(list, pages.pageAtIndex(index)->stock());
    }
}

} // namespace

std::vector<NamedPaper> RecentPapers(const PreferenceFolders& folders,
                                     const StockLibraryList* printerList)
{
    const CFDictionary root = ReadStockLibraryFile(folders);
    const auto* order = root.get<CFArray>(StockMenuListKey);
    const auto* own = root.get<CFDictionary>(StockListKey);
    const CFDictionary* printers = printerList == nullptr ? nullptr : &printerList->stockList();
    std::vector<NamedPaper> papers;
    const std::size_t offered = order == nullptr ? 0 : std::min(order->size(), MaximumRecentPapers);
    for (std::size_t index = 0; index < offered; ++index) {
        const auto* uuid = (*order)[index].get<std::string>();
        if (uuid == nullptr) {
            continue;
        }
        const std::string* name = NameIn(own, *uuid);
        name = name == nullptr ? NameIn(printers, *uuid) : name;
        if (name != nullptr) {
            papers.push_back({*uuid, *name});
        }
    }
    return papers;
}

LibraryPapers::LibraryPapers(PreferenceFolders folders, StockLibraryList* printerList)
    : folders_(std::move(folders)), printerList_(printerList)
{
}

std::optional<Stock> LibraryPapers::use(std::string_view uuid)
{
    const std::string chosen(uuid);
    std::optional<Stock> stock;
    const auto change = [&](StockLibraryList& list, CFArray& order) {
        return useIn(list, order, chosen, stock);
    };
    PreferenceFailure failure;
    if (ChangeStockLibrary(folders_, change, failure)) {
        return stock;
    }
    PrintUnsaved(failure);
    if (!stock) { // the file could not even be locked
        CFArray order;
        useIn(*ReadUserStockList(folders_), order, chosen, stock);
    }
    return stock;
}

bool LibraryPapers::useIn(StockLibraryList& list, CFArray& order, const std::string& uuid,
                          std::optional<Stock>& stock) const
{
    stock = StockInUse(list, uuid);
    if (!stock && printerList_ != nullptr) {
        stock = StockInUse(*printerList_, uuid);
    }
    if (stock) {
        MoveToFront(order, uuid);
    }
    return stock.has_value();
}

void LibraryPapers::clearRecentlyUsed()
{
    const auto change = [](StockLibraryList&, CFArray& order) {
        order.clear();
        return true;
    };
    PreferenceFailure failure;
    if (!ChangeStockLibrary(folders_, change, failure)) {
        PrintUnsaved(failure);
    }
}

void MarkStocksInUse(StockLibraryList& list, const Stock& jobStock, const TicketSpecialPages& pages)
{
    list.clearStatus();
    MarkMatch(list, jobStock);
    MarkMatches(list, pages.inserts);
    MarkMatches(list, pages.exceptions);
    for (const auto& cover : {pages.frontCover, pages.backCover}) {
        if (cover) {
            MarkMatch(list, cover->stock());
        }
    }
}

} // namespace tarvo
