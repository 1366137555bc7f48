#pragma once

#include "platform/printing/PMStatus.h"
#include "records/StockDialogRules.h"
#include "settings/JobContext.h"

#include <gtkmm/window.h>

#include <cstdint>
#include <functional>
#include <string>

namespace tarvo {

class CFBundle;
class Stock;

// Every attribute of a stock in one dialog, with its summary as it is being chosen. Both work on a
// copy, which becomes the stock on DialogOk; the parent may be null. Both return StatusNoWindow, as
// if they had been cancelled, when they cannot be shown.

/// For the stock of a job or a page, which loses the name of a paper when it is changed: no name is
/// asked for.
OSStatus RunModalAdvancedStockSelection(const CFBundle& bundle, Gtk::Window* parent,
                                        JobContext context, Stock& stock, std::int32_t& result);

/// A paper of the user's library, which needs a name.
struct NamedPaperRequest {
    DialogMode mode = DialogMode::Add;
    JobContext context = JobContext::Job;
    /// Whether another paper of the library has the name; asked in the main thread.
    std::function<bool(const std::string& name)> isTaken;
};

/// @param replaces  set when the user wants it to take the place of the paper that has its name
OSStatus RunModalNamedPaperStockSelection(const CFBundle& bundle, Gtk::Window* parent,
                                          const NamedPaperRequest& request, Stock& stock,
                                          std::int32_t& result, bool& replaces);

} // namespace tarvo
