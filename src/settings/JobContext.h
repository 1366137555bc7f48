#pragma once

#include <cstdint>

namespace tarvo {

/// For whom a setting is chosen. Only what is chosen for the whole job falls back to the printer's
/// defaults; a page falls back to the job's own settings.
enum class JobContext : std::int32_t {
    Job = 0,
    Cover = 2,
    Insert = 3,
    ExceptionPage = 4,
};

/// The key of the text that stands for "nothing chosen".
constexpr const char* DefaultSettingKey(JobContext context)
{
    return context == JobContext::Job ? "PrinterDefault" : "UseJobSetting";
}

} // namespace tarvo
