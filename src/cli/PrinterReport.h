#pragma once

#include "cli/PPDRemarks.h"
#include "platform/bundle/CFBundle.h"
#include "platform/printing/PPDFile.h"
#include "printer/FeatureDatabase.h"
#include "printer/FinishingOffers.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarvo {

/// What a printer offers, in words; borrows from its description.
struct PrinterReport {
    struct Group {
        const PPDGroup& group;
        std::vector<const PPDOption*> options; // at least one
    };
    struct Named {
        std::string keyword; // of the PPD; of the ticket's table for job types and finishing
        std::string text;
    };
    struct Installed : Named {
        Named choice; // in force; "" and the text for "unknown" when none is
    };
    struct Finishing : Named {
        std::int32_t option;
        std::vector<std::int32_t> choices;
    };

    const PPDFile& ppd;
    std::vector<Group> groups; // flat, the installable options left out
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

/// For a person at a terminal, in the bundle's language.
std::string PrinterText(const PrinterReport& report, const CFBundle& bundle);

/// For a program: an object with the members of PrinterReport, the remarks as faults and notes.
std::string PrinterJson(const PrinterReport& report);

} // namespace tarvo
