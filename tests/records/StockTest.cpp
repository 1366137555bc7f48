#include "records/Stock.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace tarvo {
namespace {

// Every attribute at once, with the keys spelt out: a round trip alone cannot see a misspelt key.
CFDictionary FullTicket()
{
    CFDictionary ticket;
    ticket.set("Size", 75);
    ticket.set("Width", 21590);
    ticket.set("Length", 27940);
    ticket.set("Type", 6);
    ticket.set("CustomType", "Carbonless");
    ticket.set("Modulus", 3);
    ticket.set("Color", 10);
    ticket.set("CustomColor", "Teal");
    ticket.set("Weight", 75);
    ticket.set("Punched", 2);
    ticket.set("Description", "Top drawer");
    ticket.set("SidesCoated", 3);
    ticket.set("kCoatingType", 5);
    ticket.set("Finish", 1);
    ticket.set("kGrain", 2);
    ticket.set("CustomName", "Order form");
    ticket.set("CustomNameOnly", true);
    ticket.set("CustomComment", "reorder in May");
    return ticket;
}

CFDictionary TicketOf(std::vector<CFDictionary::Entry> entries)
{
    return CFDictionary(std::move(entries));
}

TEST(StockTicket, HasTheDriversKeysInTheirOrder)
{
    const CFDictionary ticket = FullTicket();
    const CFDictionary written = Stock(ticket).asTicket();
    EXPECT_EQ(written, ticket);
    for (auto left = written.begin(), right = ticket.begin(); left != written.end();
         ++left, ++right) {
        EXPECT_EQ(left->key, right->key);
    }
    EXPECT_TRUE(Stock().asTicket().empty());
}

TEST(StockTicket, AnyOtherTypeKeepsTheDefault)
{
    CFDictionary ticket;
    for (const auto& [key, value] : FullTicket()) {
        const bool isText = value.get<std::string>() != nullptr;
        ticket.set(key, isText ? CFPropertyList(1) : CFPropertyList("1"));
    }
    EXPECT_TRUE(Stock(ticket).asTicket().empty());
    EXPECT_EQ(Stock(ticket), Stock());
}

struct TicketCase {
    const char* name;
    std::vector<CFDictionary::Entry> read;
    std::vector<CFDictionary::Entry> written;
};

// clang-format off
const TicketCase TicketCases[] = {
    {"a custom size writes what it lacks",
        {{"Size", 75}},
        {{"Size", 75}, {"Width", UnsetValue}, {"Length", UnsetValue}}},
    {"measures of another size", {{"Size", 4}, {"Width", 1}, {"Length", 2}}, {{"Size", 4}}},
    {"modulus of pre-cut tabs", {{"Type", 4}, {"Modulus", 5}}, {{"Type", 4}, {"Modulus", 5}}},
    {"modulus of full-cut tabs", {{"Type", 5}, {"Modulus", 5}}, {{"Type", 5}}},
    {"modulus of the printer's tabs", {{"Type", 24}, {"Modulus", 5}}, {{"Type", 24}}},
    {"modulus without a type", {{"Modulus", 5}}, {}},
    {"coating without sides", {{"kCoatingType", 5}}, {}},
    {"sides without a coating", {{"SidesCoated", 2}}, {{"SidesCoated", 2}, {"kCoatingType", 1}}},
    {"a colour that no transparency has", {{"Type", 2}, {"Color", 2}}, {{"Type", 2}, {"Color", 2}}},
    {"name only false, texts empty",
        {{"CustomNameOnly", false}, {"CustomName", ""}, {"Description", ""}}, {}},
};
// clang-format on

TEST(StockTicket, IsReadAsItStandsWhereItCounts)
{
    for (const auto& row : TicketCases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Stock(TicketOf(row.read)).asTicket(), TicketOf(row.written));
    }
}

struct SetterCase {
    const char* name;
    std::function<void(Stock&)> change;
    std::vector<CFDictionary::Entry> written;
};

// clang-format off
const SetterCase SetterCases[] = {
    {"a width makes the size custom", [](Stock& stock) { stock.setWidth(100); },
        {{"Size", 75}, {"Width", 100}, {"Length", UnsetValue}}},
    {"a length too", [](Stock& stock) { stock.setSize(4); stock.setLength(100); },
        {{"Size", 75}, {"Width", UnsetValue}, {"Length", 100}}},
    {"no width makes nothing", [](Stock& stock) { stock.setSize(4); stock.setWidth(UnsetValue); },
        {{"Size", 4}}},
    {"another size forgets the measures",
        [](Stock& stock) { stock.setWidth(1); stock.setLength(2); stock.setSize(4); stock.setSize(75); },
        {{"Size", 75}, {"Width", UnsetValue}, {"Length", UnsetValue}}},
    {"a transparency is clear", [](Stock& stock) { stock.setColor(2); stock.setType(2); },
        {{"Type", 2}, {"Color", 6}}},
    {"no other type is", [](Stock& stock) { stock.setColor(2); stock.setType(10); },
        {{"Type", 10}, {"Color", 2}}},
    {"a coating that nobody knows",
        [](Stock& stock) { stock.setSidesCoated(1); stock.setCoatingType(UnsetValue); },
        {{"SidesCoated", 1}, {"kCoatingType", UnsetValue}}},
};
// clang-format on

