#include "records/SheetPlan.h"

#include "records/TicketSpecialPages.h"
#include "settings/JobMaps.h"
#include "settings/SpecialPageMaps.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tarvo {
namespace {

constexpr std::int32_t BookletPagesPerSheet = 4;

std::int32_t PagesPerSheet(std::int32_t sides)
{
    return sides == TwoSidedLongEdge || sides == TwoSidedShortEdge ? 2 : 1;
}

// The stock that is printed on: the job's wherever the page's leaves something open. What belongs
// together, a size and its measures or a type and its name, comes together.
Stock StockInJob(const Stock& page, const Stock& job)
{
    if (page == Stock()) {
        return job;
    }
    Stock stock;
    stock = page; // through the setters: a transparency is clear, whatever a ticket says
    if (page.customNameOnly() || job.customNameOnly()) { // a name tells no attributes to share
        return stock;
    }
    if (page.size() == UnsetValue) {
        stock.setSize(job.size());
        stock.setWidth(job.width());
        stock.setLength(job.length());
    }
    if (page.type() == UnsetValue) {
        stock.setType(job.type());
        stock.setCustomType(job.customType());
        stock.setModulus(job.modulus());
    }
    if (stock.color() == UnsetValue) { // a transparency has brought its own
        stock.setColor(job.color());
        stock.setCustomColor(job.customColor());
    }
    if (page.sidesCoated() == UnsetValue) {
        stock.setSidesCoated(job.sidesCoated());
        stock.setCoatingType(job.coatingType());
    }
    stock.setPunched(page.punched() == UnsetValue ? job.punched() : page.punched());
    stock.setWeight(page.weight() == UnsetValue ? job.weight() : page.weight());
    stock.setFinish(page.finish() == UnsetValue ? job.finish() : page.finish());
    stock.setGrain(page.grain() == UnsetValue ? job.grain() : page.grain());
    return stock;
}

class Planner {
public:
    Planner(const PlannedJob& job, const TicketSpecialPages& special) : job_(job), special_(special)
    {
        plan_.pagesPerSheet = job.isBooklet ? BookletPagesPerSheet : PagesPerSheet(job.sides);
    }
    SheetPlan booklet();
    SheetPlan sheets();

private:
    void addSheets(PlannedSheets entry, std::int64_t count);
    void addCover(SheetKind kind, const std::optional<Cover>& cover);
    void addPages(std::int32_t first, std::int32_t last, std::int32_t sides, const Stock& stock);
    void addInsertsAfter(std::int32_t page);
    std::int32_t addStretchFrom(std::int32_t page);
    std::int32_t lastBeforeInsert(std::int32_t last) const;
    void leaveOutRest();

