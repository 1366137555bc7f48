#include "settings/SettingMap.h"

#include "platform/bundle/CFBundle.h"
#include "settings/ColorMaps.h"
#include "settings/FinishingMaps.h"
#include "settings/ImageMaps.h"
#include "settings/JobMaps.h"
#include "settings/OutputMaps.h"
#include "settings/SpecialPageMaps.h"
#include "settings/StockMaps.h"
#include "settings/WatermarkMaps.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tarvo {
namespace {

// Every table of menu choices. CompleteStockSizeMap, whose rows hold more, stands for itself.
// clang-format off
constexpr const SettingMap* AllSettingMaps[] = {
    StockSizeMap, StockColorMap, CompleteStockColorMap, StockTypeMap, CompleteStockTypeMap,
    StockPunchedMap, WeightMap, SidesCoatedMap, CoatingTypeMap, FinishMap, GrainMap,
    StockDescriptionMap, StockLibraryMap, NamedPaperPaperListMap, CoverOptionMap,
    CoverSidesImagedMap, OutputColorMap, TrappingMap, BlackOverprintMap, TRCMap,
    GraySourceProfileMap, RGBSourceProfileMap, CMYKSourceProfileMap, DestinationProfileMap,
    ObjectRenderingMap, HighlightPrintingColorMap, HighlightMappingAlgorithmMap,
    HighlightMismatchColorMap, HighlightMappingColorMap, ResolutionMap, HalftoneScreenMap,
    AntialiasingMap, ImageShiftOptions2SidedMap, ImageShiftOptions1SidedMap, OutputDestOCTMap,
    OutputDestLCSSMap, OutputDestHCSSMap, OutputDestHCSS_BKMap, OutputStapleOCTMap,
    OutputStapleLCSSMap, OutputStapleHCSSMap, PlainFinishingMap, OneStapleMap, TwoStaplesMap,
    CenterStapleMap, BindMap, FoldMap, BookletFoldMap, PunchMap, PunchNoneMap, HolePunchOptionsMap,
    ZFoldMap, ComplexBookletFoldMap, ComplexFoldMap, OffsetMap, JobTypeMap, JobFormatMap, DuplexMap,
    PlexMap, WatermarkOptionsMap, WatermarkStringMap,
};
// clang-format on
constexpr SettingMap FirstValueZeroMap[] = {
    {"First",  0, 0},
    {"Second", 2, 0},
    {nullptr,  0, 0},
};
constexpr SettingMap GapMap[] = {
    {"First",          3, 0},
    {"Gap",            0, 0},
    {"Behind the gap", 5, 0},
    {nullptr,          0, 0},
};
constexpr SettingMap EmptyMap[] = {
    {nullptr, 0, 0}
};

struct SearchCase {
    const char* name;
    const SettingMap* map;
    std::int32_t value;
    std::int32_t position;
    const char* key;
};

constexpr SearchCase SearchCases[] = {
    {"first row",                             StockSizeMap,               UnsetValue, 1,  "PrinterDefault" },
    {"last row",                              StockSizeMap,               75,         12, "Custom..."      },
    {"unknown",                               StockSizeMap,               6,          -1, nullptr          },
    {"zero without a row",                    StockSizeMap,               0,          -1, nullptr          },
    {"default row in the last place",         StockPunchedMap,            UnsetValue, 3,  "PrinterDefault" },
    {"first value 0 answers for later rows",  FirstValueZeroMap,          2,          1,  "First"          },
    {"first value 0 answers for the unknown", FirstValueZeroMap,          9,          1,  "First"          },
    {"equal to the first before a 0",         GapMap,                     3,          1,  "First"          },
    {"a later 0 hides what follows",          GapMap,                     5,          2,  "Gap"            },
    {"labels, stored but not offered",        CompleteStockTypeMap,       9,          5,  "Labels"         },
    {"labels in the menu of types",           StockTypeMap,               9,          -1, nullptr          },
    {"in the gap",                            ImageShiftOptions2SidedMap, 2,          -1, nullptr          },
    {"any description",                       StockDescriptionMap,        7,          2,  "Custom..."      },
    {"values out of order",                   HalftoneScreenMap,          29,         4,  "42lpi"          },
    {"below a gap",                           ImageShiftOptions2SidedMap, 3,          3,  "MirrorX"        },
    {"largest device's own tray",             OutputDestHCSS_BKMap,       7,          7,  "Booklet Tray"   },
    {"last fold",                             ComplexFoldMap,             48,         4,  "ZTriFoldOutside"},
    {"last job type",                         JobTypeMap,                 9,          3,  "BackgroundForms"},
    {"empty table",                           EmptyMap,                   1,          -1, nullptr          },
};

TEST(SettingMapSearch, StopsAtTheValueOrAtZero)
{
    for (const auto& row : SearchCases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(TicketToUI(row.map, row.value), row.position);
        EXPECT_STREQ(LocalizedKeyForTicketValue(row.map, row.value), row.key);
    }
}

// A row after a value 0, or with a value that came before, could never be found. Two choices of one
// text could not be told apart, and a key that no language has would show as "STRING NOT FOUND".
template <typename Row>
void ExpectOneRowAndOneTextForEachChoice(const Row* map, const CFBundle& bundle)
{
    std::set<std::string> texts = {"", "STRING NOT FOUND"};
    for (const Row* row = map; row->key != nullptr; ++row) {
        EXPECT_EQ(RowForTicketValue(map, row->value), row) << row->key;
        const std::string& text = bundle.localizedString(row->key);
        EXPECT_TRUE(texts.insert(text).second) << row->key << " reads " << text;
    }
}

TEST(SettingMaps, HaveOneRowAndOneTextForEachChoiceInEveryLanguage)
{
    for (const char* language : {"en", "de"}) {
        const CFBundle bundle(TARVO_BINARY_DIR "/TarvoFeatures.plugin", {language});
        for (std::size_t index = 0; index < std::size(AllSettingMaps); ++index) {
            SCOPED_TRACE(std::string(language) + ", table " + std::to_string(index));
            const SettingMap* map = AllSettingMaps[index];
            ExpectOneRowAndOneTextForEachChoice(map, bundle);
            EXPECT_TRUE(RowForTicketValue(map, 0)->key == nullptr || map == StockDescriptionMap);
        }
        SCOPED_TRACE(std::string(language) + ", CompleteStockSizeMap");
        ExpectOneRowAndOneTextForEachChoice(CompleteStockSizeMap, bundle);
    }
}

TEST(PaperSizeSearch, NamesTheSizesItHas)
{
    const std::pair<std::int32_t, const char*> cases[] = {
        {UnsetValue, "PrinterDefault"    },
        {75,         "Custom"            }, // the last row
        {59,         "Postcard (4 x 6\")"},
        {70,         "B3 (105 x 148 mm)" }, // dimensions that are not its own
        {25,         "Envelope (6 x 9\")"}, // of a postcard's size
        {6,          nullptr             }, // a PPD page size only
    };
    for (const auto& [value, key] : cases) {
        EXPECT_STREQ(LocalizedKeyForPaperSizeTicketValue(CompleteStockSizeMap, value), key);
    }
}

// Sizes of documents and printers are matched exactly, so a slip would lose them.
TEST(PaperSizes, AreTheirPointsAndOnlyTwoShareOne)
{
    for (const auto* row = CompleteStockSizeMap; row->key != nullptr; ++row) {
        SCOPED_TRACE(row->key);
        int sameMillimetres = 0;
        for (const auto* other = CompleteStockSizeMap; other->key != nullptr; ++other) {
            sameMillimetres += other->width == row->width && other->length == row->length;
        }
        const bool sixByNine = row->value == 62 || row->value == 25;
        EXPECT_EQ(sameMillimetres, sixByNine ? 2 : 1);
        if (row->value != UnsetValue) {
            // Points are off the millimetres by the rounding of both: at most 2.
            EXPECT_NEAR(row->widthPoints, row->width * 72 / 2540.0, 2);
            EXPECT_NEAR(row->lengthPoints, row->length * 72 / 2540.0, 2);
        }
    }
}

TEST(SettingMapMenu, CountsItemsAndGivesTheirValues)
{
    EXPECT_EQ(CountMaps(EmptyMap), 0);
    EXPECT_EQ(CountMaps(GapMap), 3);
    EXPECT_EQ(UIToTicket(StockSizeMap, 1), UnsetValue);
    EXPECT_EQ(UIToTicket(StockSizeMap, CountMaps(StockSizeMap)), 75);
}

TEST(FourCharCode, PutsTheFirstCharacterHighest)
{
    EXPECT_EQ(FourCharCode("Slib"), 0x536C6962U);
    EXPECT_EQ(FourCharCode("\xFF\0\0\1"), 0xFF000001U);
    EXPECT_EQ(StockLibraryMap[2].command, FourCharCode("SlCn"));
}

} // namespace
} // namespace tarvo
