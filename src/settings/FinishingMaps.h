#pragma once

#include "platform/cf/CFPropertyList.h"
#include "settings/SettingMap.h"

namespace tarvo {

/// The families of finishing. Those from StaplesAndHoles on combine others.
namespace FinishingFamily {
inline constexpr std::int32_t PrinterDefault = 0; // as a job ticket holds it
inline constexpr std::int32_t None = 1;
inline constexpr std::int32_t SignatureBooklet = 3;
inline constexpr std::int32_t OneStaple = 4;
inline constexpr std::int32_t TwoStaples = 9;
inline constexpr std::int32_t Bind = 14;
inline constexpr std::int32_t Fold = 18;
inline constexpr std::int32_t Custom = 22; // a template of the front end's, by name
inline constexpr std::int32_t Booklet = 24;
inline constexpr std::int32_t CenterStaple = 25;
inline constexpr std::int32_t HolePunch = 30;
inline constexpr std::int32_t ZFold = 36;
inline constexpr std::int32_t AdvancedFold = 40;
inline constexpr std::int32_t StaplesAndHoles = 49;
inline constexpr std::int32_t StaplesHolesAndZFold = 50;
inline constexpr std::int32_t StaplesAndZFold = 51;
inline constexpr std::int32_t HolesAndZFold = 52;
} // namespace FinishingFamily

/// Of staples of several families the first that is set counts.
inline constexpr std::int32_t StapleFamilies[] = {
    FinishingFamily::OneStaple, FinishingFamily::TwoStaples, FinishingFamily::CenterStaple};

// Finishing families, then their positions. A number means the same in all these tables, but for
// the hole counts and the booklet's folding, which have numbers of their own. OfferMap of
// FinishingOffers.cpp tells which of them a printer offers.

// The families that each output device offers; every next one has those before it. The default row
// is stored as 0, for only with 0 does a booklet's own folding count.
inline constexpr SettingMap OutputStapleOCTMap[] = {
    {"PrinterDefault", UnsetValue,            0},
    {"None",           FinishingFamily::None, 0},
    {nullptr,          0,                     0},
};

inline constexpr SettingMap OutputStapleLCSSMap[] = {
    {"PrinterDefault", UnsetValue,                  0},
    {"None",           FinishingFamily::None,       0},
    {"1 Staple...",    FinishingFamily::OneStaple,  0},
    {"2 Staples...",   FinishingFamily::TwoStaples, 0},
    {nullptr,          0,                           0},
};

inline constexpr SettingMap OutputStapleHCSSMap[] = {
    {"PrinterDefault",        UnsetValue,                       0},
    {"None",                  FinishingFamily::None,            0},
    {"1 Staple...",           FinishingFamily::OneStaple,       0},
    {"2 Staples...",          FinishingFamily::TwoStaples,      0},
    {"Center Staple...",      FinishingFamily::CenterStaple,    0},
    {"Multiple Finishing...", FinishingFamily::StaplesAndHoles, 0},
    {nullptr,                 0,                                0},
};

// Families without a position.
inline constexpr SettingMap PlainFinishingMap[] = {
    {"None",             FinishingFamily::None,             0},
    {"SignatureBooklet", FinishingFamily::SignatureBooklet, 0},
    {nullptr,            0,                                 0},
};

inline constexpr SettingMap OneStapleMap[] = {
    {"1StapleTLTR", 5, 0},
    {"1StapleBLTL", 6, 0},
    {"1StapleTRBR", 7, 0},
    {"1StapleBRBL", 8, 0},
    {nullptr,       0, 0},
};

// Two staples, a centre staple and holes have the same sides in the same order.
inline constexpr SettingMap TwoStaplesMap[] = {
    {"2StaplesLT", 10, 0},
    {"2StaplesTR", 11, 0},
    {"2StaplesBL", 12, 0},
    {"2StaplesRB", 13, 0},
    {nullptr,      0,  0},
};

inline constexpr SettingMap CenterStapleMap[] = {
    {"CenterStapleLT", 26, 0},
    {"CenterStapleTR", 27, 0},
    {"CenterStapleBL", 28, 0},
    {"CenterStapleRB", 29, 0},
    {nullptr,          0,  0},
};

inline constexpr SettingMap BindMap[] = {
    {"BindLT", 15, 0},
    {"BindRB", 16, 0},
    {nullptr,  0,  0},
};

inline constexpr SettingMap FoldMap[] = {
    {"FoldCFold", 19, 0},
    {"FoldZFold", 20, 0},
    {nullptr,     0,  0},
};

inline constexpr SettingMap BookletFoldMap[] = {
    {"Booklet Fold",       7, 0},
    {"Booklet FoldStaple", 8, 0},
    {nullptr,              0, 0},
};

inline constexpr std::int32_t BookletNotFolded = 1;

inline constexpr SettingMap PunchMap[] = {
    {"HolePunchLT", 32, 0},
    {"HolePunchTR", 33, 0},
    {"HolePunchBL", 34, 0},
    {"HolePunchRB", 35, 0},
    {nullptr,       0,  0},
};

// Beside staples or a Z-fold the driver has a further position, which no menu offers and no
// document has a value for.
inline constexpr std::int32_t DriversPunchPosition = 49;

// PunchMap for a job that may go without; "None" is stored as 0.
inline constexpr SettingMap PunchNoneMap[] = {
    {"None",        1,  0},
    {"HolePunchLT", 32, 0},
    {"HolePunchTR", 33, 0},
    {"HolePunchBL", 34, 0},
    {"HolePunchRB", 35, 0},
    {nullptr,       0,  0},
};

inline constexpr SettingMap HolePunchOptionsMap[] = {
    {"2 Holes", 3, 0},
    {"3 Holes", 4, 0},
    {"4 Holes", 5, 0},
    {nullptr,   0, 0},
};

inline constexpr std::int32_t DefaultHoles = 4; // three

inline constexpr SettingMap ZFoldMap[] = {
    {"ZFoldLeftBind",  38, 0},
    {"ZFoldRightBind", 39, 0},
    {nullptr,          0,  0},
};

inline constexpr SettingMap ComplexBookletFoldMap[] = {
    {"BiFoldSingleInside",    41, 0},
    {"BiFoldSingleOutside",   42, 0},
    {"BiFoldMultipleInside",  43, 0},
    {"BiFoldMultipleOutside", 44, 0},
    {nullptr,                 0,  0},
};

inline constexpr SettingMap ComplexFoldMap[] = {
    {"CTriFoldInside",  45, 0},
    {"CTriFoldOutside", 46, 0},
    {"ZTriFoldInside",  47, 0},
    {"ZTriFoldOutside", 48, 0},
    {nullptr,           0,  0},
};

// When sets are laid down with an offset.
inline constexpr SettingMap OffsetMap[] = {
    {"PrinterDefault",      1, 0},
    {"None",                2, 0},
    {"OffsetEachSet",       3, 0},
    {"OffsetEachSubset",    4, 0},
    {"OffsetEachSetSubset", 5, 0},
    {nullptr,               0, 0},
};

} // namespace tarvo
