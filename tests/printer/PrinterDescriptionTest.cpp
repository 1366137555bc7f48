#include "printer/PrinterDescription.h"

#include "../platform/PPDTexts.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

namespace tarvo {
namespace {

// A bundle in a folder of its own whose device profile is that text.
class ProfileBundle {
public:
    explicit ProfileBundle(const std::string& profile)
    {
        EXPECT_NE(mkdtemp(root_.data()), nullptr);
        const std::string resources = root_ + "/Contents/Resources/";
        std::filesystem::create_directories(resources);
        std::ofstream(resources + "Device Profile.plist") << profile;
    }
    ProfileBundle(const ProfileBundle&) = delete;
    ProfileBundle& operator=(const ProfileBundle&) = delete;
    ~ProfileBundle() { std::filesystem::remove_all(root_); }
    CFBundle bundle() const { return {root_, {}}; }

private:
    std::string root_ = testing::TempDir() + "tarvo-profile-XXXXXX";
};

std::unique_ptr<PrinterDescription> DescriptionOf(const std::string& options,
                                                  const CFBundle& bundle)
{
    return std::make_unique<PrinterDescription>(PrinterOf(options), nullptr, InstalledFeatures,
                                                bundle);
}

TEST(PrinterDescription, AnswersTheProcessWhileItLives)
{
    const ProfileBundle profile("<plist><dict><key>Features</key><dict><key>Band</key><dict>"
                                "<key>Properties</key><dict><key>TPIF</key><true/></dict>"
                                "</dict></dict></dict></plist>");
    {
        const auto printer = DescriptionOf(PickOne("Option1", "DFA", {"DFA"}) +
                                               PickOne("MediaColor", "Blue", {"Blue/Blau"}),
                                           profile.bundle());
        const CFDictionary* band = TDPGetFeature("Band");
        ASSERT_NE(band, nullptr);
        EXPECT_EQ(TDPGetFeaturesWithProperty("TPIF"), FeatureDictionaries{band});
        EXPECT_EQ(TDPGetFeaturesWithPropertyAndValue("TPIF", true), FeatureDictionaries{band});
        EXPECT_TRUE(getInstalledFeature("Custom"));
        EXPECT_EQ(GetPPDOptionAliasForTicketValue("MediaColor", 2), "Blau");
    }
    EXPECT_EQ(PrinterDescription::Current(), nullptr);
    EXPECT_EQ(TDPGetFeature("Band"), nullptr);
    EXPECT_TRUE(TDPGetFeaturesWithProperty("TPIF").empty());
    EXPECT_FALSE(getInstalledFeature("Offset"));
    EXPECT_EQ(PPDGetGlobalUIDictionary(), nullptr);
    EXPECT_EQ(GetPPDOptionAliasForTicketValue("MediaColor", 2), "");
}

// Choices are in force by the ticket, then by the defaults; "endofset" is no choice.
TEST(PrinterDescription, MarksWhatTheTicketSays)
{
    PMTicket ticket;
    CFDictionary& choices = ticket.ppdDictionary();
    choices.set("MediaColor", "Red");
    choices.set("Jog", "endofset");
    choices.set("Option1", "DFA");
    choices.set("Duplex", 2);
    choices.set("Absent", "Yes");
    const std::string options = PickOne("MediaColor", "Blue", {"Blue", "Red"}) +
                                PickOne("Jog", "None", {"EndOfSet", "None"}) +
                                PickOne("Option1", "None", {"None", "DFA"}) +
                                PickOne("Duplex", "None", {"None", "2"});
    const PrinterDescription printer(PrinterOf(options), &ticket, InstalledFeatures,
                                     CFBundle("", {}));
    std::string marked;
    for (const char* keyword : {"MediaColor", "Jog", "Option1", "Duplex"}) {
        marked += *printer.ppd()->markedChoice(keyword) + " ";
    }
    EXPECT_EQ(marked, "Red None DFA None ");
    EXPECT_TRUE(getInstalledFeature("Custom"));
}

TEST(PrinterDescription, WithoutFilesHasNothing)
{
    const ProfileBundle broken("<plist><dict><key>Features</key>");
    const PrinterDescription printer(std::nullopt, nullptr, InstalledFeatures, broken.bundle());
    EXPECT_EQ(TDPGetFeature("Band"), nullptr);
    EXPECT_FALSE(getInstalledFeature("Offset")) << "nobody knows the printer";
    EXPECT_EQ(PPDGetGlobalUIDictionary(), nullptr);
    EXPECT_EQ(printer.ppd(), nullptr);
}

// A dialog may open before another has gone, and the two may go in either order.
TEST(PrinterDescription, TakesThePlaceOfAnotherUntilItEnds)
{
    const CFBundle bundle("", {});
    const auto current = [] {
        std::string option;
        return getInstallableOptionValue("Option1", &option) ? option : "none";
    };
    auto first = DescriptionOf(PickOne("Option1", "One", {"One"}), bundle);
    auto second = DescriptionOf(PickOne("Option1", "Two", {"Two"}), bundle);
    EXPECT_EQ(current(), "Two");
    second.reset();
    EXPECT_EQ(current(), "One");
    second = DescriptionOf(PickOne("Option1", "Two", {"Two"}), bundle);
    first.reset();
    EXPECT_EQ(current(), "Two");
    second.reset();
    EXPECT_EQ(current(), "none");
}

} // namespace
} // namespace tarvo
