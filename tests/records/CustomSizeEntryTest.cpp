#include "records/CustomSizeEntry.h"

#include "platform/cf/CFPropertyList.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace tarvo {
namespace {

using Entry = CustomSizeEntry;
constexpr auto Inches = LengthUnit::Inches;
constexpr auto Millimeters = LengthUnit::Millimeters;
constexpr PPDSizeLimits UsualLimits = {432, 432, 864, 864};

struct ConversionCase {
    const char* name;
    std::int32_t stored;
    LengthUnit unit;
    std::int32_t field;
    std::int32_t storedAgain;
};

constexpr ConversionCase ConversionCases[] = {
    {"A4 in inches, cut",        21000,      Inches,      826,      20980     },
    {"hundredths are cut",       21599,      Millimeters, 2159,     21590     },
    {"half rounds up, then cut", 13,         Inches,      0,        0         },
    {"one step",                 25,         Inches,      1,        25        },
    {"below zero, to zero",      -259,       Millimeters, -25,      -250      },
    {"highest number",           2147483647, Inches,      84546600, 2147483640},
};

TEST(CustomSize, ConvertsAsTheFieldsDo)
{
    for (const auto& row : ConversionCases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(FieldFromStored(row.stored, row.unit), row.field);
        EXPECT_EQ(StoredFromField(row.field, row.unit), row.storedAgain);
    }
    EXPECT_EQ(StoredFromField(std::numeric_limits<std::int32_t>::max(), Inches),
              std::numeric_limits<std::int32_t>::max());
}

TEST(CustomSize, StartsInTheUnitThatWasLastChosen)
{
    LengthUnit unit = LengthUnit::NotChosen;
    Entry first(UnsetValue, 20000, UsualLimits, unit, Inches);
    EXPECT_EQ(unit, Inches);
    EXPECT_EQ(first.decimals(), 2);
    EXPECT_EQ(first.value(Entry::Width), 850);
    EXPECT_EQ(first.value(Entry::Length), 1100); // half a size is none
    EXPECT_EQ(first.range(Entry::Width).minimum, 600);
    EXPECT_EQ(first.range(Entry::Length).maximum, 1200);
    first.setUnit(Millimeters);
    EXPECT_EQ(first.value(Entry::Width), 2159);

    Entry second(UnsetValue, UnsetValue, UsualLimits, unit, Inches);
    EXPECT_EQ(second.unit(), Millimeters);
    EXPECT_EQ(second.decimals(), 1);
    EXPECT_EQ(second.value(Entry::Width), 2159); // the size remains the locale's
    EXPECT_EQ(second.range(Entry::Width).minimum, 1524);
    EXPECT_EQ(second.range(Entry::Length).maximum, 3048);
    second.setValue(Entry::Width, 2000);
    second.setDefaults();
    EXPECT_EQ(unit, Inches);
    EXPECT_EQ(second.accept(), (StockDimensions{21590, 27940}));
    EXPECT_EQ(Entry(UnsetValue, 1, UsualLimits, unit, Millimeters).value(Entry::Length), 1169);
}

TEST(CustomSize, RefusesWhatThePrinterDoesNotTake)
{
    const std::optional<std::int32_t> wrong[] = {std::nullopt, 1523, 3049, -1, 0};
    for (const auto& value : wrong) {
        LengthUnit unit = Millimeters;
        Entry entry(30000, 20000, UsualLimits, unit, Millimeters);
        entry.setValue(Entry::Width, 3048);
        entry.setValue(Entry::Length, value);
        EXPECT_EQ(entry.accept(), std::nullopt);
        EXPECT_EQ(entry.value(Entry::Width), 3048);
        EXPECT_EQ(entry.value(Entry::Length), 2000);
        EXPECT_EQ(entry.accept(), (StockDimensions{30480, 20000})); // wider than long
    }
}

TEST(CustomSize, ShowsASizeOfAnotherPrinterAndThenItsOwnNearest)
{
    LengthUnit unit = Millimeters;
    Entry entry(100000, 20000, UsualLimits, unit, Inches);
    EXPECT_EQ(entry.value(Entry::Width), 10000);
    entry.setUnit(Inches);
    EXPECT_EQ(entry.value(Entry::Width), 3937);
    EXPECT_EQ(entry.accept(), std::nullopt);
    EXPECT_EQ(entry.value(Entry::Width), 1200);
}

// Limits are rounded in each unit on their own, numbers are converted from unit to unit.
TEST(CustomSize, AValidNumberStaysValidInTheOtherUnit)
{
    std::mt19937 random(315);
    std::uniform_real_distribution<float> points(1, 3000);
    for (int round = 0; round < 20000; ++round) {
        PPDSizeLimits limits = {points(random), points(random), 0, 0};
        limits.maximumWidth = limits.minimumWidth + points(random);
        limits.maximumLength = limits.minimumLength;
        LengthUnit unit = round % 2 == 0 ? Inches : Millimeters;
        Entry entry(0, 0, limits, unit, Inches);
        const auto range = entry.range(Entry::Width);
        entry.setValue(Entry::Width, random() % 2 == 0 ? range.minimum : range.maximum);
        entry.setValue(Entry::Length, entry.range(Entry::Length).minimum);
        ASSERT_TRUE(entry.accept());
        entry.setUnit(unit == Inches ? Millimeters : Inches);
        ASSERT_TRUE(entry.accept()) << limits.minimumWidth << " " << limits.maximumWidth;
    }
}

} // namespace
} // namespace tarvo
