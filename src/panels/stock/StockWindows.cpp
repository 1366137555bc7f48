#include "panels/stock/StockWindows.h"

#include "panels/stock/AdvancedStockDialog.h"
#include "panels/stock/CustomSizeDialog.h"
#include "panels/stock/StockFieldDialogs.h"
#include "panels/stock/StockLibraryDialog.h"
#include "panels/toolkit/Dialogs.h"

#include <utility>

namespace tarvo {
namespace {

// Runs a modal dialog that says at last whether it was answered.
template <typename Dialog, typename... Arguments>
bool IsAnswered(Dialog runModal, Arguments&&... arguments)
{
    std::int32_t result = DialogCancel;
    runModal(std::forward<Arguments>(arguments)..., result);
    return result == DialogOk;
}

} // namespace

bool StockWindows::askCustomSize(std::int32_t& width, std::int32_t& length)
{
    return IsAnswered(RunModalCustomStockSizeDialog, bundle_, parent_, width, length);
}

bool StockWindows::askCustomColor(JobContext /*context*/, Stock& stock)
{
    return IsAnswered(RunModalCustomStockColorSetup, bundle_, parent_, stock);
}

bool StockWindows::askCustomType(JobContext /*context*/, Stock& stock)
{
    return IsAnswered(RunModalCustomStockTypeSetup, bundle_, parent_, stock);
}

bool StockWindows::askOrderedStock(JobContext /*context*/, Stock& stock)
{
    return IsAnswered(RunModalOrderedStockSetup, bundle_, parent_, stock);
}

bool StockWindows::askPrecutTabs(JobContext /*context*/, Stock& stock)
{
    return IsAnswered(RunModalPreCutTabStockSetup, bundle_, parent_, stock);
}

bool StockWindows::askDescription(JobContext /*context*/, Stock& stock)
{
    return IsAnswered(RunModalStockDescriptionSetup, bundle_, parent_, stock);
}

bool StockWindows::askAdvancedSelection(JobContext context, Stock& stock)
{
    return IsAnswered(RunModalAdvancedStockSelection, bundle_, parent_, context, stock);
}

bool StockWindows::askPaperName(std::string& name)
{
    return IsAnswered(RunModalStockNameSetup, bundle_, parent_, name);
}

LibraryAnswer StockWindows::askStockLibrary(JobContext context, Stock& stock)
{
    LibraryAnswer answer = LibraryAnswer::Cancelled;
    RunModalStockLibraryDialog(bundle_, parent_, context, stock, answer);
    return answer;
}

} // namespace tarvo