    const PlannedJob& job_;
    const TicketSpecialPages& special_;
    SheetPlan plan_;
    std::int32_t insert_ = 0;    // the next one of the list
    std::int32_t exception_ = 0; // likewise
};

void Planner::addSheets(PlannedSheets entry, std::int64_t count)
{
    entry.firstSheet = plan_.sheetCount + 1;
    plan_.sheetCount += count;
    entry.lastSheet = plan_.sheetCount;
    plan_.sheets.push_back(std::move(entry));
}

// A cover with sides that no table has is none to the printer.
void Planner::addCover(SheetKind kind, const std::optional<Cover>& cover)
{
    if (!cover) {
        return;
    }
    if (LocalizedKeyForTicketValue(CoverSidesImagedMap, cover->sidesImaged()) == nullptr) {
        plan_.unplanned.push_back({kind, 0, 0});
        return;
    }
    addSheets({kind, 0, 0, 0, 0, cover->sidesImaged(), StockInJob(cover->stock(), job_.stock)}, 1);
}

// Pages like those before them go on where those end.
void Planner::addPages(std::int32_t first, std::int32_t last, std::int32_t sides,
                       const Stock& stock)
{
    if (!plan_.sheets.empty()) {
        PlannedSheets& before = plan_.sheets.back();
        if (before.kind == SheetKind::Pages && before.sides == sides && before.stock == stock) {
            first = before.firstPage;
            plan_.sheetCount = before.firstSheet - 1;
            plan_.sheets.pop_back();
        }
    }
    const std::int32_t perSheet = PagesPerSheet(sides);
    addSheets({SheetKind::Pages, 0, 0, first, last, sides, stock},
              (std::int64_t{last} - first + perSheet) / perSheet);
}

void Planner::addInsertsAfter(std::int32_t page)
{
    for (; insert_ < special_.inserts.count(); ++insert_) {
        const Insert& insert = *special_.inserts.pageAtIndex(insert_);
        if (insert.startPage() > page) {
            return;
        }
        if (insert.quantity() < 1) {
            plan_.unplanned.push_back({SheetKind::Inserts, page, page});
            continue;
        }
        addSheets({SheetKind::Inserts, 0, 0, page, page, 0, StockInJob(insert.stock(), job_.stock)},
                  insert.quantity());
    }
}

std::int32_t Planner::lastBeforeInsert(std::int32_t last) const
{
    const Insert* next = special_.inserts.pageAtIndex(insert_);
    return next == nullptr ? last : std::min(last, next->startPage());
}

// Adds the pages from one on that are printed alike, up to an insert.
// @return the last of them
std::int32_t Planner::addStretchFrom(std::int32_t page)
{
    const ExceptionPage* exception = special_.exceptions.pageAtIndex(exception_);
    while (exception != nullptr && exception->endPage() < page) {
        exception = special_.exceptions.pageAtIndex(++exception_);
    }
    std::int32_t last = lastBeforeInsert(job_.pages);
    if (exception == nullptr || exception->startPage() > page) {
        last = exception == nullptr ? last : std::min(last, exception->startPage() - 1);
        addPages(page, last, job_.sides, job_.stock);
        return last;
    }
    last = std::min(last, exception->endPage());
    const std::int32_t plex = exception->plex() == UnsetValue ? job_.sides : exception->plex();
    addPages(page, last, plex, StockInJob(exception->stock(), job_.stock));
    return last;
}

// Names the inserts after the last page, and the exception pages outside the job's.
void Planner::leaveOutRest()
{
    for (; insert_ < special_.inserts.count(); ++insert_) {
        const Insert& insert = *special_.inserts.pageAtIndex(insert_);
        plan_.unplanned.push_back({SheetKind::Inserts, insert.startPage(), insert.startPage()});
    }
    for (std::int32_t index = 0; index < special_.exceptions.count(); ++index) {
        const ExceptionPage& exception = *special_.exceptions.pageAtIndex(index);
        if (exception.endPage() < 1 || exception.startPage() > job_.pages || job_.isBooklet) {
            plan_.unplanned.push_back(
                {SheetKind::Pages, exception.startPage(), exception.endPage()});
        }
    }
}

SheetPlan Planner::sheets()
{
    addCover(SheetKind::FrontCover, special_.frontCover);
    addInsertsAfter(0);
    for (std::int32_t page = 0; page < job_.pages;) {
        page = addStretchFrom(page + 1);
        addInsertsAfter(page);
    }
    addCover(SheetKind::BackCover, special_.backCover);
    leaveOutRest();
    return std::move(plan_);
}

// The covers are one sheet round all others, which the front's stock tells.
SheetPlan Planner::booklet()
{
    const auto& front = special_.frontCover;
    const auto& back = special_.backCover;
    addCover(SheetKind::BookletCover, front ? front : back);
    if (front && back && *front != *back) {
        plan_.unplanned.push_back({SheetKind::BackCover, 0, 0});
    }
    addSheets({SheetKind::Pages, 0, 0, 1, job_.pages, TwoSidedShortEdge, job_.stock},
              (std::int64_t{job_.pages} + BookletPagesPerSheet - 1) / BookletPagesPerSheet);
    leaveOutRest();
    return std::move(plan_);
}

} // namespace

SheetPlan PlanSheets(const PlannedJob& job, const TicketSpecialPages& special)
{
    Planner planner(job, special);
    return job.isBooklet ? planner.booklet() : planner.sheets();
}

} // namespace tarvo
