#include "stocklibrary/RecentPapers.h"

#include "records/TicketSpecialPages.h"
#include "stocklibrary/StockLibraryKeys.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryOrderList.h"

#include <algorithm>

namespace tarvo {
namespace {

// A paper in one list; null when the list does not have the paper, or no name for it.
const CFDictionary* NamedEntryIn(const CFDictionary* list, const std::string& uuid)
{
    const auto* entry = list == nullptr ? nullptr : list->get<CFDictionary>(uuid);
    const auto* name = entry == nullptr ? nullptr : entry->get<std::string>(EntryNameKey);
    return name == nullptr || name->empty() ? nullptr : entry;
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

std::vector<NamedPaper> RecentPapers(const CFDictionary& library,
                                     const StockLibraryList* printerList,
                                     std::vector<Stock>* stocks)
{
    const auto* order = library.get<CFArray>(StockMenuListKey);
    const auto* own = library.get<CFDictionary>(StockListKey);
    const CFDictionary* printers = printerList == nullptr ? nullptr : &printerList->stockList();
    std::vector<NamedPaper> papers;
    const std::size_t offered = order == nullptr ? 0 : std::min(order->size(), MaximumRecentPapers);
    for (std::size_t index = 0; index < offered; ++index) {
        const auto* uuid = (*order)[index].get<std::string>();
        if (uuid == nullptr) {
            continue;
        }
        const CFDictionary* entry = NamedEntryIn(own, *uuid);
        entry = entry == nullptr ? NamedEntryIn(printers, *uuid) : entry;
        if (entry == nullptr) {
            continue;
        }
        papers.push_back({*uuid, *entry->get<std::string>(EntryNameKey)});
        if (stocks != nullptr) {
            stocks->push_back(StockLibrary(*entry).stock());
        }
    }
    return papers;
}

std::vector<NamedPaper> RecentPapers(const PreferenceFolders& folders,
                                     const StockLibraryList* printerList,
                                     std::vector<Stock>* stocks)
{
    return RecentPapers(ReadStockLibraryFile(folders), printerList, stocks);
}

void RememberRecentPaper(const PreferenceFolders& folders, const std::string& uuid)
{
    const auto change = [&uuid](StockLibraryList& list, CFArray& order) {
        list.setInUse(uuid);
        MoveToFront(order, uuid);
        return true;
    };
    SaveStockLibrary(folders, change);
}

void ForgetRecentPapers(const PreferenceFolders& folders)
{
    const auto change = [](StockLibraryList&, CFArray& order) {
        order.clear();
        return true;
    };
    SaveStockLibrary(folders, change);
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
