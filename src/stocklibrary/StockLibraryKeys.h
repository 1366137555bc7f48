#pragma once

#include <string_view>

namespace tarvo {

/// The user's file of named papers; its name has no extension.
inline constexpr std::string_view StockLibraryFile = "com.tarvo.print.stocklibrary";

// Entries of that file. The first three are also defaults that a site may give.
inline constexpr std::string_view StockListKey =
    "com.tarvo.print.StockLibrary.StockList"; // dictionary: uuid to entry
inline constexpr std::string_view StockMenuListKey =
    "com.tarvo.print.StockLibrary.StockMenuList"; // array of uuids
inline constexpr std::string_view StockLibraryPreferencesKey =
    "com.tarvo.print.StockLibrary.Preferences"; // array of booleans, one for each column
inline constexpr std::string_view StockLibrarySelectedRowKey =
    "com.tarvo.print.StockLibrary.SelectedRow"; // uuid
inline constexpr std::string_view StockLibraryColumnWidthsKey =
    "com.tarvo.print.StockLibrary.ColumnWidths"; // dictionary: column to number

// Keys of an entry of the stock list.
inline constexpr std::string_view EntryStatusKey = "EntryStatus";
inline constexpr std::string_view EntryStockKey = "Stock"; // dictionary, keys of StockKeys.h
inline constexpr std::string_view EntryUuidKey = "com.tarvo.print.StockLibrary.UUID";    // string
inline constexpr std::string_view EntryNameKey = "com.tarvo.print.StockLibrary.NameKey"; // string

} // namespace tarvo
