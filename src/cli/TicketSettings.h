#pragma once

#include "records/BackgroundFormsKeys.h"
#include "records/FullColorKeys.h"
#include "records/JobTypeKeys.h"
#include "records/SpecialPageKeys.h"
#include "records/StockKeys.h"
#include "settings/ColorMaps.h"
#include "settings/FinishingMaps.h"
#include "settings/ImageMaps.h"
#include "settings/JobMaps.h"
#include "settings/OutputMaps.h"
#include "settings/SettingMap.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFMaps.h"

#include <string_view>

namespace tarvo {

// The plain settings of a ticket in words: those that one entry tells.

struct TicketSettingRow {
    const char* labelKey;            // of the text that says what it is about; null ends a table
    std::string_view key;            // of the ticket, or of a dictionary in it
    const SettingMap* map;           // the words for its numbers; null shows the number
    const TPIFWord* names = nullptr; // of numbers that no menu has
};

// Numbers that no menu has, or not all of them.
inline constexpr SettingMap TicketResolutionMap[] = {
    {"300 x 300 Resolution",   1, 0},
    {"600 x 600 Resolution",   2, 0},
    {"1200 x 600 Resolution",  3, 0},
    {"1200 x 1200 Resolution", 4, 0},
    {nullptr,                  0, 0},
};

inline constexpr SettingMap BookletFinishingMap[] = {
    {"None",               1, 0},
    {"Booklet Fold",       7, 0},
    {"Booklet FoldStaple", 8, 0},
    {nullptr,              0, 0},
};

inline constexpr SettingMap RotationMap[] = {
    {"Rotate0",   1, 0},
    {"Rotate180", 2, 0},
    {nullptr,     0, 0},
};

inline constexpr SettingMap OutputOrderMap[] = {
    {"OutputOrderSameFaceDown",    2, 0},
    {"OutputOrderReverseFaceUp",   3, 0},
    {"OutputOrderSameFaceUp",      4, 0},
    {"OutputOrderReverseFaceDown", 5, 0},
    {nullptr,                      0, 0},
};

inline constexpr SettingMap OPISubstitutionMap[] = {
    {"On",    2, 0},
    {"Off",   3, 0},
    {nullptr, 0, 0},
};

inline constexpr SettingMap OPIPrescanMap[] = {
    {"Off",              2, 0},
    {"On",               3, 0},
    {"OPIPrescanGather", 4, 0},
    {nullptr,            0, 0},
};

inline constexpr SettingMap QuillonEmulationMap[] = {
    {"Off",   2, 0},
    {"On",    3, 0},
    {nullptr, 0, 0},
};

inline constexpr SettingMap AccountingMap[] = {
    {"On",    3, 0},
    {nullptr, 0, 0},
};

inline constexpr SettingMap BookletOutlinesMap[] = {
    {"OutlinesNone", 1, 0},
    {"OutlinesDraw", 2, 0},
    {nullptr,        0, 0},
};

// clang-format off
inline constexpr TicketSettingRow JobTypeRows[] = {
    {"ShowSavedJobName",     SavedJobNameKey,     nullptr     },
    {"ShowSavedJobLocation", SavedJobLocationKey, nullptr     },
    {"ShowSaveFormat",       SaveFormatKey,       JobFormatMap},
    {nullptr,                "",                  nullptr     },
};

inline constexpr TicketSettingRow SidesRow = {"ShowSides", DuplexKey, DuplexMap};

inline constexpr TicketSettingRow StockCommentRow = {"ShowStockComment", StockCommentKey, nullptr};

// What the words for a finishing do not say.
inline constexpr TicketSettingRow HolesRow = {"ShowHoles", HolePunchOptionsKey, HolePunchOptionsMap};
inline constexpr TicketSettingRow SubsetRow = {"ShowPagesPerSubset", OffsetPagesPerSubsetKey, nullptr};

inline constexpr TicketSettingRow OutputRows[] = {
    {"ShowOutputDestination", OutputDestinationKey, OutputDestHCSS_BKMap},
    {"ShowOutputColor",       OutputColorKey,       OutputColorMap      },
    {nullptr,                 "",                   nullptr             },
};

inline constexpr TicketSettingRow MergeWithFormRow = {"ShowMergeWithForm", MergeWithStringKey, nullptr};
inline constexpr TicketSettingRow CyclePagesRow = {"ShowCyclePages", CyclePagesKey, nullptr};
inline constexpr TicketSettingRow NewFormRow = {"ShowNewForm", NewFormStringKey, nullptr};

// Of an exception page.
inline constexpr TicketSettingRow PageLightenDarkenRow = {"ShowLightenDarken", PageLightenDarkenKey, nullptr};
inline constexpr TicketSettingRow PageOutputColorRow = {"ShowOutputColor", PageOutputColorKey, OutputColorMap};

inline constexpr TicketSettingRow ImageRows[] = {
    {"ShowResolution",    ResolutionKey,     TicketResolutionMap},
    {"ShowHalftone",      HalftoneScreenKey, HalftoneScreenMap, TPIFHalftoneScreenMap},
    {"ShowAntialiasing",  AntialiasingKey,   AntialiasingMap  },
    {"ShowLightenDarken", LightenDarkenKey,  nullptr          },
    {"ShowTonerSaver",    TonerSaverKey,     nullptr          },
    {nullptr,             "",                nullptr          },
};

inline constexpr TicketSettingRow FullColorRows[] = {
    {"ShowLightness",          FullColorLightnessKey,           nullptr              },
    {"ShowContrast",           FullColorContrastKey,            nullptr              },
    {"ShowSaturation",         FullColorSaturationKey,          nullptr              },
    {"ShowTrapping",           FullColorTrappingKey,            TrappingMap          },
    {"ShowTrappingFast",       FullColorTrappingFastKey,        nullptr              },
    {"ShowTrappingSlow",       FullColorTrappingSlowKey,        nullptr              },
    {"ShowBlackOverprint",     FullColorBlackOverprintKey,      TrappingMap          },
    {"ShowTRC",                FullColorTRCKey,                 nullptr              },
    {"ShowRGBImages",          RGBImagesProfileKey,             RGBSourceProfileMap  },
    {"ShowRGBText",            RGBTextAndGraphicsProfileKey,    RGBSourceProfileMap  },
    {"ShowCMYKImages",         CMYKImagesProfileKey,            CMYKSourceProfileMap },
    {"ShowCMYKText",           CMYKTextAndGraphicsProfileKey,   CMYKSourceProfileMap },
    {"ShowGrayImages",         GrayImagesProfileKey,            nullptr              },
    {"ShowGrayText",           GrayTextAndGraphicsProfileKey,   nullptr              },
    {"ShowDestination",        DestinationProfileKey,           DestinationProfileMap},
    {"ShowRenderingImages",    ImageRenderingKey,               ObjectRenderingMap   },
    {"ShowRenderingText",      TextRenderingKey,                ObjectRenderingMap   },
    {"ShowRenderingGraphics",  GraphicRenderingKey,             ObjectRenderingMap   },
    {nullptr,                  "",                              nullptr              },
};

inline constexpr TicketSettingRow ColorCastRows[] = {
    {"ShowCyanRed",      FullColorCyanRedKey,      nullptr},
    {"ShowMagentaGreen", FullColorMagentaGreenKey, nullptr},
    {"ShowYellowBlue",   FullColorYellowBlueKey,   nullptr},
    {nullptr,            "",                       nullptr},
};

inline constexpr TicketSettingRow NotesRows[] = {
    {"ShowJobName",        JobNotesJobNameKey,        nullptr},
    {"ShowSender",         JobNotesSenderNameKey,     nullptr},
    {"ShowRecipient",      JobNotesRecipientKey,      nullptr},
    {"ShowBannerNote",     JobNotesSheetMessageKey,   nullptr},
    {"ShowOperatorNote",   JobNotesMessageKey,        nullptr},
    {"ShowAdditionalInfo", JobNotesAdditionalInfoKey, nullptr},
    {nullptr,              "",                        nullptr},
};

inline constexpr TicketSettingRow LayoutRows[] = {
    {"ShowBookletLayout",   BookletLayoutKey,       nullptr           },
    {"ShowBookletFold",     BookletFoldStapleKey,   BookletFinishingMap    },
    {"ShowBookletOutlines", BookletDrawOutlinesKey, BookletOutlinesMap},
    {"ShowBookletNewSize",  BookletForceNewSizeKey, nullptr           },
    {nullptr,               "",                     nullptr           },
};

inline constexpr TicketSettingRow AdvancedRows[] = {
    {"ShowRotation",         RotateImageKey,      RotationMap        },
    {"ShowOutputOrder",      OutputOrderKey,      OutputOrderMap     },
    {"ShowOPISubstitution",  OPISubstitutionKey,  OPISubstitutionMap },
    {"ShowOPIPrescan",       OPIPrescanKey,       OPIPrescanMap      },
    {"ShowQuillonEmulation", QuillonEmulationKey, QuillonEmulationMap},
    {"ShowAccounting",       AccountingOnKey,     AccountingMap      },
    {nullptr,                "",                  nullptr            },
};
// clang-format on

} // namespace tarvo
