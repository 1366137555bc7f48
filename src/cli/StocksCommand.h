#pragma once

#include "cli/Arguments.h"
#include "cli/ExitStatus.h"

namespace tarvo {

// The group "stocks": the user's library of named papers.

ExitStatus RunStocksList(const Arguments& arguments);
ExitStatus RunStocksMatch(const Arguments& arguments);

ExitStatus RunStocksAdd(const Arguments& arguments);
ExitStatus RunStocksRemove(const Arguments& arguments);
ExitStatus RunStocksUse(const Arguments& arguments);

ExitStatus RunStocksImport(const Arguments& arguments);
ExitStatus RunStocksExport(const Arguments& arguments);

ExitStatus RunStocksFetch(const Arguments& arguments);

} // namespace tarvo
