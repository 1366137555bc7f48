#include "cli/PrinterCommand.h"

#include "cli/BundleLocation.h"
#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/PrinterReport.h"

namespace tarvo {

ExitStatus RunPrinter(const Arguments& arguments)
{
    const auto& files = arguments.values(PPDArgument);
    if (files.size() != 1) {
        return PrintWrongUse(files.empty() ? "no PPD file is named"
                                           : "more than one PPD file is named");
    }
    if (files.front() == "-") {
        return PrintWrongUse("a PPD file is read by its name, not from standard input");
    }
    ParseError error;
    auto ppd = PPDFile::Open(files.front(), error);
    if (!ppd) {
        PrintFileMessage(files.front(), error.line, error.reason);
        return ExitStatus::Failed;
    }
    const CFBundle bundle(BundleLocation(), UserLanguages());
    const PrinterReport report = DescribePrinter(std::move(*ppd), bundle);
    for (const std::string& fault : report.faults) {
        PrintFileMessage(files.front(), 0, fault);
    }
    return PrintResult(arguments.has(JsonOption) ? PrinterJson(report) : PrinterText(report));
}

} // namespace tarvo
