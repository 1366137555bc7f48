// The list of papers beside a plain model of it.
#include "stocklibrary/StockLibraryList.h"

#include "platform/text/CaseFolding.h"
#include "prefs/PreferenceFolderFixture.h"
#include "stocklibrary/StockLibraryTestSupport.h"

#include <gmock/gmock.h>

#include <random>

namespace tarvo {
namespace {

// The same operations by walking everything.
class Model {
public:
    using Row = std::pair<std::string, CFDictionary>;

    std::vector<Row> rows;

    Row* find(const std::string& uuid)
    {
        const auto row = std::find_if(rows.begin(), rows.end(),
                                      [&uuid](const Row& each) { return each.first == uuid; });
        return row == rows.end() ? nullptr : &*row;
    }
    void set(const std::string& uuid, const StockLibrary& entry)
    {
        if (Row* row = find(uuid)) {
            row->second = entry.asTicket();
        } else {
            rows.emplace_back(uuid, entry.asTicket());
        }
    }
    Row* named(const std::string& name)
    {
        for (Row& row : rows) {
            const std::string own = StockLibrary(row.second).stock().customName();
            if (!name.empty() && EqualIgnoringCase(own, name)) {
                return &row;
            }
        }
        return nullptr;
    }
    void replace(const StockLibrary& entry)
    {
        if (Row* row = named(entry.stock().customName())) {
            StockLibrary changed(row->second);
            changed.setStock(entry.stock());
            row->second = changed.asTicket();
        }
    }
    std::string match(const Stock& stock)
    {
        for (const Row& row : rows) {
            if (StockLibrary(row.second).stock() == stock) {
                return row.first;
            }
        }
        return "none";
    }
    void setStatus(const std::string& uuid, StockEntryStatus status)
    {
        if (Row* row = find(uuid)) {
            StockLibrary changed(row->second);
            changed.setStatus(status);
            row->second = changed.asTicket();
        }
    }
    void clearStatus()
    {
        for (Row& row : rows) {
            if (StockLibrary(row.second).status() != 2) {
                setStatus(row.first, StockEntryStatus::NotInUse);
            }
        }
    }
};

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

class ListAndModel {
public:
    ListAndModel(StockLibraryList& list, unsigned seed) : list_(list), source_(seed) {}

    void step()
    {
        StockLibrary paper = source_.paper();
        const std::string uuid = someUuid();
        switch (source_.below(8)) {
        case 0:
        case 1:
            model_.set(list_.add(paper), paper);
            break;
        case 2:
            list_.update(uuid, paper);
            model_.set(uuid, paper);
            break;
        case 3:
            list_.replace(paper);
            model_.replace(paper);
            break;
        case 4:
            list_.remove(uuid);
            std::erase_if(model_.rows, [&uuid](const auto& row) { return row.first == uuid; });
            break;
        case 5:
            list_.setInUse(uuid);
            model_.setStatus(uuid, StockEntryStatus::InUse);
            break;
        case 6:
            list_.setNotInUse(uuid);
            model_.setStatus(uuid, StockEntryStatus::NotInUse);
            break;
        default:
            list_.clearStatus();
            model_.clearStatus();
            break;
        }
    }
    void compare()
    {
        std::vector<Model::Row> rows;
        for (const auto& each : list_.stockList()) {
            rows.emplace_back(each.key, *each.value.get<CFDictionary>());
        }
        ASSERT_EQ(rows, model_.rows);
        const StockLibrary paper = source_.paper();
        const std::string* match = list_.findMatch(paper.stock());
        ASSERT_EQ(match == nullptr ? "none" : *match, model_.match(paper.stock()));
        const std::string& name = paper.stock().customName();
        ASSERT_EQ(list_.isDuplicate(name), model_.named(name) != nullptr);
    }

private:
    std::string someUuid()
    {
        const int row = source_.below(static_cast<int>(model_.rows.size()) + 1);
        return row == 0 ? "new" : model_.rows[static_cast<std::size_t>(row) - 1].first;
    }

    StockLibraryList& list_;
    PaperSource source_;
    Model model_;
};

using StockLibraryListTest = PreferenceFolderFixture;

TEST_F(StockLibraryListTest, InMemoryDoesWhatThePlainModelDoes)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        SCOPED_TRACE(seed);
        StockLibraryList list;
        ListAndModel both(list, seed);
        for (int step = 0; step < 200; ++step) {
            both.step();
            ASSERT_NO_FATAL_FAILURE(both.compare());
        }
    }
    EXPECT_FALSE(std::filesystem::exists(folders_.user));
}

TEST_F(StockLibraryListTest, OfTheUserDoesTheSameAndIsInTheFileAtOnce)
{
    StockLibraryList list(folders_);
    ListAndModel both(list, 1);
    for (int step = 0; step < 200; ++step) {
        both.step();
        ASSERT_NO_FATAL_FAILURE(both.compare());
        const StockLibraryList again(folders_);
        ASSERT_EQ(again.stockList(), list.stockList());
    }
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
