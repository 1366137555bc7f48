#include "records/ImageShiftOptions.h"

#include "support/TicketText.h"

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

CFDictionary Ticket(const std::string& fullPrecision)
{
    return TicketFromText("Option: 6, Inches: 0, X1: 10, Y1: -20, X2: 30, Y2: 40, FullPrecision: " +
                          fullPrecision);
}

TEST(ImageShiftOptions, HaveTheDriversKeys)
{
    const ImageShiftOptions options{
        .twoSidedMode = 6, .isInches = false, .x1 = 1, .y1 = -2, .x2 = 3, .y2 = 4};
    const CFDictionary ticket = ImageShiftCreateTicketFromOptions(options);
    EXPECT_EQ(ticket, Ticket("true"));
    ImageShiftOptions again{.isValid = false};
    ImageShiftSetOptionsFromTicket(again, ticket);
    EXPECT_EQ(again, options);
    ImageShiftSetOptionsFromTicket(again, CFDictionary()); // keeps nothing of before
    EXPECT_EQ(again, ImageShiftOptions());
}

TEST(ImageShiftOptions, TakeOldTicketsAsTheyAre)
{
    for (const auto& [fullPrecision, x1] :
         {std::pair("true", 1), std::pair("2", 1), std::pair("false", 10), std::pair("0.0", 10),
          std::pair("\"true\"", 10)}) {
        ImageShiftOptions options;
        ImageShiftSetOptionsFromTicket(options, Ticket(fullPrecision));
        EXPECT_EQ(options.x1, x1) << fullPrecision;
    }
    EXPECT_TRUE(IsInInches(TicketFromText("Inches: false"))); // no number: as if it were absent
}

} // namespace
} // namespace tarvo
