#pragma once

#include "platform/cf/CFPropertyList.h"
#include "records/SheetPlan.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvo {

class CFBundle;

/// A job in words, in the language of the bundle.
struct TicketReport {
    /// Something that the ticket says.
    struct Setting {
        std::string key;   // of the ticket
        std::string entry; // of the dictionary under that key; "" for the key itself
        std::string label; // what it is about
        std::string text;  // may have several lines
        CFPropertyList value;
    };
    /// The settings of one panel of the print dialog.
    struct Section {
        std::string name; // the panel's key, the same in every language
        std::string title;
        std::vector<Setting> settings;
    };
    struct SpecialPage {
        std::string pages; // "3-5"
        std::string type;
        std::string attributes;
    };
    /// Sheets that follow each other and are alike, in words and numbers.
    struct Sheets {
        SheetKind kind = SheetKind::Pages;
        std::int64_t firstSheet = 0;
        std::int64_t lastSheet = 0;
        std::int32_t firstPage = 0; // of inserts the page that they follow; of covers 0
        std::int32_t lastPage = 0;
        std::string stock; // "" when nothing is known of it
        std::string sides;
        std::string text; // the whole line
    };
    struct Plan {
        std::vector<Sheets> sheets;
        std::vector<std::string> notes; // what is assumed, and what found no place
        std::int64_t sheetCount = 0;
    };

    std::vector<Section> sections; // those that hold a setting
    std::vector<SpecialPage> specialPages;
    std::optional<Plan> plan;
};

/// Tells what a ticket says. Secrets are left out: passcodes and the accounting client's names.
/// @param pages  of the job's body, for the sheet plan; nullopt for none
TicketReport DescribeTicket(const CFDictionary& ticket, const CFBundle& bundle,
                            std::optional<std::int32_t> pages);

/// For a person at a terminal.
std::string TicketText(const TicketReport& report, const CFBundle& bundle);

/// For a program: an object with the members of TicketReport.
std::string TicketJson(const TicketReport& report);

} // namespace tarvo
