#include "records/StockMenu.h"

#include "records/StockDialogs.h"
#include "support/EchoBundle.h"
#include "support/StockText.h"

#include <gtest/gtest.h>

#include <functional>

namespace tarvo {
namespace {

using Names = std::vector<std::string>;

constexpr auto Job = JobContext::Job;
constexpr auto Page = JobContext::Insert;

// Gives every question the edit and then the answer.
class ScriptedDialogs : public StockDialogs {
public:
    bool answer = true;
    std::function<void(Stock&)> edit = [](Stock&) {};
    std::string name = "Typed";
    std::string asked; // the last question

    bool askCustomSize(std::int32_t& width, std::int32_t& length) override
    {
        asked = "size " + std::to_string(width) + "x" + std::to_string(length);
        width = 30000;
        length = 20000;
        return answer;
    }
    bool askCustomColor(JobContext, Stock& stock) override { return ask("color", stock); }
    bool askCustomType(JobContext, Stock& stock) override { return ask("type", stock); }
    bool askOrderedStock(JobContext, Stock& stock) override { return ask("ordered", stock); }
    bool askPrecutTabs(JobContext, Stock& stock) override { return ask("tabs", stock); }
    bool askDescription(JobContext, Stock& stock) override { return ask("description", stock); }
    bool askAdvancedSelection(JobContext, Stock& stock) override { return ask("advanced", stock); }
    bool askPaperName(std::string& proposed) override
    {
        asked = "name " + proposed;
        proposed = name;
        return answer;
    }
    LibraryAnswer libraryAnswer = LibraryAnswer::Chosen;
    LibraryAnswer askStockLibrary(JobContext, Stock& stock) override
    {
        ask("library", stock);
        return libraryAnswer;
    }

private:
    bool ask(const char* question, Stock& stock)
    {
        asked = question;
        edit(stock);
        return answer;
    }
};

// A library of one paper, "A", a transparency that says it is blue.
class OnePaper : public NamedPapers {
public:
    bool isCleared = false;

