#pragma once

#include "cli/PPDRemarks.h"
#include "platform/bundle/CFBundle.h"
#include "platform/printing/PPDFile.h"
#include "printer/FeatureDatabase.h"
#include "printer/FinishingOffers.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

inline constexpr std::string_view PageRegionKeyword = "PageRegion"; // PageSize for manual feeding

/// What a printer offers, in words; borrows from its description.
struct PrinterReport {
    struct Named {
        std::string keyword; // of the PPD; of the ticket's table for job types and finishing
        std::string text;
    };
    struct Installed : Named {
        Named choice; // in force; "" and "(unknown)" when none is
    };
    struct Finishing : Named {
        std::int32_t option;
        std::vector<std::int32_t> choices;
    };

    const PPDFile& ppd;
    std::vector<const PPDGroup*> groups; // flat, that of the installable options left out
    std::vector<Installed> installed;
    std::vector<std::string> constraints; // each pair once
    std::vector<Named> jobTypes;
    std::vector<Finishing> finishing;
    std::vector<PPDRemark> remarks;
};

/// The text of a keyword; the keyword itself where the description has no text.
const std::string& TextOr(const std::string& text, const std::string& keyword);

/// @param ppd      must outlive the report
/// @param outline   of the contents that it was read from
/// @param features  say which job types there are
PrinterReport DescribePrinter(PPDFile& ppd, const PPDOutline& outline, const CFBundle& bundle,
                              const FeatureDatabase& features);

/// For a person at a terminal.
std::string PrinterText(const PrinterReport& report);

/// For a program: an object with the members of PrinterReport, the remarks as faults and notes.
std::string PrinterJson(const PrinterReport& report);

} // namespace tarvo
