#include "cli/TicketReport.h"

#include "cli/TicketPlan.h"
#include "cli/TicketSettings.h"
#include "platform/bundle/CFBundle.h"
#include "platform/printing/PMTicket.h"
#include "records/FinishingSummary.h"
#include "records/HighlightColorOptions.h"
#include "records/ImageShiftOptions.h"
#include "records/SpecialPageTexts.h"
#include "records/Stock.h"
#include "records/StockSummary.h"
#include "records/TicketSpecialPages.h"
#include "settings/NumberText.h"

#include <array>
#include <ctime>
#include <utility>

namespace tarvo {
namespace {

using Section = TicketReport::Section;

// What the report is made from.
struct Source {
    const CFDictionary& ticket;
    const CFBundle& bundle;
    const std::string& text(const char* key) const { return bundle.localizedString(key); }
};

std::string TextOfNumber(const Source& source, const TicketSettingRow& row, std::int32_t number)
{
    if (row.map == nullptr) {
        return std::to_string(number);
    }
    if (const char* key = LocalizedKeyForTicketValue(row.map, number)) {
        return source.text(key);
    }
    if (number == 0) { // where there is a menu, 0 chooses nothing
        return "";
    }
    const auto name = row.names == nullptr ? std::nullopt : TPIFConvertKeyword(row.names, number);
    return name ? std::string(*name) : std::to_string(number);
}

// "" for what says nothing: an unset number, an empty text, a value of another kind.
std::string TextOfValue(const Source& source, const TicketSettingRow& row,
                        const CFPropertyList& value)
{
    if (const auto* text = value.get<std::string>()) {
        return *text;
    }
    if (const auto* flag = value.get<bool>()) {
        return source.text(*flag ? "On" : "Off");
    }
    const auto number = Int32Value(&value);
    if (!number || *number == UnsetValue) {
        return "";
    }
    return TextOfNumber(source, row, *number);
}

void Add(Section& section, const Source& source, std::string_view key, const char* labelKey,
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

// Adds the rows that a dictionary has; null has none.
void AddRows(Section& section, const Source& source, const CFDictionary* dictionary,
             const TicketSettingRow* row)
{
    for (; dictionary != nullptr && row->labelKey != nullptr; ++row) {
        if (const CFPropertyList* value = dictionary->find(row->key)) {
            Add(section, source, row->key, row->labelKey, TextOfValue(source, *row, *value),
                *value);
        }
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
const char* JobTypeText(std::int32_t type)
{
    const char* key = LocalizedKeyForTicketValue(JobTypeMap, type);
    return key == nullptr ? LocalizedKeyForTicketValue(OptionalJobTypeMap, type) : key;
}

void AddJobType(Section& section, const Source& source)
{
    const auto* job = source.ticket.get<CFDictionary>(JobTypeKey);
    if (job == nullptr) {
        return;
    }
    if (const auto type = job->int32(JobTypeNumberKey)) {
        const char* key = JobTypeText(*type);
        Add(section, source, JobTypeNumberKey, "ShowJobType",
            key == nullptr ? std::to_string(*type) : source.text(key), *type);
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

void AddStock(Section& section, const Source& source)
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
}

void AddPaperOutput(Section& section, const Source& source)
{
    AddJobType(section, source);
    AddStock(section, source);
    if (const auto sides = SidesOfJob(source.ticket)) {
        Add(section, source, SidesRow.key, SidesRow.labelKey,
            TextOfNumber(source, SidesRow, *sides), *sides);
    }
    const FinishingChoice finishing(source.ticket);
    if (finishing != FinishingChoice()) {
        Add(section, source, FinishingOptionsKey, "ShowFinishing",
            CreateFinishingString(finishing, source.bundle), finishing.option);
    }
    AddRows(section, source, &source.ticket, OutputRows);
    AddRows(section, source, source.ticket.get<CFDictionary>(BackgroundFormsOptionsKey), FormRows);
}

std::string OffsetText(const ImageShiftOptions& shift, std::int32_t offset)
{
    return CreateLocalizedCFStringFromNumberWithDecimals(offset, shift.isInches ? 2 : 1) +
           (shift.isInches ? " in" : " mm");
}

// "Side 2 Mirrors X", then a line for each side.
std::string ImageShiftText(const Source& source, const ImageShiftOptions& shift)
{
    const char* mode = LocalizedKeyForTicketValue(ImageShiftOptions2SidedMap, shift.twoSidedMode);
    std::string text = mode == nullptr ? std::to_string(shift.twoSidedMode) : source.text(mode);
    text += '\n' + source.text("ShowSide1") + source.text(":") + OffsetText(shift, shift.x1) +
            ", " + OffsetText(shift, shift.y1);
    text += '\n' + source.text("ShowSide2") + source.text(":") + OffsetText(shift, shift.x2) +
            ", " + OffsetText(shift, shift.y2);
    return text;
}

void AddImageShift(Section& section, const Source& source)
{
    if (const auto* ticket = source.ticket.get<CFDictionary>(JobImageShiftKey)) {
        ImageShiftOptions shift;
        ImageShiftSetOptionsFromTicket(shift, *ticket);
        Add(section, source, JobImageShiftKey, "ImageShift", ImageShiftText(source, shift),
            *ticket);
    }
}

void AddHighlight(Section& section, const Source& source)
{
    if (const auto* ticket = source.ticket.get<CFDictionary>(HighlightColorOptionsKey)) {
        HighlightColorOptions options;
        ColorSetupHLCSetOptionsFromTicket(options, *ticket);
        Add(section, source, HighlightColorOptionsKey, "ShowHighlight",
            CreateColorSetupHLCSummary(source.bundle, options, JobContext::Job), *ticket);
    }
}

void AddImage(Section& section, const Source& source)
{
    AddRows(section, source, &source.ticket, ImageRows);
    AddImageShift(section, source);
    AddHighlight(section, source);
    if (const auto* color = source.ticket.get<CFDictionary>(FullColorOptionsKey)) {
        AddRows(section, source, color, FullColorRows);
        AddRows(section, source, color->get<CFDictionary>(FullColorCastKey), ColorCastRows);
    }
}

void AddNotes(Section& section, const Source& source)
{
    AddRows(section, source, &source.ticket, NotesRows);
}

void AddLayout(Section& section, const Source& source)
{
    AddRows(section, source, &source.ticket, LayoutRows);
}

// The accounting client's names stay out.
void AddAdvanced(Section& section, const Source& source)
{
    AddRows(section, source, &source.ticket, AdvancedRows);
}

struct SectionRow {
    const char* titleKey; // null ends the table
    void (*add)(Section& section, const Source& source);
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

void AddSpecialPage(TicketReport& report, SpecialPageTexts texts)
{
    report.specialPages.push_back(
        {std::move(texts.page), std::move(texts.type), std::move(texts.attributes)});
}

// Covers, inserts and exception pages, in the order of the panel's list.
void AddSpecialPages(TicketReport& report, const TicketSpecialPages& special,
                     const CFBundle& bundle)
{
    if (special.frontCover) {
        AddSpecialPage(report, CoverTexts(bundle, *special.frontCover, CoverPlace::Front));
    }
    if (special.backCover) {
        AddSpecialPage(report, CoverTexts(bundle, *special.backCover, CoverPlace::Back));
    }
    for (std::int32_t index = 0; index < special.inserts.count(); ++index) {
        AddSpecialPage(report, InsertTexts(bundle, *special.inserts.pageAtIndex(index)));
    }
    for (std::int32_t index = 0; index < special.exceptions.count(); ++index) {
        AddSpecialPage(report, ExceptionPageTexts(bundle, *special.exceptions.pageAtIndex(index)));
    }
}

} // namespace

TicketReport DescribeTicket(const CFDictionary& ticket, const CFBundle& bundle,
                            std::optional<std::int32_t> pages)
{
    const Source source{ticket, bundle};
    TicketReport report;
    for (const SectionRow* row = SectionMap; row->titleKey != nullptr; ++row) {
        Section section{row->titleKey, source.text(row->titleKey), {}};
        row->add(section, source);
        if (!section.settings.empty()) {
            report.sections.push_back(std::move(section));
        }
    }
    const TicketSpecialPages special = ReadSpecialPages(PMTicket(ticket, SpecialPagesClient));
    AddSpecialPages(report, special, bundle);
    if (pages) {
        report.plan = DescribePlan(PlannedJobOf(ticket, *pages), special, bundle);
    }
    return report;
}

} // namespace tarvo
