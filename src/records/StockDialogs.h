#pragma once

#include "records/Stock.h"
#include "settings/JobContext.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

/// How the user left the stock library.
enum class LibraryAnswer {
    Chosen, // the stock is the chosen paper's
    Cancelled,
    PaperLost, // cancelled; the stock's own paper was there before and has gone
};

/// The questions that choosing a stock may ask; who has a screen answers them with a dialog each.
/// What each allows and proposes stands in StockDialogRules.h and CustomSizeEntry.h. Each returns
/// true for OK; after Cancel what was handed in is not looked at.
class StockDialogs {
public:
    StockDialogs() = default;
    StockDialogs(const StockDialogs&) = delete;
    StockDialogs& operator=(const StockDialogs&) = delete;
    virtual ~StockDialogs() = default;

    /// Width and length of a custom size, in 1/100 mm, UnsetValue when there are none yet.
    virtual bool askCustomSize(std::int32_t& width, std::int32_t& length) = 0;
    virtual bool askCustomColor(JobContext context, Stock& stock) = 0;
    virtual bool askCustomType(JobContext context, Stock& stock) = 0;
    virtual bool askOrderedStock(JobContext context, Stock& stock) = 0;
    virtual bool askPrecutTabs(JobContext context, Stock& stock) = 0;
    virtual bool askDescription(JobContext context, Stock& stock) = 0;
    /// Every attribute in one dialog.
    virtual bool askAdvancedSelection(JobContext context, Stock& stock) = 0;
    /// The name of a paper that no library need have; at most 255 characters.
    virtual bool askPaperName(std::string& name) = 0;
    /// The stock library, which the user may change whatever the result.
    virtual LibraryAnswer askStockLibrary(JobContext context, Stock& stock) = 0;
};

/// What the stock menu needs of the stock libraries.
class NamedPapers {
public:
    NamedPapers() = default;
    NamedPapers(const NamedPapers&) = delete;
    NamedPapers& operator=(const NamedPapers&) = delete;
    virtual ~NamedPapers() = default;

    /// Finds a paper in the user's library, then in the printer's, marks it used and moves it to
    /// the front of the recently used ones.
    /// @return its stock; nullopt when neither has it, with nothing changed
    virtual std::optional<Stock> use(std::string_view uuid) = 0;
    /// Forgets which papers were recently used.
    virtual void clearRecentlyUsed() = 0;
};

} // namespace tarvo
