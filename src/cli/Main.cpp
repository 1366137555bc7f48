#include "cli/ArgumentParser.h"
#include "cli/CheckCommand.h"
#include "cli/ExportCommand.h"
#include "cli/FromJobCommand.h"
#include "cli/HelpText.h"
#include "cli/ImportCommand.h"
#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/PrinterCommand.h"
#include "cli/ShowCommand.h"
#include "cli/StocksCommand.h"
#include "cli/WatermarksCommand.h"

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
    {ExportVerb,         RunExport        },
    {ShowVerb,           RunShow          },
    {ImportVerb,         RunImport        },
    {CheckVerb,          RunCheck         },
    {FromJobVerb,        RunFromJob       },
    {PrinterVerb,        RunPrinter       },
    {StocksListVerb,     RunStocksList    },
    {StocksAddVerb,      RunStocksAdd     },
    {StocksRemoveVerb,   RunStocksRemove  },
    {StocksUseVerb,      RunStocksUse     },
    {StocksMatchVerb,    RunStocksMatch   },
    {StocksImportVerb,   RunStocksImport  },
    {StocksExportVerb,   RunStocksExport  },
    {StocksFetchVerb,    RunStocksFetch   },
    {WatermarksListVerb, RunWatermarksList},
    {nullptr,            nullptr          },
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

// How many of the words name the verb; 0 when they begin otherwise.
std::size_t WordsOfVerb(std::string_view verb, std::span<char* const> words)
{
    const std::string_view group = GroupOfVerb(verb);
    if (group.empty()) {
        return words.front() == verb ? 1 : 0;
    }
    const bool isNamed =
        words.size() > 1 && words[0] == group && words[1] == verb.substr(group.size() + 1);
    return isNamed ? 2 : 0;
}

// Words that name a group of verbs, but none of its verbs.
ExitStatus RunGroup(std::string_view group, std::span<char* const> words)
{
    const std::string_view second = words.empty() ? "" : words.front();
    if (second == HelpOption || second == "-h") {
        return PrintResult(GroupHelp(group));
    }
    if (second == VersionOption) {
        return PrintVersion();
    }
    const std::string verbs = "; there are " + VerbsOfGroup(group);
    if (second.empty()) {
        return PrintWrongUse("no verb is named behind \"" + std::string(group) + '"' + verbs);
    }
    return PrintWrongUse("unknown verb \"" + std::string(group) + ' ' + std::string(second) + '"' +
                         verbs);
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
    if (first.empty()) {
        return PrintWrongUse("no verb is named");
    }
    for (const CommandRow* row = CommandMap; row->verb != nullptr; ++row) {
        if (const std::size_t count = WordsOfVerb(row->verb, words); count > 0) {
            return RunVerb(*row, words.subspan(count));
        }
    }
    if (IsVerbGroup(first)) {
        return RunGroup(first, words.subspan(1));
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