    std::optional<Stock> use(std::string_view uuid) override
    {
        if (uuid != "A") {
            return std::nullopt;
        }
        return StockOf("Type=2 Color=2 CustomName=Foil");
    }
    void clearRecentlyUsed() override { isCleared = true; }
};

// One stock menu of a job with all that it may ask.
struct Desk {
    ScriptedDialogs dialogs;
    OnePaper papers;
    StockMenuEffect choose(const MenuItem& item, Stock& stock)
    {
        return StockMenuCommandEventHandler(item, Job, stock, dialogs, papers);
    }
};

MenuItem Choice(std::uint32_t command, std::int32_t value = 0, const char* reference = "")
{
    MenuItem item;
    item.command = command;
    item.value = value;
    item.reference = reference;
    return item;
}

// Keys of the items, "*" behind those that are checked.
std::vector<std::string> Texts(const Menu& menu)
{
    std::vector<std::string> texts;
    for (const MenuItem& item : menu) {
        texts.push_back(item.text + (item.isChecked ? "*" : ""));
    }
    return texts;
}

std::string CheckedText(const MenuItem& item)
{
    std::string checked;
    for (const MenuItem& each : item.submenu) {
        checked += each.isChecked ? each.text : "";
    }
    return checked;
}

const CFBundle& Bundle()
{
    static const CFBundle bundle =
        EchoBundle({"Default Stock", "UseJobSetting", "StockLibrary", "StockSize", "StockColor",
                    "StockType", "StockPunched", "StockAdvanced...", "A4StockSize",
                    "StockColorBlue", "StockPunchedYes", "PrinterDefault", "Empty"});
    return bundle;
}

TEST(StockMenu, OffersTheSizeToPagesOnly)
{
    EXPECT_EQ(Texts(PopulateStockMenu(Bundle(), Page, Stock(), {})),
              (Names{"<UseJobSetting>*", "<StockLibrary>", "-", "<StockSize>", "<StockColor>",
                     "<StockType>", "<StockPunched>", "-", "<StockAdvanced...>"}));
    Stock stock;
    EXPECT_EQ(Texts(PopulateStockMenu(Bundle(), Job, stock, {})),
              (Names{"<Default Stock>", "<StockLibrary>", "-", "<StockColor>", "<StockType>",
                     "<StockPunched>", "-", "<StockAdvanced...>"}));
    DefaultStock(stock, Job);
    EXPECT_TRUE(PopulateStockMenu(Bundle(), Job, stock, {})[0].isChecked);
}

TEST(StockMenu, HasItsCommandsAndThoseOfItsSubmenus)
{
    const Menu menu = PopulateStockMenu(Bundle(), Page, Stock(), {});
    for (const auto& [position, command] :
         {std::pair(0U, FourCharCode("Sdef")), std::pair(3U, FourCharCode("Ssiz")),
          std::pair(4U, FourCharCode("Sclr")), std::pair(5U, FourCharCode("Styp")),
          std::pair(6U, FourCharCode("Spun")), std::pair(8U, FourCharCode("Sadv"))}) {
        const MenuItem& item = menu[position];
        EXPECT_EQ(item.submenu.empty() ? item.command : item.submenu.back().command, command);
    }
}

TEST(StockMenu, ChecksWhatTheStockHas)
{
    const NamedPaper papers[] = {
        {"A", "Foil"},
        {"B", "FOIL"}
    };
    Stock stock = StockOf("Size=4 Color=2 Type=9 Punched=2 CustomName=foil");
    Menu menu = PopulateStockMenu(Bundle(), Page, stock, papers);
    EXPECT_FALSE(menu[0].isChecked);
    EXPECT_EQ(CheckedText(menu[1]), "Foil"); // the first of the name
    EXPECT_EQ(CheckedText(menu[3]), "<A4StockSize>");
    EXPECT_EQ(CheckedText(menu[4]), "<StockColorBlue>");
    EXPECT_EQ(CheckedText(menu[5]), ""); // labels are not offered
    EXPECT_EQ(CheckedText(menu[6]), "<StockPunchedYes>");

    stock.setCustomNameOnly(true);
    menu = PopulateStockMenu(Bundle(), Page, stock, papers);
    EXPECT_EQ(CheckedText(menu[1]), "Foil");
    EXPECT_EQ(CheckedText(menu[4]), "");
}

struct CommandCase {
    const char* name;
    MenuItem item;
    const char* asked; // the question; "" for none
    const char* after;
};

// What a command makes of a blue stock that came from a library, dialogs setting the finish.
// clang-format off
const CommandCase CommandCases[] = {
    {"size", Choice(StockCommand::Size, 4), "", "Size=4 Color=2"},
    {"custom size, width first", Choice(StockCommand::Size, 75), "size -2147483648x-2147483648",
        "Size=75 Width=30000 Length=20000 Color=2"},
    {"colour", Choice(StockCommand::Color, 3), "", "Color=3"},
    {"custom colour", Choice(StockCommand::Color, 10), "color", "Color=10 Finish=1"},
    {"type", Choice(StockCommand::Type, 2), "", "Type=2 Color=6"},
    {"custom type", Choice(StockCommand::Type, 7), "type", "Type=7 Color=2 Finish=1"},
    {"ordered", Choice(StockCommand::Type, 6), "ordered", "Type=6 Color=2 Finish=1"},
    {"tabs", Choice(StockCommand::Type, 4), "tabs", "Type=4 Color=2 Finish=1"},
    {"punched", Choice(StockCommand::Punched, 2), "", "Color=2 Punched=2"},
    {"sides", Choice(StockCommand::SidesCoated, 3), "", "Color=2 SidesCoated=3 kCoatingType=1"},
    {"coating of no side", Choice(StockCommand::CoatingType, 3), "", "Color=2"},
    {"finish", Choice(StockCommand::Finish, 3), "", "Color=2 Finish=3"},
    {"grain", Choice(StockCommand::Grain, 2), "", "Color=2 kGrain=2"},
    {"description", Choice(StockCommand::Description, 0), "description", "Color=2 Finish=1"},
    {"advanced", Choice(StockCommand::Advanced), "advanced", "Color=2 Finish=1"},
};
// clang-format on

TEST(StockCommands, ChangeTheStockAndForgetItsName)
{
    const Stock before = StockOf("Color=2 CustomName=N CustomNameOnly=true");
    for (const auto& row : CommandCases) {
        SCOPED_TRACE(row.name);
        Desk desk;
        desk.dialogs.edit = [](Stock& stock) { stock.setFinish(1); };
        Stock stock(before);
        const StockMenuEffect changed = {StatusOk, true, false};
        EXPECT_EQ(desk.choose(row.item, stock), changed);
        EXPECT_EQ(StockText(stock), row.after);
        EXPECT_EQ(desk.dialogs.asked, row.asked);
        if (!desk.dialogs.asked.empty()) { // Cancel keeps even the name
            desk.dialogs.answer = false;
            stock = Stock(before);
            EXPECT_EQ(desk.choose(row.item, stock), StockMenuEffect());
            EXPECT_EQ(StockText(stock), StockText(before));
        }
    }
}

TEST(StockCommands, KeepOrClearWhatBelongsToAnotherChoice)
{
    Desk desk;
    Stock stock =
        StockOf("Type=6 CustomType=NCR Modulus=3 Color=10 CustomColor=Teal Description=d");
    desk.choose(Choice(StockCommand::Type, 1), stock);
    desk.choose(Choice(StockCommand::Color, 2), stock);
    desk.choose(Choice(StockCommand::Description, UnsetValue), stock);
    EXPECT_EQ(StockText(stock), "Type=1 CustomType=NCR Modulus=3 Color=2");
    desk.choose(Choice(StockCommand::Default), stock);
    EXPECT_EQ(StockText(stock), "Punched=1");
    EXPECT_EQ(desk.choose(Choice(FourCharCode("Eplx"), 2), stock).status, -9874);
    EXPECT_EQ(desk.dialogs.asked, "");
}

TEST(StockCommands, LeaveWhatADialogLeaves)
{
    Desk desk;
    Stock foil = StockOf("Type=2 Color=2");
    desk.choose(Choice(StockCommand::Advanced), foil);
    EXPECT_EQ(StockText(foil), "Type=2 Color=2") << "of a ticket, and OK alone was pressed";
}

TEST(StockCommands, TakeANameThatNoLibraryHas)
{
    Desk desk;
    Stock stock = StockOf("Color=2 CustomName=Old");
    const MenuItem item = Choice(StockCommand::PaperName);
    for (const bool isCancelled : {true, false}) { // an empty name is as good as Cancel
        desk.dialogs.answer = !isCancelled;
        desk.dialogs.name = isCancelled ? "Typed" : "";
        EXPECT_EQ(desk.choose(item, stock), StockMenuEffect());
        EXPECT_EQ(StockText(stock), "Color=2 CustomName=Old");
    }
    EXPECT_EQ(desk.dialogs.asked, "name Old");
    desk.dialogs.name = "Typed";
    EXPECT_TRUE(desk.choose(item, stock).changesStock);
    EXPECT_EQ(StockText(stock), "Color=2 CustomName=Typed CustomNameOnly=true");
}

TEST(StockCommands, TakeAPaperThroughTheSetters)
{
    Desk desk;
    Stock stock;
    const StockMenuEffect both = {StatusOk, true, true};
    const StockMenuEffect papersOnly = {StatusOk, false, true};
    EXPECT_EQ(desk.choose(Choice(NamedPaperCommand, 0, "gone"), stock), papersOnly);
    EXPECT_EQ(stock, Stock());
    EXPECT_EQ(desk.choose(Choice(NamedPaperCommand, 0, "A"), stock), both);
    EXPECT_EQ(StockText(stock), "Type=2 Color=6 CustomName=Foil");
    EXPECT_EQ(desk.choose(Choice(StockCommand::ClearRecentlyUsed), stock), papersOnly);
    EXPECT_TRUE(desk.papers.isCleared);
}

struct LibraryCase {
    const char* name;
    LibraryAnswer answer;
    const char* after;
};

constexpr LibraryCase LibraryCases[] = {
    {"as it stands there",           LibraryAnswer::Chosen,    "Type=2 Color=2 CustomName=New"},
    {"cancelled",                    LibraryAnswer::Cancelled, "Color=2 CustomName=Old"       },
    {"cancelled, its paper deleted", LibraryAnswer::PaperLost, "Punched=1"                    },
};

TEST(StockCommands, OpenTheLibraryAndKeepWhatIsStillThere)
{
    for (const auto& row : LibraryCases) {
        SCOPED_TRACE(row.name);
        Desk desk;
        desk.dialogs.libraryAnswer = row.answer;
        desk.dialogs.edit = [](Stock& stock) {
            stock.takeAsItIs(StockOf("Type=2 Color=2 CustomName=New"));
        };
        Stock stock = StockOf("Color=2 CustomName=Old");
        EXPECT_TRUE(desk.choose(Choice(StockCommand::OpenLibrary), stock).changesPapers);
        EXPECT_EQ(StockText(stock), row.after);
    }
}

} // namespace
} // namespace tarvo
