#include "records/StockSizes.h"

#include "records/Stock.h"
#include "settings/StockMaps.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

struct MediaCase {
    const char* name;
    std::int32_t x;
    std::int32_t y;
    std::int32_t size;
};

constexpr MediaCase MediaCases[] = {
    {"Letter of the table",            21600,      27900,      1         },
    {"a printer's Letter",             21590,      27940,      UnsetValue},
    {"Legal is as wide as Letter",     21600,      35600,      1         },
    {"A4, other way round",            29700,      21000,      4         },
    {"A5 is as long as A4 is wide",    14800,      21000,      4         },
    {"only a length of the table",     1,          45700,      UnsetValue},
    {"width in the second measure",    1,          10200,      59        },
    {"last row but one",               16200,      26200,      20        },
    {"no measure",                     0,          0,          75        },
    {"one measure missing",            29700,      0,          5         },
    {"both unset, as the default row", UnsetValue, UnsetValue, UnsetValue},
};

TEST(SizeForStockDimensions, IsThatOfTheFirstRowOfEitherWidth)
{
    for (const auto& row : MediaCases) {
        EXPECT_EQ(GetSizeForStockDimensions(row.x, row.y), row.size) << row.name;
    }
}

// A row is lost to printers when an earlier one is as wide as it is wide or long.
TEST(SizeForStockDimensions, MissesJustTheRowsThatAnEarlierWidthHides)
{
    int others = 0;
    for (const auto* row = CompleteStockSizeMap; row->key != nullptr; ++row) {
        others += GetSizeForStockDimensions(row->width, row->length) != row->value;
    }
    EXPECT_EQ(others, 39);
}

TEST(StockDimensions, AreTheTablesOrTheStocksOwn)
{
    Stock stock;
    EXPECT_EQ(GetStockDimensions(stock), std::nullopt);
    stock.setSize(4);
    EXPECT_EQ(GetStockDimensions(stock), (StockDimensions{21000, 29700}));
    stock.setSize(6); // without a row
    EXPECT_EQ(GetStockDimensions(stock), std::nullopt);
    stock.setWidth(30000);
    EXPECT_EQ(GetStockDimensions(stock), std::nullopt);
    stock.setLength(20000);
    EXPECT_EQ(GetStockDimensions(stock), (StockDimensions{30000, 20000}));
}

} // namespace
} // namespace tarvo
