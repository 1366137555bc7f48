#pragma once

#include "cli/ExitStatus.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvo {

/// The text with "?" for each control character, so that no terminal obeys what a file holds.
std::string WithoutControls(std::string_view text);

/// Prints "tarvo-ticket: text" as one line on standard error. Control characters, which a file name
/// or a ticket may hold, become "?", so that no terminal obeys them.
void PrintMessage(std::string_view text);

/// Prints "tarvo-ticket: file:line: reason"; line 0 is left out. A long reason is cut.
void PrintFileMessage(std::string_view file, std::size_t line, std::string_view reason);

/// Prints what is wrong with the command line and where help is.
/// @return ExitStatus::WrongUse
ExitStatus PrintWrongUse(std::string_view reason);

/// Prints a result on standard output.
/// @return Done; Failed with a message when it cannot be written
ExitStatus PrintResult(std::string_view text);

/// "standard input" for "-", else the name itself.
std::string InputName(const std::string& file);

/// "standard output" for "-", else the name itself.
std::string OutputName(const std::string& file);

/// How far the work is, on a terminal at standard error and for more than one piece or a long one;
/// otherwise silent. The line is gone when the object is.
class ProgressLine {
public:
    explicit ProgressLine(std::size_t total);
    /// One piece of work that may take long.
    ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine() { clear(); }

    /// @param current  from 1
    void show(std::size_t current);
    void show(std::string_view text);
    /// Makes room for other lines on the terminal.
    void clear();

private:
    std::size_t total_;
    bool active_;
    std::size_t width_ = 0; // of what stands on the terminal
};

} // namespace tarvo
