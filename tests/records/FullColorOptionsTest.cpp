#include "records/FullColorOptions.h"

#include "support/TicketText.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

const std::string LongestName = *TicketFromText(R"(Name: "ä"*255)").get<std::string>("Name");

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

TEST(FullColorTicket, HasTheDriversKeysAndComesBack)
{
    const CFDictionary ticket = TicketFromText(R"(FCLightness: -100, FCContrast: 1,
        FCSaturation: 100, FCColorCast: {FCCyanRed: 2, FCMagentaGreen: 3, FCYellowBlue: 4},
        FCTrapping: 1, FCTrappingFastDirection: 20, FCTrappingSlowDirection: 0, FCBlackOverprint: 2,
        FCTRC: "curve", RGBImagesProfile: "rgb", RGBTextAndGraphicsProfile: 4,
        CMYKImagesProfile: "cmyk", CMYKTextAndGraphicsProfile: 15, GrayImagesProfile: "gray",
        GrayTextAndGraphicsProfile: "", DestinationProfile: "ä"*255, ImageRendering: 6,
        TextRendering: 5, GraphicRendering: 1)");
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
    EXPECT_EQ(options.asTicket(), TicketFromText("FCTrapping: 2"));
    options.setTrapping(1);
    EXPECT_EQ(options.setTrappingAdjustment({.slow = 3}), 0);
    EXPECT_EQ(options.asTicket(), TicketFromText("FCTrapping: 1, FCTrappingSlowDirection: 3"));
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
    options.fromTicket(TicketFromText("FCColorCast: {FCYellowBlue: -7}"));
    EXPECT_EQ(options.colorCast(), (ColorCast{2, 3, -7}));
    options.fromTicket(TicketFromText("FCLightness: 1000, FCTrapping: 9"));
    EXPECT_EQ(options.lightness(), 1000); // as a newer client may know it
    EXPECT_EQ(options.trappingAdjustment(), TrappingAdjustment());
}

TEST(FullColorSetters, RefuseWhatIsOutOfRangeAndKeepWhatTheyHad)
{
    FullColorOptions options = AllSet();
    for (const std::int32_t value : {-101, 101}) {
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
    EXPECT_EQ(options.asTicket(), TicketFromText("RGBImagesProfile: 3"));
}

} // namespace
} // namespace tarvo
