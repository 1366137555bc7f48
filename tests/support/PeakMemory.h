#pragma once

#include <malloc.h>

#include <cstddef>
#include <fstream>
#include <string>

namespace tarvo {

/// A sanitizer keeps what is freed, and takes longer.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool IsSanitized = true;
#elif defined(__has_feature)
constexpr bool IsSanitized = __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
constexpr bool IsSanitized = false;
#endif

/// Memory that the process has held at most since the last reset, in KiB.
inline std::size_t PeakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            return static_cast<std::size_t>(std::stoul(line.substr(6)));
        }
    }
    return 0;
}

inline void ResetPeakMemory()
{
    malloc_trim(0); // what was freed would serve once more
    std::ofstream("/proc/self/clear_refs") << "5";
}

} // namespace tarvo
