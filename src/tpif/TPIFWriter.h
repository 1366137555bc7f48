#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/printing/PMPrintSession.h"
#include "tpif/TPIFChannel.h"

#include <string>
#include <string_view>

namespace tarvo {

/// Whether an export from the dialog takes the job ticket's entry under the key.
bool IsExportedKey(std::string_view key);

/// The export options that take the whole job.
CFDictionary WholeJobExport();

/// Writes the settings of a job as a TPIF document, in one pass. Entries of another type than their
/// writer wants count as absent; a flag of another type is there and not true. Settings without
/// export options, and options for parts that the settings lack, write nothing at all. Says on
/// standard error what some of the steps found.
/// @param settings    entries of the job ticket under their own keys
/// @param pageFormat  whose size a stock without one takes; null when there is none
void WriteTPIF(TPIFChannel& writeData, const CFDictionary& settings, const PageFormat* pageFormat);

/// The whole job as one document, whatever its own export options take and without what the steps
/// found.
std::string TPIFDocumentOf(CFDictionary settings);

} // namespace tarvo
