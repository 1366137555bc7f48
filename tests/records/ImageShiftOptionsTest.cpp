#include "records/ImageShiftOptions.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarvo {
namespace {

constexpr auto Largest = std::numeric_limits<std::int32_t>::max();
constexpr auto Smallest = std::numeric_limits<std::int32_t>::min();

struct OffsetCase {
    const char* name;
    bool isInches;
    std::int32_t offset;
    std::int32_t stored;
    std::int32_t readBack;
};

// clang-format off
constexpr OffsetCase OffsetCases[] = {
    {"inches come back one smaller",    true,  1,        25,       0},
    {"but where they are whole 1/2 in", true,  50,       1270,     50},
    {"rounded up",                      true,  3,        76,       2},
    {"rounded down",                    true,  101,      2565,     100},
    {"towards 0 from below",            true,  -3,       -76,      -2},
    {"millimetres come back",           false, -127,     -1270,    -127},
    {"beyond 32 bits, inches",          true,  Largest,  Largest,  84546600},
    {"beyond 32 bits, millimetres",     false, Smallest, Smallest, -214748364},
};
// clang-format on

TEST(ImageShiftOptions, StoresOffsetsInHundredthsOfAMillimetre)
{
    for (const auto& row : OffsetCases) {
        SCOPED_TRACE(row.name);
        const ImageShiftOptions options{.isInches = row.isInches, .y2 = row.offset};
        const CFDictionary ticket = ImageShiftCreateTicketFromOptions(options);
        EXPECT_EQ(ticket.int32("Y2"), row.stored);
        ImageShiftOptions again;
        ImageShiftSetOptionsFromTicket(again, ticket);
        EXPECT_EQ(again.y2, row.readBack);
    }
}

CFDictionary Ticket(CFPropertyList fullPrecision)
{
    CFDictionary ticket;
    ticket.set("Option", 6);
    ticket.set("Inches", 0);
    ticket.set("FullPrecision", std::move(fullPrecision));
    ticket.set("X1", 10);
    ticket.set("Y1", -20);
    ticket.set("X2", 30);
    ticket.set("Y2", 40);
    return ticket;
}

TEST(ImageShiftOptions, HaveTheDriversKeys)
{
    const ImageShiftOptions options{
        .twoSidedMode = 6, .isInches = false, .x1 = 1, .y1 = -2, .x2 = 3, .y2 = 4};
    const CFDictionary ticket = ImageShiftCreateTicketFromOptions(options);
    EXPECT_EQ(ticket, Ticket(true));
    ImageShiftOptions again{.isValid = false};
    ImageShiftSetOptionsFromTicket(again, ticket);
    EXPECT_EQ(again, options);
    ImageShiftSetOptionsFromTicket(again, CFDictionary()); // keeps nothing of before
    EXPECT_EQ(again, ImageShiftOptions());
}

TEST(ImageShiftOptions, TakeOldTicketsAsTheyAre)
{
    // name, "FullPrecision", X1 as read
    const std::tuple<const char*, CFPropertyList, std::int32_t> cases[] = {
        {"true",          true,   1 },
        {"number",        2,      1 },
        {"false",         false,  10},
        {"zero",          0.0,    10},
        {"no such value", "true", 10},
    };
    for (const auto& [name, fullPrecision, x1] : cases) {
        SCOPED_TRACE(name);
        ImageShiftOptions options;
        ImageShiftSetOptionsFromTicket(options, Ticket(fullPrecision));
        EXPECT_EQ(options.x1, x1);
    }
    CFDictionary ticket = Ticket(true);
    ticket.set("Inches", false); // no number: as if it were absent
    EXPECT_TRUE(IsInInches(ticket));
}

} // namespace
} // namespace tarvo
