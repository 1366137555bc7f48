#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarvo {

// Entries of the background forms options' dictionary; its offset has the keys of an image shift.
inline constexpr std::string_view UseExistingFormKey = "UseExistingForm"; // FormUse
inline constexpr std::string_view NewFormStringKey = "NewFormString";     // string
inline constexpr std::string_view MergeWithStringKey = "MergeWithString"; // string
inline constexpr std::string_view CyclePagesKey = "CyclePages";

/// What UseExistingFormKey says.
enum class FormUse : std::int32_t {
    None = 1, // the job makes a form when its job type says so
    Merge = 2,
};

inline constexpr std::size_t LongestFormNameInput = 255; // characters
inline constexpr std::int32_t MostCyclePages = 999'999;

// The user's file of form names, and its entries: arrays of strings, newest first.
inline constexpr std::string_view BackgroundFormsFile = "com.tarvo.print.backgroundforms";
inline constexpr std::string_view ExistingFormsArrayKey = "ExistingFormsArray";
inline constexpr std::string_view NewFormsArrayKey = "NewFormsArray";

} // namespace tarvo
