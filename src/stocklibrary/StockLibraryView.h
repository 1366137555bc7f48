#pragma once

#include "prefs/PreferenceFiles.h"
#include "settings/SettingMap.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tarvo {

/// The columns of the stock library's dialog, in the order of the user's preferences for them.
inline constexpr std::array StockColumns = {
    FourCharCode("NAME"), FourCharCode("SIZE"), FourCharCode("COLR"), FourCharCode("TYPE"),
    FourCharCode("MODU"), FourCharCode("PNCH"), FourCharCode("WGHT"), FourCharCode("DESC"),
    FourCharCode("SIDE"), FourCharCode("COAT"), FourCharCode("FNSH"), FourCharCode("GRAN"),
    FourCharCode("CMNT"),
};

/// How the user has left the dialog. Arrays have the order of StockColumns.
struct StockLibraryView {
    std::array<bool, StockColumns.size()> isHidden = {};                 // never the name's
    std::array<std::optional<std::int16_t>, StockColumns.size()> widths; // nullopt: as wide as ever
    std::string selectedRow; // uuid of a paper; "" for none
    bool operator==(const StockLibraryView&) const = default;
};

/// All columns are shown unless the user, or the site for a user without a file, says otherwise.
/// What is of another type or no width above 0 counts as absent.
/// @param library  as ReadStockLibraryFile gives it
StockLibraryView StockLibraryViewOf(const CFDictionary& library);
/// The same, with the file read for it.
StockLibraryView ReadStockLibraryView(const PreferenceFolders& folders);

using StockLibraryViewChange = std::function<void(StockLibraryView& view)>;

/// Changes the view in what the user's file holds. What that says of other columns stays, and so
/// does the site's choice of columns unless the change makes another.
/// @return false when nothing differs
bool ChangeStockLibraryView(CFDictionary& library, const StockLibraryViewChange& change);
/// The same in the user's file.
/// @return as ChangeUserPreferences
[[nodiscard]] bool ChangeStockLibraryView(const PreferenceFolders& folders,
                                          const StockLibraryViewChange& change,
                                          PreferenceFailure& failure);

} // namespace tarvo
