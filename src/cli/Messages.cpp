#include "cli/Messages.h"

#include "cli/OptionTable.h"
#include "platform/files/FileContents.h"
#include "platform/text/Utf8.h"

#include <unistd.h>

namespace tarvo {
namespace {

bool IsControlByte(unsigned char byte)
{
    return byte < ' ' || byte == 0x7F;
}

// U+0080 to U+009F: some terminals obey them as well.
bool IsControlPair(unsigned char first, unsigned char second)
{
    return first == 0xC2 && second >= 0x80 && second <= 0x9F;
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
    for (std::size_t index = 0; index < text.size(); ++index) {
        const auto first = static_cast<unsigned char>(text[index]);
        const auto second =
            static_cast<unsigned char>(index + 1 < text.size() ? text[index + 1] : 0);
        const bool pair = IsControlPair(first, second);
        shown += pair || IsControlByte(first) ? '?' : text[index];
        index += pair ? 1 : 0;
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

void ProgressLine::show(std::size_t current)
{
    if (!active_) {
        return;
    }
    clear();
    const std::string text = std::to_string(current) + " of " + std::to_string(total_);
    WriteToStandardError(text);
    width_ = text.size();
}

void ProgressLine::clear()
{
    if (width_ != 0) {
        WriteToStandardError('\r' + std::string(width_, ' ') + '\r');
        width_ = 0;
    }
}

} // namespace tarvo
