#include "cli/PrinterCommand.h"

#include "cli/BundleLocation.h"
#include "cli/Input.h"
#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/PrinterReport.h"

#include <algorithm>
#include <future>

namespace tarvo {
namespace {

// @return false when a fault is among them
bool PrintRemarks(const std::string& file, const std::vector<PPDRemark>& remarks)
{
    for (const PPDRemark& remark : remarks) {
        PrintFileMessage(file, remark.line, remark.text);
    }
    return std::none_of(remarks.begin(), remarks.end(),
                        [](const PPDRemark& remark) { return remark.isFault; });
}

} // namespace

ExitStatus RunPrinter(const Arguments& arguments)
{
    const auto& files = arguments.values(PPDArgument);
    if (files.size() != 1) {
        return PrintWrongUse(files.empty() ? "no PPD file is named"
                                           : "more than one PPD file is named");
    }
    const std::string name = InputName(files.front());
    ParseError error;
    const auto contents = ReadInput(files.front(), PPDMaximumBytes, error.reason);
    const auto languages = UserLanguages();
    if (!contents) {
        PrintFileMessage(name, 0, error.reason);
        return ExitStatus::Failed;
    }
    // Beside the reading, which takes longest, much of it for loading the library.
    auto outline = std::async(std::launch::async, [&contents] { return PPDOutline(*contents); });
    auto ppd = PPDFile::Read(*contents, languages, error);
    if (!ppd) {
        PrintFileMessage(name, error.line, error.reason);
        return ExitStatus::Failed;
    }
    const CFBundle bundle(BundleLocation(), languages);
    const PrinterReport report = DescribePrinter(*ppd, outline.get(), bundle);
    const bool isSound = PrintRemarks(name, report.remarks);
    const ExitStatus status =
        PrintResult(arguments.has(JsonOption) ? PrinterJson(report) : PrinterText(report));
    return status == ExitStatus::Done && !isSound ? ExitStatus::LeftOut : status;
}

} // namespace tarvo
