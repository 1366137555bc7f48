#include "../platform/PPDTexts.h"
#include "printer/FinishingOffers.h"
#include "printer/JobTypeOffers.h"
#include "printer/PPDKeywordMaps.h"
#include "printer/PrinterDescription.h"
#include "settings/FinishingMaps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace tarvo {
namespace {

TEST(KeywordInfo, IsKeptForPickOneOnly)
{
    PPDFile ppd = PrinterOf("*OpenUI *JCLBanner: Boolean\n*DefaultJCLBanner: False\n"
                            "*JCLBanner True: \"\"\n*JCLBanner False: \"\"\n"
                            "*CloseUI: *JCLBanner\n" +
                            PickOne("MediaColor", "Blue", {"White", "Blue", "Mauve"}) +
                            PickOne("Unmapped", "A", {"A"}));
    const PrinterDescription printer(std::move(ppd), nullptr, InstalledFeatures, CFBundle("", {}));
    const PPDUIDictionary& dictionary = *PPDGetGlobalUIDictionary();
    EXPECT_FALSE(dictionary.contains("JCLBanner"));
    EXPECT_EQ(dictionary.copyOptions("JCLBanner"), std::nullopt);
    const PPDKeywordInfos colors = dictionary.copyOptions("MediaColor").value();
    EXPECT_TRUE(colors[1].isDefault && colors[1].isMarked && !colors[0].isDefault);
    EXPECT_EQ(GetPPDOptionAliasForTicketValue("MediaColor", 2), "Blue");
    EXPECT_EQ(GetPPDOptionAliasForTicketValue("MediaColor", 7), "");
    EXPECT_EQ(GetPPDOptionAliasForTicketValue("Unmapped", 1), "");

    Menu menu = {
        {"old", 1, 0, true, {}}
    };
    EXPECT_EQ(PopulateMenuFromPPDOptions(menu, colors), 3);
    EXPECT_EQ(menu[1].text, "Blue");
    EXPECT_EQ(menu[1].value, 2);
    EXPECT_EQ(menu[2].value, -1);
    EXPECT_EQ(PopulateMenuFromPPDOptions(menu, dictionary.copyOptions("Unmapped").value()), 1);
    EXPECT_EQ(menu[0].value, -1);
    const PPDKeywordInfos many(40'000, colors[0]);
    EXPECT_EQ(PopulateMenuFromPPDOptions(menu, many), 32'767);
    EXPECT_EQ(menu.size(), many.size());

    PMTicket ticket;
    std::int32_t index = 7;
    EXPECT_EQ(PPDGetMainKeywordValueIndex(&ticket, "MediaColor", colors, &index), StatusOk);
    EXPECT_EQ(index, -1);
    EXPECT_EQ(PPDSetMainKeywordIndex(&ticket, colors, 1), StatusOk);
    EXPECT_EQ(PPDSetMainKeywordIndex(&ticket, colors, 3), StatusBadArgument);
    EXPECT_EQ(PPDGetMainKeywordValueIndex(&ticket, "MediaColor", colors, &index), StatusOk);
    EXPECT_EQ(index, 1);
    std::string value = "old";
    EXPECT_EQ(PPDGetMainKeywordValue(&ticket, "Duplex", &value), StatusBadArgument);
    EXPECT_EQ(value, "");
    EXPECT_EQ(PPDSetMainKeyword(nullptr, "Duplex", "None"), StatusBadArgument);
}

TEST(InstalledFeatures, FollowFromTheTicketBeforeTheDefaults)
{
    PPDFile ppd = PrinterOf(PickOne("Option1", "None", {"None", "DFA", "dfa"}) +
                            PickOne("Option2", "True", {"True", "False"}));
    PMTicket ticket;
    ticket.ppdDictionary().set("Option1", "DFA");
    const CFBundle bundle("", {});
    const PrinterDescription printer(ppd, &ticket, InstalledFeatures, bundle);
    EXPECT_TRUE(getInstalledFeature("Custom"));
    EXPECT_TRUE(getInstalledFeature("SBM"));
    EXPECT_TRUE(getInstalledFeature("Offset"));
    EXPECT_FALSE(getInstalledFeature("1StapleBR"));
    std::int32_t value = 0;
    EXPECT_TRUE(getInstallableOptionTicketValue("StackerTray1Key", &value));
    EXPECT_EQ(value, 4);
    EXPECT_EQ(CopyLocalizedStringForInstalledFeatureFromPlugin("Offset", bundle), std::nullopt);

    ticket.ppdDictionary().set("Option1", "dfa");
    EXPECT_EQ(InstallableOptions(ppd, &ticket, InstalledFeatures).qualifyingRow("Custom"), nullptr);
}

TEST(FinishingOffers, FollowFromFeaturesAndFoldOptions)
{
    const auto options = [](PPDFile ppd) {
        std::vector<std::int32_t> families;
        const auto folds = PPDCopyOptionsForMainKeyword(ppd, "TRFoldOptions");
        const InstallableOptions installed(ppd, nullptr, InstalledFeatures);
        for (const auto& offer : FinishingOffers(installed, folds.value_or(PPDKeywordInfos()))) {
            families.push_back(offer.option);
            families.insert(families.end(), offer.choices.begin(), offer.choices.end());
        }
        return families;
    };
    const std::vector<std::int32_t> plain = {0, 1, 4, 5, 6, 7, 9, 10, 11, 12, 13, 14, 15, 16};
    EXPECT_EQ(options(PrinterOf("")), plain);
    std::vector<std::int32_t> full = plain;
    full.insert(full.end(), {22, 3, 30, 3, 4, 5, 36, 38, 39, 40, 47, 48, 49, 49, 50, 51, 52});
    full.insert(full.begin() + 16, {18, 20});
    EXPECT_EQ(
        options(PrinterOf(
            PickOne("Option1", "DFA", {"DFA"}) + PickOne("Option2", "True", {"True"}) +
            PickOne("TRFoldOptions", "None", {"None", "HolePunch", "2HolePunch", "ZTriFoldOpt"}))),
        full);
}

// The menu of families and the tables of their positions have the same numbers.
TEST(FinishingOffers, AreNumberedAsElsewhere)
{
    PPDFile ppd =
        PrinterOf(PickOne("Option1", "DFA", {"DFA"}) + PickOne("Option2", "True", {"True"}));
    PPDKeywordInfos folds;
    for (const auto* row = TRFoldOptionsMap; row->keyword != nullptr; ++row) {
        folds.push_back({FoldMainKeyword, row->keyword, ""});
    }
    const SettingMap* const positions[] = {OneStapleMap, TwoStaplesMap,         BindMap,
                                           FoldMap,      BookletFoldMap,        HolePunchOptionsMap,
                                           ZFoldMap,     ComplexBookletFoldMap, ComplexFoldMap};
    for (const auto& offer : FinishingOffers({ppd, nullptr, InstalledFeatures}, folds)) {
        SCOPED_TRACE(offer.key);
        for (const SettingMap* map : {OutputStapleHCSSMap, PlainFinishingMap}) {
            for (const auto* row = map; row->key != nullptr; ++row) {
                const bool isSame = std::string_view(row->key) == offer.key;
                EXPECT_TRUE(!isSame || row->value == UnsetValue || row->value == offer.option);
            }
        }
        for (const std::int32_t choice : offer.choices) {
            EXPECT_TRUE(offer.key == std::string_view("Multiple Finishing...") ||
                        std::any_of(std::begin(positions), std::end(positions),
                                    [choice](const SettingMap* map) {
                                        return LocalizedKeyForTicketValue(map, choice) != nullptr;
                                    }))
                << choice;
        }
    }
}

TEST(JobTypeOffers, AreThePrintersAndTheProfilesByNumber)
{
    const auto types = [](const FeatureDatabase& features) {
        std::vector<std::int32_t> numbers;
        for (const JobTypeOffer& offer : JobTypeOffers(features)) {
            numbers.push_back(offer.type);
        }
        return numbers;
    };
    const CFBundle bundle(TARVO_BINARY_DIR "/TarvoFeatures.plugin", {});
    const FeatureDatabase shipped(bundle.propertyList(DeviceProfileName).value_or(CFDictionary()));
    EXPECT_EQ(types(FeatureDatabase()), (std::vector<std::int32_t>{1, 3, 9}));
    EXPECT_EQ(types(shipped), (std::vector<std::int32_t>{1, 2, 3, 4, 6, 7, 8, 9}));
}

TEST(MediaLimits, AreThePrintersOrTheUsualOnes)
{
    PMPrintSession session;
    PPDSizeLimits limits;
    EXPECT_FALSE(GetMediaLimits(nullptr, limits));
    EXPECT_FALSE(GetMediaLimits(&session, limits));
    session.currentPrinter = PMPrinter{"", "/nonexistent.ppd", ""};
    EXPECT_FALSE(GetMediaLimits(&session, limits));
    EXPECT_EQ(limits.minimumWidth, 432);
    EXPECT_EQ(limits.maximumLength, 864);

    session.currentPrinter->ppdPath = TARVO_SOURCE_DIR "/resources/ppd/TarvoQL900.ppd";
    EXPECT_TRUE(GetMediaLimits(&session, limits));
    EXPECT_EQ(limits.maximumWidth, 936);
    EXPECT_EQ(limits.maximumLength, 1368);
    session.currentPrinter->ppdPath = TARVO_SOURCE_DIR "/resources/ppd/TarvoDesk210.ppd";
    EXPECT_FALSE(GetMediaLimits(&session, limits)) << "takes no custom sizes";
    EXPECT_EQ(limits.maximumWidth, 864);
}

} // namespace
} // namespace tarvo
