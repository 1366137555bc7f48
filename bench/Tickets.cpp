#include "Tickets.h"

#include "records/ImageShiftKeys.h"
#include "records/SpecialPageKeys.h"
#include "records/StockKeys.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFWriter.h"

namespace tarvo {
namespace {

CFDictionary Stock(int number)
{
    CFDictionary stock;
    stock.set(StockSizeKey, 1);
    stock.set(StockTypeKey, 1 + number % 5);
    stock.set(StockColorKey, 1 + number % 9);
    stock.set(StockWeightKey, 80 + number % 40);
    // The writer that this one is measured against escapes no quotes: none are here.
    stock.set(StockDescriptionKey, "Shelf " + std::to_string(number) + " & tray 4, heavy");
    return stock;
}

} // namespace

CFDictionary SmallTicket()
{
    CFDictionary ticket;
    ticket.set(ExportOptionsKey, WholeJobExport());
    ticket.set(JobNotesJobNameKey, "Quarterly report");
    ticket.set(JobNotesSenderNameKey, "Research & Development");
    ticket.set(JobNotesMessageKey, "Two staples, left. Please call when it is ready.");
    ticket.set(FinishingOptionsKey, 9);
    ticket.set(Staple2ValueKey, 10);
    ticket.set(DuplexKey, 2);
    ticket.set(OutputDestinationKey, 4);
    ticket.set(ResolutionKey, 2);
    ticket.set(JobLevelStockKey, Stock(0));
    return ticket;
}

CFDictionary TicketWithExceptions(int count)
{
    CFDictionary shift;
    shift.set(ShiftX1Key, 500);
    shift.set(ShiftFullPrecisionKey, true);
    CFArray pages;
    for (int number = 0; number < count; ++number) {
        CFDictionary page;
        page.set(StartPageKey, 2 * number + 1);
        page.set(EndPageKey, 2 * number + 2);
        page.set(SidesImagedKey, 2);
        page.set(PageLightenDarkenKey, 5);
        page.set(PageImageShiftKey, shift);
        page.set(PageStockKey, Stock(number));
        pages.emplace_back(std::move(page));
    }
    CFDictionary ticket = SmallTicket();
    ticket.set(ExceptionListKey, std::move(pages));
    return ticket;
}

CFDictionary TicketWithPlainExceptions(int count)
{
    CFArray pages;
    for (int number = 0; number < count; ++number) {
        CFDictionary stock;
        stock.set(StockTypeKey, 1);
        stock.set(StockColorKey, 2);
        stock.set(StockWeightKey, 80);
        CFDictionary page;
        page.set(StartPageKey, 2 * number + 1);
        page.set(EndPageKey, 2 * number + 2);
        page.set(SidesImagedKey, 1);
        page.set(PageStockKey, std::move(stock));
        pages.emplace_back(std::move(page));
    }
    CFDictionary ticket = SmallTicket();
    ticket.set(ExceptionListKey, std::move(pages));
    return ticket;
}

CFDictionary TicketWithInserts(int count)
{
    CFArray inserts;
    for (int number = 0; number < count; ++number) {
        CFDictionary insert;
        insert.set(StartPageKey, number);
        insert.set(InsertQuantityKey, 1);
        insert.set(PageStockKey, Stock(number));
        inserts.emplace_back(std::move(insert));
    }
    CFDictionary ticket = SmallTicket();
    ticket.set(InsertListKey, std::move(inserts));
    return ticket;
}

} // namespace tarvo
