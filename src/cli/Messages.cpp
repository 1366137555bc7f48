#include "cli/Messages.h"

#include "cli/OptionTable.h"
#include "platform/files/FileContents.h"
#include "platform/text/Utf8.h"

#include <unistd.h>

#include <algorithm>

namespace tarvo {
namespace {

// The bytes of the control character at the beginning of a text, 0 when there is none. Some
// terminals obey U+0080 to U+009F as well; separators of lines and paragraphs and marks of writing
// direction let a text pretend to be another.
std::size_t ControlLength(std::string_view text)
{
    const auto byte = [text](std::size_t index) {
        return static_cast<unsigned char>(index < text.size() ? text[index] : 0);
    };
    if (byte(0) < ' ' || byte(0) == 0x7F) {
        return 1;
    }
    if ((byte(0) == 0xC2 && byte(1) >= 0x80 && byte(1) <= 0x9F) || text.starts_with("\u061C")) {
        return 2;
    }
    const bool isDirection = byte(0) == 0xE2 && byte(1) == 0x80 &&
                             (byte(2) == 0x8E || byte(2) == 0x8F ||  // U+200E, U+200F
                              (byte(2) >= 0xA8 && byte(2) <= 0xAE)); // U+2028 to U+202E
    const bool isIsolate =
        byte(0) == 0xE2 && byte(1) == 0x81 && byte(2) >= 0xA6 && byte(2) <= 0xA9; // from U+2066
    return isDirection || isIsolate ? 3 : 0;
}

void WriteToStandardError(std::string_view text)
{
    std::string reason; // with standard error gone there is nobody to tell
    static_cast<void>(WriteDescriptorContents(STDERR_FILENO, text, reason));
}

} // namespace

std::string WithoutControls(std::string_view text)
{
    std::string shown;
    while (!text.empty()) {
        const std::size_t control = ControlLength(text);
        shown += control > 0 ? '?' : text.front();
        text.remove_prefix(std::max<std::size_t>(control, 1));
    }
    return shown;
}

void PrintMessage(std::string_view text)
{
    WriteToStandardError(std::string(ProgramName) + ": " + WithoutControls(text) + '\n');
}

void PrintFileMessage(std::string_view file, std::size_t line, std::string_view reason)
{
    constexpr std::size_t LongestReason = 300; // bytes; a ticket's key may be megabytes long
    const std::string_view shown = Utf8Prefix(reason, LongestReason);
    std::string text = std::string(file) + ": ";
    if (line != 0) {
        text.insert(text.size() - 1, std::to_string(line) + ":");
    }
    PrintMessage(text.append(shown).append(shown.size() < reason.size() ? "..." : ""));
}

ExitStatus PrintWrongUse(std::string_view reason)
{
    PrintMessage(reason);
    WriteToStandardError("Try '--help'.\n");
    return ExitStatus::WrongUse;
}

ExitStatus PrintResult(std::string_view text)
{
    std::string reason;
    if (WriteDescriptorContents(STDOUT_FILENO, text, reason)) {
        return ExitStatus::Done;
    }
    PrintFileMessage(OutputName("-"), 0, "cannot write: " + reason);
    return ExitStatus::Failed;
}

std::string InputName(const std::string& file)
{
    return file == "-" ? "standard input" : file;
}

std::string OutputName(const std::string& file)
{
    return file == "-" ? "standard output" : file;
}

ProgressLine::ProgressLine(std::size_t total)
    : total_(total), active_(total > 1 && isatty(STDERR_FILENO) == 1)
{
}

ProgressLine::ProgressLine() : total_(1), active_(isatty(STDERR_FILENO) == 1) {}

void ProgressLine::show(std::size_t current)
{
    show(std::to_string(current) + " of " + std::to_string(total_));
}

void ProgressLine::show(std::string_view text)
{
    if (!active_) {
        return;
    }
    clear();
    const std::string shown = WithoutControls(text);
    WriteToStandardError(shown);
    width_ = shown.size();
}

void ProgressLine::clear()
{
    if (width_ != 0) {
        WriteToStandardError('\r' + std::string(width_, ' ') + '\r');
        width_ = 0;
    }
}

} // namespace tarvo
