#include "stocklibrary/PrinterMedia.h"

#include "records/StockKeys.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

using Text = std::optional<std::string>;

PrinterMedium MediumOfType(const char* type)
{
    PrinterMedium medium;
    medium.type = type;
    return medium;
}

CFDictionary Ticket(std::initializer_list<std::pair<const char*, CFPropertyList>> entries)
{
    CFDictionary ticket;
    for (const auto& [key, value] : entries) {
        ticket.set(key, value);
    }
    return ticket;
}

TEST(PrinterMedium, BecomesAStockWithEverythingThatItTells)
{
    PrinterMedium medium;
    medium.key = "Gloss";
    medium.description = "for covers";
    medium.color = "Cream";
    medium.type = "Company-Letter";
    medium.frontCoating = "Glossy";
    medium.backCoating = "none";
    medium.info = "second drawer";
    medium.holeCount = 3;
    medium.weight = 170;
    medium.width = 21600;
    medium.length = 35600;
    const Stock stock = StockOfMedium(medium);
    EXPECT_EQ(stock.asTicket(), Ticket({
                                    {"Size",          1               }, // the first row that is as wide
                                    {"Type",          7               },
                                    {"CustomType",    "Company-Letter"},
                                    {"Color",         10              },
                                    {"CustomColor",   "Cream"         },
                                    {"Weight",        170             },
                                    {"Punched",       2               },
                                    {"Description",   "for covers"    },
                                    {"SidesCoated",   2               },
                                    {"kCoatingType",  1               },
                                    {"CustomName",    "Gloss"         },
                                    {"CustomComment", "second drawer" },
    }));
}

TEST(PrinterMedium, LeavesUnsetWhatItDoesNotTell)
{
    Stock nothing;
    nothing.setCoatingType(UnsetValue); // told by every medium, unlike a new stock's
    EXPECT_EQ(StockOfMedium(PrinterMedium()), nothing);

    PrinterMedium medium;
    medium.weight = 0;
    medium.width = 21000; // without a length
    EXPECT_EQ(StockOfMedium(medium), nothing);
    medium.length = -1;
    EXPECT_EQ(StockOfMedium(medium).size(), 4);
    medium.width = -1;
    EXPECT_EQ(StockOfMedium(medium).size(), UnsetValue);
}

// clang-format off
constexpr struct TypeCase {
    const char* type;
    const char* prePrinted; // null: absent
    const char* recycled;
    int orderCount;         // 0: absent
    int value;
    const char* customType;
    int modulus;            // 0: unset
} Types[] = {
    {"stationery",    "pre-printed", "none",     5, 1,  "",         0},
    {"TRANSPARENCY",  nullptr,       nullptr,    0, 2,  "",         0},
    {"tab-stock",     nullptr,       nullptr,    5, 24, "",         0},
    {"pre-cut-tabs",  nullptr,       nullptr,    5, 4,  "",         5},
    {"pre-cut-tabs",  nullptr,       nullptr,    0, 4,  "",         0},
    {"custom7",       nullptr,       nullptr,    0, 21, "",         0},
    {"own",           "Pre-Printed", "standard", 5, 3,  "",         0},
    {"own",           "letter-head", nullptr,    0, 14, "",         0},
    {"recycled",      "blank",       "standard", 0, 10, "",         0},
    {"recycled",      nullptr,       "none",     5, 10, "",         0},
    {"recycled",      nullptr,       nullptr,    0, 7,  "recycled", 0},
    {"own",           "blank",       "other",    5, 6,  "",         5},
};
// clang-format on

TEST(PrinterMedium, HasATypeByItsNameOrByWhatElseItTells)
{
    for (const auto& row : Types) {
        SCOPED_TRACE(row.type);
        PrinterMedium medium = MediumOfType(row.type);
        medium.prePrinted = row.prePrinted == nullptr ? Text() : row.prePrinted;
        medium.recycled = row.recycled == nullptr ? Text() : row.recycled;
        if (row.orderCount != 0) {
            medium.orderCount = row.orderCount;
        }
        const Stock stock = StockOfMedium(medium);
        EXPECT_EQ(stock.type(), row.value);
        EXPECT_EQ(stock.customType(), row.customType);
        EXPECT_EQ(stock.modulus(), row.modulus == 0 ? UnsetValue : row.modulus);
    }
}

TEST(PrinterMedium, HasAColorByName)
{
    const std::pair<const char*, int> cases[] = {
        {"white",    1 },
        {"No-Color", 6 },
        {"gray",     12},
        {"other",    14},
        {"custom1",  15},
        {"custom7",  21},
        {"custom8",  10},
        {"",         10}
    };
    for (const auto& [name, value] : cases) {
        EXPECT_EQ(convertTPIFColorToIndex(name), value) << name;
    }
    PrinterMedium medium = MediumOfType("transparency");
    medium.color = "red";
    EXPECT_EQ(StockOfMedium(medium).color(), ClearStockColor);
}

TEST(PrinterMedium, IsPunchedByItsHoles)
{
    const std::pair<int, int> cases[] = {
        {0, 1         },
        {1, UnsetValue},
        {2, 2         },
        {4, 2         },
        {5, UnsetValue}
    };
    for (const auto& [holes, value] : cases) {
        PrinterMedium medium;
        medium.holeCount = holes;
        EXPECT_EQ(StockOfMedium(medium).punched(), value) << holes;
    }
}

constexpr int Same = -7; // what stood there before

// front, back, sides, coating
const std::tuple<Text, Text, int, int> Coatings[] = {
    {Text(),       Text(),       Same, Same      },
    {"None",       "none",       1,    UnsetValue},
    {"Glossy",     "matte",      3,    1         },
    {"high-gloss", "none",       2,    2         },
    {"satin",      Text(),       2,    4         },
    {"none",       "matte",      2,    5         },
    {Text(),       "semi-gloss", 2,    3         },
    {"waxed",      Text(),       2,    UnsetValue},
    {"none",       Text(),       Same, Same      },
    {Text(),       "none",       Same, Same      },
};

TEST(PrinterMedium, IsCoatedOnTheSidesThatItTells)
{
    for (const auto& [front, back, sides, coating] : Coatings) {
        SCOPED_TRACE(front.value_or("-") + " " + back.value_or("-"));
        std::int32_t sidesCoated = Same;
        std::int32_t coatingType = Same;
        convertTPIFSidesCoatedAndCoatingType(front, back, sidesCoated, coatingType);
        EXPECT_EQ(sidesCoated, sides);
        EXPECT_EQ(coatingType, coating);
    }
}

TEST(PrinterMedium, IsAnEnvelopeOfTheEnvelopesSizes)
{
    PrinterMedium medium = MediumOfType("envelope");
    medium.width = 22000;
    medium.length = 31200;
    EXPECT_EQ(StockOfMedium(medium).size(), 24); // the first row that is 220 mm wide
    medium.width = 0;
    EXPECT_EQ(StockOfMedium(medium).size(), CustomStockSize);
}

} // namespace
} // namespace tarvo
