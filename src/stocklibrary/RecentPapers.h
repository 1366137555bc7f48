#pragma once

#include "prefs/PreferenceFiles.h"
#include "records/Stock.h"
#include "records/StockDialogs.h"
#include "settings/SettingMenu.h"

#include <optional>
#include <string_view>
#include <vector>

namespace tarvo {

class StockLibraryList;
struct TicketSpecialPages;

// The named papers at work: in the stock menu and in a job. A paper is looked up in the user's
// library, then in the printer's, which may be null.

/// The papers of the stock menu, the most recently used first, for PopulateMenuFromMapAndFile. One
/// that no library has any more is passed over, and so is one without a name.
std::vector<NamedPaper> RecentPapers(const PreferenceFolders& folders,
                                     const StockLibraryList* printerList);

/// What the stock menu does with the libraries. What cannot be saved is told on standard error,
/// "WriteUserPreferences() failed (errno)", and a paper is chosen all the same.
class LibraryPapers : public NamedPapers {
public:
    /// @param printerList  borrowed
    LibraryPapers(PreferenceFolders folders, StockLibraryList* printerList);

    std::optional<Stock> use(std::string_view uuid) override;
    void clearRecentlyUsed() override;

private:
    bool useIn(StockLibraryList& list, CFArray& order, const std::string& uuid,
               std::optional<Stock>& stock) const;

    PreferenceFolders folders_;
    StockLibraryList* printerList_;
};

/// Marks the papers that a job uses, for itself or for a special page, and no others as in use. A
/// stock without a custom name came from no library. A list in memory, as ChangeStockLibrary hands
/// out, saves a write for each paper.
void MarkStocksInUse(StockLibraryList& list, const Stock& jobStock,
                     const TicketSpecialPages& pages);

} // namespace tarvo
