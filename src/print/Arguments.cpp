#include "print/Arguments.h"

#include <cstdio>
#include <string_view>

namespace tarvo {
namespace {

constexpr const char* HelpPage =
    R"(Usage: tarvo-print [OPTION...] FILE...

Opens the print dialog of the desktop, with the features of Tarvo production
printers, for each file in turn, and sends what the user lets print.

A file is a PDF document, which is sent as it is, or a picture, which is fitted
to the page; - is standard input.

Options:
  -p, --printer NAME  Begin with this printer in place of the user's default.
  -h, --help          Print this help.
      --version       Print the version.

Exit status:
  0  Done.
  1  The work failed, or the user has let nothing print.
  2  Wrong use; nothing was done.
  3  Done, but something was left out; standard error names it.

Examples:
  tarvo-print brochure.pdf
      Print a document.
  tarvo-print --printer press cover.png body.pdf
      Print a picture and a document, on the same printer at first.
)";

enum class Word { Help, Version, Printer, Other };

struct WordRow {
    const char* word; // null ends the table
    Word meaning;
};

constexpr WordRow WordMap[] = {
    {"-h",        Word::Help   },
    {"--help",    Word::Help   },
    {"--version", Word::Version},
    {"-p",        Word::Printer},
    {"--printer", Word::Printer},
    {nullptr,     Word::Other  },
};

Word MeaningOf(std::string_view word)
{
    const WordRow* row = WordMap;
    while (row->word != nullptr && row->word != word) {
        ++row;
    }
    return row->meaning;
}

// Takes a word that is no file. @return how many words that were; 0 with `reason` filled
std::size_t TakeOption(PrintArguments& arguments, std::span<char* const> words, std::string& reason)
{
    constexpr std::string_view Printer = "--printer=";
    const std::string_view word = words.front();
    const Word meaning = MeaningOf(word);
    const bool isJoined = word.starts_with(Printer) && word.size() > Printer.size();
    if (meaning == Word::Help || meaning == Word::Version) {
        (meaning == Word::Help ? arguments.wantsHelp : arguments.wantsVersion) = true;
        return 1;
    }
    if (meaning != Word::Printer && !isJoined) {
        reason = "unknown option \"" + std::string(word) + '"';
        return 0;
    }
    if (!isJoined && words.size() < 2) {
        reason = "--printer needs a value";
        return 0;
    }
    arguments.printer = isJoined ? word.substr(Printer.size()) : words[1];
    return isJoined ? 1 : 2;
}

} // namespace

std::optional<PrintArguments> ParsePrintArguments(std::span<char* const> words, std::string& reason)
{
    PrintArguments arguments;
    bool filesOnly = false;
    while (!words.empty()) {
        const std::string_view word = words.front();
        std::size_t taken = 1;
        if (!filesOnly && word == "--") {
            filesOnly = true;
        } else if (filesOnly || word.size() < 2 || word.front() != '-') {
            arguments.files.emplace_back(word);
        } else {
            taken = TakeOption(arguments, words, reason);
        }
        if (taken == 0) {
            return std::nullopt;
        }
        words = words.subspan(taken);
    }
    if (arguments.files.empty() && !arguments.wantsHelp && !arguments.wantsVersion) {
        reason = "no file is named";
        return std::nullopt;
    }
    return arguments;
}

std::string PrintHelp()
{
    return HelpPage;
}

void PrintProgramMessage(const std::string& file, const std::string& reason)
{
    std::string line = std::string(PrintProgramName) + ": " + file + (file.empty() ? "" : ": ");
    line += reason;
    for (char& letter : line) {
        letter = (letter >= 0 && letter < ' ') || letter == '\x7F' ? '?' : letter;
    }
    static_cast<void>(std::fprintf(stderr, "%s\n", line.c_str()));
}

} // namespace tarvo
