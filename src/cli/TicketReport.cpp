#include "cli/TicketReport.h"

#include "cli/TicketPages.h"
#include "cli/TicketPlan.h"
#include "cli/TicketSettings.h"
#include "cli/TicketWords.h"
#include "platform/bundle/CFBundle.h"
#include "platform/printing/PMTicket.h"
#include "records/FinishingSummary.h"
#include "records/HighlightColorOptions.h"
#include "records/ImageShiftKeys.h"
#include "records/ImageShiftOptions.h"
#include "records/Stock.h"
#include "records/StockSummary.h"
#include "records/TicketSpecialPages.h"

#include <array>
#include <ctime>
#include <utility>

namespace tarvo {
namespace {

using Section = TicketReport::Section;

// Where a setting stands: in the ticket, or in a dictionary of it.
struct Place {
    std::string_view key;
    std::string_view entry{};
};

// A dictionary of the ticket, or the ticket itself.
struct Settings {
    const CFDictionary* dictionary; // null has none
    std::string_view key{};         // under which it stands in the ticket
    Place placeOf(std::string_view entry) const
    {
        return key.empty() ? Place{entry} : Place{key, entry};
    }
};

Settings SettingsUnder(const TicketSource& source, std::string_view key)
{
    return {source.ticket.get<CFDictionary>(key), key};
}

void Add(Section& section, const TicketSource& source, Place place, const char* labelKey,
         std::string text, const CFPropertyList& value)
{
    while (text.ends_with('\n')) {
        text.pop_back();
    }
    if (!text.empty()) {
        section.settings.push_back({std::string(place.key), std::string(place.entry),
                                    source.text(labelKey), std::move(text), value});
    }
}

// Adds the row if the settings have it.
void AddRow(Section& section, const TicketSource& source, const Settings& settings,
            const TicketSettingRow& row)
{
    const CFPropertyList* value =
        settings.dictionary == nullptr ? nullptr : settings.dictionary->find(row.key);
    if (value != nullptr) {
        Add(section, source, settings.placeOf(row.key), row.labelKey,
            TextOfValue(source, row, *value), *value);
    }
}

void AddRows(Section& section, const TicketSource& source, const Settings& settings,
             const TicketSettingRow* row)
{
    for (; row->labelKey != nullptr; ++row) {
        AddRow(section, source, settings, *row);
    }
}

// In the time of the process's place.
std::string DateText(CFDate date)
{
    const std::time_t seconds = date.secondsSinceEpoch;
    std::tm time{};
    std::array<char, 64> text;
    if (localtime_r(&seconds, &time) == nullptr) {
        return "";
    }
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M %z", &time)};
}

// Every printer's job types, then those of some.
std::string JobTypeText(const TicketSource& source, std::int32_t type)
{
    for (const SettingMap* map : {JobTypeMap, OptionalJobTypeMap}) {
        if (const char* key = LocalizedKeyForTicketValue(map, type)) {
            return source.text(key);
        }
    }
    return type == UnsetValue ? "" : std::to_string(type);
}

// What a type of job has beside its number, of that type alone: the rest is left over from another.
void AddJobTypeDetails(Section& section, const TicketSource& source, const Settings& job,
                       JobType type)
{
    const auto* passcode = job.dictionary->get<std::string>(SecurePrintPasswordKey);
    const auto* time = job.dictionary->get<CFDate>(DelayedPrintTimeKey);
    if (type == JobType::Save || type == JobType::SaveAndPrint) {
        AddRows(section, source, job, SavedJobRows);
    } else if (type == JobType::SecurePrint && passcode != nullptr && !passcode->empty()) {
        Add(section, source, job.placeOf(SecurePrintPasswordKey), "ShowPasscode",
            source.text("ShowPasscodeSet"), true);
    } else if (type == JobType::DelayedPrint && time != nullptr) {
        Add(section, source, job.placeOf(DelayedPrintTimeKey), "ShowDelayedUntil", DateText(*time),
            *time);
    }
}

void AddJobType(Section& section, const TicketSource& source)
{
    const Settings job = SettingsUnder(source, JobTypeKey);
    const auto type =
        job.dictionary == nullptr ? std::nullopt : job.dictionary->int32(JobTypeNumberKey);
    if (type) {
        Add(section, source, job.placeOf(JobTypeNumberKey), "ShowJobType",
            JobTypeText(source, *type), *type);
        AddJobTypeDetails(section, source, job, static_cast<JobType>(*type));
    }
}

void AddStock(Section& section, const TicketSource& source)
{
    const Settings settings = SettingsUnder(source, JobLevelStockKey);
    if (settings.dictionary == nullptr) {
        return;
    }
    const Stock stock(*settings.dictionary);
    const Place place{JobLevelStockKey};
    Add(section, source, settings.placeOf(StockSizeKey), "StockSize",
        StockSizeText(source.bundle, stock), stock.size());
    Add(section, source, place, "ShowPaper",
        GenerateStockSummary(source.bundle, JobContext::Job, stock, "\n"), *settings.dictionary);
    Add(section, source, place, "ShowStockSurface", StockSurfaceText(source.bundle, stock),
        *settings.dictionary);
    AddRow(section, source, settings, StockCommentRow);
}

void AddFinishing(Section& section, const TicketSource& source)
{
    const FinishingChoice finishing(source.ticket);
    if (finishing == FinishingChoice()) {
        return;
    }
    Add(section, source, {FinishingOptionsKey}, "ShowFinishing",
        CreateFinishingString(finishing, source.bundle), finishing.option);
    if (IsPunched(finishing)) {
        Add(section, source, {HolesRow.key}, HolesRow.labelKey,
            TextOfNumber(source, HolesRow, finishing.holes), finishing.holes);
    }
    if (finishing.offset != 0 && finishing.offsetSubset != 0) {
        AddRow(section, source, {&source.ticket}, SubsetRow);
    }
}

// What counts for the merge only says something beside the form's name.
void AddMergedForm(Section& section, const TicketSource& source, const Settings& forms)
{
    AddRow(section, source, forms, MergeWithFormRow);
    if (forms.dictionary->int32(CyclePagesKey).value_or(0) > 0) {
        AddRow(section, source, forms, CyclePagesRow);
    }
    const std::int32_t x = ShiftOffsetFromTicket(*forms.dictionary, ShiftX1Key);
    const std::int32_t y = ShiftOffsetFromTicket(*forms.dictionary, ShiftY1Key);
    if (x != 0 || y != 0) {
        Add(section, source, {forms.key}, "ShowFormOffset",
            OffsetsText(source, IsInInches(*forms.dictionary), x, y), *forms.dictionary);
    }
}

void AddForms(Section& section, const TicketSource& source)
{
    const Settings forms = SettingsUnder(source, BackgroundFormsOptionsKey);
    if (forms.dictionary == nullptr) {
        return;
    }
    const auto* merged = forms.dictionary->get<std::string>(MergeWithStringKey);
    if (merged != nullptr && !merged->empty()) {
        AddMergedForm(section, source, forms);
    }
    AddRow(section, source, forms, NewFormRow);
}

void AddPaperOutput(Section& section, const TicketSource& source)
{
    AddJobType(section, source);
    AddStock(section, source);
    AddRow(section, source, {&source.ticket}, SidesRowOf(source.ticket));
    AddFinishing(section, source);
    AddRows(section, source, {&source.ticket}, OutputRows);
    AddForms(section, source);
}

// "Side 2 Mirrors X", then a line for each side; "" when nothing is shifted.
std::string ImageShiftText(const TicketSource& source, const ImageShiftOptions& shift)
{
    if (shift.twoSidedMode == UnsetValue) {
        return "";
    }
    const char* mode = LocalizedKeyForTicketValue(ImageShiftOptions2SidedMap, shift.twoSidedMode);
    std::string text = mode == nullptr ? std::to_string(shift.twoSidedMode) : source.text(mode);
    for (const std::string& side : SideShifts(source, shift)) {
        text += '\n' + side;
    }
    return text;
}

void AddImageShift(Section& section, const TicketSource& source)
{
    if (const auto* ticket = source.ticket.get<CFDictionary>(JobImageShiftKey)) {
        ImageShiftOptions shift;
        ImageShiftSetOptionsFromTicket(shift, *ticket);
        Add(section, source, {JobImageShiftKey}, "ImageShift", ImageShiftText(source, shift),
            *ticket);
    }
}

// The summary, whose last line is the mapped colour; a custom one with its components.
std::string HighlightText(const TicketSource& source, const HighlightColorOptions& options)
{
    std::string text = CreateColorSetupHLCSummary(source.bundle, options, JobContext::Job);
    if (!HasCustomMappingColor(options)) {
        return text;
    }
    const auto parts = options.useRGB ? std::array{options.red, options.green, options.blue}
                                      : std::array{options.hue, options.saturation, options.value};
    return text + (options.useRGB ? " (RGB " : " (HSV ") + std::to_string(parts[0]) + ", " +
           std::to_string(parts[1]) + ", " + std::to_string(parts[2]) + ')';
}

void AddHighlight(Section& section, const TicketSource& source)
{
    if (const auto* ticket = source.ticket.get<CFDictionary>(HighlightColorOptionsKey)) {
        HighlightColorOptions options;
        ColorSetupHLCSetOptionsFromTicket(options, *ticket);
        Add(section, source, {HighlightColorOptionsKey}, "ShowHighlight",
            HighlightText(source, options), *ticket);
    }
}

void AddImage(Section& section, const TicketSource& source)
{
    AddRows(section, source, {&source.ticket}, ImageRows);
    AddImageShift(section, source);
    AddHighlight(section, source);
    const Settings color = SettingsUnder(source, FullColorOptionsKey);
    AddRows(section, source, color, FullColorRows);
    if (color.dictionary != nullptr) {
        AddRows(section, source, {color.dictionary->get<CFDictionary>(FullColorCastKey), color.key},
                ColorCastRows);
    }
}

void AddNotes(Section& section, const TicketSource& source)
{
    const Settings ticket{&source.ticket};
    AddRow(section, source, ticket,
           source.ticket.isTrue(UseJobNameKey) ? SystemJobNameRow : JobNameRow);
    AddRows(section, source, {&source.ticket}, NotesRows);
}

void AddLayout(Section& section, const TicketSource& source)
{
    AddRows(section, source, {&source.ticket}, LayoutRows);
}

// The accounting client's names stay out.
void AddAdvanced(Section& section, const TicketSource& source)
{
    AddRows(section, source, {&source.ticket}, AdvancedRows);
}

struct SectionRow {
    const char* titleKey; // null ends the table
    void (*add)(Section& section, const TicketSource& source);
};

// The print dialog's panels in their order; special pages have a list of their own.
constexpr SectionRow SectionMap[] = {
    {"PaperOutput",  AddPaperOutput},
    {"ImageOptions", AddImage      },
    {"JobNotes",     AddNotes      },
    {"Layout",       AddLayout     },
    {"Advanced",     AddAdvanced   },
    {nullptr,        nullptr       },
};

} // namespace

TicketReport DescribeTicket(const CFDictionary& ticket, const CFBundle& bundle,
                            std::optional<std::int32_t> pages)
{
    const TicketSource source{ticket, bundle};
    TicketReport report;
    for (const SectionRow* row = SectionMap; row->titleKey != nullptr; ++row) {
        Section section{row->titleKey, source.text(row->titleKey), {}};
        row->add(section, source);
        if (!section.settings.empty()) {
            report.sections.push_back(std::move(section));
        }
    }
    const TicketSpecialPages special = ReadSpecialPages(PMTicket(ticket, SpecialPagesClient));
    report.specialPages = DescribeSpecialPages(source, special);
    if (pages) {
        report.plan = DescribePlan(PlannedJobOf(ticket, *pages), special, bundle);
    }
    return report;
}

} // namespace tarvo
