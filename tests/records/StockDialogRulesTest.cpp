#include "records/StockDialogRules.h"

#include "records/AdvancedStock.h"
#include "settings/StockMaps.h"
#include "support/EchoBundle.h"
#include "support/StockText.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarvo {
namespace {

// The text so many times.
std::string Repeated(int count, const std::string& text)
{
    return count == 0 ? "" : text + Repeated(count - 1, text);
}

TEST(StockNames, AreCutToCharactersAndNeverEmpty)
{
    Stock stock;
    EXPECT_TRUE(EnterCustomColor(stock, Repeated(31, "ü")));
    EXPECT_EQ(stock.customColor(), Repeated(30, "ü"));
    EXPECT_TRUE(EnterOrderedStock(stock, Repeated(30, "€"), 300));
    EXPECT_EQ(stock.customType(), Repeated(30, "€"));
    EXPECT_EQ(stock.modulus(), 254);
    const Stock before(stock);
    EXPECT_FALSE(EnterCustomColor(stock, " \n"));
    EXPECT_FALSE(EnterCustomType(stock, ""));
    EXPECT_FALSE(EnterOrderedStock(stock, "", 3));
    EXPECT_EQ(StockText(stock), StockText(before));
    EnterDescription(stock, Repeated(256, "x"));
    EXPECT_EQ(stock.description(), Repeated(255, "x"));
    EnterPaperName(stock, Repeated(256, "ü"));
    EXPECT_EQ(stock.customName(), Repeated(255, "ü"));
    EnterPaperName(stock, " \tGloss\r\nbrochure ü\x7f ");
    EXPECT_EQ(stock.customName(), "Gloss  brochure ü");
}

TEST(StockModulus, StartsAtAProposalWithinItsRange)
{
    EXPECT_EQ(SpinValue(OrderedModulusRange, UnsetValue), 5);
    EXPECT_EQ(SpinValue(OrderedModulusRange, 0), 0);
    EXPECT_EQ(SpinValue(TabModulusRange, UnsetValue), 3);
    EXPECT_EQ(SpinValue(TabModulusRange, 0), 1);
    EXPECT_EQ(SpinValue(TabModulusRange, 255), 254);
}

struct WeightCase {
    const char* name;
    std::int32_t stored;
    std::int32_t shown;  // by the spin at first
    std::int32_t turned; // what it says afterwards
    std::int32_t kept;
};

constexpr WeightCase WeightCases[] = {
    {"turned",               90,         90,  91,  91        },
    {"left alone beyond",    229,        200, 200, 229       },
    {"turned from beyond",   229,        200, 199, 199       },
    {"typed out of range",   90,         90,  500, 200       },
    {"the printer's choice", UnsetValue, 75,  80,  UnsetValue},
};

TEST(StockWeight, IsKeptUntilTheSpinTurns)
{
    for (const auto& row : WeightCases) {
        SCOPED_TRACE(row.name);
        Stock stock;
        stock.setWeight(row.stored);
        EXPECT_EQ(SpinValue(StockWeightRange, stock.weight()), row.shown);
        EnterWeight(stock, row.turned);
        EXPECT_EQ(stock.weight(), row.kept);
    }
}

TEST(StockWeight, IsProposedWhenTheDefaultIsLeft)
{
    Stock stock;
    ChooseDefaultWeight(stock, false);
    EXPECT_EQ(stock.weight(), 75);
    stock.setWeight(229);
    ChooseDefaultWeight(stock, false);
    EXPECT_EQ(stock.weight(), 229);
    ChooseDefaultWeight(stock, true);
    EXPECT_EQ(stock.weight(), UnsetValue);
}

TEST(NamedPaper, NeedsANameAndAsksBeforeItReplaces)
{
    using enum NamedPaperContext;
    using enum NamedPaperCheck;
    Stock stock;
    EXPECT_EQ(CheckNamedPaper(StockMenu, stock, true, true), Save);
    EXPECT_EQ(CheckNamedPaper(StockLibrary, stock, false, false), NameMissing);
    EnterPaperName(stock, "100%@");
    EXPECT_EQ(CheckNamedPaper(StockLibrary, stock, true, true), AskToReplace);
    EXPECT_EQ(CheckNamedPaper(StockLibrary, stock, true, false), Save);
    EXPECT_EQ(CheckNamedPaper(StockLibrary, stock, false, true), Save);
    const CFBundle bundle(TARVO_BINARY_DIR "/no bundle", {});
    EXPECT_EQ(ReplaceNamedPaperText(bundle, stock.customName()), "STRING NOT FOUND");
}

std::int32_t CheckedPosition(const Menu& menu)
{
    const auto item =
        std::find_if(menu.begin(), menu.end(), [](const MenuItem& each) { return each.isChecked; });
    return item == menu.end() ? -1 : static_cast<std::int32_t>(item - menu.begin()) + 1;
}

TEST(AdvancedStock, ShowsWhatTheStockIs)
{
    const CFBundle bundle = EchoBundle({"PrinterDefault", "UseJobSetting"});
    Stock stock = StockOf("Size=4 Type=2 Color=6 Punched=2 Description=d");
    AdvancedStockMenus menus = MakeAdvancedStockMenus(bundle, JobContext::Cover, stock);
    EXPECT_TRUE(menus.isSizeEnabled);
    EXPECT_EQ(CheckedPosition(menus.size), 7);
    EXPECT_EQ(CheckedPosition(menus.color), TicketToUI(StockColorMap, 6));
    EXPECT_EQ(CheckedPosition(menus.type), 3);
    EXPECT_EQ(CheckedPosition(menus.punched), 2);
    EXPECT_EQ(CheckedPosition(menus.description), 2);
    EXPECT_EQ(menus.description[0].text, "<UseJobSetting>");

    stock.setType(9); // labels are not offered
    stock.setDescription("");
    menus = MakeAdvancedStockMenus(bundle, JobContext::Job, stock);
    EXPECT_FALSE(menus.isSizeEnabled);
    EXPECT_EQ(CheckedPosition(menus.size), -1);
    EXPECT_EQ(CheckedPosition(menus.type), -1);
    EXPECT_EQ(CheckedPosition(menus.description), 1);
}

TEST(AdvancedStock, RevertsWhatItShowsButAJobsSize)
{
    Stock stock = StockOf("Size=4 Type=4 Modulus=4 Color=10 CustomColor=x Weight=90 Description=x "
                          "Finish=1 CustomName=x CustomComment=x");
    const std::string left = "Modulus=4 CustomColor=x Punched=1 Finish=1 CustomName=x";
    RevertAdvancedStock(stock, JobContext::Job);
    EXPECT_EQ(StockText(stock), "Size=4 " + left);
    RevertAdvancedStock(stock, JobContext::Insert);
    EXPECT_EQ(StockText(stock), left);
}

} // namespace
} // namespace tarvo
