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
#include "tpif/TPIFWords.h"

#include <string_view>

namespace tarvo {

// The plain settings of a ticket in words: those that one entry tells.

// What a setting's value must be to say anything.
enum class SettingKind {
    Number,
    Text,
    Flag,
    Profile, // the number of one of the printer's own, or the name of another
};

struct TicketSettingRow {
    const char* labelKey; // of the text that says what it is about; null ends a table
    std::string_view key; // of the ticket, or of a dictionary in it
    SettingKind kind;
    const SettingMap* map = nullptr; // the words for its numbers; null shows the number
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
inline constexpr TicketSettingRow SavedJobRows[] = {
    {"ShowSavedJobName", SavedJobNameKey, SettingKind::Text},
    {"ShowSavedJobLocation", SavedJobLocationKey, SettingKind::Text},
    {"ShowSaveFormat", SaveFormatKey, SettingKind::Number, JobFormatMap},
    {nullptr, "", SettingKind::Number},
};

inline constexpr TicketSettingRow SidesRow = {"ShowSides", DuplexKey, SettingKind::Number, DuplexMap};
inline constexpr TicketSettingRow SystemSidesRow = {"ShowSides", SystemDuplexKey, SettingKind::Number, DuplexMap};

/// The print dialog's own two-sided mode, else the system's.
inline const TicketSettingRow& SidesRowOf(const CFDictionary& ticket)
{
    return ticket.int32(DuplexKey) ? SidesRow : SystemSidesRow;
}

inline constexpr TicketSettingRow StockCommentRow = {"ShowStockComment", StockCommentKey, SettingKind::Text};

// What the words for a finishing do not say.
inline constexpr TicketSettingRow HolesRow = {"ShowHoles", HolePunchOptionsKey, SettingKind::Number, HolePunchOptionsMap};
inline constexpr TicketSettingRow SubsetRow = {"ShowPagesPerSubset", OffsetPagesPerSubsetKey, SettingKind::Number};

inline constexpr TicketSettingRow OutputRows[] = {
    {"ShowOutputDestination", OutputDestinationKey, SettingKind::Number, OutputDestHCSS_BKMap},
    {"ShowOutputColor", OutputColorKey, SettingKind::Number, OutputColorMap},
    {nullptr, "", SettingKind::Number},
};

inline constexpr TicketSettingRow MergeWithFormRow = {"ShowMergeWithForm", MergeWithStringKey, SettingKind::Text};
inline constexpr TicketSettingRow CyclePagesRow = {"ShowCyclePages", CyclePagesKey, SettingKind::Number};
inline constexpr TicketSettingRow NewFormRow = {"ShowNewForm", NewFormStringKey, SettingKind::Text};

// Of an exception page.
inline constexpr TicketSettingRow PageLightenDarkenRow = {"ShowLightenDarken", PageLightenDarkenKey, SettingKind::Number};
inline constexpr TicketSettingRow PageColorRows[] = {
    {"ShowOutputColor", PageOutputColorKey, SettingKind::Number, OutputColorMap},
    {"ShowHalftone", PageHalftoneScreenKey, SettingKind::Number, HalftoneScreenMap, TPIFHalftoneScreenMap},
    {"ShowAntialiasing", PageAntialiasingKey, SettingKind::Number, AntialiasingMap},
    {nullptr, "", SettingKind::Number},
};

inline constexpr TicketSettingRow ImageRows[] = {
    {"ShowResolution", ResolutionKey, SettingKind::Number, TicketResolutionMap},
    {"ShowHalftone", HalftoneScreenKey, SettingKind::Number, HalftoneScreenMap, TPIFHalftoneScreenMap},
    {"ShowAntialiasing", AntialiasingKey, SettingKind::Number, AntialiasingMap},
    {"ShowLightenDarken", LightenDarkenKey, SettingKind::Number},
    {"ShowTonerSaver", TonerSaverKey, SettingKind::Flag},
    {nullptr, "", SettingKind::Number},
};

inline constexpr TicketSettingRow FullColorRows[] = {
    {"ShowLightness", FullColorLightnessKey, SettingKind::Number},
    {"ShowContrast", FullColorContrastKey, SettingKind::Number},
    {"ShowSaturation", FullColorSaturationKey, SettingKind::Number},
    {"ShowTrapping", FullColorTrappingKey, SettingKind::Number, TrappingMap},
    {"ShowTrappingFast", FullColorTrappingFastKey, SettingKind::Number},
    {"ShowTrappingSlow", FullColorTrappingSlowKey, SettingKind::Number},
    {"ShowBlackOverprint", FullColorBlackOverprintKey, SettingKind::Number, BlackOverprintMap},
    {"ShowTRC", FullColorTRCKey, SettingKind::Text},
    {"ShowRGBImages", RGBImagesProfileKey, SettingKind::Profile, RGBSourceProfileMap, RGBSourceWords},
    {"ShowRGBText", RGBTextAndGraphicsProfileKey, SettingKind::Profile, RGBSourceProfileMap, RGBSourceWords},
    {"ShowCMYKImages", CMYKImagesProfileKey, SettingKind::Profile, CMYKSourceProfileMap, CMYKSourceWords},
    {"ShowCMYKText", CMYKTextAndGraphicsProfileKey, SettingKind::Profile, CMYKSourceProfileMap, CMYKSourceWords},
    {"ShowGrayImages", GrayImagesProfileKey, SettingKind::Text},
    {"ShowGrayText", GrayTextAndGraphicsProfileKey, SettingKind::Text},
    {"ShowDestination", DestinationProfileKey, SettingKind::Profile, DestinationProfileMap},
    {"ShowRenderingImages", ImageRenderingKey, SettingKind::Number, ObjectRenderingMap},
    {"ShowRenderingText", TextRenderingKey, SettingKind::Number, ObjectRenderingMap},
    {"ShowRenderingGraphics", GraphicRenderingKey, SettingKind::Number, ObjectRenderingMap},
    {nullptr, "", SettingKind::Number},
};

inline constexpr TicketSettingRow ColorCastRows[] = {
    {"ShowCyanRed", FullColorCyanRedKey, SettingKind::Number},
    {"ShowMagentaGreen", FullColorMagentaGreenKey, SettingKind::Number},
    {"ShowYellowBlue", FullColorYellowBlueKey, SettingKind::Number},
    {nullptr, "", SettingKind::Number},
};

// Either is the job's name; the ticket says which.
inline constexpr TicketSettingRow JobNameRow = {"ShowJobName", JobNotesJobNameKey, SettingKind::Text};
inline constexpr TicketSettingRow SystemJobNameRow = {"ShowJobName", SystemJobNameKey, SettingKind::Text};

inline constexpr TicketSettingRow NotesRows[] = {
    {"ShowSender", JobNotesSenderNameKey, SettingKind::Text},
    {"ShowRecipient", JobNotesRecipientKey, SettingKind::Text},
    {"ShowBannerNote", JobNotesSheetMessageKey, SettingKind::Text},
    {"ShowOperatorNote", JobNotesMessageKey, SettingKind::Text},
    {"ShowAdditionalInfo", JobNotesAdditionalInfoKey, SettingKind::Text},
    {nullptr, "", SettingKind::Number},
};

inline constexpr TicketSettingRow LayoutRows[] = {
    {"ShowBookletLayout", BookletLayoutKey, SettingKind::Flag},
    {"ShowBookletFold", BookletFoldStapleKey, SettingKind::Number, BookletFinishingMap},
    {"ShowBookletOutlines", BookletDrawOutlinesKey, SettingKind::Number, BookletOutlinesMap},
    {"ShowBookletNewSize", BookletForceNewSizeKey, SettingKind::Flag},
    {nullptr, "", SettingKind::Number},
};

inline constexpr TicketSettingRow AdvancedRows[] = {
    {"ShowRotation", RotateImageKey, SettingKind::Number, RotationMap},
    {"ShowOutputOrder", OutputOrderKey, SettingKind::Number, OutputOrderMap},
    {"ShowOPISubstitution", OPISubstitutionKey, SettingKind::Number, OPISubstitutionMap},
    {"ShowOPIPrescan", OPIPrescanKey, SettingKind::Number, OPIPrescanMap},
    {"ShowQuillonEmulation", QuillonEmulationKey, SettingKind::Number, QuillonEmulationMap},
    {"ShowAccounting", AccountingOnKey, SettingKind::Number, AccountingMap},
    {nullptr, "", SettingKind::Number},
};
// clang-format on

} // namespace tarvo
