#include "cli/StockAttributes.h"

#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "platform/text/CaseFolding.h"
#include "platform/text/Utf8.h"
#include "printer/PPDKeywordMaps.h"
#include "records/StockDialogRules.h"
#include "settings/StockMaps.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

namespace tarvo {
namespace {

// The value of a printer's word for it, when the menu of stocks offers it too.
std::optional<std::int32_t> OfferedValue(const PPDKeywordMap* words, const SettingMap* menu,
                                         const std::string& text)
{
    for (const PPDKeywordMap* row = words; row->keyword != nullptr; ++row) {
        if (EqualIgnoringCase(row->keyword, text) && TicketToUI(menu, row->value) != -1) {
            return row->value;
        }
    }
    return std::nullopt;
}

std::string OfferedWords(const PPDKeywordMap* words, const SettingMap* menu)
{
    std::string offered;
    for (const PPDKeywordMap* row = words; row->keyword != nullptr; ++row) {
        if (TicketToUI(menu, row->value) != -1) {
            offered += (offered.empty() ? "" : ", ") + std::string(row->keyword);
        }
    }
    return offered;
}

std::optional<std::int32_t> WholeNumber(std::string_view text)
{
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    return isNumber ? std::optional(number) : std::nullopt;
}

// 1/100 mm of "210" or "210.5", above 0.
std::optional<std::int32_t> Millimeters(std::string_view text)
{
    constexpr double Longest = 10000;
    double number = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    const bool isLength = error == std::errc() && end == text.data() + text.size() &&
                          number >= 0.01 && number <= Longest;
    return isLength ? std::optional(static_cast<std::int32_t>(std::lround(number * 100)))
                    : std::nullopt;
}

bool ReadSize(const std::string& text, Stock& stock, std::string& reason)
{
    if (const auto size = OfferedValue(PageSizeMap, StockSizeMap, text)) {
        stock.setSize(*size);
        return true;
    }
    const std::size_t middle = text.find('x');
    const auto width = Millimeters(std::string_view(text).substr(0, middle));
    const auto length = middle == std::string::npos
                            ? std::nullopt
                            : Millimeters(std::string_view(text).substr(middle + 1));
    if (!width || !length) {
        reason = " is none of " + OfferedWords(PageSizeMap, StockSizeMap) +
                 " and no width and length in millimetres such as 210x297";
        return false;
    }
    stock.setWidth(*width);
    stock.setLength(*length);
    return true;
}

bool ReadColor(const std::string& text, Stock& stock, std::string& reason)
{
    const auto color = OfferedValue(MediaColorMap, StockColorMap, text);
    if (!color) {
        reason = " is none of " + OfferedWords(MediaColorMap, StockColorMap);
        return false;
    }
    stock.setColor(*color);
    return true;
}

bool ReadType(const std::string& text, Stock& stock, std::string& reason)
{
    const auto type = OfferedValue(MediaTypeMap, StockTypeMap, text);
    if (!type) {
        reason = " is none of " + OfferedWords(MediaTypeMap, StockTypeMap);
        return false;
    }
    stock.setType(*type);
    return true;
}

bool ReadWeight(const std::string& text, Stock& stock, std::string& reason)
{
    const auto weight = WholeNumber(text);
    if (!weight || *weight < StockWeightRange.minimum || *weight > StockWeightRange.maximum) {
        reason = " is no weight from " + std::to_string(StockWeightRange.minimum) + " to " +
                 std::to_string(StockWeightRange.maximum) + " g/m2";
        return false;
    }
    stock.setWeight(*weight);
    return true;
}

bool ReadComment(const std::string& text, Stock& stock, std::string& reason)
{
    if (!IsUtf8(text) || WithoutControls(text) != text) {
        reason = " is not plain text";
        return false;
    }
    stock.setComment(text);
    return true;
}

struct AttributeRow {
    const char* option; // null ends the table
    bool (*read)(const std::string& text, Stock& stock, std::string& reason);
};

constexpr AttributeRow AttributeMap[] = {
    {SizeOption,    ReadSize   },
    {ColorOption,   ReadColor  },
    {TypeOption,    ReadType   },
    {WeightOption,  ReadWeight },
    {CommentOption, ReadComment},
    {nullptr,       nullptr    },
};

} // namespace

bool ReadStockAttributes(const Arguments& arguments, Stock& stock, std::string& reason)
{
    for (const AttributeRow* row = AttributeMap; row->option != nullptr; ++row) {
        if (!arguments.has(row->option)) {
            continue;
        }
        const std::string& text = arguments.values(row->option).front();
        std::string fault;
        if (!row->read(text, stock, fault)) {
            reason = row->option;
            reason.append(" \"").append(text).append("\"").append(fault);
            return false;
        }
    }
    stock.setType(stock.type()); // a transparency decides the colour
    return true;
}

} // namespace tarvo
