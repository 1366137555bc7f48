#include "tpif/TPIFFeatures.h"

#include "printer/FeatureDatabase.h"
#include "tpif/TPIFWords.h"

#include <limits>

namespace tarvo {
namespace {

// The word of a stock type is in StockTypeRows of TPIFMedia.cpp too, beside what else a type
// implies. Tab stock is only read: it is written as pre-cut tabs.
constexpr TPIFWord StockTypeWords[] = {
    {"stationery",    1,  "Plain"       },
    {"transparency",  2,  "Transparency"},
    {"labels",        9,  "Labels"      },
    {"pre-cut-tabs",  4,  "PrecutTab"   },
    {"full-cut-tabs", 5,  "FullCutTab"  },
    {"envelope",      8,  "Envelope"    },
    {"bond",          13, "Bond"        },
    {"other",         22, "Other"       },
    {"tab-stock",     24, "TabStock"    },
    {nullptr,         0,  nullptr       },
};

// Two more elements that tell a stock type; their defaults tell none. Also in StockTypeRows.
constexpr TPIFWord StockPrePrintedWords[] = {
    {"blank",       0,  "Blank"     },
    {"pre-printed", 3,  "PrePrinted"},
    {"letter-head", 14, "Letterhead"},
    {nullptr,       0,  nullptr     },
};

constexpr TPIFWord StockRecycledWords[] = {
    {"none",     0,  "None"    },
    {"standard", 10, "Recycled"},
    {nullptr,    0,  nullptr   },
};

// A side without a coating; the coatings themselves are keywords of that side as well.
constexpr TPIFWord StockUncoatedWords[] = {
    {"none",  1, StockUncoatedKeyword},
    {nullptr, 0, nullptr             },
};

// The enum values of TPIFFinishing.cpp, with the ticket's choice for each part of the set.
constexpr TPIFWord FinishingWords[] = {
    {"3",     1,  "None"               },
    {"13",    3,  "SignatureBooklet"   },
    {"20",    5,  "1StapleTLTR"        },
    {"21",    6,  "1StapleBLTL"        },
    {"22",    7,  "1StapleTRBR"        },
    {"23",    8,  "1StapleBRBL"        },
    {"28",    10, "2StaplesLT"         },
    {"29",    11, "2StaplesTR"         },
    {"31",    12, "2StaplesBL"         },
    {"30",    13, "2StaplesRB"         },
    {"32",    26, "CenterStapleLT"     },
    {"33",    27, "CenterStapleTR"     },
    {"35",    28, "CenterStapleBL"     },
    {"34",    29, "CenterStapleRB"     },
    {"50",    15, "BindLT"             },
    {"52",    16, "BindRB"             },
    {"110",   8,  "BookletFoldStaple"  },
    {"111",   7,  "BookletFold"        },
    {"1000",  19, "FoldCFold"          },
    {"1001",  20, "FoldZFold"          },
    {"1003",  41, "BiFoldSingleInside" },
    {"1004",  42, "BiFoldSingleOutside"},
    {"1005",  46, "CTriFoldOutside"    },
    {"1012",  48, "ZTriFoldOutside"    },
    {"1011",  38, "ZFoldLeftBind"      },
    {"1008",  39, "ZFoldRightBind"     },
    {"93",    32, "HolePunchLT"        },
    {"94",    33, "HolePunchTR"        },
    {"95",    34, "HolePunchBL"        },
    {"96",    35, "HolePunchRB"        },
    {"90",    3,  "Holes2"             },
    {"91",    4,  "Holes3"             },
    {"92",    5,  "Holes4"             },
    {nullptr, 0,  nullptr              },
};

// Nobody can send a fax from a print dialog that asks for no number.
constexpr TPIFOffer JobTypeOffers[] = {
    {"Hold",         true },
    {"SaveAndPrint", true },
    {"Fax",          false},
    {"SecurePrint",  true },
    {"DelayedPrint", true },
    {"SampleSet",    true },
    {nullptr,        false},
};

// Lengths in characters.
constexpr std::int32_t LongestStockName = 30;
constexpr std::int32_t LongestName = 255;
constexpr std::int32_t LongestUri = 1023;

constexpr TPIFFeatureSyntax Keywords(const TPIFWord* words, const char* byDefault = nullptr)
{
    return {.keywords = words, .defaultKeyword = byDefault};
}

constexpr TPIFFeatureSyntax Name(std::optional<std::int32_t> longest = std::nullopt)
{
    return {.takesNames = true, .longestName = longest};
}

constexpr TPIFFeatureSyntax KeywordsOrName(const TPIFWord* words, std::int32_t longest,
                                           const char* byDefault = nullptr)
{
    return {
        .keywords = words, .defaultKeyword = byDefault, .takesNames = true, .longestName = longest};
}

// Some of the keywords' words are names.
constexpr TPIFFeatureSyntax NamedKeywords(const TPIFWord* words)
{
    return {.keywords = words,
            .keywordsUseNameSyntax = true,
            .takesNames = true,
            .longestName = LongestName};
}

constexpr TPIFFeatureSyntax Number()
{
    return {.takesNumbers = true};
}

constexpr TPIFFeatureSyntax Number(std::int32_t minimum, std::int32_t maximum)
{
    return {
        .takesNumbers = true, .numberLimits = TPIFNumberLimits{minimum, maximum}
    };
}

constexpr TPIFFeatureSyntax SidesCoated = {.keywords = StockUncoatedWords,
                                           .moreKeywords = StockCoatingWords,
                                           .defaultKeyword = StockUncoatedKeyword};
constexpr TPIFFeatureSyntax JobTypes = {.keywords = SaveDispositionWords, .offers = JobTypeOffers};
constexpr TPIFFeatureSyntax Adjustment = Number(-100, 100);
constexpr TPIFFeatureSyntax TrapWidth = Number(0, 20);
constexpr TPIFFeatureSyntax Rendering = Keywords(RenderingIntentWords, "Automatic");
constexpr TPIFFeatureSyntax NoSyntax = {}; // the elements inside have features of their own

constexpr auto ByName = TPIFFeatureUse::ByName;

constexpr TPIFFeature Feature(const char* name, TPIFPaths paths, const TPIFFeatureSyntax& syntax,
                              TPIFFeatureUse use = TPIFFeatureUse::Attribute)
{
    return {name, paths, syntax, use};
}

constexpr TPIFFeature Features[] = {
    Feature("JobName", ".job-name", Name(), ByName),
    Feature("SenderName", ".requesting-user-name", Name(), ByName),

    Feature("ColorEffects", ".color-effects-type", Keywords(ColorEffectsWords)),
    Feature("Sides", ".sides", Keywords(SidesWords, "Simplex")),
    Feature("OutputDestination", ".output-bin", Keywords(OutputBinWords, "Auto")),

    Feature("StockWeight", ".media-col.media-weight-metric", Number(1, 999)),
    Feature("StockGrain", ".media-col.media-grain", Keywords(StockGrainWords)),
    Feature("StockFinish", ".media-col.media-tooth", Keywords(StockFinishWords)),
    Feature("StockColor", ".media-col.media-color",
            KeywordsOrName(StockColorWords, LongestStockName, "White")),
    Feature("StockType", ".media-col.media-type",
            KeywordsOrName(StockTypeWords, LongestStockName, "Plain")),
    Feature("StockPrePrinted", ".media-col.media-pre-printed",
            Keywords(StockPrePrintedWords, "Blank")),
    Feature("StockRecycled", ".media-col.media-recycled", Keywords(StockRecycledWords, "None")),
    Feature("StockOrderCount", ".media-col.media-order-count", Number(0, 32767)),
    Feature("StockDescription", ".media-col.media-description", Name(LongestName)),
    Feature("StockSize",
            TPIFPaths(".media-col.media-size.x-dimension", ".media-col.media-size.y-dimension"),
            Number(1, std::numeric_limits<std::int32_t>::max())),
    Feature("StockHoleCount", ".media-col.media-hole-count", Number(0, 4)),
    Feature("StockSidesCoated",
            TPIFPaths(".media-col.media-front-coating", ".media-col.media-back-coating"),
            SidesCoated),
    Feature("StockCoatingType", TPIFPaths(), Keywords(StockCoatingWords, "Gloss"), ByName),

    Feature(JobTypeFeature, ".job-save-disposition.save-disposition", JobTypes),
    // An export writes the hold alone, outside of the disposition.
    Feature("JobHold", TPIFPaths(".job-save-disposition.job-hold-until", ".job-hold-until"),
            Keywords(HoldWords)),
    Feature("SaveLocation", ".job-save-disposition.save-info.value.save-location",
            Name(LongestUri)),
    Feature("SaveName", ".job-save-disposition.save-info.value.save-name", Name(LongestName)),
    Feature("SaveFormat", ".job-save-disposition.save-info.value.save-document-format",
            Keywords(SaveFormatWords, "TIFFSinglePage")),

    Feature("SlipSheets", ".separator-sheets.separator-sheets-type", Keywords(SlipSheetWords)),
    Feature("Finishings", ".finishings.value", Keywords(FinishingWords)),
    Feature("Offset", ".job-offset.value", Keywords(OffsetWords)),
    Feature("PagesPerSubset", TPIFPaths(".pages-per-subset", ".pages-per-subset.value"),
            Number(0, 999999)),

    Feature("Resolution",
            TPIFPaths(".printer-resolution.cross-feed", ".printer-resolution.feed-direction"),
            Number(0, 9600)),
    Feature("LightenDarken", ".adjust-bw-darkness-value", Adjustment),
    Feature("HalftoneScreen", ".halftone-graphics", Keywords(HalftoneWords)),
    Feature("AntiAliasing", ".anti-aliasing", Keywords(AntiAliasingWords, "Enabled")),
    Feature("PageRotation", ".page-rotation", Keywords(PageRotationWords, "0")),
    Feature("PageDelivery", ".page-delivery", Keywords(PageDeliveryWords, "SameOrderFaceDown")),
    Feature("OPIImageInsertion", ".opi-image-insertion", Keywords(OPIImageInsertionWords)),
    Feature("OPIPreScan", ".opi-image-pre-scan", Keywords(OPIPreScanWords)),
    Feature("DarknessMode", ".adjust-bw-darkness-mode", Keywords(DarknessModeWords, "Normal")),

    Feature("AccountingData", ".job-accounting-data", Name()),
    Feature("JobMessage", ".job-message-to-operator", Name()),
    Feature("Recipient", ".job-recipient-name", Name()),
    Feature("SheetMessage", ".job-sheet-message", Name()),

    Feature("TRC", ".trc.trc-name", Name(LongestName)),
    Feature("RenderingGraphics", ".rendering-intent-graphics", Rendering),
    Feature("RenderingImages", ".rendering-intent-images", Rendering),
    Feature("RenderingText", ".rendering-intent-text", Rendering),
    Feature("AdjustLightness", ".adjust-lightness", Adjustment),
    Feature("AdjustContrast", ".adjust-contrast", Adjustment),
    Feature("AdjustSaturation", ".adjust-saturation", Adjustment),
    Feature("AdjustCyanRed", ".adjust-cyan-red", Adjustment),
    Feature("AdjustMagentaGreen", ".adjust-magenta-green", Adjustment),
    Feature("AdjustYellowBlue", ".adjust-yellow-blue", Adjustment),
    Feature("TrapWidthFast", ".trap-width-fast", TrapWidth),
    Feature("TrapWidthSlow", ".trap-width-slow", TrapWidth),
    Feature("Trapping", ".trapping", Keywords(TrappingWords)),
    Feature("BlackOverprint", ".black-overprint", Keywords(BlackOverprintWords)),
    Feature("RGBSourceImages", ".undefined-source-rgb-images", NamedKeywords(RGBSourceWords)),
    Feature("RGBSourceText", ".undefined-source-rgb-text", NamedKeywords(RGBSourceWords)),
    Feature("CMYKSourceImages", ".undefined-source-cmyk-images", NamedKeywords(CMYKSourceWords)),
    Feature("CMYKSourceText", ".undefined-source-cmyk-text", NamedKeywords(CMYKSourceWords)),
    Feature("GraySourceImages", ".undefined-source-gray-images", Name(LongestName)),
    Feature("GraySourceText", ".undefined-source-gray-text", Name(LongestName)),
    Feature("DestinationFront", ".color-destination-profile-front",
            KeywordsOrName(DestinationWords, LongestName)),
    Feature("DestinationBack", ".color-destination-profile-back",
            KeywordsOrName(DestinationWords, LongestName)),

    Feature("HighlightColorant", ".highlight-colorant", Keywords(HighlightColorantWords)),
    Feature("HighlightMapColor", ".highlight-map-color", Keywords(HighlightMapColorWords)),
    Feature("HighlightMismatch", ".highlight-colorant-mismatch", Keywords(HighlightMismatchWords)),
    Feature("HighlightMap", ".highlight-map", Keywords(HighlightMapWords)),

    Feature("FormName", ".forms-col.value.form-name", Name(LongestName)),
    Feature("FormCycleStart", ".forms-col.value.form-cycle-start", Number(0, 999999)),
    Feature("FormXShift", ".forms-col.value.forms-x-image-shift", Number()),
    Feature("FormYShift", ".forms-col.value.forms-y-image-shift", Number()),
    Feature("NewFormName", ".form-save.form-save-info.value.form-save-name", Name(LongestName)),
    Feature("ImageShift",
            TPIFPaths(".x-side1-image-shift", ".y-side1-image-shift", ".x-side2-image-shift",
                      ".y-side2-image-shift"),
            Number()),

    Feature("FrontCover", ".cover-front", NoSyntax),
    Feature("BackCover", ".cover-back", NoSyntax),
    Feature("CoverType", ".cover-type", Keywords(FrontCoverWords, "PrintNone"), ByName),
    Feature("Inserts", ".insert-sheet.value", Number(0, 9999999)),
    Feature("Exceptions", ".page-overrides.value", Number(1, 9999999)),
};

} // namespace

std::span<const TPIFFeature> TPIFFeatures()
{
    return Features;
}

} // namespace tarvo
