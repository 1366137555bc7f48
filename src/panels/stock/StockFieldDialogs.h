#pragma once

#include "platform/printing/PMStatus.h"

#include <gtkmm/window.h>

#include <cstdint>
#include <string>

namespace tarvo {

class CFBundle;
class Stock;

// Dialogs that ask for one attribute of a stock. Each sets it on DialogOk and leaves everything as
// it was on DialogCancel; the parent may be null. Each returns StatusNoWindow, as if it had been
// cancelled, when it cannot be shown.

OSStatus RunModalCustomStockColorSetup(const CFBundle& bundle, Gtk::Window* parent, Stock& stock,
                                       std::int32_t& result);
OSStatus RunModalCustomStockTypeSetup(const CFBundle& bundle, Gtk::Window* parent, Stock& stock,
                                      std::int32_t& result);
OSStatus RunModalOrderedStockSetup(const CFBundle& bundle, Gtk::Window* parent, Stock& stock,
                                   std::int32_t& result);
OSStatus RunModalPreCutTabStockSetup(const CFBundle& bundle, Gtk::Window* parent, Stock& stock,
                                     std::int32_t& result);
OSStatus RunModalStockDescriptionSetup(const CFBundle& bundle, Gtk::Window* parent, Stock& stock,
                                       std::int32_t& result);
/// The name of a paper, never "" on DialogOk.
OSStatus RunModalStockNameSetup(const CFBundle& bundle, Gtk::Window* parent, std::string& name,
                                std::int32_t& result);

} // namespace tarvo
