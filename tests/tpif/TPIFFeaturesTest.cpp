#include "tpif/TPIFFeatures.h"

#include "TPIFTestSupport.h"
#include "platform/bundle/CFBundle.h"
#include "platform/cf/PropertyListWriter.h"
#include "platform/files/FileContents.h"
#include "printer/PrinterDescription.h"
#include "records/FullColorKeys.h"
#include "records/HighlightColorKeys.h"
#include "records/JobTypeKeys.h"
#include "records/SpecialPageKeys.h"
#include "records/StockKeys.h"
#include "settings/TicketKeys.h"
#include "support/TicketText.h"
#include "tpif/DeviceProfile.h"
#include "tpif/TPIFFinishing.h"
#include "tpif/TPIFMaps.h"
#include "tpif/TPIFWriter.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

namespace tarvo {
namespace {

const TPIFFeature& FeatureNamed(std::string_view name)
{
    for (const TPIFFeature& feature : TPIFFeatures()) {
        if (feature.name == name) {
            return feature;
        }
    }
    ADD_FAILURE() << "no feature " << name;
    return TPIFFeatures().front();
}

TEST(DeviceProfile, InTheResourcesIsThatOfTheTable)
{
    ParseError error;
    std::string reason;
    const auto profile = WritePropertyList(DeviceProfile(), error);
    ASSERT_TRUE(profile) << error.reason;
    const auto resource = ReadFileContents(TARVO_SOURCE_DIR "/resources/Device Profile.plist",
                                           std::size_t{1} << 20, reason);
    EXPECT_TRUE(resource == profile) << "resources/Device Profile.plist is not up to date: "
                                        "cmake --build --preset release --target device-profile";
}

class BundledProfile : public ::testing::Test {
protected:
    static std::string Keywords(const char* feature, std::string_view property, bool value)
    {
        std::string ids;
        for (const auto* keyword :
             TDPGetKeywordsWithPropertyAndValue(TDPGetFeature(feature), property, value)) {
            ids += *keyword->get<std::string>(FeatureIDKey) + " ";
        }
        return ids;
    }

private:
    PrinterDescription printer_{std::nullopt, nullptr, featureMap,
                                CFBundle(TARVO_BINARY_DIR "/TarvoFeatures.plugin", {})};
};

TEST_F(BundledProfile, SaysWhatTheFeaturesTake)
{
    EXPECT_EQ(Keywords("JobType", "Offered", true),
              "SaveAndPrint Hold SecurePrint DelayedPrint SampleSet ");
    EXPECT_EQ(Keywords("JobType", "Offered", false), "Fax ");
    EXPECT_EQ(Keywords("RGBSourceText", "NameSyntax", true), "AdobeRGB ");
    EXPECT_EQ(*TDPGetFeatureProperty(TDPGetFeature("RGBSourceText"), "KeywordsUseNameSyntax"),
              CFPropertyList(true));
    const auto* coated = TDPGetFeature("StockSidesCoated");
    EXPECT_EQ(TDPGetKeywordsWithPropertyAndValue(coated, "TPIFValue", "none").size(), 1U);
    EXPECT_EQ(TDPGetKeywordsWithPropertyAndValue(coated, "TPIFValue", "matte").size(), 1U);
    EXPECT_EQ(*TDPGetFeatureSyntax(TDPGetFeature("StockSize"), "Number"),
              TicketFromText("Minimum: 1, Maximum: 2147483647"));
    EXPECT_EQ(*TDPGetFeatureSyntax(TDPGetFeature("ImageShift"), "Number"), CFDictionary());
    EXPECT_EQ(*TDPGetFeatureSyntax(TDPGetFeature("StockType"), "Name"),
              TicketFromText("Length: 30"));
    EXPECT_EQ(TDPGetFeatureSyntax(TDPGetFeature("FrontCover"), "Keyword"), nullptr);
}

// A keyword misspelt as a default would leave the feature without one.
TEST_F(BundledProfile, HasTheDefaultsAndUsesOfTheTable)
{
    const auto attributes = TDPGetFeaturesWithPropertyAndValue("TPIF", true);
    for (const TPIFFeature& feature : TPIFFeatures()) {
        SCOPED_TRACE(feature.name);
        const CFDictionary* entry = TDPGetFeature(feature.name);
        const auto value = TDPGetFeatureDefaultValue(entry);
        const char* expected = feature.syntax.defaultKeyword;
        EXPECT_EQ(value ? value->value : "", expected != nullptr ? expected : "");
        EXPECT_EQ(testing::Matches(testing::Contains(entry))(attributes),
                  feature.use == TPIFFeatureUse::Attribute);
    }
    EXPECT_EQ(TPIFFeatures().size() - attributes.size(), 4U);
}

// The keywords of a feature and the ticket's entry that the writer makes its element from.
struct ExportCase {
    const char* feature;
    std::string_view dictionary; // of the ticket; "" for the ticket itself
    std::string_view key;
    const TPIFWord* map = nullptr; // of keyword to ticket value; null: the value is the word's own
    std::int32_t offset = 0;       // from the word's own value to the ticket's
};

constexpr ExportCase ExportCases[] = {
    {"ColorEffects",      "",                       OutputColorKey,                TPIFColorEffectsMap,      0},
    {"Sides",             "",                       DuplexKey,                     TPIFSidesMap,             0},
    {"OutputDestination", "",                       OutputDestinationKey,          TPIFOutputDestinationMap, 0},
    {"StockGrain",        JobLevelStockKey,         StockGrainKey,                 TPIFMediaGrainMap,        0},
    {"StockFinish",       JobLevelStockKey,         StockFinishKey,                TPIFMediaFinishMap,       0},
    {"StockColor",        JobLevelStockKey,         StockColorKey,                 TPIFMediaColorMap,        0},
    {"StockType",         JobLevelStockKey,         StockTypeKey,                  nullptr,                  0},
    {"StockPrePrinted",   JobLevelStockKey,         StockTypeKey,                  nullptr,                  0},
    {"StockRecycled",     JobLevelStockKey,         StockTypeKey,                  nullptr,                  0},
    {"StockSidesCoated",  JobLevelStockKey,         StockSidesCoatedKey,           nullptr,                  0},
    {"JobType",           JobTypeKey,               JobTypeNumberKey,              nullptr,                  0},
    {"JobHold",           JobTypeKey,               JobTypeNumberKey,              nullptr,                  0},
    {"SaveFormat",        JobTypeKey,               SaveFormatKey,                 TPIFSaveFormatMap,        0},
    {"SlipSheets",        "",                       SlipSheetKey,                  TPIFSlipSheetMap,         0},
    {"Offset",            "",                       OffsetKey,                     nullptr,                  2},
    {"HalftoneScreen",    "",                       HalftoneScreenKey,             TPIFHalftoneScreenMap,    0},
    {"AntiAliasing",      "",                       AntialiasingKey,               TPIFAntialiasingMap,      0},
    {"PageRotation",      "",                       RotateImageKey,                TPIFRotationMap,          0},
    {"PageDelivery",      "",                       OutputOrderKey,                nullptr,                  0},
    {"OPIImageInsertion", "",                       OPISubstitutionKey,            nullptr,                  2},
    {"OPIPreScan",        "",                       OPIPrescanKey,                 nullptr,                  2},
    {"DarknessMode",      "",                       QuillonEmulationKey,           nullptr,                  0},
    {"RenderingGraphics", FullColorOptionsKey,      GraphicRenderingKey,           nullptr,                  0},
    {"RenderingImages",   FullColorOptionsKey,      ImageRenderingKey,             nullptr,                  0},
    {"RenderingText",     FullColorOptionsKey,      TextRenderingKey,              nullptr,                  0},
    {"Trapping",          FullColorOptionsKey,      FullColorTrappingKey,          nullptr,                  0},
    {"BlackOverprint",    FullColorOptionsKey,      FullColorBlackOverprintKey,    nullptr,                  0},
    {"RGBSourceImages",   FullColorOptionsKey,      RGBImagesProfileKey,           nullptr,                  0},
    {"RGBSourceText",     FullColorOptionsKey,      RGBTextAndGraphicsProfileKey,  nullptr,                  0},
    {"CMYKSourceImages",  FullColorOptionsKey,      CMYKImagesProfileKey,          nullptr,                  0},
    {"CMYKSourceText",    FullColorOptionsKey,      CMYKTextAndGraphicsProfileKey, nullptr,                  0},
    {"DestinationFront",  FullColorOptionsKey,      DestinationProfileKey,         nullptr,                  0},
    {"DestinationBack",   FullColorOptionsKey,      DestinationProfileKey,         nullptr,                  0},
    {"HighlightColorant", HighlightColorOptionsKey, HighlightPrintingColorKey,     nullptr,                  0},
    {"HighlightMapColor", HighlightColorOptionsKey, HighlightMappingColorKey,      nullptr,                  0},
    {"HighlightMismatch", HighlightColorOptionsKey, HighlightMismatchActionKey,    nullptr,                  0},
    {"HighlightMap",      HighlightColorOptionsKey, HighlightMappingAlgorithmKey,  nullptr,                  0},
    {"CoverType",         FrontCoverKey,            SidesImagedKey,                nullptr,                  0},
};

std::string Exported(const ExportCase& row, std::int32_t value)
{
    CFDictionary settings = TicketFromText(".TPIFOptions: {TPIFOptionAll: true}");
    CFDictionary inner;
    if (row.dictionary == JobTypeKey) {
        inner.set(JobTypeNumberKey, 3); // a saved job, which has a format
    }
    inner.set(row.key, value);
    if (row.dictionary.empty()) {
        settings.set(row.key, value);
    } else {
        settings.set(row.dictionary, inner);
    }
    return Written([&](TPIFChannel& channel) { WriteTPIF(channel, settings, nullptr); });
}

// Values of the printer's default, and words that are only read, are written otherwise or not.
bool IsWritten(const TPIFWord& row, std::int32_t value)
{
    return value != UnsetValue && value != 0 && row.word != std::string_view("tab-stock");
}

TEST(FeatureKeywords, AreTheWordsThatTheWriterHasForTheirTicketValues)
{
    for (const auto& row : ExportCases) {
        const TPIFFeature& feature = FeatureNamed(row.feature);
        const std::string_view path = feature.paths[0];
        const std::string element(path.substr(path.rfind('.') + 1));
        for (const TPIFWord* word = feature.syntax.keywords; word->word != nullptr; ++word) {
            if (word->keyword == nullptr) {
                continue;
            }
            SCOPED_TRACE(testing::Message() << row.feature << " " << word->keyword);
            const auto mapped = row.map == nullptr ? word->value + row.offset
                                                   : TPIFConvertKeyword(row.map, word->keyword);
            ASSERT_TRUE(mapped);
            if (IsWritten(*word, *mapped)) {
                std::string content = ">";
                content.append(word->word).append("</").append(element).append(">");
                EXPECT_THAT(Exported(row, *mapped), testing::HasSubstr(content));
            }
        }
    }
}

// A row of a map whose keyword no feature has could never be reached.
TEST_F(BundledProfile, HasTheKeywordsOfTheMaps)
{
    for (const auto& row : ExportCases) {
        const auto* keywords = TDPGetFeatureSyntax(TDPGetFeature(row.feature), "Keyword");
        ASSERT_NE(keywords, nullptr) << row.feature;
        for (const auto* map = row.map; map != nullptr && map->word != nullptr; ++map) {
            EXPECT_TRUE(keywords->contains(map->word) ||
                        map->word == std::string_view("PrinterDefault"))
                << row.feature << " " << map->word;
        }
    }
}

std::set<std::string> FinishingEnums(const CFDictionary& settings)
{
    std::string text;
    {
        TPIFChannel channel([&text](std::string_view piece) { text += piece; });
        WriteTPIFFinishing(channel, settings);
    }
    const std::string start = "<value syntax=\"enum\">";
    std::set<std::string> enums;
    for (auto at = text.find(start); at != std::string::npos; at = text.find(start, at + 1)) {
        const auto from = at + start.size();
        enums.insert(text.substr(from, text.find('<', from) - from));
    }
    return enums;
}

// Every enum value that the writer has, with the choices that it is written for.
std::map<std::string, std::set<std::int32_t>> WrittenFinishings()
{
    std::map<std::string, std::set<std::int32_t>> written;
    for (const std::int32_t family : {0, 1, 3, 4, 9, 14, 18, 25, 36, 40, 49}) {
        CFDictionary base; // punched, with neither a position nor a number of holes
        base.set(FinishingOptionsKey, family);
        base.set(HolePunchValueKey, 49);
        base.set(HolePunchOptionsKey, 9);
        const auto ofFamily = FinishingEnums(base);
        for (const auto& value : ofFamily) {
            written[value].insert(family);
        }
        for (const auto key :
             {Staple1ValueKey, Staple2ValueKey, StapleCenterValueKey, FoldValueKey, BindValueKey,
              ZFoldValueKey, BookletFoldStapleKey, HolePunchValueKey, HolePunchOptionsKey}) {
            for (std::int32_t choice = 1; choice < 60; ++choice) {
                CFDictionary settings = base;
                settings.set(key, choice);
                for (const auto& value : FinishingEnums(settings)) {
                    written[value].insert(choice);
                }
            }
        }
    }
    return written;
}

TEST(FeatureKeywords, OfFinishingsAreTheWritersEnumValues)
{
    std::map<std::string, std::set<std::int32_t>> written;
    Written([&](TPIFChannel&) { written = WrittenFinishings(); });
    std::set<std::string> words;
    const auto* rows = FeatureNamed("Finishings").syntax.keywords;
    for (const auto* row = rows; row->word != nullptr; ++row) {
        SCOPED_TRACE(row->keyword);
        EXPECT_THAT(written[row->word], testing::Contains(row->value));
        EXPECT_TRUE(words.insert(row->word).second);
    }
    EXPECT_EQ(words.size(), written.size());
}

} // namespace
} // namespace tarvo
