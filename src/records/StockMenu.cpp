#include "records/StockMenu.h"

#include "platform/bundle/CFBundle.h"
#include "platform/text/CaseFolding.h"
#include "records/Stock.h"
#include "records/StockDialogs.h"
#include "settings/StockMaps.h"

#include <algorithm>
#include <utility>

namespace tarvo {
namespace {

constexpr StockMenuEffect NothingDone;
constexpr StockMenuEffect StockChanged = {StatusOk, true, false};

MenuItem Item(const CFBundle& bundle, const char* key, std::uint32_t command, Menu submenu = {})
{
    MenuItem item;
    item.text = bundle.localizedString(key);
    item.command = command;
    item.submenu = std::move(submenu);
    return item;
}

MenuItem Separator()
{
    MenuItem item;
    item.text = "-";
    return item;
}

void ReplaceMenu(const CFBundle& bundle, Menu& menu, const SettingMap* map, JobContext context,
                 std::uint32_t command)
{
    menu.clear();
    PopulateMenuFromMap(bundle, menu, map, context, command);
}

bool IsDefaultStock(const Stock& stock, JobContext context)
{
    Stock plain(stock);
    DefaultStock(plain, context);
    return plain == stock;
}

// Checks the first paper of the stock's name; two libraries may have one each.
void CheckNamedPaper(Menu& menu, const std::string& name)
{
    const auto item = std::find_if(menu.begin(), menu.end(), [&name](const MenuItem& each) {
        return each.command == NamedPaperCommand && EqualIgnoringCase(each.text, name);
    });
    if (!name.empty() && item != menu.end()) {
        item->isChecked = true;
    }
}

// The submenu of one attribute, with the stock's own value checked.
MenuItem AttributeItem(const CFBundle& bundle, const char* key, Menu submenu, const Stock& stock,
                       std::int32_t value)
{
    if (!stock.customNameOnly()) {
        CheckMenuItemWithValue(submenu, value);
    }
    return Item(bundle, key, 0, std::move(submenu));
}

void AppendAttributes(const CFBundle& bundle, Menu& menu, JobContext context, const Stock& stock)
{
    Menu submenu;
    if (context != JobContext::Job) {
        PopulateStockSizeMenu(bundle, submenu, context);
        menu.push_back(AttributeItem(bundle, "StockSize", submenu, stock, stock.size()));
    }
    PopulateStockColorMenu(bundle, submenu, context);
    menu.push_back(AttributeItem(bundle, "StockColor", submenu, stock, stock.color()));
    PopulateStockTypeMenu(bundle, submenu, context);
    menu.push_back(AttributeItem(bundle, "StockType", submenu, stock, stock.type()));
    ReplaceMenu(bundle, submenu, StockPunchedMap, context, StockCommand::Punched);
    menu.push_back(AttributeItem(bundle, "StockPunched", submenu, stock, stock.punched()));
}

// One question and what a positive answer leaves of the stock. Dialogs get a copy, so that Cancel
// keeps the stock whatever was tried in them.
using StockQuestion = bool (StockDialogs::*)(JobContext, Stock&);

bool Ask(StockDialogs& dialogs, StockQuestion question, JobContext context, Stock& stock)
{
    Stock edited(stock);
    if (!(dialogs.*question)(context, edited)) {
        return false;
    }
    stock.takeAsItIs(std::move(edited)); // a dialog changes nothing that the user did not
    return true;
}

bool ChooseSize(std::int32_t value, Stock& stock, StockDialogs& dialogs)
{
    if (value != CustomStockSize) {
        stock.setSize(value);
        return true;
    }
    std::int32_t width = stock.width();
    std::int32_t length = stock.length();
    if (!dialogs.askCustomSize(width, length)) {
        return false;
    }
    stock.setSize(CustomStockSize);
    stock.setWidth(width);
    stock.setLength(length);
    return true;
}

bool ChooseColor(std::int32_t value, JobContext context, Stock& stock, StockDialogs& dialogs)
{
    if (value != CustomStockColor) {
        stock.setCustomColor("");
    } else if (!Ask(dialogs, &StockDialogs::askCustomColor, context, stock)) {
        return false;
    }
    stock.setColor(value);
    return true;
}

// @return null for a type that asks nothing
StockQuestion QuestionOfType(std::int32_t type)
{
    switch (type) {
    case OrderedStockType:
        return &StockDialogs::askOrderedStock;
    case CustomStockType:
        return &StockDialogs::askCustomType;
    case PrecutTabStockType:
        return &StockDialogs::askPrecutTabs;
    default:
        return nullptr;
    }
}

// The custom type and the modulus of the former type stay: choosing it again finds them.
bool ChooseType(std::int32_t value, JobContext context, Stock& stock, StockDialogs& dialogs)
{
    const StockQuestion question = QuestionOfType(value);
    if (question != nullptr && !Ask(dialogs, question, context, stock)) {
        return false;
    }
    stock.setType(value);
    return true;
}

bool ChooseDescription(std::int32_t value, JobContext context, Stock& stock, StockDialogs& dialogs)
{
    if (value == UnsetValue) { // else "Custom...", whose value is 0
        stock.setDescription("");
        return true;
    }
    return Ask(dialogs, &StockDialogs::askDescription, context, stock);
}

// A choice of one attribute, or of all in one dialog.
// @return whether anything was chosen; nullopt for a command of others
std::optional<bool> ChooseAttribute(const MenuItem& item, JobContext context, Stock& stock,
                                    StockDialogs& dialogs)
{
    switch (item.command) {
    case StockCommand::Size:
        return ChooseSize(item.value, stock, dialogs);
    case StockCommand::Color:
        return ChooseColor(item.value, context, stock, dialogs);
    case StockCommand::Type:
        return ChooseType(item.value, context, stock, dialogs);
    case StockCommand::Description:
        return ChooseDescription(item.value, context, stock, dialogs);
    case StockCommand::Advanced:
        return Ask(dialogs, &StockDialogs::askAdvancedSelection, context, stock);
    case StockCommand::Punched:
        stock.setPunched(item.value);
        return true;
    case StockCommand::SidesCoated:
        stock.setSidesCoated(item.value);
        return true;
    case StockCommand::CoatingType:
        stock.setCoatingType(item.value);
        return true;
    case StockCommand::Finish:
        stock.setFinish(item.value);
        return true;
    case StockCommand::Grain:
        stock.setGrain(item.value);
        return true;
    default:
        return std::nullopt;
    }
}

StockMenuEffect AskPaperName(Stock& stock, StockDialogs& dialogs)
{
    std::string name = stock.customName();
    if (!dialogs.askPaperName(name) || name.empty()) {
        return NothingDone;
    }
    stock.setCustomName(std::move(name));
    stock.setCustomNameOnly(true);
    return StockChanged;
}

// The library may have lost the stock's paper even when the dialog was cancelled. A stock whose
// paper was in none has nothing to lose: the printer may not have told its papers yet.
StockMenuEffect OpenStockLibrary(JobContext context, Stock& stock, StockDialogs& dialogs)
{
    Stock chosen(stock);
    switch (dialogs.askStockLibrary(context, chosen)) {
    case LibraryAnswer::Chosen:
        stock.takeAsItIs(std::move(chosen));
        break;
    case LibraryAnswer::PaperLost:
        DefaultStock(stock, context);
        break;
    case LibraryAnswer::Cancelled:
        break;
    }
    return {StatusOk, true, true};
}

StockMenuEffect UseNamedPaper(const std::string& uuid, Stock& stock, NamedPapers& papers)
{
    const std::optional<Stock> paper = papers.use(uuid);
    if (!paper) {
        return {StatusOk, false, true}; // it is gone: the menu is behind
    }
    stock = *paper; // through the setters
    return {StatusOk, true, true};
}

} // namespace

void PopulateStockSizeMenu(const CFBundle& bundle, Menu& menu, JobContext context)
{
    ReplaceMenu(bundle, menu, StockSizeMap, context, StockCommand::Size);
}

void PopulateStockColorMenu(const CFBundle& bundle, Menu& menu, JobContext context)
{
    ReplaceMenu(bundle, menu, StockColorMap, context, StockCommand::Color);
}

void PopulateStockTypeMenu(const CFBundle& bundle, Menu& menu, JobContext context)
{
    ReplaceMenu(bundle, menu, StockTypeMap, context, StockCommand::Type);
}

Menu PopulateStockMenu(const CFBundle& bundle, JobContext context, const Stock& stock,
                       std::span<const NamedPaper> papers)
{
    const bool isForJob = context == JobContext::Job;
    Menu library;
    PopulateMenuFromMapAndFile(bundle, library, StockLibraryMap, papers);
    CheckNamedPaper(library, stock.customName());

    Menu menu;
    menu.push_back(
        Item(bundle, isForJob ? "Default Stock" : "UseJobSetting", StockCommand::Default));
    menu.back().isChecked = IsDefaultStock(stock, context);
    menu.push_back(Item(bundle, "StockLibrary", 0, std::move(library)));
    menu.push_back(Separator());
    AppendAttributes(bundle, menu, context, stock);
    menu.push_back(Separator());
    menu.push_back(Item(bundle, "StockAdvanced...", StockCommand::Advanced));
    return menu;
}

StockMenuEffect StockMenuCommandEventHandler(const MenuItem& item, JobContext context, Stock& stock,
                                             StockDialogs& dialogs, NamedPapers& papers)
{
    switch (item.command) {
    case StockCommand::Default:
        DefaultStock(stock, context);
        return StockChanged;
    case StockCommand::OpenLibrary:
        return OpenStockLibrary(context, stock, dialogs);
    case StockCommand::PaperName:
        return AskPaperName(stock, dialogs);
    case StockCommand::ClearRecentlyUsed:
        papers.clearRecentlyUsed();
        return {StatusOk, false, true};
    case NamedPaperCommand:
        return UseNamedPaper(item.reference, stock, papers);
    default:
        break;
    }
    const std::optional<bool> isChosen = ChooseAttribute(item, context, stock, dialogs);
    if (!isChosen) {
        return {StatusEventNotHandled, false, false};
    }
    if (!*isChosen) {
        return NothingDone;
    }
    stock.setCustomName("");
    stock.setCustomNameOnly(false);
    return StockChanged;
}

} // namespace tarvo
