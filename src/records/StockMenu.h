#pragma once

#include "platform/printing/PMStatus.h"
#include "settings/JobContext.h"
#include "settings/Menu.h"
#include "settings/SettingMenu.h"

#include <cstdint>
#include <span>

namespace tarvo {

class CFBundle;
class NamedPapers;
class Stock;
class StockDialogs;

/// The commands of the stock menu and of the pop-ups that choose one attribute. Those of the named
/// papers stand in StockLibraryMap, and NamedPaperCommand.
namespace StockCommand {
inline constexpr std::uint32_t Default = FourCharCode("Sdef");
inline constexpr std::uint32_t Size = FourCharCode("Ssiz");
inline constexpr std::uint32_t Color = FourCharCode("Sclr");
inline constexpr std::uint32_t Type = FourCharCode("Styp");
inline constexpr std::uint32_t Punched = FourCharCode("Spun");
inline constexpr std::uint32_t SidesCoated = FourCharCode("Scoa");
inline constexpr std::uint32_t CoatingType = FourCharCode("Scty");
inline constexpr std::uint32_t Finish = FourCharCode("Sfin");
inline constexpr std::uint32_t Grain = FourCharCode("Sgrn");
inline constexpr std::uint32_t Description = FourCharCode("Sdsc");
inline constexpr std::uint32_t Advanced = FourCharCode("Sadv");
inline constexpr std::uint32_t OpenLibrary = FourCharCode("Slib");
inline constexpr std::uint32_t PaperName = FourCharCode("SlCn");
inline constexpr std::uint32_t ClearRecentlyUsed = FourCharCode("SlCl");
} // namespace StockCommand

// Menus of one attribute, in place of what the menu had.
void PopulateStockSizeMenu(const CFBundle& bundle, Menu& menu, JobContext context);
void PopulateStockColorMenu(const CFBundle& bundle, Menu& menu, JobContext context);
void PopulateStockTypeMenu(const CFBundle& bundle, Menu& menu, JobContext context);

/// The menu from which a stock is chosen. Checked are the stock's own attributes unless its name
/// alone tells it, the paper that it is named after, and the default when the stock is just that.
/// A job has no size to choose: it is the page's.
/// @param papers  for the library's submenu, the most recently used first
Menu PopulateStockMenu(const CFBundle& bundle, JobContext context, const Stock& stock,
                       std::span<const NamedPaper> papers);

/// What is left to do for whoever shows the menu.
struct StockMenuEffect {
    OSStatus status = StatusOk; // StatusEventNotHandled for a command of others
    bool changesStock = false;  // show the summary and the stock's control again
    bool changesPapers = false; // make the library's submenu anew
    bool operator==(const StockMenuEffect&) const = default;
};

/// Does what an item of the stock menu, or of a pop-up for one attribute, says. A dialog that is
/// left with Cancel leaves the stock as it was. Any change of an attribute ends the link to a named
/// paper.
/// @param item  its command, its value and, for a named paper, its reference
StockMenuEffect StockMenuCommandEventHandler(const MenuItem& item, JobContext context, Stock& stock,
                                             StockDialogs& dialogs, NamedPapers& papers);

} // namespace tarvo
