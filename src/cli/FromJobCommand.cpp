#include "cli/FromJobCommand.h"

#include "cli/Input.h"
#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/ProgramBundle.h"
#include "cli/TicketFile.h"
#include "cli/TicketReport.h"
#include "records/JobOptions.h"

namespace tarvo {
namespace {

constexpr std::size_t MaximumBytes = std::size_t{1024} * 1024; // no system hands a filter more

std::optional<CFDictionary> TicketOfJob(const std::string& argument, std::string& reason)
{
    if (argument != "-") {
        return TicketOfJobOptions(JobOptionsFromText(argument), reason);
    }
    const auto text = ReadInput(argument, MaximumBytes, reason);
    return text ? TicketOfJobOptions(JobOptionsFromText(*text), reason) : std::nullopt;
}

} // namespace

ExitStatus RunFromJob(const Arguments& arguments)
{
    const auto& texts = arguments.values(JobOptionsArgument);
    if (texts.size() != 1) {
        return PrintWrongUse(texts.empty() ? "no options of a job are given"
                                           : "the options of a job are one argument, in quotes");
    }
    std::string reason;
    const auto ticket = TicketOfJob(texts.front(), reason);
    if (!ticket) {
        PrintMessage(reason);
        return ExitStatus::Failed;
    }
    const bool isJson = arguments.has(JsonOption);
    if (arguments.has(OutputOption) || !isJson) {
        const std::string output =
            arguments.has(OutputOption) ? arguments.values(OutputOption).front() : "-";
        if (!WriteTicket(output, *ticket)) {
            return ExitStatus::Failed;
        }
    }
    if (!isJson) {
        return ExitStatus::Done;
    }
    const auto bundle = OpenProgramBundle(UserLanguages());
    if (!bundle) {
        return ExitStatus::Failed;
    }
    return PrintResult(TicketJson(DescribeTicket(*ticket, *bundle, std::nullopt)));
}

} // namespace tarvo
