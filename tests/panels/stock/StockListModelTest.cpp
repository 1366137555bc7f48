#include "panels/stock/StockListModel.h"

#include "StockFixture.h"
#include "support/Entries.h"

#include <gtk/gtk.h>
#include <gtkmm/treepath.h>

namespace tarvo {
namespace {

using StockListModelTest = StockFixture;

// As a list walks through it.
TEST_F(StockListModelTest, HasARowForEachPaper)
{
    StockLibraryList list;
    std::vector<std::string> uuids;
    for (int number = 0; number < 4; ++number) {
        StockLibrary paper = Paper(std::to_string(number), number == 1 ? 77 : 2);
        uuids.push_back(list.add(paper));
    }
    list.setInUse(uuids[2]);
    auto papers = std::make_shared<CFDictionary>(Entries("no entry", 5));
    for (const auto& each : list.stockList()) {
        papers->set(each.key, each.value);
    }
    const auto model = StockListModel::Create(*bundle_, papers);
    EXPECT_EQ(model->children().size(), 4U);
    int number = 0;
    for (const auto& row : model->children()) {
        Glib::ustring name;
        row.get_value(0, name);
        EXPECT_EQ(name, std::to_string(number));
        bool canBeChosen = false;
        row.get_value(StockListModel::CanBeChosenColumn, canBeChosen);
        EXPECT_EQ(canBeChosen, number != 1) << "a colour that no menu has";
        int weight = 0;
        row.get_value(StockListModel::WeightColumn, weight);
        EXPECT_EQ(weight, number == 2 ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
        EXPECT_TRUE(row.children().empty());
        EXPECT_FALSE(row.parent());
        EXPECT_EQ(model->get_path(row).to_string(), std::to_string(number));
        ++number;
    }
    EXPECT_EQ(number, 4);
    for (const char* path : {"4", "0:0", "2147483647"}) {
        EXPECT_FALSE(model->get_iter(path)) << path;
    }
}

TEST_F(StockListModelTest, ShowsTheBeginningOfALongText)
{
    std::string text;
    for (int character = 0; character < 16'000; ++character) {
        text += "ü";
    }
    auto list = std::make_shared<StockLibraryList>();
    StockLibrary paper = Paper(text);
    list->add(paper);
    const auto model = StockListModel::Create(
        *bundle_, std::shared_ptr<const CFDictionary>(list, &list->stockList()));
    Glib::ustring shown;
    model->children().begin()->get_value(0, shown);
    EXPECT_EQ(shown.size(), 255U);
    EXPECT_EQ(model->paper(0).name(), text);
}

} // namespace
} // namespace tarvo
