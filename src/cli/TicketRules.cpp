#include "cli/TicketRules.h"

#include "cli/TicketSettings.h"
#include "records/HighlightColorKeys.h"
#include "records/ImageShiftKeys.h"
#include "settings/SpecialPageMaps.h"
#include "settings/StockMaps.h"
#include "tpif/TPIFFeatures.h"
#include "tpif/TPIFFinishing.h"
#include "tpif/TPIFMedia.h"
#include "tpif/TPIFWords.h"

#include <algorithm>
#include <cstddef>

namespace tarvo {
namespace {

// What menus and documents leave out: nothing chosen, and a position of holes.
constexpr TPIFWord NotChosen[] = {
    {"",      0},
    {nullptr, 0},
};
constexpr TPIFWord DriversPunch[] = {
    {"",      DriversPunchPosition},
    {nullptr, 0                   },
};

constexpr const char* NameOf(const TPIFWord& row)
{
    return row.word;
}

template <typename Row>
constexpr const char* NameOf(const Row& row)
{
    return row.key;
}

template <typename Row>
void AddValues(NumberRanges& ranges, const Row* row)
{
    for (; NameOf(*row) != nullptr; ++row) {
        if (row->value != UnsetValue) { // it goes without saying
            ranges.add(row->value);
        }
    }
}

// The values of tables.
template <const auto&... Tables>
const NumberRanges& ValuesOf()
{
    static const NumberRanges ranges = [] {
        NumberRanges values;
        (AddValues(values, Tables), ...);
        return values;
    }();
    return ranges;
}

// The rows of a table, from 0.
template <const auto& Table>
const NumberRanges& RowsOf()
{
    static const NumberRanges ranges = [] {
        NumberRanges rows;
        rows.add(0, CountMaps(Table) - 1);
        return rows;
    }();
    return ranges;
}

template <std::int32_t First, std::int32_t Last>
const NumberRanges& Between()
{
    static const NumberRanges ranges = [] {
        NumberRanges numbers;
        numbers.add(First, Last);
        return numbers;
    }();
    return ranges;
}

// The numbers that a function knows.
template <bool (*IsKnown)(std::int32_t)>
const NumberRanges& Known()
{
    static const NumberRanges ranges = [] {
        constexpr std::int32_t Highest = 99;
        NumberRanges numbers;
        for (std::int32_t number = 0; number <= Highest; ++number) {
            if (IsKnown(number)) {
                numbers.add(number);
            }
        }
        return numbers;
    }();
    return ranges;
}

template <std::size_t Size>
struct FeatureName {
    consteval FeatureName(const char (&name)[Size]) { std::copy_n(name, Size, text); }
    char text[Size] = {};
};

// What a feature of the documents takes: its numbers, or the length of its names.
template <FeatureName Name>
const NumberRanges& OfFeature()
{
    static const NumberRanges ranges = [] {
        NumberRanges limits;
        for (const TPIFFeature& feature : TPIFFeatures()) {
            if (std::string_view(feature.name) != Name.text) {
                continue;
            }
            if (feature.syntax.numberLimits) {
                limits.add(feature.syntax.numberLimits->minimum,
                           feature.syntax.numberLimits->maximum);
            }
            if (feature.syntax.longestName) {
                limits.add(0, *feature.syntax.longestName);
            }
        }
        return limits;
    }();
    return ranges;
}

constexpr std::int32_t LongestProfile = LongestProfileName;
constexpr std::int32_t LongestFormName = LongestFormNameInput;
constexpr std::int32_t Highest16Bits = 65535;
constexpr std::int32_t HighestHue = 36000; // in hundredths, as the next
constexpr std::int32_t HighestPercent = 10000;

using enum EntryKind;

// clang-format off
constexpr EntryRule StockRules[] = {
    {StockSizeKey,           Number, ValuesOf<CompleteStockSizeMap>},
    {StockWidthKey,          Number, OfFeature<"StockSize">},
    {StockLengthKey,         Number, OfFeature<"StockSize">},
    {StockTypeKey,           Number, Known<IsStockType>},
    {StockCustomTypeKey,     Text,   OfFeature<"StockType">},
    {StockModulusKey,        Number, OfFeature<"StockOrderCount">},
    {StockColorKey,          Number, ValuesOf<StockColorMap, StockColorWords, StockColorNames>},
    {StockCustomColorKey,    Text,   OfFeature<"StockColor">},
    {StockWeightKey,         Number, OfFeature<"StockWeight">},
    {StockPunchedKey,        Number, ValuesOf<StockPunchedMap>},
    {StockDescriptionKey,    Text,   OfFeature<"StockDescription">},
    {StockSidesCoatedKey,    Number, Between<CoatedNowhere, CoatedInBack>},
    {StockCoatingTypeKey,    Number, ValuesOf<CoatingTypeMap>},
    {StockFinishKey,         Number, ValuesOf<FinishMap>},
    {StockGrainKey,          Number, ValuesOf<GrainMap>},
    {StockCustomNameKey,     Text},
    {StockCustomNameOnlyKey, Flag},
    {StockCommentKey,        Text},
    {"",                     Anything},
};

constexpr EntryRule ShiftRules[] = {
    {ShiftTwoSidedModeKey,  Number, ValuesOf<ImageShiftOptions2SidedMap>},
    {ShiftInchesKey,        Count},
    {ShiftFullPrecisionKey, FlagOrNumber},
    {ShiftX1Key,            Count},
    {ShiftY1Key,            Count},
    {ShiftX2Key,            Count},
    {ShiftY2Key,            Count},
    {"",                    Anything},
};

constexpr EntryRule FormsRules[] = {
    {UseExistingFormKey,    Count, Between<1, 2>},
    {MergeWithStringKey,    Text,  Between<0, LongestFormName>},
    {NewFormStringKey,      Text,  Between<0, LongestFormName>},
    {CyclePagesKey,         Count, Between<0, MostCyclePages>},
    {ShiftInchesKey,        Count},
    {ShiftFullPrecisionKey, FlagOrNumber},
    {ShiftX1Key,            Count},
    {ShiftY1Key,            Count},
    {"",                    Anything},
};

constexpr EntryRule JobTypeDictionaryRules[] = {
    {JobTypeNumberKey,       Count,  ValuesOf<JobTypeMap, OptionalJobTypeMap>},
    {SavedJobNameKey,        Text,   OfFeature<"SaveName">},
    {SavedJobLocationKey,    Text,   OfFeature<"SaveLocation">},
    {UseJobNameKey,          Flag},
    {SecurePrintPasswordKey, Text},
    {DelayedPrintTimeKey,    Date},
    {SaveFormatKey,          Number, ValuesOf<SaveFormatWords>},
    {"",                     Anything},
};

constexpr EntryRule ColorCastRules[] = {
    {FullColorCyanRedKey,      Number, OfFeature<"AdjustCyanRed">},
    {FullColorMagentaGreenKey, Number, OfFeature<"AdjustMagentaGreen">},
    {FullColorYellowBlueKey,   Number, OfFeature<"AdjustYellowBlue">},
    {"",                       Anything},
};

constexpr EntryRule FullColorRules[] = {
    {FullColorLightnessKey,         Number,       OfFeature<"AdjustLightness">},
    {FullColorContrastKey,          Number,       OfFeature<"AdjustContrast">},
    {FullColorSaturationKey,        Number,       OfFeature<"AdjustSaturation">},
    {FullColorCastKey,              Entries,      nullptr, ColorCastRules},
    {FullColorTrappingKey,          Number,       ValuesOf<TrappingMap>},
    {FullColorTrappingFastKey,      Number,       OfFeature<"TrapWidthFast">},
    {FullColorTrappingSlowKey,      Number,       OfFeature<"TrapWidthSlow">},
    {FullColorBlackOverprintKey,    Number,       ValuesOf<TrappingMap>},
    {FullColorTRCKey,               Text,         OfFeature<"TRC">},
    {RGBImagesProfileKey,           NumberOrText, ValuesOf<RGBSourceWords>},
    {RGBTextAndGraphicsProfileKey,  NumberOrText, ValuesOf<RGBSourceWords>},
    {CMYKImagesProfileKey,          NumberOrText, ValuesOf<CMYKSourceWords>},
    {CMYKTextAndGraphicsProfileKey, NumberOrText, ValuesOf<CMYKSourceWords>},
    {GrayImagesProfileKey,          Text,         Between<0, LongestProfile>},
    {GrayTextAndGraphicsProfileKey, Text,         Between<0, LongestProfile>},
    {DestinationProfileKey,         NumberOrText, ValuesOf<DestinationWords>},
    {ImageRenderingKey,             Number,       ValuesOf<ObjectRenderingMap>},
    {TextRenderingKey,              Number,       ValuesOf<ObjectRenderingMap>},
    {GraphicRenderingKey,           Number,       ValuesOf<ObjectRenderingMap>},
    {"",                            Anything},
};

constexpr EntryRule HighlightRules[] = {
    {HighlightPrintingColorKey,    Count,        RowsOf<HighlightPrintingColorMap>},
    {HighlightMappingColorKey,     Count,        RowsOf<HighlightMappingColorMap>},
    {HighlightMappingAlgorithmKey, Count,        RowsOf<HighlightMappingAlgorithmMap>},
    {HighlightMismatchActionKey,   Count,        RowsOf<HighlightMismatchColorMap>},
    {HighlightColorRGBKey,         FlagOrNumber},
    {HighlightColorRKey,           Count,        Between<0, Highest16Bits>},
    {HighlightColorGKey,           Count,        Between<0, Highest16Bits>},
    {HighlightColorBKey,           Count,        Between<0, Highest16Bits>},
    {HighlightColorHKey,           Count,        Between<0, HighestHue>},
    {HighlightColorSKey,           Count,        Between<0, HighestPercent>},
    {HighlightColorVKey,           Count,        Between<0, HighestPercent>},
    {"",                           Anything},
};

constexpr EntryRule InvertRules[] = {
    {NegativeImageKey, Flag},
    {MirrorImageKey,   Flag},
    {"",               Anything},
};

constexpr EntryRule CoverRules[] = {
    {StartPageKey,   Count},
    {SidesImagedKey, Count,   ValuesOf<CoverSidesImagedMap>},
    {PageStockKey,   Entries, nullptr, StockRules},
    {"",             Anything},
};

constexpr EntryRule InsertRules[] = {
    {StartPageKey,      Count,   OfFeature<"Inserts">},
    {InsertQuantityKey, Count,   OfFeature<"Inserts">},
    {PageStockKey,      Entries, nullptr, StockRules},
    {"",                Anything},
};

constexpr EntryRule ExceptionRules[] = {
    {StartPageKey,          Count,   OfFeature<"Exceptions">},
    {EndPageKey,            Count,   OfFeature<"Exceptions">},
    {PageStockKey,          Entries, nullptr, StockRules},
    {SidesImagedKey,        Number,  ValuesOf<PlexMap>},
    {PageImageShiftKey,     Entries, nullptr, ShiftRules},
    {PageLightenDarkenKey,  Number,  OfFeature<"LightenDarken">},
    {PageFullColorKey,      Entries, nullptr, FullColorRules},
    {PageAntialiasingKey,   Number,  ValuesOf<AntialiasingMap>},
    {PageHalftoneScreenKey, Number,  ValuesOf<HalftoneWords>},
    {PageOutputColorKey,    Number,  ValuesOf<OutputColorMap>},
    {"",                    Anything},
};

constexpr EntryRule ExportRules[] = {
    {ExportAllKey,        Anything},
    {ExportCoversKey,     Anything},
    {ExportInsertsKey,    Anything},
    {ExportExceptionsKey, Anything},
    {"",                  Anything},
};

constexpr EntryRule Rules[] = {
    {ExportOptionsKey,          Entries, nullptr, ExportRules},
    {JobTypeKey,                Entries, nullptr, JobTypeDictionaryRules},
    {JobLevelStockKey,          Entries, nullptr, StockRules},
    {DuplexKey,                 Number,  ValuesOf<DuplexMap>},
    {OutputDestinationKey,      Number,  Between<1, 9>}, // trays of every printer
    {OutputColorKey,            Number,  ValuesOf<OutputColorMap>},
    {BackgroundFormsOptionsKey, Entries, nullptr, FormsRules},
    {FinishingOptionsKey,       Number,  Known<IsFinishingFamily>},
    {Staple1ValueKey,           Number,  ValuesOf<NotChosen, OneStapleMap>},
    {Staple2ValueKey,           Number,  ValuesOf<NotChosen, TwoStaplesMap>},
    {StapleCenterValueKey,      Number,  ValuesOf<NotChosen, CenterStapleMap>},
    {FoldValueKey,              Number,  ValuesOf<NotChosen, FoldMap, ComplexBookletFoldMap, ComplexFoldMap>},
    {BindValueKey,              Number,  ValuesOf<NotChosen, BindMap>},
    {HolePunchValueKey,         Number,  ValuesOf<NotChosen, PunchNoneMap, DriversPunch>},
    {HolePunchOptionsKey,       Number,  ValuesOf<NotChosen, HolePunchOptionsMap>},
    {ZFoldValueKey,             Number,  ValuesOf<NotChosen, ZFoldMap>},
    {CustomFinishingKey,        Text},
    {BookletFoldStapleKey,      Number,  ValuesOf<NotChosen, BookletFinishingMap>},
    {BookletLayoutKey,          Flag},
    {SlipSheetKey,              Number,  Between<0, 2>}, // 1 is off
    {OffsetKey,                 Number,  ValuesOf<NotChosen, OffsetMap>},
    {OffsetEnableSubsetKey,     Count,   Between<0, 1>},
    {OffsetPagesPerSubsetKey,   Number,  OfFeature<"PagesPerSubset">},
    {FrontCoverKey,             Entries, nullptr, CoverRules},
    {BackCoverKey,              Entries, nullptr, CoverRules},
    {InsertListKey,             ListOfEntries, nullptr, InsertRules},
    {ExceptionListKey,          ListOfEntries, nullptr, ExceptionRules},
    {ResolutionKey,             Number,  ValuesOf<TicketResolutionMap>},
    {HalftoneScreenKey,         Number,  ValuesOf<HalftoneWords>},
    {HighlightColorOptionsKey,  Entries, nullptr, HighlightRules},
    {JobImageShiftKey,          Entries, nullptr, ShiftRules},
    {InvertImageOptionsKey,     Entries, nullptr, InvertRules},
    {FullColorOptionsKey,       Entries, nullptr, FullColorRules},
    {AntialiasingKey,           Number,  ValuesOf<AntialiasingMap>},
    {LightenDarkenKey,          Number,  OfFeature<"LightenDarken">},
    {TonerSaverKey,             Flag},
    {JobNotesJobNameKey,        Text},
    {JobNotesSenderNameKey,     Text},
    {JobNotesRecipientKey,      Text},
    {JobNotesMessageKey,        Text},
    {JobNotesSheetMessageKey,   Text},
    {JobNotesAdditionalInfoKey, Text},
    {BookletDrawOutlinesKey,    Number,  ValuesOf<NotChosen, BookletOutlinesMap>},
    {BookletForceNewSizeKey,    Flag},
    {OPISubstitutionKey,        Number,  ValuesOf<OPISubstitutionMap>},
    {OPIPrescanKey,             Number,  ValuesOf<OPIPrescanMap>},
    {OutputOrderKey,            Number,  ValuesOf<OutputOrderMap>},
    {QuillonEmulationKey,       Number,  Between<1, 3>}, // 1 as a ticket without it
    {RotateImageKey,            Number,  ValuesOf<NotChosen, RotationMap>},
    {BookletLayoutOrderKey,     Number},
    {EmitTPIFKey,               Number,  Between<0, 1>},
    {AccountingOnKey,           Number},
    {AccountingUserKey,         Text},
    {AccountingAccountKey,      Text},
    {"",                        Anything},
};
// clang-format on

} // namespace

const EntryRule* TicketRules()
{
    return Rules;
}

const EntryRule* FindRule(const EntryRule* rules, std::string_view key)
{
    for (; !rules->key.empty(); ++rules) {
        if (rules->key == key) {
            return rules;
        }
    }
    return nullptr;
}

} // namespace tarvo
