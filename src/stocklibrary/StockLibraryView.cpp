#include "stocklibrary/StockLibraryView.h"

#include "stocklibrary/StockLibraryKeys.h"
#include "stocklibrary/StockLibraryStore.h"

#include <limits>
#include <string_view>
#include <utility>

namespace tarvo {
namespace {

std::string ColumnKey(std::uint32_t column)
{
    std::string key;
    for (int shift = 24; shift >= 0; shift -= 8) {
        key += static_cast<char>(column >> shift & 0xFF);
    }
    return key;
}

std::optional<std::int16_t> Width(const CFDictionary& widths, std::uint32_t column)
{
    constexpr std::int32_t Widest = std::numeric_limits<std::int16_t>::max();
    const auto width = widths.int32(ColumnKey(column));
    const bool isWidth = width && *width > 0 && *width <= Widest;
    return isWidth ? std::optional(static_cast<std::int16_t>(*width)) : std::nullopt;
}

void StoreShown(CFDictionary& root, const StockLibraryView& view)
{
    CFArray shown;
    for (const bool isHidden : view.isHidden) {
        shown.push_back(!isHidden);
    }
    root.set(StockLibraryPreferencesKey, std::move(shown));
}

void StoreWidths(CFDictionary& root, const StockLibraryView& view)
{
    const auto* present = root.get<CFDictionary>(StockLibraryColumnWidthsKey);
    CFDictionary widths = present == nullptr ? CFDictionary() : *present;
    for (std::size_t column = 0; column < StockColumns.size(); ++column) {
        const std::string key = ColumnKey(StockColumns[column]);
        if (view.widths[column]) {
            widths.set(key, std::int32_t{*view.widths[column]});
        } else {
            widths.remove(key);
        }
    }
    root.set(StockLibraryColumnWidthsKey, std::move(widths));
}

void StoreSelectedRow(CFDictionary& root, const StockLibraryView& view)
{
    if (view.selectedRow.empty()) {
        root.remove(StockLibrarySelectedRowKey);
    } else {
        root.set(StockLibrarySelectedRowKey, view.selectedRow);
    }
}

// Stores what differs: what nobody has changed stays as it was written.
// @return false when nothing does
bool StoreChanges(CFDictionary& root, const StockLibraryView& before, const StockLibraryView& view)
{
    if (view.isHidden != before.isHidden) {
        StoreShown(root, view);
    }
    if (view.widths != before.widths) {
        StoreWidths(root, view);
    }
    if (view.selectedRow != before.selectedRow) {
        StoreSelectedRow(root, view);
    }
    return view != before;
}

} // namespace

StockLibraryView StockLibraryViewOf(const CFDictionary& library)
{
    StockLibraryView view;
    const auto* shown = library.get<CFArray>(StockLibraryPreferencesKey);
    const auto* widths = library.get<CFDictionary>(StockLibraryColumnWidthsKey);
    for (std::size_t column = 0; column < StockColumns.size(); ++column) {
        const bool isSaid = shown != nullptr && column < shown->size() && column > 0;
        const auto* isShown = isSaid ? (*shown)[column].get<bool>() : nullptr;
        view.isHidden[column] = isShown != nullptr && !*isShown;
        if (widths != nullptr) {
            view.widths[column] = Width(*widths, StockColumns[column]);
        }
    }
    if (const auto* row = library.get<std::string>(StockLibrarySelectedRowKey)) {
        view.selectedRow = *row;
    }
    return view;
}

StockLibraryView ReadStockLibraryView(const PreferenceFolders& folders)
{
    return StockLibraryViewOf(ReadStockLibraryFile(folders));
}

bool ChangeStockLibraryView(CFDictionary& library, const StockLibraryViewChange& change)
{
    const StockLibraryView before = StockLibraryViewOf(library);
    StockLibraryView view = before;
    change(view);
    view.isHidden.front() = false;
    return StoreChanges(library, before, view);
}

bool ChangeStockLibraryView(const PreferenceFolders& folders, const StockLibraryViewChange& change,
                            PreferenceFailure& failure)
{
    const auto changeRoot = [&change](CFDictionary& root, bool) {
        return ChangeStockLibraryView(root, change);
    };
    return ChangeStockLibraryFile(folders, changeRoot, failure);
}

} // namespace tarvo
