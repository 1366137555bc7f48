#include "panels/stock/StockWindows.h"

#include "panels/stock/AdvancedStockDialog.h"
#include "panels/stock/CustomSizeDialog.h"
#include "panels/stock/StockFieldDialogs.h"
#include "panels/stock/StockLibraryDialog.h"
#include "panels/toolkit/Dialogs.h"

namespace tarvo {

bool StockWindows::askCustomSize(std::int32_t& width, std::int32_t& length)
{
    std::int32_t result = DialogCancel;
    RunModalCustomStockSizeDialog(bundle_, parent_, width, length, result);
    return result == DialogOk;
}

bool StockWindows::askCustomColor(JobContext /*context*/, Stock& stock)
{
    std::int32_t result = DialogCancel;
    RunModalCustomStockColorSetup(bundle_, parent_, stock, result);
    return result == DialogOk;
}

bool StockWindows::askCustomType(JobContext /*context*/, Stock& stock)
{
    std::int32_t result = DialogCancel;
    RunModalCustomStockTypeSetup(bundle_, parent_, stock, result);
    return result == DialogOk;
}

bool StockWindows::askOrderedStock(JobContext /*context*/, Stock& stock)
{
    std::int32_t result = DialogCancel;
    RunModalOrderedStockSetup(bundle_, parent_, stock, result);
    return result == DialogOk;
}

bool StockWindows::askPrecutTabs(JobContext /*context*/, Stock& stock)
{
    std::int32_t result = DialogCancel;
    RunModalPreCutTabStockSetup(bundle_, parent_, stock, result);
    return result == DialogOk;
}

bool StockWindows::askDescription(JobContext /*context*/, Stock& stock)
{
    std::int32_t result = DialogCancel;
    RunModalStockDescriptionSetup(bundle_, parent_, stock, result);
    return result == DialogOk;
}

bool StockWindows::askAdvancedSelection(JobContext context, Stock& stock)
{
    std::int32_t result = DialogCancel;
    RunModalAdvancedStockSelection(bundle_, parent_, context, stock, result);
    return result == DialogOk;
}

bool StockWindows::askPaperName(std::string& name)
{
    std::int32_t result = DialogCancel;
    RunModalStockNameSetup(bundle_, parent_, name, result);
    return result == DialogOk;
}

LibraryAnswer StockWindows::askStockLibrary(JobContext context, Stock& stock)
{
    LibraryAnswer answer = LibraryAnswer::Cancelled;
    RunModalStockLibraryDialog(bundle_, parent_, context, stock, answer);
    return answer;
}

} // namespace tarvo
