#pragma once

#include "cli/NumberRanges.h"
#include "settings/TicketKeys.h"

#include <string_view>

namespace tarvo {

// What the entries of a ticket may hold, for who checks one. The numbers are those of the menus'
// tables, of the document's words and of the features' limits.

enum class EntryKind {
    Number,       // may be unset, which leaves it to the printer
    Count,        // a number that cannot be unset
    Flag,         // a boolean
    FlagOrNumber, // a boolean, or a number other than 0
    Text,         // with limits of its length in characters
    NumberOrText, // one of the printer's own, or a name of the same limits as a profile's
    Date,
    Anything,      // its presence counts
    Entries,       // a dictionary with rules of its own
    ListOfEntries, // an array of such
};

struct EntryRule {
    std::string_view key; // "" ends a table
    EntryKind kind;
    const NumberRanges& (*limits)() = nullptr; // null: any number, any length
    const EntryRule* inside = nullptr;         // of entries
};

/// The rules of the ticket itself. Only keys of ours have one: those of the print system are its
/// own matter.
const EntryRule* TicketRules();

/// The rule of a key in a table; null when it has none.
const EntryRule* FindRule(const EntryRule* rules, std::string_view key);

} // namespace tarvo
