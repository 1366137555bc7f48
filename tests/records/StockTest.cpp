#include "records/Stock.h"

#include "support/StockText.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

// Every attribute at once, in the order in which they are written.
constexpr const char* FullStock =
    "Size=75 Width=21590 Length=27940 Type=6 CustomType=Carbonless Modulus=3 Color=10 "
    "CustomColor=Teal Weight=75 Punched=2 Description=Drawer SidesCoated=3 kCoatingType=5 Finish=1 "
    "kGrain=2 CustomName=Order CustomNameOnly=true CustomComment=May";

struct TicketCase {
    const char* name;
    const char* read;
    const char* written;
};

constexpr TicketCase TicketCases[] = {
    {"everything",                    FullStock,                             FullStock                         },
    {"a custom size with nothing",    "Size=75",                             "Size=75 Width=unset Length=unset"},
    {"modulus of the printer's tabs", "Type=24 Modulus=5",                   "Type=24"                         },
    {"a blue transparency",           "Type=2 Color=2",                      "Type=2 Color=2"                  },
    {"measures of another size",      "Size=4 Width=1 Length=2",             "Size=4"                          },
    {"measures alone",                "Width=1 Length=2",                    ""                                },
    {"modulus of full-cut tabs",      "Type=5 Modulus=5",                    "Type=5"                          },
    {"coating without sides",         "kCoatingType=5",                      ""                                },
    {"sides without a coating",       "SidesCoated=2",                       "SidesCoated=2 kCoatingType=1"    },
    {"false, and an empty text",      "CustomNameOnly=false Description=",   ""                                },
    {"numbers as texts",              "Size=x Type=x Color=x SidesCoated=x", ""                                },
    {"texts as numbers",              "CustomType=1 CustomName=1",           ""                                },
    {"a number as truth",             "CustomNameOnly=1 Punched=true",       ""                                },
};

TEST(StockTicket, IsReadAsItStandsWhereItCounts)
{
    for (const auto& row : TicketCases) {
        EXPECT_EQ(StockText(StockOf(row.read)), row.written) << row.name;
    }
}

struct SetterCase {
    const char* name;
    void (*change)(Stock& stock);
    const char* written;
};

// clang-format off
constexpr SetterCase SetterCases[] = {
    {"a width makes the size custom", [](Stock& stock) { stock.setWidth(1); },
        "Size=75 Width=1 Length=unset"},
    {"a length too", [](Stock& stock) { stock.setLength(1); }, "Size=75 Width=unset Length=1"},
    {"an unset width does not", [](Stock& stock) { stock.setWidth(UnsetValue); }, ""},
    {"another size forgets the measures",
        [](Stock& stock) { stock.setWidth(1), stock.setSize(4), stock.setSize(75); },
        "Size=75 Width=unset Length=unset"},
    {"a transparency is clear", [](Stock& stock) { stock.setColor(2), stock.setType(2); },
        "Type=2 Color=6"},
    {"a coating that nobody knows",
        [](Stock& stock) { stock.setSidesCoated(1), stock.setCoatingType(UnsetValue); },
        "SidesCoated=1 kCoatingType=unset"},
};
// clang-format on

TEST(StockSetters, KeepTheRulesAmongAttributes)
{
    for (const auto& row : SetterCases) {
        Stock stock;
        row.change(stock);
        EXPECT_EQ(StockText(stock), row.written) << row.name;
    }
}

TEST(StockAssignment, PassesThroughTheSettersWhereCopyingDoesNot)
{
    const Stock blue = StockOf("Type=2 Color=2");
    EXPECT_EQ(Stock(blue).color(), 2);
    Stock assigned = StockOf(FullStock);
    assigned = blue;
    EXPECT_EQ(StockText(assigned), "Type=2 Color=6");
    EXPECT_EQ(assigned.width(), UnsetValue);
    const Stock full = StockOf(FullStock);
    assigned = full;
    EXPECT_EQ(StockText(assigned), FullStock);

    assigned = StockOf("Type=2 Color=2");
    EXPECT_EQ(assigned.color(), ClearStockColor);
    assigned.takeAsItIs(blue);
    EXPECT_EQ(assigned.color(), 2);
}

TEST(StockEquality, SeesEveryAttributeAndNoCase)
{
    const CFDictionary ticket = StockTicket(FullStock);
    for (const auto& [key, value] : ticket) {
        CFDictionary other = ticket;
        if (const auto* text = value.get<std::string>()) {
            std::string folded = *text;
            folded.front() = static_cast<char>(folded.front() ^ 0x20);
            other.set(key, folded);
            EXPECT_EQ(Stock(other), Stock(ticket)) << key;
            other.set(key, folded + ".");
        } else {
            other.set(key, key == "CustomNameOnly" ? CFPropertyList(false) : CFPropertyList(4));
        }
        EXPECT_FALSE(Stock(other) == Stock(ticket)) << key;
    }
    EXPECT_FALSE(StockOf("Size=1") == StockOf("Size=2"));
    EXPECT_FALSE(StockOf("Type=1") == StockOf("Type=2"));
}

TEST(DefaultStock, KeepsWhatNoMenuShows)
{
    const std::string kept = "SidesCoated=3 kCoatingType=5 Finish=1 kGrain=2 CustomComment=May";
    Stock stock = StockOf(FullStock);
    DefaultStock(stock, JobContext::Job);
    EXPECT_EQ(StockText(stock), "Punched=1 " + kept);
    DefaultStock(stock, JobContext::Cover);
    EXPECT_EQ(StockText(stock), kept);
}

} // namespace
} // namespace tarvo
