#include "records/AdvancedStock.h"

#include "records/Stock.h"
#include "records/StockMenu.h"
#include "settings/StockMaps.h"

namespace tarvo {

AdvancedStockMenus MakeAdvancedStockMenus(const CFBundle& bundle, JobContext context,
                                          const Stock& stock)
{
    AdvancedStockMenus menus;
    menus.isSizeEnabled = context != JobContext::Job;
    PopulateStockSizeMenu(bundle, menus.size, context);
    if (menus.isSizeEnabled) {
        CheckMenuItemWithValue(menus.size, stock.size());
    }
    PopulateStockColorMenu(bundle, menus.color, context);
    CheckMenuItemWithValue(menus.color, stock.color());
    PopulateStockTypeMenu(bundle, menus.type, context);
    CheckMenuItemWithValue(menus.type, stock.type());
    PopulateMenuFromMap(bundle, menus.punched, StockPunchedMap, context, StockCommand::Punched);
    CheckMenuItemWithValue(menus.punched, stock.punched());
    PopulateMenuFromMap(bundle, menus.description, StockDescriptionMap, context,
                        StockCommand::Description);
    // A description is text; "Custom..." stands for any.
    CheckMenuItemWithValue(menus.description, stock.description().empty() ? UnsetValue : 0);
    return menus;
}

void RevertAdvancedStock(Stock& stock, JobContext context)
{
    if (context != JobContext::Job) {
        stock.setSize(UnsetValue);
    }
    stock.setColor(UnsetValue);
    stock.setType(UnsetValue);
    stock.setPunched(NotPunchedStock);
    stock.setDescription("");
    stock.setWeight(UnsetValue);
    stock.setComment("");
}

} // namespace tarvo
