#pragma once

#include "platform/printing/PMStatus.h"
#include "tpif/TPIFImport.h"

#include <gtkmm/window.h>

#include <cstddef>
#include <string>
#include <vector>

namespace tarvo {

class CFBundle;

/// A file of an import and what became of it.
struct ImportedFile {
    std::string path;
    std::optional<ParseError> error; // nullopt: it has been imported
};

struct ImportOutcome {
    std::vector<ImportedFile> files; // in the order of the choice
    std::size_t settings = 0;        // that the ticket got
};

/// Lets the user choose a file and exports the job ticket to it. Tells nothing, whatever comes of
/// it.
OSStatus RunModalTPIFExportDialog();

/// Lets the user choose documents, imports them into the job ticket, shows their settings in all
/// panels and tells what became of each.
OSStatus RunModalTPIFImportDialog();

/// Brings the job ticket up to date and writes it as a document. A file that cannot be written
/// stays as it was; no message tells so.
/// @return the status of the panels; if it is not StatusOk nothing is written
OSStatus TPIFExportToFileAtPath(const std::string& path);

/// Whether an export takes a path: the folder and the whole have bounds of 1024 bytes.
bool IsExportPath(const std::string& path);

/// Imports the documents in their order into the current job ticket, with what the panels hold
/// brought there before and fetched from there afterwards.
/// @return no files, with nothing imported, when the print dialog has ended meanwhile
ImportOutcome ImportIntoJobTicket(const std::vector<std::string>& paths);

/// The text of the summary, for people; no values of settings are in it.
std::string ImportSummaryText(const CFBundle& bundle, const ImportOutcome& outcome);
/// Shows it; nothing when the dialog's description cannot be read.
void ShowImportSummary(const CFBundle& bundle, const ImportOutcome& outcome);

} // namespace tarvo
