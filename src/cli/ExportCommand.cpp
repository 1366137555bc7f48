#include "cli/ExportCommand.h"

#include "cli/ExportPlan.h"
#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/PageFormatArgument.h"
#include "cli/TicketFile.h"
#include "platform/files/FileContents.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFChannel.h"
#include "tpif/TPIFWriter.h"

#include <filesystem>
#include <system_error>

namespace tarvo {
namespace {

// A flag of the command line and the one that it sets among the ticket's export options.
struct PartRow {
    const char* option; // null ends the table
    std::string_view ticketKey;
};

constexpr PartRow PartMap[] = {
    {AllOption,        ExportAllKey       },
    {CoversOption,     ExportCoversKey    },
    {InsertsOption,    ExportInsertsKey   },
    {ExceptionsOption, ExportExceptionsKey},
    {nullptr,          ""                 },
};

// What the command line asks for.
struct ExportRequest {
    std::vector<ExportStep> steps;
    std::optional<std::string> directory; // of the documents
    CFDictionary parts;                   // empty: those that each ticket chooses
    bool whole = false;
    std::optional<PageFormat> pageFormat;
};

enum class ExportOutcome { Written, Empty, Failed };

std::optional<ExportRequest> RequestOf(const Arguments& arguments, std::string& reason)
{
    ExportRequest request;
    if (arguments.has(PageFormatOption)) {
        const std::string& text = arguments.values(PageFormatOption).front();
        request.pageFormat = PageFormatFromText(text);
        if (!request.pageFormat) {
            reason = std::string(PageFormatOption) + " \"" + text +
                     "\" is not width,length,orientation such as 595,842,0";
            return std::nullopt;
        }
    }
    auto steps = PlanExport(arguments, reason);
    if (!steps) {
        return std::nullopt;
    }
    request.steps = std::move(*steps);
    if (arguments.has(OutputDirectoryOption)) {
        request.directory = arguments.values(OutputDirectoryOption).front();
    }
    for (const PartRow* row = PartMap; row->option != nullptr; ++row) {
        if (arguments.has(row->option)) {
            request.parts.set(row->ticketKey, true);
        }
    }
    request.whole = arguments.has(WholeOption);
    return request;
}

std::string DocumentOf(CFDictionary settings, const ExportRequest& request)
{
    if (!request.whole) {
        settings.removeKeys([](std::string_view key) { return !IsExportedKey(key); });
    }
    if (!request.parts.empty()) {
        settings.set(ExportOptionsKey, request.parts);
    }
    std::string document;
    TPIFChannel channel([&document](std::string_view text) { document += text; });
    WriteTPIF(channel, settings, request.pageFormat ? &*request.pageFormat : nullptr);
    channel.flush(); // here memory may run out, in the channel's destructor it may not
    return document;
}

ExportOutcome ExportTicket(const ExportStep& step, const ExportRequest& request,
                           ProgressLine& progress)
{
    ParseError error;
    auto ticket = ReadTicket(step.input, error);
    progress.clear(); // lines of the writer and of ours follow
    if (!ticket) {
        PrintFileMessage(InputName(step.input), error.line, error.reason);
        return ExportOutcome::Failed;
    }
    const bool chosen =
        !request.parts.empty() || ticket->get<CFDictionary>(ExportOptionsKey) != nullptr;
    const std::string document = DocumentOf(std::move(*ticket), request);
    if (!WriteOutput(step.output, document)) {
        return ExportOutcome::Failed;
    }
    if (!document.empty()) {
        return ExportOutcome::Written;
    }
    PrintFileMessage(InputName(step.input), 0,
                     chosen ? "the parts to export are not in the ticket; use --all for the whole "
                              "job"
                            : "no export options in the ticket; use --all, --covers, --inserts or "
                              "--exceptions");
    return ExportOutcome::Empty;
}

// Of several tickets: which have come to nothing, by name.
class ExportSummary {
public:
    void add(const std::string& input, ExportOutcome outcome)
    {
        if (outcome == ExportOutcome::Written) {
            ++written_;
            return;
        }
        std::string& names = outcome == ExportOutcome::Failed ? failed_ : empty_;
        names += (names.empty() ? "" : ", ") + InputName(input);
        failures_ += outcome == ExportOutcome::Failed ? 1 : 0;
    }
    void print(std::size_t total) const
    {
        if (total > 1 && written_ < total) {
            PrintMessage("exported " + std::to_string(written_) + " of " + std::to_string(total) +
                         " tickets" + (failed_.empty() ? "" : "; failed: " + failed_) +
                         (empty_.empty() ? "" : "; empty: " + empty_));
        }
    }
    ExitStatus status(std::size_t total) const
    {
        if (written_ == total) {
            return ExitStatus::Done;
        }
        return failures_ == total ? ExitStatus::Failed : ExitStatus::LeftOut;
    }

private:
    std::size_t written_ = 0;
    std::size_t failures_ = 0;
    std::string failed_;
    std::string empty_;
};

bool MakeDirectory(const std::string& directory)
{
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (error) {
        PrintFileMessage(directory, 0, "cannot create the folder: " + error.message());
    }
    return !error;
}

} // namespace

ExitStatus RunExport(const Arguments& arguments)
{
    std::string reason;
    const auto request = RequestOf(arguments, reason);
    if (!request) {
        return PrintWrongUse(reason);
    }
    if (request->directory && !MakeDirectory(*request->directory)) {
        return ExitStatus::Failed;
    }
    const std::size_t total = request->steps.size();
    ExportSummary summary;
    ProgressLine progress(total);
    for (std::size_t index = 0; index < total; ++index) {
        const ExportStep& step = request->steps[index];
        progress.show(index + 1);
        summary.add(step.input, ExportTicket(step, *request, progress));
    }
    summary.print(total);
    return summary.status(total);
}

} // namespace tarvo
