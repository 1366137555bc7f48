#pragma once

#include <cstdint>
#include <string_view>

namespace tarvo {

// Entries of the job type's dictionary.
inline constexpr std::string_view JobTypeNumberKey = "JobType";
inline constexpr std::string_view SavedJobNameKey = "SavedJobName";               // string
inline constexpr std::string_view SavedJobLocationKey = "SavedJobLocation";       // string, a URI
inline constexpr std::string_view SecurePrintPasswordKey = "SecurePrintPassword"; // string
inline constexpr std::string_view DelayedPrintTimeKey = "DelayedPrintTime";       // date
inline constexpr std::string_view SaveFormatKey = "MediaType"; // of a saved job; no paper type

/// Where a job is saved that names no place.
inline constexpr std::string_view DefaultSavedJobLocation = "file:///job-repository/";

/// What JobTypeNumberKey says; JobTypeMap and OptionalJobTypeMap have their texts.
enum class JobType : std::int32_t {
    Normal = 1,
    Hold = 2,
    Save = 3,
    SaveAndPrint = 4,
    Fax = 5,
    SecurePrint = 6,
    DelayedPrint = 7,
    SampleSet = 8,
    BackgroundForms = 9,
};

} // namespace tarvo
