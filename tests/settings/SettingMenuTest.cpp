#include "settings/SettingMenu.h"

#include "platform/cf/CFPropertyList.h"
#include "settings/StockMaps.h"
#include "support/EchoBundle.h"

#include <gmock/gmock.h>

namespace tarvo {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> Texts(const Menu& menu)
{
    std::vector<std::string> texts;
    for (const MenuItem& item : menu) {
        texts.push_back(item.text + (item.isChecked ? " *" : ""));
    }
    return texts;
}

TEST(SettingMenu, NamesTheDefaultByWhomItIsFor)
{
    const CFBundle bundle = EchoBundle({"PrinterDefault", "UseJobSetting", "StockPunchedNo"});
    Menu menu;
    EXPECT_EQ(PopulateMenuFromMap(bundle, menu, StockPunchedMap, JobContext::Job), 3);
    EXPECT_THAT(Texts(menu),
                ElementsAre("<StockPunchedNo>", "STRING NOT FOUND", "<PrinterDefault>"));
    CheckMenuItemWithValue(menu, 1);
    EXPECT_EQ(
        PopulateMenuFromMap(bundle, menu, StockPunchedMap, JobContext::Cover, FourCharCode("Spun")),
        3);
    ASSERT_EQ(menu.size(), 6U); // appended
    EXPECT_EQ(menu[0].command, 0U);
    EXPECT_EQ(menu[3].command, FourCharCode("Spun"));
    EXPECT_EQ(menu[5].text, "<UseJobSetting>");
    EXPECT_EQ(menu[5].value, UnsetValue);
}

TEST(SettingMenu, ChecksOneItemAtMost)
{
    const CFBundle bundle = EchoBundle({"PrinterDefault", "Long", "Short"});
    Menu menu;
    PopulateMenuFromMap(bundle, menu, GrainMap, JobContext::Job);
    CheckMenuItemWithValue(menu, 1);
    CheckMenuItemWithValue(menu, 2);
    EXPECT_THAT(Texts(menu), ElementsAre("<PrinterDefault>", "<Long>", "<Short> *"));
    CheckMenuItemWithValue(menu, 7);
    EXPECT_THAT(Texts(menu), ElementsAre("<PrinterDefault>", "<Long>", "<Short>"));
}

TEST(NamedPaperMenu, HasThePapersBehindItsFirstItem)
{
    const CFBundle bundle = EchoBundle(
        {"StockLibraryOpen...", "StockLibraryCustomName...", "StockLibraryClear", "Empty", "-"});
    Menu menu;
    EXPECT_EQ(PopulateMenuFromMapAndFile(bundle, menu, StockLibraryMap, {}), 4);
    EXPECT_THAT(Texts(menu), ElementsAre("<StockLibraryOpen...>", "<Empty>", "-",
                                         "<StockLibraryCustomName...>", "<StockLibraryClear>"));
    EXPECT_FALSE(menu[1].isEnabled);
    EXPECT_TRUE(menu[2].isSeparator());
    EXPECT_EQ(menu[0].command, FourCharCode("Slib"));

    const NamedPaper papers[] = {
        {"B", "Blue"},
        {"A", "-"   }
    };
    EXPECT_EQ(PopulateMenuFromMapAndFile(bundle, menu, StockLibraryMap, papers), 4);
    ASSERT_EQ(menu.size(), 6U); // replaced
    EXPECT_EQ(menu[1].text, "Blue");
    EXPECT_EQ(menu[1].reference, "B");
    EXPECT_EQ(menu[2].reference, "A");
    EXPECT_EQ(menu[2].command, FourCharCode("NPmS"));
    EXPECT_FALSE(menu[2].isSeparator()); // whatever a paper is called
}

} // namespace
} // namespace tarvo
