#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/ProgramBundle.h"
#include "cli/StockPapers.h"
#include "cli/StockReport.h"
#include "cli/StocksCommand.h"
#include "cli/TicketFile.h"
#include "platform/printing/PMTicket.h"
#include "records/TicketSpecialPages.h"
#include "settings/TicketKeys.h"

namespace tarvo {
namespace {

// A stock that the job says something of, and where.
struct JobStock {
    const char* placeWord; // of StockMatch
    const char* placeKey;  // of its text
    std::int32_t number;   // of the insert or exception page, from 1; 0 for the others
    Stock stock;
};

void AddStock(std::vector<JobStock>& stocks, const char* placeWord, const char* placeKey,
              std::int32_t number, const Stock& stock)
{
    if (stock != Stock()) { // else it is the job's, or the printer decides
        stocks.push_back({placeWord, placeKey, number, stock});
    }
}

void AddPages(std::vector<JobStock>& stocks, const char* placeWord, const char* placeKey,
              const SpecialPageList& pages)
{
    for (std::int32_t index = 0; index < pages.count(); ++index) {
        AddStock(stocks, placeWord, placeKey, index + 1, pages.pageAtIndex(index)->stock());
    }
}

std::vector<JobStock> StocksOfJob(const CFDictionary& settings)
{
    std::vector<JobStock> stocks;
    if (const auto* job = settings.get<CFDictionary>(JobLevelStockKey)) {
        AddStock(stocks, "job", "StockPlaceJob", 0, Stock(*job));
    }
    const TicketSpecialPages pages = ReadSpecialPages(PMTicket(settings, PanelClient));
    if (pages.frontCover) {
        AddStock(stocks, "front-cover", "PlanFrontCover", 0, pages.frontCover->stock());
    }
    if (pages.backCover) {
        AddStock(stocks, "back-cover", "PlanBackCover", 0, pages.backCover->stock());
    }
    AddPages(stocks, "insert", "StockPlaceInsert", pages.inserts);
    AddPages(stocks, "exception", "StockPlaceException", pages.exceptions);
    return stocks;
}

std::vector<StockMatch> MatchStocks(const CFBundle& bundle, const StockLibraryList& list,
                                    const std::vector<JobStock>& stocks)
{
    std::vector<StockMatch> matches;
    for (const JobStock& each : stocks) {
        StockMatch match = {each.placeWord, bundle.localizedString(each.placeKey), std::nullopt};
        if (each.number > 0) {
            match.place += ' ' + std::to_string(each.number);
            match.placeText += ' ' + std::to_string(each.number);
        }
        if (const std::string* uuid = list.findMatch(each.stock)) {
            match.paper = DescribePaper(bundle, *uuid, *list.entry(*uuid));
        }
        matches.push_back(std::move(match));
    }
    return matches;
}

// Names the stocks that are no paper of the library.
ExitStatus PrintUnmatched(const std::string& file, const std::vector<StockMatch>& matches)
{
    ExitStatus status = ExitStatus::Done;
    for (const StockMatch& match : matches) {
        if (!match.paper) {
            PrintFileMessage(file, 0, match.place + ": the stock is not in the library");
            status = ExitStatus::LeftOut;
        }
    }
    return status;
}

} // namespace

ExitStatus RunStocksList(const Arguments& arguments)
{
    const auto list = OpenUserLibrary();
    if (!list) {
        return ExitStatus::Failed;
    }
    const auto bundle = OpenProgramBundle(UserLanguages());
    if (!bundle) {
        return ExitStatus::Failed;
    }
    std::vector<PaperReport> papers;
    for (const auto& each : list->stockList()) {
        if (const auto entry = list->entry(each.key)) {
            papers.push_back(DescribePaper(*bundle, each.key, *entry));
        }
    }
    return PrintResult(arguments.has(JsonOption) ? PapersJson(papers)
                                                 : PapersText(*bundle, papers));
}

ExitStatus RunStocksMatch(const Arguments& arguments)
{
    const auto& files = arguments.values(TicketArguments);
    if (files.size() != 1) {
        return PrintWrongUse(files.empty() ? "no ticket is named"
                                           : "more than one ticket is named");
    }
    ParseError error;
    const auto ticket = ReadTicket(files.front(), error);
    if (!ticket) {
        PrintFileMessage(InputName(files.front()), error.line, error.reason);
        return ExitStatus::Failed;
    }
    const auto list = OpenUserLibrary();
    if (!list) {
        return ExitStatus::Failed;
    }
    const auto bundle = OpenProgramBundle(UserLanguages());
    if (!bundle) {
        return ExitStatus::Failed;
    }
    const auto matches = MatchStocks(*bundle, *list, StocksOfJob(*ticket));
    const ExitStatus printed = PrintResult(
        arguments.has(JsonOption) ? MatchesJson(matches) : MatchesText(*bundle, matches));
    return Worse(printed, PrintUnmatched(InputName(files.front()), matches));
}

} // namespace tarvo
