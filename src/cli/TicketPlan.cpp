#include "cli/TicketPlan.h"

#include "cli/TicketSettings.h"
#include "platform/bundle/CFBundle.h"
#include "records/FinishingSummary.h"
#include "records/StockSummary.h"
#include "records/TicketSpecialPages.h"
#include "settings/FinishingMaps.h"
#include "settings/JobMaps.h"
#include "settings/SpecialPageMaps.h"
#include "settings/TicketKeys.h"

#include <initializer_list>

namespace tarvo {
namespace {

// The text of a key with each "%d" replaced by the next number.
std::string Numbered(const CFBundle& bundle, const char* key,
                     std::initializer_list<std::int64_t> numbers)
{
    constexpr std::string_view Placeholder = "%d";
    std::string text = bundle.localizedString(key);
    std::size_t position = 0;
    for (const std::int64_t number : numbers) {
        position = text.find(Placeholder, position);
        if (position == std::string::npos) {
            break;
        }
        const std::string digits = std::to_string(number);
        text.replace(position, Placeholder.size(), digits);
        position += digits.size();
    }
    return text;
}

std::string SheetsText(const CFBundle& bundle, const PlannedSheets& sheets)
{
    return sheets.firstSheet == sheets.lastSheet
               ? Numbered(bundle, "PlanSheet", {sheets.firstSheet})
               : Numbered(bundle, "PlanSheets", {sheets.firstSheet, sheets.lastSheet});
}

std::string InsertsText(const CFBundle& bundle, const PlannedSheets& sheets)
{
    const std::int64_t quantity = sheets.lastSheet - sheets.firstSheet + 1;
    const bool isFirst = sheets.firstPage < 1;
    if (quantity == 1) {
        return isFirst ? bundle.localizedString("PlanInsertFirst")
                       : Numbered(bundle, "PlanInsertAfter", {sheets.firstPage});
    }
    return isFirst ? Numbered(bundle, "PlanInsertsFirst", {quantity})
                   : Numbered(bundle, "PlanInsertsAfter", {quantity, sheets.firstPage});
}

std::string PagesText(const CFBundle& bundle, std::int32_t first, std::int32_t last)
{
    return first == last ? Numbered(bundle, "PlanPage", {first})
                         : Numbered(bundle, "PlanPages", {first, last});
}

std::string ContentText(const CFBundle& bundle, const PlannedSheets& sheets)
{
    switch (sheets.kind) {
    case SheetKind::FrontCover:
        return bundle.localizedString("PlanFrontCover");
    case SheetKind::BackCover:
        return bundle.localizedString("PlanBackCover");
    case SheetKind::BookletCover:
        return bundle.localizedString("PlanBookletCover");
    case SheetKind::Inserts:
        return InsertsText(bundle, sheets);
    case SheetKind::Pages:
        break;
    }
    return PagesText(bundle, sheets.firstPage, sheets.lastPage);
}

// CoverSidesImagedMap as somebody sees it who holds the set.
constexpr SettingMap FrontCoverSidesMap[] = {
    {"PlanCoverBlank",   1, 0},
    {"PlanCoverOutside", 2, 0},
    {"PlanCoverInside",  3, 0},
    {"PlanCoverBoth",    4, 0},
    {nullptr,            0, 0},
};

// Of a back cover either side alone is its outer one, as in an exported document.
constexpr SettingMap BackCoverSidesMap[] = {
    {"PlanCoverBlank",   1, 0},
    {"PlanCoverOutside", 2, 0},
    {"PlanCoverOutside", 3, 0},
    {"PlanCoverBoth",    4, 0},
    {nullptr,            0, 0},
};

// How the sheets are printed on; "" when nothing says so.
std::string SidesText(const CFBundle& bundle, const PlannedSheets& sheets)
{
    if (sheets.kind == SheetKind::Inserts) {
        return "";
    }
    const SettingMap* map = sheets.kind == SheetKind::Pages       ? DuplexMap
                            : sheets.kind == SheetKind::BackCover ? BackCoverSidesMap
                                                                  : FrontCoverSidesMap;
    const char* key = LocalizedKeyForTicketValue(map, sheets.sides);
    return key == nullptr ? "" : bundle.localizedString(key);
}

TicketReport::Sheets Describe(const CFBundle& bundle, const PlannedSheets& sheets)
{
    TicketReport::Sheets told{sheets.kind,
                              sheets.firstSheet,
                              sheets.lastSheet,
                              sheets.firstPage,
                              sheets.lastPage,
                              StockWords(bundle, sheets.stock),
                              SidesText(bundle, sheets),
                              ""};
    told.text =
        SheetsText(bundle, sheets) + bundle.localizedString(":") + ContentText(bundle, sheets);
    for (const std::string& detail : {told.stock, told.sides}) {
        told.text += detail.empty() ? "" : ", " + detail;
    }
    return told;
}

std::string UnplannedText(const CFBundle& bundle, const UnplannedPages& pages)
{
    if (pages.kind == SheetKind::FrontCover || pages.kind == SheetKind::BookletCover) {
        return bundle.localizedString("PlanFrontCoverUnplanned");
    }
    if (pages.kind == SheetKind::BackCover) {
        return bundle.localizedString("PlanBackCoverUnplanned");
    }
    if (pages.kind == SheetKind::Inserts) {
        return Numbered(bundle, "PlanInsertUnplanned", {pages.firstPage});
    }
    if (pages.firstPage == pages.lastPage) {
        return Numbered(bundle, "PlanExceptionUnplanned", {pages.firstPage});
    }
    return Numbered(bundle, "PlanExceptionsUnplanned", {pages.firstPage, pages.lastPage});
}

} // namespace

PlannedJob PlannedJobOf(const CFDictionary& ticket, std::int32_t pages)
{
    PlannedJob job;
    job.pages = pages;
    job.sides = ticket.int32(SidesRowOf(ticket).key).value_or(UnsetValue);
    const FinishingChoice finishing(ticket);
    job.isBooklet =
        finishing.bookletLayout || finishing.option == FinishingFamily::SignatureBooklet;
    if (const auto* stock = ticket.get<CFDictionary>(JobLevelStockKey)) {
        job.stock = Stock(*stock);
    }
    return job;
}

TicketReport::Plan DescribePlan(const PlannedJob& job, const TicketSpecialPages& special,
                                const CFBundle& bundle)
{
    const SheetPlan planned = PlanSheets(job, special);
    TicketReport::Plan plan;
    plan.sheetCount = planned.sheetCount;
    for (const PlannedSheets& sheets : planned.sheets) {
        plan.sheets.push_back(Describe(bundle, sheets));
    }
    if (job.isBooklet) {
        plan.notes.push_back(bundle.localizedString("PlanBooklet"));
    } else if (LocalizedKeyForTicketValue(DuplexMap, job.sides) == nullptr) {
        plan.notes.push_back(bundle.localizedString("PlanSidesUnknown"));
    }
    for (const UnplannedPages& pages : planned.unplanned) {
        plan.notes.push_back(UnplannedText(bundle, pages));
    }
    return plan;
}

} // namespace tarvo
