#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tarvo {

inline constexpr const char* PrintProgramName = "tarvo-print";

/// How the program ends.
enum class PrintExit {
    Done = 0,
    Failed = 1,
    WrongUse = 2,
    LeftOut = 3,
};

struct PrintArguments {
    bool wantsHelp = false;
    bool wantsVersion = false;
    std::string printer; // "" is the user's default
    std::vector<std::string> files;
};

/// @param words  behind the program's name
/// @return nullopt with `reason` filled
std::optional<PrintArguments> ParsePrintArguments(std::span<char* const> words,
                                                  std::string& reason);

/// Answer to `tarvo-print --help`.
std::string PrintHelp();

/// Prints "tarvo-print: file: reason" on standard error; "" is no file. Control characters, which a
/// name may hold, become "?".
void PrintProgramMessage(const std::string& file, const std::string& reason);

} // namespace tarvo
