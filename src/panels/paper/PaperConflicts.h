#pragma once

#include "platform/cf/CFPropertyList.h"

#include <string>
#include <vector>

namespace tarvo {

class CFBundle;
class PrinterDescription;
struct PaperOutputSettings;

/// Controls of the panel, in its order. Of two that do not go together, the later is the one to
/// change: the paper is what the user has.
enum class PaperControl { JobType, Stock, Sides, Finishing, Offset, Destination };

/// Something that the printer cannot do as it is chosen.
struct PaperConflict {
    PaperControl control; // that causes it
    std::string text;     // a sentence that names what does not go, and with what
    std::string remedy;   // what ResolvePaperConflict chooses instead, for a button
    bool operator==(const PaperConflict&) const = default;
};

/// What the printer does not offer, what the features exclude, and what the constraints of its
/// description exclude; of each control the first, in the order of the controls. Constraints
/// between choices that are not the panel's are the dialog's own matter.
/// @param printer  null excludes nothing but what no printer can do
/// @param dialog   the ticket's PPD dictionary: the choices made elsewhere, and the sides when they
///                 are newer than the panel's
std::vector<PaperConflict> PaperConflicts(const CFBundle& bundle, const PaperOutputSettings& chosen,
                                          const PrinterDescription* printer,
                                          const CFDictionary& dialog);

/// Chooses for the control what always goes.
void ResolvePaperConflict(PaperOutputSettings& settings, PaperControl control);

} // namespace tarvo
