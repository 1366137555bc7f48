#include "stocklibrary/StockLibraryList.h"

#include "platform/text/CaseFolding.h"
#include "prefs/PreferenceFolderFixture.h"
#include "stocklibrary/StockLibraryTestSupport.h"

#include <gmock/gmock.h>

#include <random>

namespace tarvo {
namespace {

// Papers of so few kinds that many are equal, some by case only, some invalid.
class PaperSource {
public:
    explicit PaperSource(unsigned seed) : random_(seed) {}

    int below(int end) { return std::uniform_int_distribution(0, end - 1)(random_); }
    StockLibrary paper()
    {
        static constexpr const char* Names[] = {"", "Stra\u00DFe", "STRASSE", "Blue"};
        static constexpr std::int32_t Colors[] = {UnsetValue, 1, 14};
        StockLibrary paper;
        paper.stock().setCustomName(Names[below(4)]);
        paper.stock().setColor(Colors[below(3)]);
        paper.stock().setCoatingType(1 + below(2)); // not stored without the sides
        paper.stock().setSidesCoated(below(2) == 0 ? UnsetValue : 2);
        paper.setName(Names[below(4)]);
        return paper;
    }

private:
    std::mt19937 random_;
};

// What the searches must find, by walking everything.
std::string WalkForStock(const StockLibraryList& list, const Stock& stock)
{
    for (const auto& each : list.stockList()) {
        if (list.entry(each.key)->stock() == stock) {
            return each.key;
        }
    }
    return "none";
}

std::string WalkForName(const StockLibraryList& list, const std::string& name)
{
    for (const auto& each : list.stockList()) {
        const auto entry = list.entry(each.key);
        if (!name.empty() && EqualIgnoringCase(entry->stock().customName(), name)) {
            return each.key;
        }
    }
    return "none";
}

void ChangeSomehow(StockLibraryList& list, PaperSource& source)
{
    StockLibrary paper = source.paper();
    const auto size = static_cast<int>(list.stockList().size());
    const int row = source.below(size + 1);
    const std::string uuid = row == size ? "new" : (list.stockList().begin() + row)->key;
    switch (source.below(6)) {
    case 0:
        list.update(uuid, paper);
        break;
    case 1:
        list.replace(paper);
        break;
    case 2:
        list.remove(uuid);
        break;
    case 3:
        list.setInUse(uuid);
        break;
    default:
        list.add(paper);
        break;
    }
}

using StockLibraryListTest = PreferenceFolderFixture;

TEST_F(StockLibraryListTest, FindsWhatAWalkFindsAndIsInTheFileAtOnce)
{
    for (unsigned seed = 0; seed < 4; ++seed) {
        PaperSource source(seed);
        StockLibraryList list(folders_);
        for (int step = 0; step < 100; ++step) {
            SCOPED_TRACE(std::to_string(seed) + "." + std::to_string(step));
            ChangeSomehow(list, source);
            const StockLibrary paper = source.paper();
            const std::string* match = list.findMatch(paper.stock());
            ASSERT_EQ(match == nullptr ? "none" : *match, WalkForStock(list, paper.stock()));
            const std::string& name = paper.stock().customName();
            ASSERT_EQ(list.isDuplicate(name), WalkForName(list, name) != "none");
            ASSERT_EQ(ReadUserStockList(folders_)->stockList(), list.stockList());
        }
    }
}

TEST(StockLibraryListInMemory, ReplacesTheFirstStockOfTheNameAlone)
{
    StockLibraryList list;
    StockLibrary papers[] = {Paper(""), Paper("Stra\u00DFe"), Paper("STRASSE")};
    for (StockLibrary& paper : papers) {
        list.add(paper);
    }
    list.setInUse(papers[1].uuid());
    list.replace(Paper("strasse", 2));
    list.replace(Paper("", 2));
    list.replace(Paper("other", 2));
    EXPECT_EQ(list.entry(papers[0].uuid()), papers[0]);
    EXPECT_EQ(list.entry(papers[2].uuid()), papers[2]);
    const auto replaced = list.entry(papers[1].uuid());
    EXPECT_EQ(replaced->stock().color(), 2);
    EXPECT_EQ(replaced->name(), papers[1].name());
    EXPECT_EQ(replaced->status(), 1);
    EXPECT_EQ(list.stockList().size(), 3U);
}

TEST(StockLibraryListInMemory, MarksEveryValidPaper)
{
    StockLibraryList list;
    StockLibrary valid = Paper("valid");
    StockLibrary invalid = Paper("invalid", 14);
    list.add(valid);
    list.add(invalid);
    list.setInUse(invalid.uuid());
    EXPECT_EQ(list.entry(invalid.uuid())->status(), 2); // whenever it is read
    list.setInUse(valid.uuid());
    list.clearStatus();
    EXPECT_EQ(list.entry(valid.uuid())->status(), 0);
    EXPECT_EQ(list.stockList().get<CFDictionary>(invalid.uuid())->int32("EntryStatus"), 1);
    list.setInUse("gone");
    list.setNotInUse(valid.uuid());
    EXPECT_EQ(list.stockList().size(), 2U);
}

TEST(StockLibraryListInMemory, FindsAPaperOfThePrinter)
{
    const std::vector<Stock> stocks = {Paper("A").stock(), Paper("B", 2).stock(), Stock()};
    const auto list = MakePrinterStockLibraryList(stocks);
    ASSERT_EQ(list->stockList().size(), 3U);
    const std::string* uuid = list->findMatch(Paper("b", 2).stock());
    ASSERT_NE(uuid, nullptr);
    EXPECT_EQ(list->entry(*uuid)->name(), "B");
    EXPECT_EQ(list->entry(*uuid)->uuid(), *uuid);
    EXPECT_NE(MakePrinterStockLibraryList(stocks)->stockList().begin()->key,
              list->stockList().begin()->key);
}

} // namespace
} // namespace tarvo
