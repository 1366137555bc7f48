#include "panels/advanced/JobTicketFiles.h"

#include "panels/PanelEnvironment.h"
#include "panels/toolkit/BackgroundWork.h"
#include "panels/toolkit/DesktopServices.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Nib.h"
#include "platform/files/FileContents.h"
#include "platform/text/TextFormat.h"
#include "printer/FeatureDatabase.h"
#include "settings/TicketAccess.h"
#include "tpif/TPIFChannel.h"
#include "tpif/TPIFWriter.h"

#include <glibmm/convert.h>
#include <gtkmm/label.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <utility>

namespace tarvo {
namespace {

constexpr std::size_t LongestPath = 1024; // bytes, of a folder and of a file

CFDictionary ExportedEntries(const PMTicket& ticket)
{
    CFDictionary settings;
    for (const std::string& key : ticket.keys()) {
        if (IsExportedKey(key)) {
            settings.set(key, ticket.item(key)->value);
        }
    }
    return settings;
}

// "" for a session without a job ticket.
std::string DocumentOf(const PMPrintSession* session)
{
    std::string document;
    PMTicket* ticket = nullptr;
    GetTicketFromSession(session, JobTicketName, &ticket);
    if (ticket != nullptr) {
        TPIFChannel channel([&document](std::string_view text) { document += text; });
        WriteTPIF(channel, ExportedEntries(*ticket),
                  session->pageFormat ? &*session->pageFormat : nullptr);
        channel.flush();
    }
    return document;
}

// What a task imports; it owns all that it uses.
struct ImportWork {
    std::vector<ImportedFile> files;
    CFDictionary profile; // of the printer's features
    CFDictionary result;

    void run()
    {
        const FeatureDatabase database(std::move(profile));
        const TPIFImportFeatures features(database);
        for (ImportedFile& file : files) {
            ParseError error;
            if (TPIFImportFileAtPath(features, file.path, result, error) != StatusOk) {
                file.error = std::move(error);
            }
        }
    }
};

std::string FileNameForPeople(const std::string& path)
{
    return Glib::filename_display_basename(path);
}

// A number in place of the first "%d" of a text.
std::string FilledNumber(std::string text, std::size_t number)
{
    constexpr std::string_view Place = "%d";
    const std::size_t place = text.find(Place);
    return place == std::string::npos ? text
                                      : text.replace(place, Place.size(), std::to_string(number));
}

std::string LineOf(const CFBundle& bundle, const ImportedFile& file)
{
    const std::string name = FileNameForPeople(file.path);
    if (!file.error) {
        return FilledFormat(bundle.localizedString("ImportedFile"), name) + "\n";
    }
    const std::string line = file.error->line == 0 ? "" : std::to_string(file.error->line) + ": ";
    return FilledFormat(bundle.localizedString("UnreadableFile"), name) + "\n    " + line +
           file.error->reason + "\n";
}

} // namespace

bool IsExportPath(const std::string& path)
{
    const auto folder = std::filesystem::path(path).parent_path();
    return !path.empty() && folder.native().size() <= LongestPath && path.size() <= LongestPath;
}

OSStatus TPIFExportToFileAtPath(const std::string& path)
{
    if (const OSStatus status = PDESync(GetCurrentPrintSession(), SyncDirection::ToTicket);
        status != StatusOk) {
        return status;
    }
    const auto write = [path, document = DocumentOf(GetCurrentPrintSession())] {
        std::string reason;
        if (!ReplaceFileContents(path, document, reason)) {
            return; // silence is meant
        }
    };
    RunInBackground(GetPDEWindow(), write);
    return StatusOk;
}

OSStatus RunModalTPIFExportDialog()
{
    const CFBundle* bundle = GetPDEBundle();
    if (bundle == nullptr) {
        return StatusBadArgument;
    }
    const auto path = ChooseFileToSave(*bundle, GetPDEWindow(), "ExportTitle");
    return path && IsExportPath(*path) ? TPIFExportToFileAtPath(*path) : StatusOk;
}

ImportOutcome ImportIntoJobTicket(const std::vector<std::string>& paths)
{
    const CFBundle* bundle = GetPDEBundle();
    if (bundle == nullptr || GetCurrentPrintSession() == nullptr) {
        return {};
    }
    // Else the way back would lose what is not there yet.
    PDESync(GetCurrentPrintSession(), SyncDirection::ToTicket);
    const auto work = std::make_shared<ImportWork>();
    std::transform(paths.begin(), paths.end(), std::back_inserter(work->files),
                   [](const std::string& path) {
                       return ImportedFile{path, std::nullopt};
                   });
    work->profile = bundle->propertyList(DeviceProfileName).value_or(CFDictionary());
    if (!RunInBackground(GetPDEWindow(), [work] { work->run(); })) {
        return {}; // also when the print dialog has ended: nobody is there to be told
    }
    PMPrintSession* session = GetCurrentPrintSession(); // the wait leaves the dialog as it was
    TPIFImportMergeIntoJobTicket(session, &work->result);
    PDESync(session, SyncDirection::FromTicket);
    return {std::move(work->files), work->result.size()};
}

OSStatus RunModalTPIFImportDialog()
{
    const CFBundle* bundle = GetPDEBundle();
    if (bundle == nullptr) {
        return StatusBadArgument;
    }
    const std::vector<FileFilter> filters = {
        {"JobTicketFiles", {"*.xml", "*.tpif"}},
        {"AllFiles",       {}                 },
    };
    const auto paths = ChooseFilesToOpen(*bundle, GetPDEWindow(), "ImportSummaryTitle", filters);
    if (paths.empty()) {
        return StatusOk;
    }
    if (const auto outcome = ImportIntoJobTicket(paths); !outcome.files.empty()) {
        ShowImportSummary(*bundle, outcome);
    }
    return StatusOk;
}

std::string ImportSummaryText(const CFBundle& bundle, const ImportOutcome& outcome)
{
    std::string text;
    for (const ImportedFile& file : outcome.files) {
        text += LineOf(bundle, file);
    }
    return text + FilledNumber(bundle.localizedString("ImportedSettings"), outcome.settings);
}

void ShowImportSummary(const CFBundle& bundle, const ImportOutcome& outcome)
{
    auto nib = Nib::Open(bundle, "ImportSummary");
    if (!nib) {
        return;
    }
    const auto dialog = nib->window<Gtk::Dialog>("ImportSummary");
    const auto text = nib->widget<Gtk::Label>("TPDE1");
    if (!nib->isComplete()) {
        return;
    }
    nib.reset();
    text->set_text(ImportSummaryText(bundle, outcome));
    RunModalWindow(bundle, *dialog.get(), GetPDEWindow());
}

} // namespace tarvo