TEST(StockSetters, KeepTheRulesAmongAttributes)
{
    for (const auto& row : SetterCases) {
        SCOPED_TRACE(row.name);
        Stock stock;
        row.change(stock);
        EXPECT_EQ(stock.asTicket(), TicketOf(row.written));
    }
}

TEST(StockAssignment, PassesThroughTheSettersWhereCopyingDoesNot)
{
    const Stock blue(TicketOf({
        {"Type",  2},
        {"Color", 2}
    }));
    EXPECT_EQ(Stock(blue).color(), 2);
    Stock assigned;
    assigned = blue;
    EXPECT_EQ(assigned.color(), 6);

    // What lists do with their stocks leaves them as they are.
    std::vector<Stock> list = {Stock(), blue};
    list.erase(list.begin());
    EXPECT_EQ(list.front().color(), 2);
    std::swap(assigned, list.front());
    EXPECT_EQ(assigned.color(), 2);
}

TEST(StockAssignment, TakesEverythingAndLeavesNothing)
{
    const Stock full(FullTicket());
    Stock stock;
    stock = full;
    EXPECT_EQ(stock.asTicket(), FullTicket());
    const Stock& itself = stock;
    stock = itself;
    EXPECT_EQ(stock.asTicket(), FullTicket());
    const Stock empty;
    stock = empty;
    EXPECT_EQ(stock, Stock());
    EXPECT_EQ(stock.width(), UnsetValue);
}

TEST(StockEquality, SeesEveryAttribute)
{
    const CFDictionary ticket = FullTicket();
    for (const auto& [key, value] : ticket) {
        CFDictionary other = ticket;
        if (const auto* text = value.get<std::string>()) {
            other.set(key, *text + ".");
        } else {
            other.set(key, key == "CustomNameOnly" ? CFPropertyList(false) : CFPropertyList(4));
        }
        EXPECT_FALSE(Stock(other) == Stock(ticket)) << key;
    }
    EXPECT_FALSE(Stock(TicketOf({
                     {"Size", 1}
    })) == Stock(TicketOf({{"Size", 2}})));
    EXPECT_FALSE(Stock(TicketOf({
                     {"Type", 1}
    })) == Stock(TicketOf({{"Type", 2}})));
}

TEST(StockEquality, IgnoresCaseInEveryText)
{
    CFDictionary ticket = FullTicket();
    for (const char* key :
         {"CustomType", "CustomColor", "Description", "CustomName", "CustomComment"}) {
        std::string text = *ticket.get<std::string>(key);
        text.front() = static_cast<char>(text.front() ^ 0x20);
        ticket.set(key, text);
    }
    EXPECT_EQ(Stock(ticket), Stock(FullTicket()));
}

TEST(DefaultStock, KeepsWhatNoMenuShows)
{
    Stock stock(FullTicket());
    DefaultStock(stock, JobContext::Job);
    CFDictionary kept = TicketOf({
        {"Punched",       1               },
        {"SidesCoated",   3               },
        {"kCoatingType",  5               },
        {"Finish",        1               },
        {"kGrain",        2               },
        {"CustomComment", "reorder in May"}
    });
    EXPECT_EQ(stock.asTicket(), kept);
    EXPECT_EQ(stock.width(), UnsetValue);
    DefaultStock(stock, JobContext::Cover);
    kept.remove("Punched");
    EXPECT_EQ(stock.asTicket(), kept);
}

// Any dictionary with the record's keys, most values being of the right type.
CFDictionary RandomTicket(std::mt19937& random)
{
    const std::int32_t numbers[] = {UnsetValue, 0, 1, 2, 3, 4, 6, 7, 10, 24, 33, 75, 2147483647};
    const char* texts[] = {"", "a", "A", "Größe, \"x\"", "\xF0\x9F\x93\x84"};
    CFDictionary ticket;
    for (const auto& [key, value] : FullTicket()) {
        switch (random() % 8) {
        case 0:
            break;
        case 1:
            ticket.set(key, random() % 2 == 0);
            break;
        case 2:
            ticket.set(key, texts[random() % std::size(texts)]);
            break;
        default:
            ticket.set(key, value.get<std::string>() != nullptr
                                ? CFPropertyList(texts[random() % std::size(texts)])
                                : CFPropertyList(numbers[random() % std::size(numbers)]));
        }
    }
    return ticket;
}

TEST(StockTicket, ComesBackWhateverTheTicketHeld)
{
    std::mt19937 random(31);
    for (int round = 0; round < 20000; ++round) {
        const CFDictionary ticket = RandomTicket(random);
        const Stock stock(ticket);
        const CFDictionary written = stock.asTicket();
        // A coating beside sides that are present but unset is read, and has no way back.
        ASSERT_TRUE(Stock(written) == stock || stock.sidesCoated() == UnsetValue);
        ASSERT_EQ(Stock(written).asTicket(), written);
        // Nothing is written that was not read, but for what a custom size and a coating bring.
        for (const auto& [key, value] : written) {
            const bool isBrought = key == "Width" || key == "Length" || key == "kCoatingType";
            const CFPropertyList* given = ticket.find(key);
            ASSERT_TRUE((given != nullptr && *given == value) || isBrought) << key;
        }
    }
}

} // namespace
} // namespace tarvo
