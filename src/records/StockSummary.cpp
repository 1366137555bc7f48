#include "records/StockSummary.h"

#include "platform/bundle/CFBundle.h"
#include "printer/PPDKeywordInfo.h"
#include "records/Stock.h"
#include "records/StockSizes.h"
#include "settings/NumberText.h"
#include "settings/StockMaps.h"

#include <utility>
#include <vector>

namespace tarvo {
namespace {

// The lines of one summary, as they come about.
class SummaryLines {
public:
    /// @param isSentence  tells what is set, as part of one; else it is the print dialog's summary
    SummaryLines(const CFBundle& bundle, JobContext context, bool isSentence)
        : bundle_(bundle), context_(context), isSentence_(isSentence)
    {
    }

    const std::string& text(const char* key) const { return bundle_.localizedString(key); }
    bool isSentence() const { return isSentence_; }
    bool isForJob() const { return context_ == JobContext::Job; }
    /// A job's summary names what is left to the printer, too.
    bool shows(std::int32_t value) const { return value != UnsetValue || isForJob(); }
    void add(const char* labelKey, std::string value)
    {
        lines_.push_back({labelKey, std::move(value)});
    }
    std::string joined(std::string_view separator) const
    {
        std::string all;
        for (const Line& line : lines_) {
            all += all.empty() ? "" : separator;
            all += text(line.labelKey) + text(":") + line.value;
        }
        return all;
    }
    std::string values(std::string_view separator) const
    {
        std::string all;
        for (const Line& line : lines_) {
            all += all.empty() || line.value.empty() ? "" : separator;
            all += line.value;
        }
        return all;
    }

private:
    struct Line {
        const char* labelKey;
        std::string value;
    };
    const CFBundle& bundle_;
    JobContext context_;
    bool isSentence_;
    std::vector<Line> lines_;
};

std::string WithModulus(const SummaryLines& lines, const std::string& name, const Stock& stock)
{
    if (stock.modulus() == UnsetValue && lines.isSentence()) {
        return name;
    }
    return name + " (" + std::to_string(stock.modulus()) + ")";
}

std::string ColorText(const SummaryLines& lines, const Stock& stock)
{
    if (stock.color() == CustomStockColor) {
        return stock.customColor();
    }
    return lines.text(LocalizedKeyForTicketValue(CompleteStockColorMap, stock.color()));
}

std::string TypeText(const SummaryLines& lines, const Stock& stock)
{
    switch (stock.type()) {
    case OrderedStockType:
        return WithModulus(lines, stock.customType(), stock);
    case PrecutTabStockType:
        return WithModulus(lines, lines.text("StockTypePrecutTab"), stock);
    case CustomStockType:
        return stock.customType();
    case TabStockType:
    case HeavyTabStockType:
        if (stock.modulus() > 0) {
            return WithModulus(lines, GetPPDOptionAliasForTicketValue("MediaType", stock.type()),
                               stock);
        }
        break;
    default:
        break;
    }
    return lines.text(LocalizedKeyForTicketValue(CompleteStockTypeMap, stock.type()));
}

std::string WeightText(const SummaryLines& lines, const Stock& stock)
{
    return stock.weight() == UnsetValue
               ? lines.text("PrinterDefault")
               : std::to_string(stock.weight()) + ' ' + lines.text("StockWeightUnit");
}

void AddAttributes(SummaryLines& lines, const Stock& stock)
{
    if (stock.size() != UnsetValue && !lines.isForJob()) {
        lines.add("StockSize", lines.text(LocalizedKeyForPaperSizeTicketValue(CompleteStockSizeMap,
                                                                              stock.size())));
    }
    if (lines.shows(stock.color())) {
        lines.add("StockColor", ColorText(lines, stock));
    }
    if (lines.shows(stock.type())) {
        lines.add("StockType", TypeText(lines, stock));
    }
    if (lines.shows(stock.punched())) {
        lines.add("StockPunched",
                  lines.text(LocalizedKeyForTicketValue(StockPunchedMap, stock.punched())));
    }
    if (lines.shows(stock.weight())) {
        lines.add("StockWeight", WeightText(lines, stock));
    }
    if (!stock.description().empty() || lines.isForJob()) {
        lines.add("StockDescription",
                  stock.description().empty() ? lines.text("PrinterDefault") : stock.description());
    }
}

// What goes without saying, or has no word, leaves no separator behind.
void AddWords(std::string& words, std::string_view more)
{
    words += words.empty() || more.empty() ? "" : ", ";
    words += more;
}

void AddWords(std::string& words, const CFBundle& bundle, const SettingMap* map, std::int32_t value)
{
    const char* key = LocalizedKeyForTicketValue(map, value);
    if (value != UnsetValue && key != nullptr) {
        AddWords(words, bundle.localizedString(key));
    }
}

SummaryLines LinesOf(const CFBundle& bundle, JobContext context, const Stock& stock,
                     bool isSentence)
{
    SummaryLines lines(bundle, context, isSentence);
    if (!stock.customName().empty()) {
        lines.add("StockName", stock.customName());
    }
    if (!stock.customNameOnly()) {
        AddAttributes(lines, stock);
    }
    return lines;
}

} // namespace

std::string GenerateStockSummary(const CFBundle& bundle, JobContext context, const Stock& stock,
                                 std::string_view separator)
{
    return LinesOf(bundle, context, stock, false).joined(separator);
}

std::string StockSizeText(const CFBundle& bundle, const Stock& stock)
{
    if (stock.size() == UnsetValue) {
        return "";
    }
    std::string text = bundle.localizedString(
        LocalizedKeyForPaperSizeTicketValue(CompleteStockSizeMap, stock.size()));
    const auto measures = GetStockDimensions(stock);
    if (stock.size() == CustomStockSize && measures) {
        text += ", " + CreateLocalizedCFStringFromNumberWithDecimals(measures->width / 10, 1) +
                " × " + CreateLocalizedCFStringFromNumberWithDecimals(measures->length / 10, 1) +
                " mm";
    }
    return text;
}

std::string StockSurfaceText(const CFBundle& bundle, const Stock& stock)
{
    std::string text;
    if (stock.customNameOnly()) {
        return text;
    }
    if (stock.sidesCoated() == CoatedInFront || stock.sidesCoated() == CoatedOnBothSides) {
        AddWords(text, bundle, CoatingTypeMap, stock.coatingType());
    }
    AddWords(text, bundle, SidesCoatedMap, stock.sidesCoated());
    AddWords(text, bundle, FinishMap, stock.finish());
    AddWords(text, bundle, GrainMap, stock.grain());
    return text;
}

std::string StockWords(const CFBundle& bundle, const Stock& stock)
{
    Stock told(stock);
    if (stock.punched() == NotPunchedStock) {
        told.setPunched(UnsetValue);
    }
    told.setSize(UnsetValue);
    std::string words = stock.customNameOnly() ? "" : StockSizeText(bundle, stock);
    AddWords(words, LinesOf(bundle, JobContext::ExceptionPage, told, true).values(", "));
    AddWords(words, StockSurfaceText(bundle, stock));
    return words;
}

std::string StockSummaryText(const CFBundle& bundle, JobContext context, const Stock* stock)
{
    if (stock == nullptr) {
        return "";
    }
    std::string summary = GenerateStockSummary(bundle, context, *stock, "\n");
    return summary.empty() ? bundle.localizedString(DefaultSettingKey(context)) : summary;
}

} // namespace tarvo
