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

// "" for what says nothing: an unset number, an empty text, a value of another kind.
std::string TextOfValue(const TicketSource& source, const TicketSettingRow& row,
                        const CFPropertyList& value)
{
    if (const auto* text = value.get<std::string>()) {
        return *text;
    }
    if (const auto* flag = value.get<bool>()) {
        return source.text(*flag ? "On" : "Off");
    }
    const auto number = Int32Value(&value);
    return number ? TextOfNumber(source, row, *number) : "";
}

void Add(Section& section, const TicketSource& source, std::string_view key, const char* labelKey,
         std::string text, const CFPropertyList& value)
{
    while (text.ends_with('\n')) {
        text.pop_back();
    }
    if (!text.empty()) {
        section.settings.push_back(
            {std::string(key), source.text(labelKey), std::move(text), value});
    }
}

// Adds the row if the dictionary has it.
void AddRow(Section& section, const TicketSource& source, const CFDictionary& dictionary,
            const TicketSettingRow& row)
{
    if (const CFPropertyList* value = dictionary.find(row.key)) {
        Add(section, source, row.key, row.labelKey, TextOfValue(source, row, *value), *value);
    }
}

// Null has no rows.
void AddRows(Section& section, const TicketSource& source, const CFDictionary* dictionary,
             const TicketSettingRow* row)
{
    for (; dictionary != nullptr && row->labelKey != nullptr; ++row) {
        AddRow(section, source, *dictionary, *row);
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

void AddJobType(Section& section, const TicketSource& source)
{
    const auto* job = source.ticket.get<CFDictionary>(JobTypeKey);
    if (job == nullptr) {
        return;
    }
    if (const auto type = job->int32(JobTypeNumberKey)) {
        Add(section, source, JobTypeNumberKey, "ShowJobType", JobTypeText(source, *type), *type);
    }
    AddRows(section, source, job, JobTypeRows);
    const auto* passcode = job->get<std::string>(SecurePrintPasswordKey);
    if (passcode != nullptr && !passcode->empty()) {
        Add(section, source, SecurePrintPasswordKey, "ShowPasscode", source.text("ShowPasscodeSet"),
            true);
    }
    if (const auto* time = job->get<CFDate>(DelayedPrintTimeKey)) {
        Add(section, source, DelayedPrintTimeKey, "ShowDelayedUntil", DateText(*time), *time);
    }
}

void AddStock(Section& section, const TicketSource& source)
{
    const auto* ticket = source.ticket.get<CFDictionary>(JobLevelStockKey);
    if (ticket == nullptr) {
        return;
    }
    const Stock stock(*ticket);
    Add(section, source, StockSizeKey, "StockSize", StockSizeText(source.bundle, stock),
        stock.size());
    Add(section, source, JobLevelStockKey, "ShowPaper",
        GenerateStockSummary(source.bundle, JobContext::Job, stock, "\n"), *ticket);
    Add(section, source, StockSidesCoatedKey, "ShowStockSurface",
        StockSurfaceText(source.bundle, stock), stock.sidesCoated());
    AddRow(section, source, *ticket, StockCommentRow);
}

void AddFinishing(Section& section, const TicketSource& source)
{
    const FinishingChoice finishing(source.ticket);
    if (finishing == FinishingChoice()) {
        return;
    }
    Add(section, source, FinishingOptionsKey, "ShowFinishing",
        CreateFinishingString(finishing, source.bundle), finishing.option);
    if (IsPunched(finishing)) {
        Add(section, source, HolesRow.key, HolesRow.labelKey,
            TextOfNumber(source, HolesRow, finishing.holes), finishing.holes);
    }
    if (finishing.offset != 0 && finishing.offsetSubset != 0) {
        AddRow(section, source, source.ticket, SubsetRow);
    }
}

// What counts for the merge only says something beside the form's name.
void AddForms(Section& section, const TicketSource& source)
{
    const auto* forms = source.ticket.get<CFDictionary>(BackgroundFormsOptionsKey);
    if (forms == nullptr) {
        return;
    }
    const auto* merged = forms->get<std::string>(MergeWithStringKey);
    if (merged != nullptr && !merged->empty()) {
        AddRow(section, source, *forms, MergeWithFormRow);
        if (forms->int32(CyclePagesKey).value_or(0) > 0) {
            AddRow(section, source, *forms, CyclePagesRow);
        }
        const std::int32_t x = ShiftOffsetFromTicket(*forms, ShiftX1Key);
        const std::int32_t y = ShiftOffsetFromTicket(*forms, ShiftY1Key);
        if (x != 0 || y != 0) {
            Add(section, source, ShiftX1Key, "ShowFormOffset",
                OffsetsText(source, IsInInches(*forms), x, y), *forms);
        }
    }
    AddRow(section, source, *forms, NewFormRow);
}

void AddPaperOutput(Section& section, const TicketSource& source)
{
    AddJobType(section, source);
    AddStock(section, source);
    if (const auto sides = SidesOfJob(source.ticket)) {
        Add(section, source, SidesRow.key, SidesRow.labelKey,
            TextOfNumber(source, SidesRow, *sides), *sides);
    }
    AddFinishing(section, source);
    AddRows(section, source, &source.ticket, OutputRows);
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
        Add(section, source, JobImageShiftKey, "ImageShift", ImageShiftText(source, shift),
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
        Add(section, source, HighlightColorOptionsKey, "ShowHighlight",
            HighlightText(source, options), *ticket);
    }
}

void AddImage(Section& section, const TicketSource& source)
{
    AddRows(section, source, &source.ticket, ImageRows);
    AddImageShift(section, source);
    AddHighlight(section, source);
    if (const auto* color = source.ticket.get<CFDictionary>(FullColorOptionsKey)) {
        AddRows(section, source, color, FullColorRows);
        AddRows(section, source, color->get<CFDictionary>(FullColorCastKey), ColorCastRows);
    }
}

void AddNotes(Section& section, const TicketSource& source)
{
    AddRows(section, source, &source.ticket, NotesRows);
}

void AddLayout(Section& section, const TicketSource& source)
{
    AddRows(section, source, &source.ticket, LayoutRows);
}

// The accounting client's names stay out.
void AddAdvanced(Section& section, const TicketSource& source)
{
    AddRows(section, source, &source.ticket, AdvancedRows);
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
