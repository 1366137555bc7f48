#include "records/FullColorOptions.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace tarvo {
namespace {

constexpr std::int32_t Lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Highest = std::numeric_limits<std::int32_t>::max();

const std::string LongestName = [] {
    std::string name;
    for (int count = 0; count < 255; ++count) {
        name += "ä";
    }
    return name;
}();

// Every field set, the three kinds of profile custom.
FullColorOptions AllSet()
{
    FullColorOptions options;
    EXPECT_EQ(options.setLightness(-100), 0);
    EXPECT_EQ(options.setContrast(1), 0);
    EXPECT_EQ(options.setSaturation(100), 0);
    EXPECT_EQ(options.setColorCast({2, 3, 4}), 0);
    options.setTrapping(1);
    EXPECT_EQ(options.setTrappingAdjustment({.slow = 0, .fast = 20}), 0);
    options.setBlackOverprint(2);
    options.setTRC("curve");
    EXPECT_EQ(options.setRGBImagesProfile({5, "rgb"}), 0);
    EXPECT_EQ(options.setRGBTextAndGraphicsProfile({4, {}}), 0);
    EXPECT_EQ(options.setCMYKImagesProfile({3, "cmyk"}), 0);
    EXPECT_EQ(options.setCMYKTextAndGraphicsProfile({15, {}}), 0);
    options.setGrayImagesProfile("gray");
    options.setGrayTextAndGraphicsProfile("");
    EXPECT_EQ(options.setDestinationProfile({2, LongestName}), 0);
    options.setImageObjectRendering(6);
    options.setTextObjectRendering(5);
    options.setGraphicObjectRendering(1);
    return options;
}

CFDictionary Dictionary(std::vector<CFDictionary::Entry> entries)
{
    return CFDictionary(std::move(entries));
}

TEST(FullColorTicket, HasTheDriversKeysAndComesBack)
{
    const CFDictionary ticket = Dictionary({
        {"FCLightness",                -100                                                                      },
        {"FCContrast",                 1                                                                         },
        {"FCSaturation",               100                                                                       },
        {"FCColorCast",                Dictionary({{"FCCyanRed", 2}, {"FCMagentaGreen", 3}, {"FCYellowBlue", 4}})},
        {"FCTrapping",                 1                                                                         },
        {"FCTrappingFastDirection",    20                                                                        },
        {"FCTrappingSlowDirection",    0                                                                         },
        {"FCBlackOverprint",           2                                                                         },
        {"FCTRC",                      "curve"                                                                   },
        {"RGBImagesProfile",           "rgb"                                                                     },
        {"RGBTextAndGraphicsProfile",  4                                                                         },
        {"CMYKImagesProfile",          "cmyk"                                                                    },
        {"CMYKTextAndGraphicsProfile", 15                                                                        },
        {"GrayImagesProfile",          "gray"                                                                    },
        {"GrayTextAndGraphicsProfile", ""                                                                        },
        {"DestinationProfile",         LongestName                                                               },
        {"ImageRendering",             6                                                                         },
        {"TextRendering",              5                                                                         },
        {"GraphicRendering",           1                                                                         },
    });
    EXPECT_EQ(AllSet().asTicket(), ticket);
    EXPECT_EQ(FullColorOptions(ticket), AllSet());
    EXPECT_EQ(FullColorOptions().asTicket(), CFDictionary());
}

TEST(FullColorTicket, LeavesOutWhatHasNoMeaningAlone)
{
    FullColorOptions options;
    EXPECT_EQ(options.setColorCast({.cyanRed = 1, .magentaGreen = 2}), 0);
    options.setTrapping(2);
    EXPECT_EQ(options.setTrappingAdjustment({.slow = 3, .fast = 4}), 0);
    EXPECT_EQ(options.asTicket(), Dictionary({
                                      {"FCTrapping", 2}
    }));
    options.setTrapping(1);
    EXPECT_EQ(options.setTrappingAdjustment({.slow = 3}), 0);
    EXPECT_EQ(options.asTicket(), Dictionary({
                                      {"FCTrapping",              1},
                                      {"FCTrappingSlowDirection", 3}
    }));
}

TEST(FullColorTicket, OfAnotherKindChangesNothingButTrapping)
{
    const std::string tooLong = LongestName + "x";
    CFDictionary odd;
    for (const auto& entry : AllSet().asTicket()) {
        odd.set(entry.key, CFData{"x"});
    }
    for (const char* key :
         {"RGBImagesProfile", "CMYKImagesProfile", "DestinationProfile", "GrayImagesProfile"}) {
        odd.set(key, tooLong);
    }
    odd.set("GrayTextAndGraphicsProfile", 1);
    FullColorOptions expected = AllSet();
    expected.setTrapping(UnsetValue);
    EXPECT_EQ(expected.setTrappingAdjustment({}), 0);
    FullColorOptions options = AllSet();
    options.fromTicket(odd);
    EXPECT_EQ(options, expected);
    options.fromTicket(Dictionary({
        {"FCColorCast", Dictionary({{"FCYellowBlue", -7}})}
    }));
    EXPECT_EQ(options.colorCast(), (ColorCast{2, 3, -7}));
    options.fromTicket(Dictionary({
        {"FCLightness", 1000},
        {"FCTrapping",  9   }
    }));
    EXPECT_EQ(options.lightness(), 1000); // as a newer client may know it
    EXPECT_EQ(options.trappingAdjustment(), TrappingAdjustment());
}

TEST(FullColorSetters, RefuseWhatIsOutOfRangeAndKeepWhatTheyHad)
{
    FullColorOptions options = AllSet();
    for (const std::int32_t value : {-101, 101, Lowest + 1, Highest}) {
        SCOPED_TRACE(value);
        EXPECT_EQ(options.setLightness(value), -50);
        EXPECT_EQ(options.setContrast(value), -50);
        EXPECT_EQ(options.setSaturation(value), -50);
        EXPECT_EQ(options.setColorCast({value, 0, 0}), -50);
        EXPECT_EQ(options.setColorCast({0, value, 0}), -50);
        EXPECT_EQ(options.setColorCast({0, 0, value}), -50);
    }
    for (const std::int32_t value : {-1, 21}) {
        EXPECT_EQ(options.setTrappingAdjustment({value, 5}), -50);
        EXPECT_EQ(options.setTrappingAdjustment({5, value}), -50);
    }
    for (const auto& name : {std::optional<std::string>(), std::optional(LongestName + "x")}) {
        EXPECT_EQ(options.setRGBImagesProfile({5, name}), -50);
        EXPECT_EQ(options.setRGBTextAndGraphicsProfile({5, name}), -50);
        EXPECT_EQ(options.setCMYKImagesProfile({3, name}), -50);
        EXPECT_EQ(options.setCMYKTextAndGraphicsProfile({3, name}), -50);
        EXPECT_EQ(options.setDestinationProfile({2, name}), -50);
    }
    EXPECT_EQ(options, AllSet());
    EXPECT_EQ(options.setLightness(UnsetValue), 0);
    EXPECT_EQ(options.lightness(), UnsetValue);
}

TEST(FullColorProfile, KeepsItsNameUnderAnotherKindUnwritten)
{
    FullColorOptions options;
    EXPECT_EQ(options.setRGBImagesProfile({5, "mine"}), 0);
    EXPECT_EQ(options.setRGBImagesProfile({3, "not mine"}), 0);
    EXPECT_EQ(options.rgbImagesProfile(), (ColorProfile{3, "mine"}));
    EXPECT_EQ(options.asTicket(), Dictionary({
                                      {"RGBImagesProfile", 3}
    }));
}

// What any ticket gives is written in a way that gives the same again.
TEST(FullColorTicket, SettlesAfterOneReading)
{
    std::mt19937 random(33);
    const CFPropertyList values[] = {1, 2, 3, 5, 21, -101, UnsetValue, true, "", "name", 1.5};
    const auto any = [&]() -> const CFPropertyList& { return values[random() % 11]; };
    for (int round = 0; round < 2000; ++round) {
        CFDictionary ticket;
        for (const auto& entry : AllSet().asTicket()) {
            if (random() % 4 != 0) {
                ticket.set(entry.key, any());
            }
        }
        ticket.set("FCColorCast", Dictionary({
                                      {"FCCyanRed",    any()},
                                      {"FCYellowBlue", any()}
        }));
        const CFDictionary written = FullColorOptions(ticket).asTicket();
        EXPECT_EQ(FullColorOptions(written).asTicket(), written);
    }
}

} // namespace
} // namespace tarvo
