#pragma once

#include "platform/cf/CFPropertyList.h"
#include "settings/SettingMap.h"

namespace tarvo {

// Finishing families, then their positions. A number means the same in all these tables, but for
// the hole counts and the booklet's folding, which have numbers of their own. OfferMap of
// FinishingOffers.cpp tells which of them a printer offers.

// The families that each output device offers; every next one has those before it. The default row
// is stored as 0, for only with 0 does a booklet's own folding count.
inline constexpr SettingMap OutputStapleOCTMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"None",           1,          0},
    {nullptr,          0,          0},
};

inline constexpr SettingMap OutputStapleLCSSMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"None",           1,          0},
    {"1 Staple...",    4,          0},
    {"2 Staples...",   9,          0},
    {nullptr,          0,          0},
};

inline constexpr SettingMap OutputStapleHCSSMap[] = {
    {"PrinterDefault",        UnsetValue, 0},
    {"None",                  1,          0},
    {"1 Staple...",           4,          0},
    {"2 Staples...",          9,          0},
    {"Center Staple...",      25,         0},
    {"Multiple Finishing...", 49,         0},
    {nullptr,                 0,          0},
};

inline constexpr std::int32_t SignatureBooklet = 3;

// Families without a position.
inline constexpr SettingMap PlainFinishingMap[] = {
    {"None",             1,                0},
    {"SignatureBooklet", SignatureBooklet, 0},
    {nullptr,            0,                0},
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

inline constexpr SettingMap PunchMap[] = {
    {"HolePunchLT", 32, 0},
    {"HolePunchTR", 33, 0},
    {"HolePunchBL", 34, 0},
    {"HolePunchRB", 35, 0},
    {nullptr,       0,  0},
};

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
