#include "panels/paper/PaperOutputSettings.h"

#include "printer/PPDKeywordInfo.h"
#include "printer/PPDKeywordMaps.h"
#include "records/BackgroundFormsOptions.h"
#include "records/JobTypeKeys.h"
#include "settings/TicketKeys.h"

#include <optional>
#include <utility>

namespace tarvo {
namespace {

constexpr std::int64_t SecondsOfADay = 86'400;

struct NumberRow {
    std::string_view key;
    std::int32_t FinishingChoice::*value;
};

// In the order in which they are written: these first, the choices within the families last.
constexpr NumberRow FamilyRows[] = {
    {FinishingOptionsKey,     &FinishingChoice::option        },
    {OffsetKey,               &FinishingChoice::offset        },
    {OffsetEnableSubsetKey,   &FinishingChoice::offsetSubset  },
    {OffsetPagesPerSubsetKey, &FinishingChoice::pagesPerSubset},
    {SlipSheetKey,            &FinishingChoice::slipSheet     },
};
constexpr NumberRow ChoiceRows[] = {
    {Staple1ValueKey,      &FinishingChoice::oneStaple   },
    {Staple2ValueKey,      &FinishingChoice::twoStaples  },
    {StapleCenterValueKey, &FinishingChoice::centerStaple},
    {FoldValueKey,         &FinishingChoice::fold        },
    {BindValueKey,         &FinishingChoice::bind        },
    {HolePunchValueKey,    &FinishingChoice::punch       },
    {HolePunchOptionsKey,  &FinishingChoice::holes       },
    {ZFoldValueKey,        &FinishingChoice::zFold       },
};

void ReadDictionary(const PMTicket& ticket, std::string_view key, CFDictionary& dictionary)
{
    const CFDictionary* found = nullptr;
    if (ticket.getDictionary(key, &found) == StatusOk) {
        dictionary = *found;
    }
}

// Anything but true is off; only a missing entry says nothing.
void ReadSwitch(const PMTicket& ticket, std::string_view key, bool& isOn)
{
    if (const auto* item = ticket.item(key)) {
        const auto* value = item->value.get<bool>();
        isOn = value != nullptr && *value;
    }
}

void ReadFinishing(const PMTicket& ticket, FinishingChoice& finishing)
{
    for (const NumberRow& row : FamilyRows) {
        ticket.getNumber(row.key, &(finishing.*row.value));
    }
    for (const NumberRow& row : ChoiceRows) {
        ticket.getNumber(row.key, &(finishing.*row.value));
    }
    ticket.getString(CustomFinishingKey, &finishing.customText);
    ticket.getNumber(BookletFoldStapleKey, &finishing.bookletFold);
    ReadSwitch(ticket, BookletLayoutKey, finishing.bookletLayout);
}

// "" while nothing is chosen there.
std::string DialogSides(const CFDictionary& dialog)
{
    const auto* keyword = dialog.get<std::string>(DuplexMainKeyword);
    return keyword == nullptr ? "" : *keyword;
}

// A choice without a number, of a printer's own, says nothing.
std::optional<std::int32_t> SidesOfKeyword(const std::string& keyword)
{
    constexpr std::int32_t NoSuchKeyword = -1;
    const std::int32_t value = GetTicketValueForPPDOptionKeyword(PPDDuplexMap, keyword);
    return value == NoSuchKeyword ? std::nullopt : std::optional(value);
}

// What has been chosen in the dialog since the last look at it.
std::optional<std::int32_t> NewDialogSides(const PaperOutputSettings& settings,
                                           const CFDictionary& dialog)
{
    const std::string now = DialogSides(dialog);
    const bool isNew = !settings.dialogSides.empty() && now != settings.dialogSides;
    return isNew ? SidesOfKeyword(now) : std::nullopt;
}

// A number in the ticket is older than what the dialog has got since it was written.
void ReadSides(const PMTicket& ticket, PaperOutputSettings& settings)
{
    const CFDictionary& dialog = ticket.ppdDictionary();
    if (const auto newer = NewDialogSides(settings, dialog)) {
        settings.sides = *newer;
    } else if (ticket.getNumber(DuplexKey, &settings.sides) != StatusOk &&
               ticket.getNumber(SystemDuplexKey, &settings.sides) != StatusOk) {
        settings.sides = SidesOfKeyword(DialogSides(dialog)).value_or(settings.sides);
    }
    settings.dialogSides = DialogSides(dialog);
}

void WriteSides(PaperOutputSettings& settings, PMTicket& ticket)
{
    settings.sides = SidesInForce(settings, ticket.ppdDictionary());
    if (const char* keyword = GetPPDOptionKeywordForTicketValue(PPDDuplexMap, settings.sides)) {
        PPDSetMainKeyword(&ticket, DuplexMainKeyword, keyword);
    }
    settings.dialogSides = DialogSides(ticket.ppdDictionary());
    ticket.setItem(PanelClient, DuplexKey, settings.sides);
    ticket.setItem(PanelClient, SystemDuplexKey, settings.sides);
}

bool IsJobOfType(const PaperOutputSettings& settings, JobType type)
{
    return JobTypeOf(settings) == static_cast<std::int32_t>(type);
}

// Sets the entries that follow from others, and drops those of job types that were chosen before: a
// passcode that no job needs is not kept.
void CompleteJobType(PaperOutputSettings& settings, const PMTicket& ticket)
{
    std::string jobName;
    if (settings.jobType.isTrue(UseJobNameKey) &&
        ticket.getString(SystemJobNameKey, &jobName) == StatusOk && !jobName.empty()) {
        settings.jobType.set(SavedJobNameKey, jobName);
    }
    if (IsJobOfType(settings, JobType::DelayedPrint)) {
        settings.jobType.set(DelayedPrintTimeKey, settings.delayedPrintTime);
    } else {
        settings.jobType.remove(DelayedPrintTimeKey);
    }
    if (!IsJobOfType(settings, JobType::SecurePrint)) {
        settings.jobType.remove(SecurePrintPasswordKey);
    }
}

} // namespace

PaperOutputSettings FreshPaperOutputSettings(CFDate now)
{
    PaperOutputSettings settings;
    DefaultStock(settings.stock, JobContext::Job);
    settings.backgroundForms = BackgroundFormsOptions().asTicket();
    settings.delayedPrintTime = {now.secondsSinceEpoch + SecondsOfADay};
    return settings;
}

void ReadPaperOutputSettings(const PMTicket& ticket, PaperOutputSettings& settings)
{
    ReadDictionary(ticket, JobTypeKey, settings.jobType);
    if (const auto* time = settings.jobType.get<CFDate>(DelayedPrintTimeKey)) {
        settings.delayedPrintTime = *time;
    }
    const CFDictionary* stock = nullptr;
    if (ticket.getDictionary(JobLevelStockKey, &stock) == StatusOk) {
        settings.stock.takeAsItIs(Stock(*stock));
    }
    ReadFinishing(ticket, settings.finishing);
    ReadSides(ticket, settings);
    ticket.getNumber(OutputDestinationKey, &settings.outputDestination);
    ticket.getNumber(OutputColorKey, &settings.outputColor);
    ReadDictionary(ticket, BackgroundFormsOptionsKey, settings.backgroundForms);
    ticket.getNumber(BookletDrawOutlinesKey, &settings.bookletOutlines);
    ReadSwitch(ticket, BookletForceNewSizeKey, settings.bookletForcesNewSize);
}

void WritePaperOutputSettings(PaperOutputSettings& settings, PMTicket& ticket)
{
    const FinishingChoice& finishing = settings.finishing;
    const auto write = [&ticket](std::string_view key, CFPropertyList value) {
        ticket.setItem(PanelClient, key, std::move(value));
    };
    write(JobLevelStockKey, settings.stock.asTicket());
    for (const NumberRow& row : FamilyRows) {
        write(row.key, finishing.*row.value);
    }
    write(CustomFinishingKey, finishing.customText);
    WriteSides(settings, ticket);
    ticket.removeItem(PanelClient, OutputDestinationKey);
    write(OutputDestinationKey, settings.outputDestination);
    write(OutputColorKey, settings.outputColor);
    CompleteJobType(settings, ticket);
    write(JobTypeKey, settings.jobType);
    write(BackgroundFormsOptionsKey, settings.backgroundForms);
    write(BookletLayoutKey, finishing.bookletLayout);
    write(BookletFoldStapleKey, finishing.bookletFold);
    write(BookletDrawOutlinesKey, settings.bookletOutlines);
    write(BookletForceNewSizeKey, settings.bookletForcesNewSize);
    for (const NumberRow& row : ChoiceRows) {
        write(row.key, finishing.*row.value);
    }
}

std::int32_t SidesInForce(const PaperOutputSettings& settings, const CFDictionary& dialog)
{
    return NewDialogSides(settings, dialog).value_or(settings.sides);
}

std::int32_t JobTypeOf(const PaperOutputSettings& settings)
{
    return settings.jobType.int32(JobTypeNumberKey)
        .value_or(static_cast<std::int32_t>(JobType::Normal));
}

} // namespace tarvo
