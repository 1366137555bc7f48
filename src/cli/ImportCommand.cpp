#include "cli/ImportCommand.h"

#include "cli/ImportReport.h"
#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/ProgramBundle.h"
#include "cli/TicketFile.h"
#include "platform/files/FileContents.h"
#include "settings/TicketKeys.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tarvo {
namespace {

// What the command line asks for.
struct ImportRequest {
    std::vector<std::string> documents;
    std::optional<std::string> into;
    std::optional<std::string> output; // nullopt: nothing is written
    bool hasReport = false;
    bool isJson = false;
};

bool IsSameFile(const std::string& first, const std::string& second)
{
    std::error_code error;
    return std::filesystem::equivalent(first, second, error) && !error;
}

// Why the options do not go together; empty when they do.
std::string WrongUse(const ImportRequest& request)
{
    const auto& documents = request.documents;
    if (documents.empty()) {
        return "no document is named";
    }
    const auto inputs =
        std::count(documents.begin(), documents.end(), "-") + (request.into == "-" ? 1 : 0);
    if (inputs > 1) {
        return "standard input can be read once only";
    }
    if (request.hasReport && request.output == "-") {
        return "the report and the ticket cannot both go to standard output";
    }
    for (const std::string& document : documents) {
        if (request.output && IsSameFile(document, *request.output)) {
            return *request.output + " is a document to import and cannot be the ticket";
        }
    }
    return "";
}

ImportRequest RequestOf(const Arguments& arguments)
{
    ImportRequest request;
    request.documents = arguments.values(DocumentArguments);
    request.isJson = arguments.has(JsonOption);
    request.hasReport = request.isJson || arguments.has(ReportOption);
    if (arguments.has(IntoOption)) {
        request.into = arguments.values(IntoOption).front();
    }
    if (arguments.has(OutputOption)) {
        request.output = arguments.values(OutputOption).front();
    } else if (!request.hasReport) {
        request.output = "-";
    }
    return request;
}

ImportReport Unreadable(const std::string& document, ParseError error)
{
    ImportReport report;
    report.file = InputName(document);
    report.error = std::move(error);
    return report;
}

// Nobody wants to know: a document of any size, one page of it at a time.
ImportReport ImportQuietly(const TPIFImportFeatures& features, const std::string& document,
                           CFDictionary& result)
{
    ImportReport report;
    report.file = InputName(document);
    ParseError error;
    FileReader input(STDIN_FILENO);
    const XmlSource source = [&input](char* bytes, std::size_t size, std::string& reason) {
        return input.read(bytes, size, reason);
    };
    const OSStatus status = document == "-"
                                ? TPIFImportDocument(features, source, result, error)
                                : TPIFImportFileAtPath(features, document, result, error);
    if (status != StatusOk) {
        report.error = std::move(error);
    } else if (!error.reason.empty()) {
        report.remark = std::move(error);
    }
    return report;
}

std::optional<std::string> ReadDocument(const std::string& document, std::string& reason)
{
    if (document == "-") {
        return ReadDescriptorContents(STDIN_FILENO, TPIFImportLimits.bytes, reason);
    }
    const auto regular = FileReader::Open(document, TPIFImportLimits.bytes, reason);
    return regular ? ReadFileContents(document, TPIFImportLimits.bytes, reason) : std::nullopt;
}

ImportReport ImportOne(const TPIFImportFeatures& features, const std::string& document,
                       bool hasReport, CFDictionary& result)
{
    if (!hasReport) {
        return ImportQuietly(features, document, result);
    }
    std::string reason;
    const auto xml = ReadDocument(document, reason);
    return xml ? ImportWithReport(features, InputName(document), *xml, result)
               : Unreadable(document, ParseError{0, "cannot read: " + reason});
}

// Which could not be read, after each has been named, and those that are no documents.
std::vector<std::string> NameUnreadable(const std::vector<ImportReport>& reports)
{
    std::vector<std::string> names;
    for (const ImportReport& report : reports) {
        if (report.error) {
            PrintFileMessage(report.file, report.error->line, report.error->reason);
            names.push_back(report.file);
        } else if (report.remark) {
            PrintFileMessage(report.file, report.remark->line, report.remark->reason);
        }
    }
    return names;
}

// The ticket to import into, with the entries of the result in it.
CFDictionary Merged(CFDictionary ticket, CFDictionary result)
{
    if (const auto duplex = SystemDuplexOf(result)) {
        ticket.set(SystemDuplexKey, *duplex);
    }
    for (auto& entry : std::move(result).takeEntries()) {
        ticket.set(entry.key, std::move(entry.value));
    }
    return ticket;
}

std::optional<CFDictionary> TicketToImportInto(const ImportRequest& request)
{
    if (!request.into) {
        return CFDictionary();
    }
    ParseError error;
    auto ticket = ReadTicket(*request.into, error);
    if (!ticket) {
        PrintFileMessage(InputName(*request.into), error.line, error.reason);
    }
    return ticket;
}

std::optional<FeatureDatabase> ProgramFeatures()
{
    const auto bundle = OpenProgramBundle({});
    return bundle ? ReadFeatureDatabase(*bundle) : std::nullopt;
}

std::vector<ImportReport> ImportAll(const TPIFImportFeatures& features,
                                    const ImportRequest& request, CFDictionary& result)
{
    std::vector<ImportReport> reports;
    ProgressLine progress(request.documents.size());
    for (const std::string& document : request.documents) {
        progress.show(reports.size() + 1);
        reports.push_back(ImportOne(features, document, request.hasReport, result));
    }
    return reports;
}

void PrintSummary(const std::vector<std::string>& unreadable, std::size_t total)
{
    if (unreadable.empty() || total == 1) {
        return;
    }
    std::string names;
    for (const std::string& name : unreadable) {
        names += (names.empty() ? "" : ", ") + name;
    }
    PrintMessage("imported " + std::to_string(total - unreadable.size()) + " of " +
                 std::to_string(total) + " documents; unreadable: " + names);
}

} // namespace

ExitStatus RunImport(const Arguments& arguments)
{
    const ImportRequest request = RequestOf(arguments);
    if (const std::string reason = WrongUse(request); !reason.empty()) {
        return PrintWrongUse(reason);
    }
    auto ticket = TicketToImportInto(request);
    if (!ticket) {
        return ExitStatus::Failed;
    }
    const auto database = ProgramFeatures();
    if (!database) {
        return ExitStatus::Failed;
    }
    CFDictionary result;
    const auto reports = ImportAll(TPIFImportFeatures(*database), request, result);
    const auto unreadable = NameUnreadable(reports);
    const bool isNone = unreadable.size() == reports.size();
    if (!isNone && request.output &&
        !WriteTicket(*request.output, Merged(std::move(*ticket), std::move(result)))) {
        return ExitStatus::Failed;
    }
    const std::string report = !request.hasReport ? ""
                               : request.isJson   ? ImportJson(reports)
                                                  : ImportText(reports);
    if (PrintResult(report) != ExitStatus::Done) {
        return ExitStatus::Failed;
    }
    PrintSummary(unreadable, reports.size());
    return isNone               ? ExitStatus::Failed
           : unreadable.empty() ? ExitStatus::Done
                                : ExitStatus::LeftOut;
}

} // namespace tarvo
