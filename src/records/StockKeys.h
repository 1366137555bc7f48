#pragma once

#include <cstdint>
#include <string_view>

namespace tarvo {

// Entries of a stock's dictionary. The "k" of two of them is part of the key.
inline constexpr std::string_view StockSizeKey = "Size";
inline constexpr std::string_view StockWidthKey = "Width";   // 1/100 mm, of a custom size
inline constexpr std::string_view StockLengthKey = "Length"; // 1/100 mm, of a custom size
inline constexpr std::string_view StockTypeKey = "Type";
inline constexpr std::string_view StockCustomTypeKey = "CustomType"; // string
inline constexpr std::string_view StockModulusKey =
    "Modulus"; // tabs of a set, sheets of a sequence
inline constexpr std::string_view StockColorKey = "Color";
inline constexpr std::string_view StockCustomColorKey = "CustomColor"; // string
inline constexpr std::string_view StockWeightKey = "Weight";           // g/m2
inline constexpr std::string_view StockPunchedKey = "Punched";
inline constexpr std::string_view StockDescriptionKey = "Description"; // string
inline constexpr std::string_view StockSidesCoatedKey = "SidesCoated";
inline constexpr std::string_view StockCoatingTypeKey = "kCoatingType";
inline constexpr std::string_view StockFinishKey = "Finish";
inline constexpr std::string_view StockGrainKey = "kGrain";
inline constexpr std::string_view StockCustomNameKey = "CustomName";         // string
inline constexpr std::string_view StockCustomNameOnlyKey = "CustomNameOnly"; // boolean
inline constexpr std::string_view StockCommentKey = "CustomComment";         // string

/// The size that says: take width and length.
inline constexpr std::int32_t CustomStockSize = 75;

// Colours that bring a rule of their own.
inline constexpr std::int32_t ClearStockColor = 6;
inline constexpr std::int32_t CustomStockColor = 10; // under a name of the user's

// Types that bring a rule of their own.
inline constexpr std::int32_t TransparencyStockType = 2; // always clear
inline constexpr std::int32_t PrecutTabStockType = 4;    // has a modulus
inline constexpr std::int32_t OrderedStockType = 6;      // has a modulus and a custom type
inline constexpr std::int32_t CustomStockType = 7;       // has a custom type
inline constexpr std::int32_t TabStockType = 24;         // the printer's own; may have a modulus
inline constexpr std::int32_t HeavyTabStockType = 33;    // likewise

inline constexpr std::int32_t NotPunchedStock = 1;
inline constexpr std::int32_t GlossCoating = 1;

} // namespace tarvo
