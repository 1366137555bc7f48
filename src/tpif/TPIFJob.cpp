#include "tpif/TPIFJob.h"

#include "records/JobTypeKeys.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFCommands.h"
#include "tpif/TPIFDocument.h"
#include "tpif/TPIFElement.h"
#include "tpif/TPIFWords.h"
#include "tpif/XmlEntities.h"

namespace tarvo {
namespace {

constexpr std::int32_t AccountingOn = 3;
constexpr std::size_t LongestAccountingId = 79; // bytes

constexpr std::int32_t DefaultSaveFormat = 1;

// Where the job goes, as the number of the output-bin command. 7 is a place without a name.
struct DestinationRow {
    std::int32_t destination;
    std::int32_t bin;
};
constexpr DestinationRow DestinationRows[] = {
    {1, 0},
    {2, 1},
    {3, 1},
    {4, 2},
    {5, 6},
    {6, 7},
    {8, 4},
    {9, 5},
};

struct ResolutionRow {
    std::int32_t resolution;
    std::int32_t crossFeed;
    std::int32_t feedDirection;
};
constexpr ResolutionRow ResolutionRows[] = {
    {1, 300,  300 },
    {2, 600,  600 },
    {3, 1200, 600 },
    {4, 1200, 1200},
};
constexpr std::int32_t DotsPerInch = 3;

void WriteNote(TPIFChannel& writeData, const CFDictionary& settings, std::string_view key,
               std::string_view name, TPIFSyntax syntax)
{
    const std::string note = EscapedTPIFText(settings, key);
    if (!note.empty()) {
        WriteTPIFElement(writeData, AttributeIndent, name, syntax, note);
    }
}

void WriteSaveInfo(TPIFChannel& writeData, const CFDictionary& jobType)
{
    std::string location = EscapedTPIFText(jobType, SavedJobLocationKey);
    if (location.empty()) {
        location = DefaultSavedJobLocation;
    }
    const char* format =
        WordForValue(SaveFormatWords, jobType.int32(SaveFormatKey).value_or(DefaultSaveFormat));

    const TPIFBlock info(writeData, MemberIndent, "save-info", TPIFSyntax::OneSetOf);
    const TPIFBlock value(writeData, MemberIndent + 1, "value", TPIFSyntax::Collection);
    constexpr int Indent = MemberIndent + 2;
    WriteTPIFElement(writeData, Indent, "save-location", TPIFSyntax::Uri, location);
    WriteTPIFElement(writeData, Indent, "save-name", TPIFSyntax::Name,
                     EscapedTPIFText(jobType, SavedJobNameKey));
    if (format != nullptr) {
        WriteTPIFElement(writeData, Indent, "save-document-format", TPIFSyntax::MimeMediaType,
                         format);
    }
}

// A null jobType writes no save information.
void WriteDisposition(TPIFChannel& writeData, const char* disposition, const CFDictionary* jobType)
{
    const TPIFBlock save(writeData, AttributeIndent, "job-save-disposition",
                         TPIFSyntax::Collection);
    WriteTPIFElement(writeData, MemberIndent, "save-disposition", TPIFSyntax::Keyword, disposition);
    if (jobType != nullptr) {
        WriteSaveInfo(writeData, *jobType);
    }
}

std::string AccountingId(const CFDictionary& settings, std::string_view key)
{
    return std::string(PrefixOfEscaped(TPIFText(settings, key), LongestAccountingId));
}

} // namespace

void WriteTPIFJobNameAndUser(TPIFChannel& writeData, const CFDictionary& settings)
{
    const auto nameKey = settings.isTrue(UseJobNameKey) ? SystemJobNameKey : JobNotesJobNameKey;
    const std::string jobName = EscapedTPIFText(settings, nameKey);
    const std::string userName = EscapedTPIFText(settings, JobNotesSenderNameKey);
    if (!jobName.empty() && !userName.empty()) {
        WriteTPifOpAttrib(writeData, false, jobName, userName);
    }
}

void WriteTPIFJobNotes(TPIFChannel& writeData, const CFDictionary& settings)
{
    WriteNote(writeData, settings, JobNotesMessageKey, "job-message-to-operator", TPIFSyntax::Text);
    WriteNote(writeData, settings, JobNotesRecipientKey, "job-recipient-name", TPIFSyntax::Name);
    WriteNote(writeData, settings, JobNotesSheetMessageKey, "job-sheet-message", TPIFSyntax::Text);
}

void WriteTPIFJobType(TPIFChannel& writeData, const CFDictionary& settings)
{
    const auto* jobType = settings.get<CFDictionary>(JobTypeKey);
    const auto number = jobType == nullptr ? std::nullopt : jobType->int32(JobTypeNumberKey);
    switch (static_cast<JobType>(number.value_or(UnsetValue))) {
    case JobType::Hold:
        // Alone at the indent of a collection's member: the front end looks for it there.
        WriteTPIFElement(writeData, MemberIndent, "job-hold-until", TPIFSyntax::Keyword,
                         HoldWords->word);
        break;
    case JobType::Save:
    case JobType::SaveAndPrint:
        WriteDisposition(writeData, WordForValue(SaveDispositionWords, *number), jobType);
        break;
    case JobType::BackgroundForms:
        break;
    default:
        WriteDisposition(writeData, SaveDispositionWords->word, nullptr);
    }
}

void WriteTPIFDuplex(TPIFChannel& writeData, const CFDictionary& settings)
{
    auto duplex = settings.int32(DuplexKey);
    if (!duplex) {
        duplex = settings.int32(SystemDuplexKey);
    }
    // Long edge 2 and short edge 3; the command counts from 0, and all else is one-sided.
    const std::int32_t sides = duplex == 2 || duplex == 3 ? *duplex - 1 : 0;
    WriteTPifCommands(writeData, TPIFCommand::Sides, sides);
}

void WriteTPIFOutputDestination(TPIFChannel& writeData, const CFDictionary& settings)
{
    const auto destination = settings.int32(OutputDestinationKey);
    for (const auto& row : DestinationRows) {
        if (destination == row.destination) {
            WriteTPifCommands(writeData, TPIFCommand::OutputBin, row.bin);
        }
    }
}

void WriteTPIFResolution(TPIFChannel& writeData, const CFDictionary& settings)
{
    const auto resolution = settings.int32(ResolutionKey);
    if (!resolution) {
        return;
    }
    TPIFResolution written = {0, 0, DotsPerInch}; // a number without a row, the unset one too
    for (const auto& row : ResolutionRows) {
        if (*resolution == row.resolution) {
            written = {row.crossFeed, row.feedDirection, DotsPerInch};
        }
    }
    WriteTPifResolution(writeData, written);
}

std::optional<std::int32_t> ResolutionOf(std::int32_t crossFeed, std::int32_t feedDirection)
{
    for (const auto& row : ResolutionRows) {
        if (row.crossFeed == crossFeed && row.feedDirection == feedDirection) {
            return row.resolution;
        }
    }
    return crossFeed == 0 && feedDirection == 0 ? std::optional(UnsetValue) : std::nullopt;
}

void WriteTPIFAccounting(TPIFChannel& writeData, const CFDictionary& settings)
{
    DevDiagnose(writeData, "DEBUG: Ticket is valid\n");
    const auto accounting = settings.int32(AccountingOnKey);
    if (!accounting) {
        DevDiagnose(writeData, "DEBUG: No accounting ticket present\n");
        return;
    }
    DevDiagnose(writeData, "DEBUG: Found accounting key: %ld\n", static_cast<long>(*accounting));
    if (*accounting != AccountingOn) {
        return;
    }
    DevDiagnose(writeData, "DEBUG: Accounting is enabled\n");
    const std::string userId = AccountingId(settings, AccountingUserKey);
    const std::string accountId = AccountingId(settings, AccountingAccountKey);
    DevDiagnose(writeData, "DEBUG: user id %s, acct id %s\n", userId.c_str(), accountId.c_str());
    WriteTPifAccounting(writeData, userId, accountId);
}

void WriteTPifAccounting(TPIFChannel& writeData, std::string_view userId,
                         std::string_view accountId)
{
    WriteTPIFElement(writeData, AttributeIndent, "job-accounting-user-id", TPIFSyntax::Name,
                     userId);
    DevWriteTpif(writeData, "\t\t<job-account-id syntax=\"name\" xml:space=\"preserve\">");
    DevWriteTpif(writeData, accountId);
    DevWriteTpif(writeData, "</job-accounting-id>\n");
}

} // namespace tarvo
