#pragma once

#include "settings/JobContext.h"
#include "settings/Menu.h"

namespace tarvo {

class CFBundle;
class Stock;

/// The pop-ups of the dialog that edits every attribute of a stock, the chosen item of each
/// checked. None is checked where the menu lacks the stock's value. Make them anew after each
/// choice: one may decide another, as a transparency decides the colour.
struct AdvancedStockMenus {
    bool isSizeEnabled = false; // not for a job, whose size is the page's
    Menu size;
    Menu color;
    Menu type;
    Menu punched;
    Menu description;
};

AdvancedStockMenus MakeAdvancedStockMenus(const CFBundle& bundle, JobContext context,
                                          const Stock& stock);

/// Puts back what the dialog shows; a job's size, the coating and the names of custom colours and
/// types stay as they are.
void RevertAdvancedStock(Stock& stock, JobContext context);

} // namespace tarvo
