#pragma once

#include "platform/events/WindowEvents.h"

#include <gtkmm/entry.h>

#include <cstdint>
#include <functional>
#include <string_view>

namespace tarvo {

// What a field refuses, the desktop's error bell tells.

/// Told after each accepted change whether the field is empty: its event is FieldEmptied or
/// FieldFilled, so that a dialog can disable its default button.
using FieldEventFunction = std::function<void(const Event&)>;

extern const Event FieldEmptied; // 'TPDE', 'ICno'
extern const Event FieldFilled;  // 'TPDE', 'ICso'

/// Takes decimal digits only. Each of these functions adds to what the others have set; an event
/// function takes the place of a former one, none leaves it.
void FilterNumericInput(Gtk::Entry& field, FieldEventFunction onEvent = nullptr);

/// Bounds the number of characters. What is typed beyond it is refused; what comes by other ways,
/// such as a paste, is cut to the first ones. Nothing for a null field or a limit below 1.
void LimitInputLength(Gtk::Entry* field, std::int32_t limit, FieldEventFunction onEvent = nullptr);

/// The same, and takes no other characters than those.
/// @param limit       below 1: no limit
/// @param characters  empty: all
void LimitInputLengthAndCharacters(Gtk::Entry* field, std::int32_t limit,
                                   std::string_view characters,
                                   FieldEventFunction onEvent = nullptr);

} // namespace tarvo
