#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/printing/PMPrintSession.h"
#include "tpif/TPIFChannel.h"

namespace tarvo {

// Covers, inserts and exception pages of the settings, each with its medium; a list's member that
// is no dictionary is skipped.

void WriteTPIFFrontCover(TPIFChannel& writeData, const CFDictionary& settings,
                         const PageFormat* pageFormat);
void WriteTPIFBackCover(TPIFChannel& writeData, const CFDictionary& settings,
                        const PageFormat* pageFormat);
void WriteTPIFInserts(TPIFChannel& writeData, const CFDictionary& settings,
                      const PageFormat* pageFormat);
void WriteTPIFExceptions(TPIFChannel& writeData, const CFDictionary& settings,
                         const PageFormat* pageFormat);

} // namespace tarvo
