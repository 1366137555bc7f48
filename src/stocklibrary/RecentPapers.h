#pragma once

#include "prefs/PreferenceFiles.h"
#include "records/Stock.h"
#include "settings/SettingMenu.h"

#include <string>
#include <vector>

namespace tarvo {

class StockLibraryList;
struct TicketSpecialPages;

// The named papers at work: in the stock menu and in a job. A paper is looked up in the user's
// library, then in the printer's, which may be null.

/// The papers of the stock menu, the most recently used first, for PopulateMenuFromMapAndFile. One
/// that no library has any more is passed over, and so is one without a name.
/// @param library  the user's, as ReadStockLibraryFile gives it
/// @param stocks   if given, gets their stocks in the same order
std::vector<NamedPaper> RecentPapers(const CFDictionary& library,
                                     const StockLibraryList* printerList,
                                     std::vector<Stock>* stocks = nullptr);
/// The same, with the user's library read for it.
std::vector<NamedPaper> RecentPapers(const PreferenceFolders& folders,
                                     const StockLibraryList* printerList,
                                     std::vector<Stock>* stocks = nullptr);

// What the stock menu changes in the user's file. Both wait for the disk, and for whoever else
// changes the file, so they are for a task. What cannot be saved is told on standard error,
// "WriteUserPreferences() failed (errno)".

/// Marks a paper in use if it is the user's, and puts it in front of the recently used ones.
void RememberRecentPaper(const PreferenceFolders& folders, const std::string& uuid);
void ForgetRecentPapers(const PreferenceFolders& folders);

/// Marks the papers that a job uses, for itself or for a special page, and no others as in use. A
/// stock without a custom name came from no library. A list in memory, as ChangeStockLibrary hands
/// out, saves a write for each paper.
void MarkStocksInUse(StockLibraryList& list, const Stock& jobStock,
                     const TicketSpecialPages& pages);

} // namespace tarvo
