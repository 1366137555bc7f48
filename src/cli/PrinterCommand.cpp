#include "cli/PrinterCommand.h"

#include "cli/Input.h"
#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/PrinterReport.h"
#include "cli/ProgramBundle.h"

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

// What the report needs besides the description. A message has told why something is missing.
struct Besides {
    PPDOutline outline;
    std::optional<CFBundle> bundle;
    std::optional<FeatureDatabase> features;
};

Besides ReadBesides(std::string_view contents, const std::vector<std::string>& languages)
{
    Besides besides = {PPDOutline(contents), OpenProgramBundle(languages), std::nullopt};
    if (besides.bundle) {
        besides.features = ReadFeatureDatabase(*besides.bundle);
    }
    return besides;
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
    auto besides = std::async(
        std::launch::async, [&contents, &languages] { return ReadBesides(*contents, languages); });
    auto ppd = PPDFile::Read(*contents, languages, error);
    if (!ppd) {
        PrintFileMessage(name, error.line, error.reason);
        return ExitStatus::Failed;
    }
    const auto [outline, bundle, features] = besides.get();
    if (!bundle) {
        return ExitStatus::Failed;
    }
    const PrinterReport report =
        DescribePrinter(*ppd, outline, *bundle, features.value_or(FeatureDatabase()));
    const bool isSound = PrintRemarks(name, report.remarks);
    const ExitStatus status =
        PrintResult(arguments.has(JsonOption) ? PrinterJson(report) : PrinterText(report, *bundle));
    return status == ExitStatus::Done && !(isSound && features) ? ExitStatus::LeftOut : status;
}

} // namespace tarvo
