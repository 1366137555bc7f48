#include "records/StockMenu.h"

#include "records/Stock.h"
#include "records/StockDialogs.h"
#include "settings/StockMaps.h"
#include "support/EchoBundle.h"

#include <gmock/gmock.h>

#include <functional>

namespace tarvo {
namespace {

using ::testing::ElementsAre;

constexpr auto Job = JobContext::Job;
constexpr auto Page = JobContext::Insert;

// What was asked, in order; each question gets the answer and, before it, the edit.
class ScriptedDialogs : public StockDialogs {
public:
    bool answer = true;
    std::function<void(Stock&)> edit = [](Stock&) {};
    std::string name = "Typed";
    std::vector<std::string> asked;

    bool askCustomSize(std::int32_t& width, std::int32_t& length) override
    {
        asked.push_back("size " + std::to_string(width) + "x" + std::to_string(length));
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
        asked.push_back("name " + proposed);
        proposed = name;
        return answer;
    }
    bool askStockLibrary(JobContext, Stock& stock) override { return ask("library", stock); }

private:
    bool ask(const char* question, Stock& stock)
    {
        asked.emplace_back(question);
        edit(stock);
        return answer;
    }
};

// A library of one paper, "A", a transparency that says it is blue.
class OnePaper : public NamedPapers {
public:
    bool isMatching = false;
    bool isCleared = false;

