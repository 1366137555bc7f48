#include "records/HighlightColorOptions.h"

#include "platform/bundle/CFBundle.h"
#include "records/HighlightColorKeys.h"
#include "settings/ColorMaps.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>

namespace tarvo {
namespace {

namespace fs = std::filesystem;

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
    CFDictionary ticket;
    ticket.set("HiglightPrintingColor", 5);
    ticket.set("HighlightMappingAlgorithm", 4);
    ticket.set("HighlightMismatchAction", 3);
    ticket.set("HighlightMappingColor", 13);
    ticket.set("HighlightColorRGB", 0);
    ticket.set("HighlightColorR", 65535);
    ticket.set("HighlightColorG", 257);
    ticket.set("HighlightColorB", 32896);
    ticket.set("HighlightColorH", 36000);
    ticket.set("HighlightColorS", 10000);
    ticket.set("HighlightColorV", 100);
    EXPECT_EQ(ColorSetupHLCCreateTicketFromOptions(options), ticket);
    EXPECT_EQ(FromTicket(ticket), options);
    EXPECT_EQ(FromTicket(CFDictionary()), HighlightColorOptions{.isValid = true});
}

TEST(HighlightColorTicket, OfOtherClientsNeitherWrapsNorLosesAChoice)
{
    constexpr std::int32_t Highest = std::numeric_limits<std::int32_t>::max();
    CFDictionary ticket;
    ticket.set("HiglightPrintingColor", 99);
    ticket.set("HighlightColorR", Highest);
    ticket.set("HighlightColorG", -1);
    ticket.set("HighlightColorH", -199);
    const HighlightColorOptions options = FromTicket(ticket);
    EXPECT_EQ(options.hue, -1);
    const CFDictionary written = ColorSetupHLCCreateTicketFromOptions(options);
    EXPECT_EQ(written.int32("HiglightPrintingColor"), 99);
    EXPECT_EQ(written.int32("HighlightColorR"), Highest);
    EXPECT_EQ(written.int32("HighlightColorG"), -257);
}

TEST(HighlightColorTicket, IsRGBUnlessItSaysOtherwise)
{
    const std::pair<CFPropertyList, bool> cases[] = {
        {0,     false},
        {2,     true },
        {0.0,   false},
        {0.5,   true },
        {false, false},
        {true,  true },
        {"0",   true },
    };
    EXPECT_TRUE(IsHighlightColorRGB(CFDictionary()));
    for (const auto& [flag, isRGB] : cases) {
        CFDictionary ticket;
        ticket.set(HighlightColorRGBKey, flag);
        EXPECT_EQ(IsHighlightColorRGB(ticket), isRGB) << flag.kindName();
    }
}

TEST(HighlightColorChoice, WithoutARowIsTheFirst)
{
    for (const auto& [choice, row] : {
             std::pair(0, 0), {5,          5},
               {6,          0},
               {-1,         0},
               {UnsetValue, 0}
    }) {
        EXPECT_EQ(HighlightRow(HighlightPrintingColorMap, choice), row) << choice;
    }
    for (const auto& [choice, isCustom] : {
             std::pair(13, true), {12, false},
               {14, false}
    }) {
        EXPECT_EQ(HasCustomMappingColor({.mappingColor = choice}), isCustom) << choice;
    }
}

// Texts that are told from their keys.
class HighlightColorSummary : public testing::Test {
protected:
    HighlightColorSummary()
    {
        EXPECT_NE(mkdtemp(folder_.data()), nullptr);
        const fs::path language = folder_ + "/Contents/Resources/en.lproj";
        fs::create_directories(language);
        std::ofstream table(language / "Localizable.plist");
        table << "<plist version=\"1.0\"><dict>";
        for (const char* key : {"Color", "HLMappingAlgorithm", "HLMismatchAction", "HLMappingColor",
                                "RedHLColor", "MonochromeHLAlgorithm", "HoldJob",
                                "CustomHLMappingColor", "Printer Default", "Use Job Setting"}) {
            table << "<key>" << key << "</key><string>[" << key << "]</string>";
        }
        table << "<key>:</key><string>: </string></dict></plist>";
    }
    ~HighlightColorSummary() override { fs::remove_all(folder_); }

    std::string summary(const HighlightColorOptions& options, JobContext context = JobContext::Job)
    {
        return CreateColorSetupHLCSummary(CFBundle(folder_, {}), options, context);
    }

    std::string folder_ = testing::TempDir() + "tarvo-highlight-XXXXXX";
};

TEST_F(HighlightColorSummary, HasALineForEachChoice)
{
    EXPECT_EQ(
        summary(
            {.printingColor = 1, .mappingAlgorithm = 5, .mismatchAction = 3, .mappingColor = 13}),
        "[Color]: [RedHLColor]\n"
        "[HLMappingAlgorithm]: [MonochromeHLAlgorithm]\n"
        "[HLMismatchAction]: [HoldJob]\n"
        "[HLMappingColor]: [CustomHLMappingColor]");
    EXPECT_EQ(summary({.printingColor = 6, .mismatchAction = 3}), "[HLMismatchAction]: [HoldJob]");
    EXPECT_EQ(summary({}), "[Printer Default]");
    EXPECT_EQ(summary({.printingColor = -1}, JobContext::Cover), "[Use Job Setting]");
}

} // namespace
} // namespace tarvo
