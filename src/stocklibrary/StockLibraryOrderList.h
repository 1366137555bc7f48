#pragma once

#include "stocklibrary/StockLibraryStore.h"

#include <string_view>

namespace tarvo {

// The order in which the stock menu offers named papers: uuids, the most recently used first.
// Papers of the printer may be among them; they are gone with the printer's next list.

inline constexpr std::size_t MaximumRecentPapers = 25;

/// Moves the uuid to the front; the oldest ones beyond the maximum leave.
void MoveToFront(CFArray& order, std::string_view uuid);

/// Removes the uuid wherever it stands.
void RemoveFromOrder(CFArray& order, std::string_view uuid);

/// The user's order, whose changes are written at once. Others' changes stay, see
/// StockLibraryFileValue.
class StockLibraryOrderList {
public:
    explicit StockLibraryOrderList(const PreferenceFolders& folders);
    StockLibraryOrderList(const StockLibraryOrderList&) = delete;
    StockLibraryOrderList& operator=(const StockLibraryOrderList&) = delete;
    /// Writes once more, which makes the user's file when there is none.
    ~StockLibraryOrderList();

    /// Forgets what is in memory and reads the user's file or, when it cannot be read, the site's.
    void read() { order_ = file_.read(); }
    /// Saves what could not be saved before.
    void write() { file_.write(order_); }

    /// Strings; what else the file held stays among them until it is pushed out.
    const CFArray& stockOrderList() const { return order_; }

    void clearOrderList();
    // Nothing for "".
    void updateOrderList(std::string_view uuid);
    void remove(std::string_view uuid);

private:
    StockLibraryFileValue<CFArray> file_;
    CFArray order_;
};

} // namespace tarvo
