#pragma once

#include "platform/printing/PMStatus.h"

#include <cstdint>
#include <string>

namespace tarvo {

class BackgroundFormsOptions;

/// What the background forms dialog shows, as its user has left it.
struct BackgroundFormsChoice {
    bool mergesWithForm = false;
    std::string existingForm = {}; // counts when the job merges
    std::int32_t cyclePages = 0;
    bool isInches = true;
    std::int32_t xOffset = 0; // in 1/100 in or 1/10 mm
    std::int32_t yOffset = 0;
    std::string newForm = {}; // counts when the job makes a form
    bool operator==(const BackgroundFormsChoice&) const = default;
};

/// What the dialog shows first.
BackgroundFormsChoice ChoiceFromBackgroundForms(const BackgroundFormsOptions& options);

/// Shows the offsets in the other unit, to the nearest that it can show.
void SwitchOffsetUnit(BackgroundFormsChoice& choice, bool isInches);

/// Whether OK may be pressed: there is the name that counts, of at most LongestFormNameInput
/// characters, and pages cycle by 0 to MostCyclePages.
bool IsAcceptable(const BackgroundFormsChoice& choice);

/// Takes over what the dialog shows when OK is pressed, and remembers the name that counts; the
/// other one is cleared. The pages' cycle stays as it was when the job does not merge.
/// @return StatusBadArgument, with nothing changed, for a choice that IsAcceptable refuses
[[nodiscard]] OSStatus AcceptBackgroundForms(BackgroundFormsOptions& options,
                                             const BackgroundFormsChoice& choice);

} // namespace tarvo
