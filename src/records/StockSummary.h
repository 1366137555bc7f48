#pragma once

#include "settings/JobContext.h"

#include <string>
#include <string_view>

namespace tarvo {

class CFBundle;
class Stock;

/// What the stock is, in the user's words: a line "label:value" for each attribute that is set. A
/// job's summary has all lines but that of the size, which is the page's own; its name comes first.
/// Coating, finish, grain and comment are left out, and all but the name when that alone tells the
/// stock. The names of the printer's own types come from the process's PPD dictionary.
/// @param separator  between the lines
/// @return "" when there is no line, as for a page's stock with nothing set
std::string GenerateStockSummary(const CFBundle& bundle, JobContext context, const Stock& stock,
                                 std::string_view separator);

/// The size, a custom one with its measures in millimetres: "Custom, 210 × 594 mm".
/// @return "" when it is unset
std::string StockSizeText(const CFBundle& bundle, const Stock& stock);

/// Coating, finish and grain, which no summary has: "Gloss, Coated on One Side, Smooth, Long
/// Grain". A value without a word is left out.
/// @return "" when none is set, and when the name alone tells the stock
std::string StockSurfaceText(const CFBundle& bundle, const Stock& stock);

/// What the stock is in one phrase, "Letter (8.5 x 11 in), Blue, 90 gsm, Uncoated": the values of
/// the summary of a page's stock without their labels, then coating, finish and grain. That a stock
/// is not punched goes without saying.
/// @return "" when nothing else is set
std::string StockWords(const CFBundle& bundle, const Stock& stock);

/// The summary as a panel shows it, a line of text for each line; what stands for "nothing chosen"
/// when there is none.
/// @param stock  null shows ""
std::string StockSummaryText(const CFBundle& bundle, JobContext context, const Stock* stock);

} // namespace tarvo
