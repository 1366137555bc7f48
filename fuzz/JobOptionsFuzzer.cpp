// Any text as the options of a job: read as the printing system reads it, and its ticket is refused
// or travels again as it is.
#include "platform/printing/PMTicket.h"
#include "records/JobOptions.h"

#include <cups/cups.h>

#include <cstdlib>

namespace {

using namespace tarvo;

void Expect(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

// The library drops an old name of the print quality where a new one comes, and is quadratic.
bool IsForLibrary(std::string_view text, const JobOptions& ours)
{
    constexpr std::size_t MaximumBytes = 4'096;
    return text.size() <= MaximumBytes && ours.find("print-quality") == nullptr &&
           ours.find("cupsPrintQuality") == nullptr;
}

void ExpectAsLibrary(const std::string& text, const JobOptions& ours)
{
    cups_option_t* theirs = nullptr;
    const int count = cupsParseOptions(text.c_str(), 0, &theirs);
    Expect(ours.size() == static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        const std::string* value = ours.find(theirs[index].name);
        Expect(value != nullptr && *value == theirs[index].value);
    }
    cupsFreeOptions(count, theirs);
}

void ExpectToTravel(const CFDictionary& ticket)
{
    JobOptionsFault fault = JobOptionsFault::None;
    const auto options = JobOptionsOf(PMTicket(ticket, PanelClient), fault);
    std::string reason;
    if (options) { // passcodes are left behind, so the second journey is the one to compare
        const auto first = TicketOfJobOptions(*options, reason);
        const auto again = JobOptionsOf(PMTicket(*first, PanelClient), fault);
        Expect(again && *again->find(TicketOptionName) == *options->find(TicketOptionName));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(bytes), size);
    const JobOptions options = JobOptionsFromText(text);
    if (IsForLibrary(text, options)) {
        ExpectAsLibrary(text, options);
    }
    std::string reason;
    const auto ticket = TicketOfJobOptions(options, reason);
    Expect(ticket.has_value() == reason.empty());
    if (ticket) {
        ExpectToTravel(*ticket);
    }
    return 0;
}
