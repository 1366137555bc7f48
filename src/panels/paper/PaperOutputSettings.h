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
    // The choice of sides in the ticket's PPD dictionary when it was last looked at, "" before. The
    // dialog has a control of its own for it; a change there since then is the user's last word.
    std::string dialogSides;

    bool operator==(const PaperOutputSettings&) const = default;
};

/// The values for a ticket that says nothing. A delayed job is printed a day from now.
PaperOutputSettings FreshPaperOutputSettings(CFDate now);

/// What is absent in the ticket, or of another type, stays as it is. The sides are those that the
/// dialog has got since the last look, else the panel's, else the system's, else the dialog's.
void ReadPaperOutputSettings(const PMTicket& ticket, PaperOutputSettings& settings);

/// Writes all values, and the sides into the PPD dictionary as well. Takes over first what the
/// dialog itself has meanwhile: the sides, and the job's name for a saved job that uses it. A print
/// time and a passcode are written with a job of their type, and the passcode is dropped otherwise.
void WritePaperOutputSettings(PaperOutputSettings& settings, PMTicket& ticket);

/// The sides, or what the user has chosen in the dialog itself since they were read or written.
/// @param dialog  the ticket's PPD dictionary
std::int32_t SidesInForce(const PaperOutputSettings& settings, const CFDictionary& dialog);

/// The number of the job type; that of a normal job when there is none.
std::int32_t JobTypeOf(const PaperOutputSettings& settings);

} // namespace tarvo
