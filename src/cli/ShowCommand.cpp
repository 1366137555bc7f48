#include "cli/ShowCommand.h"

#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/ProgramBundle.h"
#include "cli/TicketFile.h"
#include "cli/TicketReport.h"
#include "records/PageRanges.h"

#include <charconv>
#include <system_error>

namespace tarvo {
namespace {

std::optional<std::int32_t> PagesFromText(const std::string& text)
{
    std::int32_t pages = 0;
    const char* end = text.data() + text.size();
    const auto [behind, error] = std::from_chars(text.data(), end, pages);
    if (error != std::errc() || behind != end || pages < 1 || pages > LargestPageNumber) {
        return std::nullopt;
    }
    return pages;
}

} // namespace

ExitStatus RunShow(const Arguments& arguments)
{
    const auto& files = arguments.values(TicketArguments);
    if (files.size() != 1) {
        return PrintWrongUse(files.empty() ? "no ticket is named"
                                           : "more than one ticket is named");
    }
    std::optional<std::int32_t> pages;
    if (arguments.has(PagesOption)) {
        const std::string& text = arguments.values(PagesOption).front();
        pages = PagesFromText(text);
        if (!pages) {
            return PrintWrongUse(std::string(PagesOption) + " \"" + text +
                                 "\" is no number of pages from 1 to " +
                                 std::to_string(LargestPageNumber));
        }
    }
    ParseError error;
    const auto ticket = ReadTicket(files.front(), error);
    if (!ticket) {
        PrintFileMessage(InputName(files.front()), error.line, error.reason);
        return ExitStatus::Failed;
    }
    const auto bundle = OpenProgramBundle(UserLanguages());
    if (!bundle) {
        return ExitStatus::Failed;
    }
    const TicketReport report = DescribeTicket(*ticket, *bundle, pages);
    return PrintResult(arguments.has(JsonOption) ? TicketJson(report)
                                                 : TicketText(report, *bundle));
}

} // namespace tarvo
