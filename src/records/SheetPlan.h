#pragma once

#include "records/Stock.h"

#include <cstdint>
#include <vector>

namespace tarvo {

struct TicketSpecialPages;

/// A booklet's cover is one sheet round all others.
enum class SheetKind { FrontCover, Pages, Inserts, BackCover, BookletCover };

/// Sheets that follow each other and are alike.
struct PlannedSheets {
    SheetKind kind = SheetKind::Pages;
    std::int64_t firstSheet = 0; // of the printed set, from 1
    std::int64_t lastSheet = 0;
    std::int32_t firstPage = 0; // of inserts the page that they follow; of covers 0
    std::int32_t lastPage = 0;
    std::int32_t sides = 0; // pages: DuplexMap; covers: CoverSidesImagedMap; inserts: 0
    Stock stock;            // what the entry leaves open is the job's
    bool operator==(const PlannedSheets&) const = default;
};

/// A cover, an insert or an exception page that finds no place among the pages.
struct UnplannedPages {
    SheetKind kind = SheetKind::Pages; // of an exception page Pages; covers have no page numbers
    std::int32_t firstPage = 0;
    std::int32_t lastPage = 0;
    bool operator==(const UnplannedPages&) const = default;
};

/// One set of a job, sheet by sheet.
struct SheetPlan {
    std::vector<PlannedSheets> sheets; // in the order in which they leave the printer
    std::vector<UnplannedPages> unplanned;
    std::int64_t sheetCount = 0;
    std::int32_t pagesPerSheet = 1; // at most; of the job's own two-sided mode
};

/// What a plan needs to know of a job.
struct PlannedJob {
    std::int32_t pages = 0; // of the body: those printed on covers are not among them
    std::int32_t sides = 0; // DuplexMap; any other value counts as one-sided
    bool isBooklet = false; // four pages a sheet, the covers one sheet round all
    Stock stock;
};

/// Plans the sheets of one set. A page starts a sheet after an insert, where the stock or the
/// two-sided mode changes, and where the sheet before is full. A booklet's sheets are all alike:
/// inserts and exception pages are unplanned there. Takes time for the entries, not for the pages.
SheetPlan PlanSheets(const PlannedJob& job, const TicketSpecialPages& special);

} // namespace tarvo
