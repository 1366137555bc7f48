#include "cli/ArgumentParser.h"
#include "cli/ExportCommand.h"
#include "cli/HelpText.h"
#include "cli/ImportCommand.h"
#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/PrinterCommand.h"
#include "cli/ShowCommand.h"

#include <csignal>
#include <exception>
#include <new>

namespace tarvo {
namespace {

struct CommandRow {
    const char* verb; // null ends the table
    ExitStatus (*run)(const Arguments& arguments);
};

// What each row of VerbMap does.
constexpr CommandRow CommandMap[] = {
    {ExportVerb,  RunExport },
    {ShowVerb,    RunShow   },
    {ImportVerb,  RunImport },
    {PrinterVerb, RunPrinter},
    {nullptr,     nullptr   },
};

ExitStatus PrintVersion()
{
    return PrintResult(std::string(ProgramName) + " " TARVO_VERSION "\n");
}

ExitStatus RunVerb(const CommandRow& command, std::span<char* const> words)
{
    std::string reason;
    const auto arguments = ParseArguments(command.verb, words, reason);
    if (!arguments) {
        return PrintWrongUse(reason);
    }
    if (arguments->has(HelpOption)) {
        return PrintResult(VerbHelp(*FindVerb(command.verb)));
    }
    if (arguments->has(VersionOption)) {
        return PrintVersion();
    }
    return command.run(*arguments);
}

ExitStatus Run(std::span<char* const> words)
{
    const std::string_view first = words.empty() ? "" : words.front();
    if (first == VersionOption) {
        return PrintVersion();
    }
    if (first == HelpOption || first == "-h") {
        return PrintResult(ProgramHelp());
    }
    for (const CommandRow* row = CommandMap; row->verb != nullptr; ++row) {
        if (first == row->verb) {
            return RunVerb(*row, words.subspan(1));
        }
    }
    if (first.empty()) {
        return PrintWrongUse("no verb is named");
    }
    return PrintWrongUse((first.starts_with('-') ? "unknown option \"" : "unknown verb \"") +
                         std::string(first) + '"');
}

ExitStatus RunCatching(std::span<char* const> words)
{
    try {
        return Run(words);
    } catch (const std::bad_alloc&) {
        PrintMessage("out of memory");
    } catch (const std::exception& error) {
        PrintMessage(error.what());
    }
    return ExitStatus::Failed;
}

} // namespace
} // namespace tarvo

int main(int count, char** words)
{
    // A reader that goes away is a failed write with a message, not a silent end.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    const std::size_t own = count > 0 ? 1 : 0; // an exec without arguments has no name either
    const std::span<char* const> all(words, static_cast<std::size_t>(count));
    return static_cast<int>(tarvo::RunCatching(all.subspan(own)));
}