    bool haveMatch(const Stock&) override { return isMatching; }
    std::optional<Stock> use(std::string_view uuid) override
    {
        CFDictionary ticket;
        ticket.set("Type", 2);
        ticket.set("Color", 2);
        ticket.set("CustomName", "Foil");
        return uuid == "A" ? std::optional<Stock>(Stock(ticket)) : std::nullopt;
    }
    void clearRecentlyUsed() override { isCleared = true; }
};

MenuItem Choice(std::uint32_t command, std::int32_t value = 0, const char* reference = "")
{
    MenuItem item;
    item.command = command;
    item.value = value;
    item.reference = reference;
    return item;
}

CFDictionary TicketOf(std::vector<CFDictionary::Entry> entries)
{
    return CFDictionary(std::move(entries));
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
    std::string texts;
    for (const MenuItem& each : item.submenu) {
        texts += each.isChecked ? each.text : "";
    }
    return texts;
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
    EXPECT_THAT(Texts(PopulateStockMenu(Bundle(), Page, Stock(), {})),
                ElementsAre("<UseJobSetting>*", "<StockLibrary>", "-", "<StockSize>",
                            "<StockColor>", "<StockType>", "<StockPunched>", "-",
                            "<StockAdvanced...>"));
    Stock stock;
    EXPECT_THAT(Texts(PopulateStockMenu(Bundle(), Job, stock, {})),
                ElementsAre("<Default Stock>", "<StockLibrary>", "-", "<StockColor>", "<StockType>",
                            "<StockPunched>", "-", "<StockAdvanced...>"));
    DefaultStock(stock, Job);
    EXPECT_TRUE(PopulateStockMenu(Bundle(), Job, stock, {})[0].isChecked);
}

TEST(StockMenu, EveryItemHasTheCommandThatTheHandlerKnows)
{
    const NamedPaper papers[] = {
        {"A", "Foil"}
    };
    std::size_t items = 0;
    const std::function<void(const Menu&)> choose = [&](const Menu& menu) {
        for (const MenuItem& item : menu) {
            choose(item.submenu);
            if (item.submenu.empty() && !item.isSeparator()) {
                Stock stock;
                ScriptedDialogs dialogs;
                OnePaper library;
                const auto effect =
                    StockMenuCommandEventHandler(item, Page, stock, dialogs, library);
                EXPECT_EQ(effect.status, StatusOk) << item.text << item.command;
                ++items;
            }
        }
    };
    choose(PopulateStockMenu(Bundle(), Page, Stock(), papers));
    EXPECT_EQ(items, 2U + 4 + 12 + 14 + 9 + 3);
}

TEST(StockMenu, ChecksWhatTheStockHas)
{
    const NamedPaper papers[] = {
        {"A", "Foil"},
        {"B", "FOIL"}
    };
    Stock stock(TicketOf({
        {"Size",    4},
        {"Color",   2},
        {"Type",    9},
        {"Punched", 2}
    }));
    stock.setCustomName("foil");
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
    std::vector<CFDictionary::Entry> after;
};

// What a command makes of a blue stock that came from a library, with the dialog naming things X.
// clang-format off
const CommandCase CommandCases[] = {
    {"size", Choice(StockCommand::Size, 4), "", {{"Size", 4}, {"Color", 2}}},
    {"custom size, width first", Choice(StockCommand::Size, 75), "size -2147483648x-2147483648",
        {{"Size", 75}, {"Width", 30000}, {"Length", 20000}, {"Color", 2}}},
    {"color", Choice(StockCommand::Color, 3), "", {{"Color", 3}}},
    {"custom color", Choice(StockCommand::Color, 10), "color", {{"Color", 10}, {"Description", "X"}}},
    {"type", Choice(StockCommand::Type, 2), "", {{"Type", 2}, {"Color", 6}}},
    {"custom type", Choice(StockCommand::Type, 7), "type",
        {{"Type", 7}, {"Color", 2}, {"Description", "X"}}},
    {"ordered", Choice(StockCommand::Type, 6), "ordered",
        {{"Type", 6}, {"Color", 2}, {"Description", "X"}}},
    {"tabs", Choice(StockCommand::Type, 4), "tabs",
        {{"Type", 4}, {"Color", 2}, {"Description", "X"}}},
    {"punched", Choice(StockCommand::Punched, 2), "", {{"Color", 2}, {"Punched", 2}}},
    {"sides", Choice(StockCommand::SidesCoated, 3), "",
        {{"Color", 2}, {"SidesCoated", 3}, {"kCoatingType", 1}}},
    {"coating of no side", Choice(StockCommand::CoatingType, 3), "", {{"Color", 2}}},
    {"finish", Choice(StockCommand::Finish, 3), "", {{"Color", 2}, {"Finish", 3}}},
    {"grain", Choice(StockCommand::Grain, 2), "", {{"Color", 2}, {"kGrain", 2}}},
    {"description", Choice(StockCommand::Description, 0), "description",
        {{"Color", 2}, {"Description", "X"}}},
    {"advanced", Choice(StockCommand::Advanced), "advanced", {{"Color", 2}, {"Description", "X"}}},
};
// clang-format on

TEST(StockCommands, ChangeTheStockAndForgetItsName)
{
    OnePaper library;
    for (const auto& row : CommandCases) {
        SCOPED_TRACE(row.name);
        ScriptedDialogs dialogs;
        dialogs.edit = [](Stock& stock) { stock.setDescription("X"); };
        const Stock before(TicketOf({
            {"Color",          2   },
            {"CustomName",     "N" },
            {"CustomNameOnly", true}
        }));
        Stock stock(before);
        const StockMenuEffect changed = {StatusOk, true, false};
        EXPECT_EQ(StockMenuCommandEventHandler(row.item, Page, stock, dialogs, library), changed);
        EXPECT_EQ(stock.asTicket(), TicketOf(row.after));
        ASSERT_EQ(dialogs.asked.size(), *row.asked == '\0' ? 0U : 1U);
        if (dialogs.asked.empty()) {
            continue;
        }
        EXPECT_EQ(dialogs.asked.front(), row.asked);
        // Cancel keeps everything, even the name and what the dialog had tried.
        dialogs.answer = false;
        stock = Stock(before);
        EXPECT_EQ(StockMenuCommandEventHandler(row.item, Page, stock, dialogs, library),
                  StockMenuEffect());
        EXPECT_EQ(stock.asTicket(), before.asTicket());
    }
}

TEST(StockCommands, KeepOrClearWhatBelongsToAnotherChoice)
{
    OnePaper library;
    ScriptedDialogs dialogs;
    const auto choose = [&](Stock& stock, const MenuItem& item) {
        return StockMenuCommandEventHandler(item, Job, stock, dialogs, library).status;
    };
    Stock stock(TicketOf({
        {"Type",        6     },
        {"CustomType",  "NCR" },
        {"Modulus",     3     },
        {"Color",       10    },
        {"CustomColor", "Teal"},
        {"Description", "d"   }
    }));
    choose(stock, Choice(StockCommand::Type, 1));
    choose(stock, Choice(StockCommand::Color, 2));
    choose(stock, Choice(StockCommand::Description, UnsetValue));
    EXPECT_EQ(stock.asTicket(),
              TicketOf({
                  {"Type",       1    },
                  {"CustomType", "NCR"},
                  {"Modulus",    3    },
                  {"Color",      2    }
    }));
    choose(stock, Choice(StockCommand::Default));
    EXPECT_EQ(stock.asTicket(), TicketOf({
                                    {"Punched", 1}
    }));
    EXPECT_EQ(choose(stock, Choice(FourCharCode("Eplx"), 2)), -9874);
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST(StockCommands, TakeANameThatNoLibraryHas)
{
    OnePaper library;
    ScriptedDialogs dialogs;
    Stock stock(TicketOf({
        {"Color",      2    },
        {"CustomName", "Old"}
    }));
    const MenuItem item = Choice(StockCommand::PaperName);
    for (const bool isCancelled : {true, false}) { // an empty name is as good as Cancel
        dialogs.answer = !isCancelled;
        dialogs.name = isCancelled ? "Typed" : "";
        EXPECT_EQ(StockMenuCommandEventHandler(item, Job, stock, dialogs, library),
                  StockMenuEffect());
        EXPECT_EQ(stock.asTicket(), TicketOf({
                                        {"Color",      2    },
                                        {"CustomName", "Old"}
        }));
    }
    dialogs.name = "Typed";
    EXPECT_TRUE(StockMenuCommandEventHandler(item, Job, stock, dialogs, library).changesStock);
    EXPECT_EQ(stock.asTicket(),
              TicketOf({
                  {"Color",          2      },
                  {"CustomName",     "Typed"},
                  {"CustomNameOnly", true   }
    }));
    EXPECT_EQ(dialogs.asked.back(), "name Old");
}

TEST(StockCommands, TakeAPaperThroughTheSetters)
{
    OnePaper library;
    ScriptedDialogs dialogs;
    Stock stock;
    const StockMenuEffect both = {StatusOk, true, true};
    const StockMenuEffect papersOnly = {StatusOk, false, true};
    EXPECT_EQ(StockMenuCommandEventHandler(Choice(NamedPaperCommand, 0, "gone"), Job, stock,
                                           dialogs, library),
              papersOnly);
    EXPECT_EQ(stock, Stock());
    EXPECT_EQ(StockMenuCommandEventHandler(Choice(NamedPaperCommand, 0, "A"), Job, stock, dialogs,
                                           library),
              both);
    EXPECT_EQ(stock.asTicket(), TicketOf({
                                    {"Type",       2     },
                                    {"Color",      6     },
                                    {"CustomName", "Foil"}
    }));
    EXPECT_EQ(StockMenuCommandEventHandler(Choice(StockCommand::ClearRecentlyUsed), Job, stock,
                                           dialogs, library),
              papersOnly);
    EXPECT_TRUE(library.isCleared);
}

struct LibraryCase {
    const char* name;
    bool isOk;
    bool isMatching;
    const char* formerName;
    const char* chosenName;
    std::vector<CFDictionary::Entry> after;
};

// clang-format off
const LibraryCase LibraryCases[] = {
    {"a paper of the library",        true,  true,  "",    "New", {{"Type", 2}, {"Color", 6}, {"CustomName", "New"}}},
    {"a paper that has just gone",    true,  false, "",    "New", {{"Punched", 1}}},
    {"never a paper, none chosen",    false, false, "",    "New", {{"Color", 2}}},
    {"never a paper, a nameless one", true,  false, "",    "",    {{"Type", 2}, {"Color", 6}}},
    {"cancelled, its paper deleted",  false, false, "Old", "New", {{"Punched", 1}}},
    {"cancelled, its paper there",    false, true,  "Old", "New", {{"Color", 2}, {"CustomName", "Old"}}},
};
// clang-format on

TEST(StockCommands, OpenTheLibraryAndKeepWhatNeverCameFromIt)
{
    for (const auto& row : LibraryCases) {
        SCOPED_TRACE(row.name);
        OnePaper library;
        library.isMatching = row.isMatching;
        ScriptedDialogs dialogs;
        dialogs.answer = row.isOk;
        dialogs.edit = [&row](Stock& stock) {
            stock = Stock(TicketOf({
                {"Type",  2},
                {"Color", 2}
            }));
            stock.setCustomName(row.chosenName);
        };
        Stock stock(TicketOf({
            {"Color",      2             },
            {"CustomName", row.formerName}
        }));
        const auto effect = StockMenuCommandEventHandler(Choice(StockCommand::OpenLibrary), Job,
                                                         stock, dialogs, library);
        EXPECT_TRUE(effect.changesPapers);
        EXPECT_EQ(stock.asTicket(), TicketOf(row.after));
    }
}

} // namespace
} // namespace tarvo
