#pragma once

#include <cstdint>
#include <string_view>

namespace tarvo {

/// One option of a PPD main keyword and the number that stands for it; a null keyword ends a table.
/// Keywords are compared exactly.
struct PPDKeywordMap {
    const char* keyword;
    std::int32_t value;
};

/// A main keyword and its options; a null keyword ends the table.
struct MainKeyword {
    const char* keyword;
    const PPDKeywordMap* options;
};

// Stock colours, as in CompleteStockColorMap; those from 14 on only PPDs have.
inline constexpr PPDKeywordMap MediaColorMap[] = {
    {"Buff",        7 },
    {"Blue",        2 },
    {"Clear",       6 },
    {"Gray",        12},
    {"Green",       4 },
    {"Ivory",       11},
    {"Orange",      13},
    {"Other",       14},
    {"Pink",        5 },
    {"Red",         9 },
    {"White",       1 },
    {"Yellow",      3 },
    {"Goldenrod",   8 },
    {"Unspecified", 22},
    {"Custom1",     15},
    {"Custom2",     16},
    {"Custom3",     17},
    {"Custom4",     18},
    {"Custom5",     19},
    {"Custom6",     20},
    {"Custom7",     21},
    {nullptr,       0 },
};

// Stock types, as in CompleteStockTypeMap; those from 11 on only PPDs have.
inline constexpr PPDKeywordMap MediaTypeMap[] = {
    {"SystemDefault",     23},
    {"Transparency",      2 },
    {"Labels",            9 },
    {"Punched",           11},
    {"Recycled",          10},
    {"PrePrinted",        3 },
    {"Bond",              13},
    {"Letterhead",        14},
    {"TabStock",          24},
    {"Envelopes",         8 },
    {"Other",             22},
    {"Custom1",           15},
    {"Custom2",           16},
    {"Custom3",           17},
    {"Custom4",           18},
    {"Custom5",           19},
    {"Custom6",           20},
    {"Custom7",           21},
    {"Standard",          1 },
    {"CardStock",         12},
    {"CardStock2",        26},
    {"HeavyweightLabels", 25},
    {"ExtraHeavyweight",  27},
    {"ExtraHeavyweight2", 28},
    {"LightGlossy",       29},
    {"LightGlossy2",      30},
    {"HeavyGlossy",       31},
    {"HeavyGlossy2",      32},
    {"HeavyTabStock",     33},
    {"Unspecified",       34},
    {"ExtraHeavyPlus",    35},
    {"ExtraHeavyPlus2",   36},
    {"ExtraHeavyGlossy",  37},
    {"ExtraHeavyGlossy2", 38},
    {"ExtraHeavyLabels",  39},
    {nullptr,             0 },
};

// Stock sizes, as in CompleteStockSizeMap, which has no row for 6, 16, 42 to 46, 73 and 74.
inline constexpr PPDKeywordMap PageSizeMap[] = {
    {"Letter",             1 },
    {"Legal",              2 },
    {"Tabloid",            3 },
    {"A4",                 4 },
    {"A3",                 5 },
    {"FanFoldGermanLegal", 16},
    {"Statement",          17},
    {"A5",                 18},
    {"A6",                 40},
    {"Executive",          21},
    {"B5",                 6 },
    {"A4Cover",            7 },
    {"9x11",               8 },
    {"B4",                 14},
    {"5x7",                41},
    {"B6",                 42},
    {"8x10",               10},
    {"4x6Pcard",           43},
    {"EnvMonarch",         44},
    {"Env10",              45},
    {"EnvDL",              46},
    {"EnvC5",              20},
    {"JISB5",              55},
    {"JISB4",              56},
    {"JISB6",              57},
    {"SpanishFolio",       22},
    {"EnvC4",              58},
    {"4x6",                59},
    {"100x148Postcard",    60},
    {"148x200Postcard",    61},
    {"TabloidExtra",       11},
    {"12x19",              71},
    {"13x19",              66},
    {"SRA3",               15},
    {"220x330",            24},
    {"815",                23},
    {"EnvB5",              73},
    {"EnvC6",              74},
    {nullptr,              0 },
};

inline constexpr PPDKeywordMap PPDDuplexMap[] = {
    {"None",           1},
    {"DuplexNoTumble", 2},
    {"DuplexTumble",   3},
    {nullptr,          0},
};

inline constexpr PPDKeywordMap BannerPageMap[] = {
    {"True",  1},
    {"False", 0},
    {nullptr, 0},
};

inline constexpr PPDKeywordMap RequestOffsetMap[] = {
    {"EndOfSet", 1},
    {"None",     0},
    {nullptr,    0},
};

inline constexpr PPDKeywordMap OutputBinMap[] = {
    {"Auto",    1},
    {"Side",    3},
    {"Top",     2},
    {"Stacker", 4},
    {"Upper",   5},
    {"Lower",   6},
    {"Booklet", 7},
    {nullptr,   0},
};

// The same trays as the output destinations of OutputMaps.h number them.
inline constexpr PPDKeywordMap OutputDestinationBinMap[] = {
    {"Auto",    1},
    {"Top",     3},
    {"Stacker", 4},
    {"Upper",   5},
    {"Lower",   6},
    {"Booklet", 7},
    {nullptr,   0},
};

inline constexpr PPDKeywordMap TRFoldOptionsMap[] = {
    {"None",                 1 },
    {"HolePunch",            2 },
    {"2HolePunch",           3 },
    {"3HolePunch",           4 },
    {"4HolePunch",           5 },
    {"CTriFoldOpt",          9 },
    {"ZTriFoldOpt",          10},
    {"BookletFoldOpt",       7 },
    {"BookletFoldStapleOpt", 8 },
    {nullptr,                0 },
};

inline constexpr PPDKeywordMap JCLPrintQualityMap[] = {
    {"TonerSaver", 1},
    {"Standard",   2},
    {"Enhanced",   3},
    {nullptr,      0},
};

inline constexpr PPDKeywordMap TRRGBColorSpaceMap[] = {
    {"TarvoRGB", 1},
    {"sRGB",     2},
    {"AppleRGB", 3},
    {nullptr,    0},
};

inline constexpr PPDKeywordMap TRCMYKColorSpaceMap[] = {
    {"SNAP",       1},
    {"SWOP",       2},
    {"EuroScale",  3},
    {"Commercial", 4},
    {"JapanColor", 5},
    {nullptr,      0},
};

inline constexpr PPDKeywordMap JCLColorCorrectionMap[] = {
    {"Auto",       1},
    {"sRGB",       2},
    {"BlackWhite", 3},
    {"PressMatch", 4},
    {"None",       5},
    {nullptr,      0},
};

inline constexpr PPDKeywordMap JCLTrueGrayGraphicsMap[] = {
    {"False", 1},
    {"True",  2},
    {nullptr, 0},
};

inline constexpr const auto& JCLTrueGrayImagesMap = JCLTrueGrayGraphicsMap;

// Main keywords that are asked for by name.
inline constexpr const char* DuplexMainKeyword = "Duplex";
inline constexpr const char* FoldMainKeyword = "TRFoldOptions";
inline constexpr const char* OutputBinMainKeyword = "OutputBin";

inline constexpr MainKeyword MainKeywordMap[] = {
    {"MediaColor",          MediaColorMap         },
    {"MediaType",           MediaTypeMap          },
    {"PageSize",            PageSizeMap           },
    {DuplexMainKeyword,     PPDDuplexMap          },
    {"JCLBanner",           BannerPageMap         },
    {"Jog",                 RequestOffsetMap      },
    {OutputBinMainKeyword,  OutputBinMap          },
    {FoldMainKeyword,       TRFoldOptionsMap      },
    {"JCLPrintQuality",     JCLPrintQualityMap    },
    {"JCLRGBColorSpace",    TRRGBColorSpaceMap    },
    {"JCLCMYKColorSpace",   TRCMYKColorSpaceMap   },
    {"JCLColorCorrection",  JCLColorCorrectionMap },
    {"JCLTrueGrayGraphics", JCLTrueGrayGraphicsMap},
    {"JCLTrueGrayImages",   JCLTrueGrayImagesMap  },
    {nullptr,               nullptr               },
};

/// @return the options of a main keyword; null for one that MainKeywordMap lacks
const PPDKeywordMap* GetPPDOptionMapForMainKeyword(std::string_view mainKeyword);

/// @param map  null has no rows
/// @return the first option of that value; null when there is none
const char* GetPPDOptionKeywordForTicketValue(const PPDKeywordMap* map, std::int32_t value);

/// @param map  null has no rows
/// @return the value of the option; -1 when there is none of that name
std::int32_t GetTicketValueForPPDOptionKeyword(const PPDKeywordMap* map, std::string_view keyword);

} // namespace tarvo
