#pragma once

#include "platform/bundle/CFBundle.h"
#include "platform/printing/PPDFile.h"
#include "printer/FinishingOffers.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvo {

/// What a printer offers, in words.
struct PrinterReport {
    struct Named {
        std::string keyword; // of the PPD; of the ticket's table for job types and finishing
        std::string text;
    };
    struct Choice : Named {
        bool isDefault = false;
    };
    struct Option : Named {
        std::vector<Choice> choices;
    };
    struct Group : Named {
        std::vector<Option> options;
    };
    struct Installed : Named {
        Named choice; // in force; "" and "(unknown)" when none is
    };
    struct Finishing : Named {
        std::int32_t option;
        std::vector<std::int32_t> choices;
    };

    std::string name;
    std::string maker;
    std::vector<Group> groups; // with the installable options' group left out
    std::vector<Installed> installed;
    std::optional<PPDSizeLimits> customSizes;
    std::vector<std::string> constraints; // each pair once
    std::vector<Named> jobTypes;
    std::vector<Finishing> finishing;
    std::vector<std::string> faults; // of the description, for who mends it
};

PrinterReport DescribePrinter(PPDFile ppd, const CFBundle& bundle);

/// For a person at a terminal.
std::string PrinterText(const PrinterReport& report);

/// For a program: an object with the members of PrinterReport.
std::string PrinterJson(const PrinterReport& report);

} // namespace tarvo
