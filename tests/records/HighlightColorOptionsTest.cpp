#include "records/HighlightColorOptions.h"

#include "settings/ColorMaps.h"
#include "support/EchoBundle.h"
#include "support/TicketText.h"

namespace tarvo {
namespace {

HighlightColorOptions FromTicket(const CFDictionary& ticket)
{
    HighlightColorOptions options;
    options.hue = 7; // left over from before
    ColorSetupHLCSetOptionsFromTicket(options, ticket);
    return options;
}

TEST(HighlightColorTicket, HasTheDriversKeysAndComesBack)
{
    const HighlightColorOptions options = {
        .isValid = true,
        .printingColor = 5,
        .mappingAlgorithm = 4,
        .mismatchAction = 3,
        .mappingColor = 13,
        .useRGB = false,
        .red = 255,
        .green = 1,
        .blue = 128,
        .hue = 360,
        .saturation = 100,
        .value = 1,
    };
    const CFDictionary ticket = TicketFromText(
        "HiglightPrintingColor: 5, HighlightMappingAlgorithm: 4, HighlightMismatchAction: 3, "
        "HighlightMappingColor: 13, HighlightColorRGB: 0, HighlightColorR: 65535, "
        "HighlightColorG: 257, HighlightColorB: 32896, HighlightColorH: 36000, "
        "HighlightColorS: 10000, HighlightColorV: 100");
    EXPECT_EQ(ColorSetupHLCCreateTicketFromOptions(options), ticket);
    EXPECT_EQ(FromTicket(ticket), options);
    EXPECT_EQ(FromTicket(CFDictionary()), HighlightColorOptions{.isValid = true});
}

TEST(HighlightColorTicket, OfOtherClientsNeitherWrapsNorLosesAChoice)
{
    const HighlightColorOptions options =
        FromTicket(TicketFromText("HiglightPrintingColor: 99, HighlightColorR: 2147483647, "
                                  "HighlightColorG: -1, HighlightColorH: -199"));
    EXPECT_EQ(options.hue, -1);
    const CFDictionary written = ColorSetupHLCCreateTicketFromOptions(options);
    EXPECT_EQ(written.int32("HiglightPrintingColor"), 99);
    EXPECT_EQ(written.int32("HighlightColorR"), 2147483647);
    EXPECT_EQ(written.int32("HighlightColorG"), -257);
}

TEST(HighlightColorTicket, IsRGBUnlessItSaysOtherwise)
{
    EXPECT_TRUE(IsHighlightColorRGB(CFDictionary()));
    for (const char* flag : {"2", "0.5", "true", "\"0\""}) {
        EXPECT_TRUE(IsHighlightColorRGB(TicketFromText("HighlightColorRGB: " + std::string(flag))))
            << flag;
    }
    for (const char* flag : {"0", "0.0", "false"}) {
        EXPECT_FALSE(IsHighlightColorRGB(TicketFromText("HighlightColorRGB: " + std::string(flag))))
            << flag;
    }
}

TEST(HighlightColorChoice, WithoutARowIsTheFirst)
{
    EXPECT_EQ(HighlightRow(HighlightPrintingColorMap, 5), 5);
    EXPECT_EQ(HighlightRow(HighlightPrintingColorMap, 6), 0);
    EXPECT_EQ(HighlightRow(HighlightPrintingColorMap, UnsetValue), 0);
    EXPECT_TRUE(HasCustomMappingColor({.mappingColor = 13}));
    EXPECT_FALSE(HasCustomMappingColor({.mappingColor = 12}));
}

TEST(HighlightColorSummary, HasALineForEachChoice)
{
    const CFBundle bundle =
        EchoBundle({"Color", "HLMappingAlgorithm", "HLMismatchAction", "HLMappingColor",
                    "RedHLColor", "MonochromeHLAlgorithm", "HoldJob", "CustomHLMappingColor",
                    "Printer Default", "Use Job Setting"});
    const auto summary = [&bundle](const HighlightColorOptions& options) {
        return CreateColorSetupHLCSummary(bundle, options, JobContext::Job);
    };
    EXPECT_EQ(
        summary(
            {.printingColor = 1, .mappingAlgorithm = 5, .mismatchAction = 3, .mappingColor = 13}),
        "<Color>:<RedHLColor>\n"
        "<HLMappingAlgorithm>:<MonochromeHLAlgorithm>\n"
        "<HLMismatchAction>:<HoldJob>\n"
        "<HLMappingColor>:<CustomHLMappingColor>");
    EXPECT_EQ(summary({.printingColor = 6, .mismatchAction = 3}), "<HLMismatchAction>:<HoldJob>");
    EXPECT_EQ(summary({}), "<Printer Default>");
    EXPECT_EQ(CreateColorSetupHLCSummary(bundle, {.printingColor = -1}, JobContext::Cover),
              "<Use Job Setting>");
}

} // namespace
} // namespace tarvo
