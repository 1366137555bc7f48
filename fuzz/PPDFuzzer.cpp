// Any bytes as a PPD file: they are refused or read, and what was read can be described, to the
// last line of the command line's report.
#include "cli/PrinterReport.h"
#include "platform/text/Utf8.h"
#include "printer/PrinterDescription.h"

#include <algorithm>
#include <cstdlib>
#include <string>

// The library's reader forgets a value where a file repeats it (libcups 2.4.2); what we forget is
// still told.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:_ppdOpen\n";
}

namespace tarvo {
namespace {

void Expect(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

void Report(PPDFile& ppd, std::string_view contents)
{
    static const CFBundle bundle(TARVO_BUNDLE, {});
    static const FeatureDatabase features(
        bundle.propertyList(DeviceProfileName).value_or(CFDictionary()));
    const PrinterReport report = DescribePrinter(ppd, PPDOutline(contents), bundle, features);
    const auto lines =
        static_cast<std::size_t>(std::count_if(contents.begin(), contents.end(), [](char letter) {
            return letter == '\n' || letter == '\r';
        }));
    for (const PPDRemark& remark : report.remarks) {
        Expect(remark.line <= lines + 1);
    }
    Expect(IsUtf8(PrinterText(report, bundle)));
    Expect(IsUtf8(PrinterJson(report)));
}

void Describe(PPDFile ppd)
{
    const PrinterDescription printer(std::move(ppd), nullptr, InstalledFeatures, CFBundle("", {}));
    for (const PPDOption* option : printer.ppd()->options()) {
        Expect(IsUtf8(option->text));
        Expect(printer.ppd()->option(option->keyword) != nullptr);
        const auto infos = PPDCopyOptionsForMainKeyword(*printer.ppd(), option->keyword);
        Expect(printer.uiDictionary()->contains(option->keyword) || !infos);
    }
}

} // namespace
} // namespace tarvo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tarvo;
    const std::string_view contents(reinterpret_cast<const char*>(bytes), size);
    ParseError error;
    auto ppd = PPDFile::Read(contents, {"de", "fr"}, error);
    if (!ppd) {
        Expect(!error.reason.empty());
        return 0;
    }
    Report(*ppd, contents);
    Describe(std::move(*ppd));
    return 0;
}
