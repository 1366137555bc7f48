#pragma once

#include "platform/cf/CFPropertyList.h"
#include "settings/SettingMap.h"

namespace tarvo {

// The sizes offered in a menu; 75 asks for width and length.
inline constexpr SettingMap StockSizeMap[] = {
    {"PrinterDefault",        UnsetValue, 0},
    {"LetterStockSize",       1,          0},
    {"LegalStockSize",        2,          0},
    {"TabloidStockSize",      3,          0},
    {"StockSize8.5x13",       12,         0},
    {"StockSize9x11",         8,          0},
    {"A4StockSize",           4,          0},
    {"A3StockSize",           5,          0},
    {"B4 (250 x 353 mm)",     14,         0},
    {"JIS B4 (257 x 364 mm)", 56,         0},
    {"223x297StockSize",      7,          0},
    {"Custom...",             75,         0},
    {nullptr,                 0,          0},
};

// Every size that a stock library, a document or a printer may name. All numbers are the driver's
// own and are compared exactly. Millimetres are whole, so Letter as printers report it, 21590 x
// 27940, is none of these. Points don't follow from the millimetres: 13 in are 935 here, and a page
// of 936 x 1296 is none of these either. The 6 x 9 in postcard and envelope share their size; a
// search by size meets the postcard first. The key of 70 tells A6 dimensions, the row has B3.
// A custom size has no numbers here.
inline constexpr PaperSizeSettingMap CompleteStockSizeMap[] = {
    {"PrinterDefault",                          UnsetValue, 0, UnsetValue, UnsetValue, UnsetValue, UnsetValue},
    {"LetterStockSize",                         1,          0, 21600,      27900,      612,        792       },
    {"LegalStockSize",                          2,          0, 21600,      35600,      612,        1008      },
    {"TabloidStockSize",                        3,          0, 27900,      43200,      792,        1224      },
    {"Postcard (4 x 6\")",                      59,         0, 10200,      15200,      288,        432       },
    {"Postcard (5 x 7\")",                      41,         0, 12700,      17800,      360,        504       },
    {"Statement (5.5 x 8.5\")",                 17,         0, 14000,      21600,      396,        612       },
    {"Postcard (6 x 9\")",                      62,         0, 15200,      22900,      432,        648       },
    {"7 x 10\"",                                28,         0, 17800,      25400,      504,        720       },
    {"Executive (7.25 x 10.5\")",               21,         0, 18400,      26700,      522,        756       },
    {"StockSize8x10",                           10,         0, 20300,      25400,      576,        720       },
    {"StockSize8x13",                           13,         0, 20300,      33000,      576,        936       },
    {"StockSize8.5x13",                         12,         0, 21600,      33000,      612,        936       },
    {"StockSize9x11",                           8,          0, 22900,      27900,      648,        792       },
    {"9 x 14\"",                                36,         0, 22900,      35600,      648,        1008      },
    {"9.5 x 11\"",                              48,         0, 24100,      27900,      684,        792       },
    {"2 up 6 x 9",                              54,         0, 24100,      31800,      684,        900       },
    {"11 x 15\"",                               63,         0, 27900,      38100,      792,        1080      },
    {"12x18StockSize",                          11,         0, 30500,      45700,      864,        1296      },
    {"12 x 18.5\"",                             38,         0, 30500,      47000,      864,        1332      },
    {"12.6 x 18.5\"",                           49,         0, 32000,      47000,      907,        1332      },
    {"12 x 19\"",                               71,         0, 30500,      48300,      864,        1368      },
    {"12.6 x 19.2\"",                           64,         0, 32000,      48800,      907,        1382      },
    {"13 x 18\"",                               65,         0, 33000,      45700,      935,        1296      },
    {"13 x 19\"",                               66,         0, 33000,      48300,      935,        1368      },
    {"A4StockSize",                             4,          0, 21000,      29700,      595,        842       },
    {"A3StockSize",                             5,          0, 29700,      42000,      842,        1191      },
    {"A5 (148 x 210 mm)",                       18,         0, 14800,      21000,      420,        595       },
    {"A6 (105 x 148 mm)",                       40,         0, 10500,      14800,      297,        420       },
    {"B3 (105 x 148 mm)",                       70,         0, 35300,      50000,      1001,       1417      },
    {"B4 (250 x 353 mm)",                       14,         0, 25000,      35300,      709,        1001      },
    {"JIS B4 (257 x 364 mm)",                   56,         0, 25700,      36400,      729,        1032      },
    {"JIS B5 (182 x 257 mm)",                   55,         0, 18200,      25700,      516,        729       },
    {"JIS B6 (128 x 182 mm)",                   57,         0, 12800,      18200,      363,        516       },
    {"StockSize223x297",                        7,          0, 22300,      29700,      632,        842       },
    {"Oversized A5 (161 x 210 mm)",             19,         0, 16100,      21000,      456,        595       },
    {"Postcard (100 x 148 mm)",                 60,         0, 10000,      14800,      284,        420       },
    {"Postcard (148 x 200 mm)",                 61,         0, 14800,      20000,      420,        567       },
    {"SRA3 (320 x 450 mm)",                     15,         0, 32000,      45000,      907,        1276      },
    {"SRA4",                                    47,         0, 22500,      32000,      638,        907       },
    {"8K (267 x 388 mm)",                       23,         0, 26700,      38800,      757,        1099      },
    {"8K (270 x 390 mm)",                       67,         0, 27000,      39000,      765,        1105      },
    {"16K (194 x 267 mm)",                      29,         0, 19400,      26700,      550,        757       },
    {"16K (195 x 270 mm)",                      68,         0, 19500,      27000,      553,        765       },
    {"210 x 270 mm",                            30,         0, 21000,      27000,      595,        765       },
    {"210 x 330 mm",                            31,         0, 21000,      33000,      595,        936       },
    {"215 x 275 mm",                            32,         0, 21500,      27500,      609,        780       },
    {"215 x 315 mm",                            22,         0, 21500,      31500,      609,        893       },
    {"220 x 330 mm",                            24,         0, 22000,      33000,      624,        936       },
    {"226 x 310 mm",                            35,         0, 22600,      31000,      640,        878       },
    {"252 x 358 mm",                            37,         0, 25200,      35800,      713,        1015      },
    {"310 x 432 mm",                            39,         0, 31000,      43200,      878,        1224      },
    {"328 x 453 mm",                            72,         0, 32800,      45300,      930,        1284      },
    {"Envelope (6 x 9\")",                      25,         0, 15200,      22900,      432,        648       },
    {"Envelope (9 x 12\")",                     26,         0, 22900,      30500,      648,        864       },
    {"Envelope (120 x 235 mm)",                 69,         0, 12000,      23500,      340,        666       },
    {"Envelope (220 x 312 mm)",                 27,         0, 22000,      31200,      624,        884       },
    {"Envelope C4 (229 x 324 mm)",              58,         0, 22900,      32400,      649,        919       },
    {"Envelope C5 (162 x 229 mm)",              20,         0, 16200,      22900,      459,        649       },
    {"Envelope Open Catalog (6 x 9\")",         50,         0, 15200,      27300,      432,        774       },
    {"Envelope Open Catalog (7 x 10\")",        52,         0, 17800,      30500,      504,        864       },
    {"Envelope Open Catalog (178 x 254 mm)",    53,         0, 17800,      28700,      504,        814       },
    {"Envelope Open Catalog C5 (162 x 229 mm)", 51,         0, 16200,      26200,      459,        742       },
    {"Custom",                                  75,         0, 0,          0,          0,          0         },
    {nullptr,                                   0,          0, 0,          0,          0,          0         },
};

inline constexpr SettingMap StockColorMap[] = {
    {"PrinterDefault",      UnsetValue, 0},
    {"StockColorWhite",     1,          0},
    {"StockColorBlue",      2,          0},
    {"StockColorYellow",    3,          0},
    {"StockColorGreen",     4,          0},
    {"StockColorPink",      5,          0},
    {"StockColorClear",     6,          0},
    {"Ivory",               11,         0},
    {"Gray",                12,         0},
    {"StockColorBuff",      7,          0},
    {"StockColorGoldenrod", 8,          0},
    {"StockColorRed",       9,          0},
    {"Orange",              13,         0},
    {"StockColorCustom...", 10,         0},
    {nullptr,               0,          0},
};

// Every colour that can be named is also offered.
inline constexpr const auto& CompleteStockColorMap = StockColorMap;

// The types offered in a menu.
inline constexpr SettingMap StockTypeMap[] = {
    {"PrinterDefault",        UnsetValue, 0},
    {"StockTypePlain",        1,          0},
    {"StockTypeTransparency", 2,          0},
    {"Recycled",              10,         0},
    {"StockTypePrePrinted",   3,          0},
    {"StockTypePrecutTab",    4,          0},
    {"StockTypeFullCutTab",   5,          0},
    {"StockTypeOrdered",      6,          0},
    {"StockTypeCustom...",    7,          0},
    {nullptr,                 0,          0},
};

// StockTypeMap with the types that can be stored and shown but are not offered: labels, envelopes.
inline constexpr SettingMap CompleteStockTypeMap[] = {
    {"PrinterDefault",        UnsetValue, 0},
    {"StockTypePlain",        1,          0},
    {"StockTypeTransparency", 2,          0},
    {"Recycled",              10,         0},
    {"Labels",                9,          0},
    {"StockTypePrePrinted",   3,          0},
    {"StockTypePrecutTab",    4,          0},
    {"StockTypeFullCutTab",   5,          0},
    {"Envelope",              8,          0},
    {"StockTypeOrdered",      6,          0},
    {"StockTypeCustom...",    7,          0},
    {nullptr,                 0,          0},
};

// The printer's default comes last in this menu alone.
inline constexpr SettingMap StockPunchedMap[] = {
    {"StockPunchedNo",  1,          0},
    {"StockPunchedYes", 2,          0},
    {"PrinterDefault",  UnsetValue, 0},
    {nullptr,           0,          0},
};

// Basis weight in g/m2: the one that stands for the range in the key.
inline constexpr SettingMap WeightMap[] = {
    {"PrinterDefault",  UnsetValue, 0},
    {"Normal (52-84)",  75,         0},
    {"Medium (85-105)", 100,        0},
    {"Heavy (106-220)", 150,        0},
    {nullptr,           0,          0},
};

// Which sides of a stock are coated; the back alone comes from documents, no menu offers it.
inline constexpr std::int32_t CoatedNowhere = 1;
inline constexpr std::int32_t CoatedInFront = 2;
inline constexpr std::int32_t CoatedOnBothSides = 3;
inline constexpr std::int32_t CoatedInBack = 4;
inline constexpr SettingMap SidesCoatedMap[] = {
    {"PrinterDefault", UnsetValue,        0},
    {"Uncoated",       CoatedNowhere,     0},
    {"One Sided",      CoatedInFront,     0},
    {"Two Sided",      CoatedOnBothSides, 0},
    {nullptr,          0,                 0},
};

// Looked at only where a side is coated, so there is no default row.
inline constexpr SettingMap CoatingTypeMap[] = {
    {"Gloss",      1, 0},
    {"High Gloss", 2, 0},
    {"Semi-Gloss", 3, 0},
    {"Satin",      4, 0},
    {"Matte",      5, 0},
    {nullptr,      0, 0},
};

inline constexpr SettingMap FinishMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"Smooth",         1,          0},
    {"Regular",        2,          0},
    {"Rough",          3,          0},
    {nullptr,          0,          0},
};

inline constexpr SettingMap GrainMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"Long",           1,          0},
    {"Short",          2,          0},
    {nullptr,          0,          0},
};

// A description is text, so the second row has no value of its own: a search for anything but unset
// ends there.
inline constexpr SettingMap StockDescriptionMap[] = {
    {"PrinterDefault", UnsetValue, 0},
    {"Custom...",      0,          0},
    {nullptr,          0,          0},
};

// The submenu of named papers; the papers themselves stand between the first row and the rest, see
// PopulateMenuFromMapAndFile.
inline constexpr SettingMap StockLibraryMap[] = {
    {"StockLibraryOpen...",       1, FourCharCode("Slib")},
    {"-",                         2, 0                   },
    {"StockLibraryCustomName...", 3, FourCharCode("SlCn")},
    {"StockLibraryClear",         4, FourCharCode("SlCl")},
    {nullptr,                     0, 0                   },
};

// Whose named papers a list shows.
inline constexpr SettingMap NamedPaperPaperListMap[] = {
    {"My Paper",      1, 0},
    {"Printer Paper", 2, 0},
    {nullptr,         0, 0},
};

} // namespace tarvo
