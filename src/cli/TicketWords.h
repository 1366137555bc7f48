#pragma once

#include "platform/bundle/CFBundle.h"
#include "platform/cf/CFPropertyList.h"

#include <array>
#include <cstdint>
#include <string>

namespace tarvo {

struct ImageShiftOptions;
struct TicketSettingRow;

/// What a report is made from; borrowed.
struct TicketSource {
    const CFDictionary& ticket;
    const CFBundle& bundle;
    const std::string& text(const char* key) const { return bundle.localizedString(key); }
};

/// A number of the ticket in the words of its row, or as itself where the row has none for it.
/// @return "" for an unset number, and for 0 where there are words: it chooses nothing
std::string TextOfNumber(const TicketSource& source, const TicketSettingRow& row,
                         std::int32_t number);

/// A value of the ticket in words.
/// @return "" for what says nothing: an unset number, an empty text, a value of another kind
std::string TextOfValue(const TicketSource& source, const TicketSettingRow& row,
                        const CFPropertyList& value);

/// "0.25 in, 0 in".
/// @param x  in 1/100 in or in 1/10 mm, as y
std::string OffsetsText(const TicketSource& source, bool isInches, std::int32_t x, std::int32_t y);

/// "Side 1: 0.25 in, 0 in" and the like of side 2.
std::array<std::string, 2> SideShifts(const TicketSource& source, const ImageShiftOptions& shift);

} // namespace tarvo
