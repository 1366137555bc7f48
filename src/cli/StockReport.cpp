#include "cli/StockReport.h"

#include "cli/JsonText.h"
#include "cli/Messages.h"
#include "cli/StockJson.h"
#include "cli/StockPapers.h"
#include "platform/bundle/CFBundle.h"
#include "printer/PPDKeywordMaps.h"
#include "records/StockSummary.h"
#include "settings/NumberText.h"
#include "settings/StockMaps.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tarvo {
namespace {

using Json = nlohmann::ordered_json;

std::string StatusWord(const StockLibrary& entry)
{
    if (entry.isInvalid()) {
        return "invalid";
    }
    return entry.status() == static_cast<std::int32_t>(StockEntryStatus::InUse) ? "in-use"
                                                                                : "not-in-use";
}

// "210 × 297.5 mm"; a side that a ticket left unset is "?".
std::string SizeText(const Stock& stock)
{
    std::string text;
    for (const std::int32_t side : {stock.width(), stock.length()}) {
        text += text.empty() ? "" : " \u00D7 ";
        text += side == UnsetValue ? "?" : CreateLocalizedCFStringFromNumberWithDecimals(side, 2);
    }
    return text + " mm";
}

// The printer's word for a value, else the value itself.
std::string PrintersWord(const PPDKeywordMap* words, std::int32_t value)
{
    const char* word = GetPPDOptionKeywordForTicketValue(words, value);
    return word == nullptr ? std::to_string(value) : word;
}

// The stock as a summary can tell it all: what only printers and documents have words for becomes a
// colour and a type of that name.
Stock InWords(const CFBundle& bundle, const Stock& stock)
{
    Stock shown(stock);
    shown.setCustomNameOnly(false);
    if (LocalizedKeyForTicketValue(CompleteStockColorMap, stock.color()) == nullptr) {
        shown.setColor(CustomStockColor);
        shown.setCustomColor(PrintersWord(MediaColorMap, stock.color()));
    }
    if (LocalizedKeyForTicketValue(CompleteStockTypeMap, stock.type()) == nullptr) {
        shown.setType(CustomStockType);
        shown.setCustomType(PrintersWord(MediaTypeMap, stock.type()));
    }
    if (stock.type() == OrderedStockType && stock.customType().empty()) {
        shown.setCustomType(bundle.localizedString("StockTypeOrdered"));
    }
    return shown;
}

// Of what stands behind the name; null for nothing.
const char* MarkKey(const StockLibrary& entry)
{
    if (entry.isInvalid()) {
        return "StockEntryInvalid";
    }
    const bool isInUse = entry.status() == static_cast<std::int32_t>(StockEntryStatus::InUse);
    return isInUse ? "StockEntryInUse" : nullptr;
}

std::string ShownName(const CFBundle& bundle, const PaperReport& paper)
{
    return paper.name.empty() ? bundle.localizedString("StockUnnamed")
                              : WithoutControls(paper.name);
}

Json JsonOf(const PaperReport& paper)
{
    return {
        {"uuid",   paper.uuid            },
        {"name",   paper.name            },
        {"status", paper.status          },
        {"lines",  paper.lines           },
        {"stock",  StockJson(paper.stock)}
    };
}

} // namespace

Json StockJson(const CFDictionary& stock)
{
    Json json = Json::object();
    for (const auto& each : stock) {
        if (const auto* number = each.value.get<std::int64_t>()) {
            json[each.key] = *number;
        } else if (const auto* text = each.value.get<std::string>()) {
            json[each.key] = *text;
        } else {
            json[each.key] = stock.isTrue(each.key);
        }
    }
    return json;
}

std::vector<std::string> StockLines(const CFBundle& bundle, const Stock& stock)
{
    Stock shown = InWords(bundle, stock);
    // No text holds the separator: a name may have a line feed.
    const std::string summary =
        GenerateStockSummary(bundle, JobContext::Cover, shown, std::string_view("\0", 1));
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < summary.size();) {
        const std::size_t end = std::min(summary.find('\0', start), summary.size());
        lines.push_back(summary.substr(start, end - start));
        start = end + 1;
    }
    if (stock.size() == CustomStockSize) { // else the size says it
        lines.push_back(SizeText(stock));
    }
    if (const std::string surface = StockSurfaceText(bundle, shown); !surface.empty()) {
        lines.push_back(bundle.localizedString("ShowStockSurface") + bundle.localizedString(":") +
                        surface);
    }
    if (!stock.comment().empty()) {
        lines.push_back(bundle.localizedString("Stock Library Comment") + ' ' + stock.comment());
    }
    return lines;
}

PaperReport DescribePaper(const CFBundle& bundle, const std::string& uuid,
                          const StockLibrary& entry)
{
    Stock shown(entry.stock());
    shown.setCustomName(""); // stands above the lines
    const char* mark = MarkKey(entry);
    return {uuid,
            PaperName(entry),
            StatusWord(entry),
            mark == nullptr ? "" : bundle.localizedString(mark),
            StockLines(bundle, shown),
            entry.stock().asTicket()};
}

std::string PaperTitle(const CFBundle& bundle, const PaperReport& paper)
{
    return ShownName(bundle, paper) + (paper.mark.empty() ? "\n" : " (" + paper.mark + ")\n");
}

std::string PapersText(const CFBundle& bundle, const std::vector<PaperReport>& papers)
{
    std::string text;
    for (const PaperReport& paper : papers) {
        text += PaperTitle(bundle, paper);
        text += "  " + WithoutControls(paper.uuid) + '\n';
        for (const std::string& line : paper.lines) {
            text += "  " + WithoutControls(line) + '\n';
        }
    }
    return text;
}

std::string MatchesText(const CFBundle& bundle, const std::vector<StockMatch>& matches)
{
    std::string text;
    for (const StockMatch& match : matches) {
        text += match.placeText + ": ";
        text += match.paper ? ShownName(bundle, *match.paper) + " (" +
                                  WithoutControls(match.paper->uuid) + ')'
                            : "-";
        text += '\n';
    }
    return text;
}

std::string PapersJson(const std::vector<PaperReport>& papers)
{
    Json json = {
        {"papers", Json::array()}
    };
    for (const PaperReport& paper : papers) {
        json["papers"].push_back(JsonOf(paper));
    }
    return JsonText(json);
}

std::string MatchesJson(const std::vector<StockMatch>& matches)
{
    Json json = {
        {"stocks", Json::array()}
    };
    for (const StockMatch& match : matches) {
        json["stocks"].push_back({
            {"place", match.place                                       },
            {"paper", match.paper ? JsonOf(*match.paper) : Json(nullptr)}
        });
    }
    return JsonText(json);
}

} // namespace tarvo
