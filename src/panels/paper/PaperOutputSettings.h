#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/printing/PMTicket.h"
#include "records/FinishingSummary.h"
#include "records/Stock.h"
#include "settings/JobMaps.h"

#include <cstdint>
#include <string>

namespace tarvo {

/// The values of the Paper/Output panel.
struct PaperOutputSettings {
    CFDictionary jobType; // entries of JobTypeKeys.h, and whatever else the ticket had there
    Stock stock;
    FinishingChoice finishing;
    std::int32_t sides = OneSided; // a value of DuplexMap
    std::int32_t outputDestination = UnsetValue;
    std::int32_t outputColor = UnsetValue;
    std::int32_t bookletOutlines = 0;
    bool bookletForcesNewSize = false;
    CFDictionary backgroundForms; // of a BackgroundFormsOptions
    CFDate delayedPrintTime;      // counts for a delayed job alone
    // The choice of sides in the ticket's PPD dictionary when it was last looked at. The dialog has
    // a control of its own for it; a change there since then is the user's last word.
    std::string dialogSides;

    bool operator==(const PaperOutputSettings&) const = default;
};

/// The values for a ticket that says nothing. A delayed job is printed a day from now.
PaperOutputSettings FreshPaperOutputSettings(CFDate now);

/// What is absent in the ticket, or of another type, stays as it is. The sides are the panel's,
/// else the system's, else those of the PPD dictionary.
void ReadPaperOutputSettings(const PMTicket& ticket, PaperOutputSettings& settings);

/// Writes all values, and the sides into the PPD dictionary as well. Takes over first what the
/// dialog itself has meanwhile: the sides, and the job's name for a saved job that uses it.
void WritePaperOutputSettings(PaperOutputSettings& settings, PMTicket& ticket);

/// The number of the job type; that of a normal job when there is none.
std::int32_t JobTypeOf(const PaperOutputSettings& settings);

} // namespace tarvo
