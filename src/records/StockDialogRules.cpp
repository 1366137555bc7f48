#include "records/StockDialogRules.h"

#include "platform/bundle/CFBundle.h"
#include "platform/text/TextFormat.h"
#include "platform/text/Utf8.h"
#include "platform/text/WhiteSpace.h"
#include "records/Stock.h"

#include <algorithm>

namespace tarvo {
namespace {

std::string FirstCharacters(std::string_view text, std::size_t count)
{
    const std::string plain = PlainText(text);
    return std::string(Utf8FirstCharacters(plain, count));
}

bool IsControl(char byte)
{
    return (byte >= 0 && byte < ' ') || byte == '\x7f';
}

} // namespace

std::string PlainText(std::string_view text)
{
    std::string plain(text);
    std::replace_if(plain.begin(), plain.end(), IsControl, ' ');
    return std::string(Trimmed(plain));
}

std::int32_t SpinValue(const SpinRange& range, std::int32_t stored)
{
    return stored == UnsetValue ? range.proposed : std::clamp(stored, range.minimum, range.maximum);
}

bool EnterCustomColor(Stock& stock, std::string_view name)
{
    if (PlainText(name).empty()) {
        return false;
    }
    stock.setCustomColor(FirstCharacters(name, LongestStockName));
    return true;
}

bool EnterCustomType(Stock& stock, std::string_view name)
{
    if (PlainText(name).empty()) {
        return false;
    }
    stock.setCustomType(FirstCharacters(name, LongestStockName));
    return true;
}

bool EnterOrderedStock(Stock& stock, std::string_view name, std::int32_t modulus)
{
    if (!EnterCustomType(stock, name)) {
        return false;
    }
    stock.setModulus(SpinValue(OrderedModulusRange, modulus));
    return true;
}

void EnterPrecutTabs(Stock& stock, std::int32_t modulus)
{
    stock.setModulus(SpinValue(TabModulusRange, modulus));
}

void EnterDescription(Stock& stock, std::string_view description)
{
    stock.setDescription(FirstCharacters(description, LongestStockDescription));
}

void ChooseDefaultWeight(Stock& stock, bool isDefault)
{
    if (isDefault) {
        stock.setWeight(UnsetValue);
    } else if (stock.weight() == UnsetValue) {
        stock.setWeight(StockWeightRange.proposed);
    }
}

void EnterWeight(Stock& stock, std::int32_t shown)
{
    const bool isDisabled = stock.weight() == UnsetValue;
    if (!isDisabled && shown != SpinValue(StockWeightRange, stock.weight())) {
        stock.setWeight(SpinValue(StockWeightRange, shown));
    }
}

const char* NamedPaperTitleKey(DialogMode mode)
{
    return mode == DialogMode::Add ? "Add Named Paper" : "Edit Named Paper";
}

void EnterPaperName(Stock& stock, std::string_view name)
{
    stock.setCustomName(FirstCharacters(name, LongestPaperName));
}

NamedPaperCheck CheckNamedPaper(NamedPaperContext context, const Stock& stock, bool mustBeNew,
                                bool isInLibrary)
{
    if (context == NamedPaperContext::StockMenu) {
        return NamedPaperCheck::Save;
    }
    if (stock.customName().empty()) {
        return NamedPaperCheck::NameMissing;
    }
    return mustBeNew && isInLibrary ? NamedPaperCheck::AskToReplace : NamedPaperCheck::Save;
}

std::string ReplaceNamedPaperText(const CFBundle& bundle, std::string_view name)
{
    return FilledFormat(bundle.localizedString("Replace Named Paper Message"), name);
}

} // namespace tarvo
