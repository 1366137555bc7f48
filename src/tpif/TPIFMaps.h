#pragma once

#include "platform/cf/CFPropertyList.h"
#include "tpif/TPIFWord.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarvo {

// Keywords of the feature database and the ticket values that they stand for: the second step from
// a document's word to the ticket. The words themselves stand in the database.

inline constexpr TPIFWord TPIFJobTypeMap[] = {
    {"Save",         3},
    {"SaveAndPrint", 4},
    {"Hold",         2},
    {nullptr,        0},
};

inline constexpr TPIFWord TPIFSaveFormatMap[] = {
    {"FastReprint",    4},
    {"FastReprintDRI", 5},
    {"PDF",            3},
    {"TIFFMultiPage",  2},
    {"TIFFSinglePage", 1},
    {nullptr,          0},
};

inline constexpr TPIFWord TPIFMediaTypeMap[] = {
    {"Plain",        1},
    {"Transparency", 2},
    {"Labels",       9},
    {"PrecutTab",    4},
    {"FullCutTab",   5},
    {"Envelope",     8},
    {nullptr,        0},
};

inline constexpr TPIFWord TPIFMediaColorMap[] = {
    {"White",     1 },
    {"Blue",      2 },
    {"Yellow",    3 },
    {"Green",     4 },
    {"Pink",      5 },
    {"Clear",     6 },
    {"Ivory",     11},
    {"Gray",      12},
    {"Buff",      7 },
    {"Goldenrod", 8 },
    {"Red",       9 },
    {"Orange",    13},
    {nullptr,     0 },
};

inline constexpr TPIFWord TPIFMediaCoatingTypeMap[] = {
    {"Gloss",     1},
    {"HighGloss", 2},
    {"SemiGloss", 3},
    {"Satin",     4},
    {"Matte",     5},
    {nullptr,     0},
};

inline constexpr TPIFWord TPIFMediaFinishMap[] = {
    {"Smooth",  1},
    {"Regular", 2},
    {"Coarse",  3},
    {nullptr,   0},
};

inline constexpr TPIFWord TPIFMediaGrainMap[] = {
    {"Long",  1},
    {"Short", 2},
    {nullptr, 0},
};

// Weights are numbers; a device profile may have a keyword for none.
inline constexpr TPIFWord TPIFMediaWeightMetricMap[] = {
    {"PrinterDefault", UnsetValue},
    {nullptr,          0         },
};

inline constexpr TPIFWord TPIFOutputDestinationMap[] = {
    {"PrinterDefault", UnsetValue},
    {"Auto",           1         },
    {"Top",            3         },
    {"Main",           4         },
    {nullptr,          0         },
};

inline constexpr TPIFWord TPIFSidesMap[] = {
    {"PrinterDefault", UnsetValue},
    {"Simplex",        1         },
    {"DuplexLong",     2         },
    {"DuplexShort",    3         },
    {nullptr,          0         },
};

inline constexpr TPIFWord TPIFColorEffectsMap[] = {
    {"Color",     2},
    {"Grayscale", 1},
    {nullptr,     0},
};

inline constexpr TPIFWord TPIFSlipSheetMap[] = {
    {"PrinterDefault", UnsetValue},
    {"Enabled",        2         },
    {nullptr,          0         },
};

// The default is 0 here, not the unset value.
inline constexpr TPIFWord TPIFRotationMap[] = {
    {"PrinterDefault", 0},
    {"0",              1},
    {"180",            2},
    {nullptr,          0},
};

inline constexpr TPIFWord TPIFAntialiasingMap[] = {
    {"PrinterDefault", UnsetValue},
    {"Disabled",       1         },
    {"Enabled",        2         },
    {nullptr,          0         },
};

// Levels are numbers; a device profile may have a keyword for none.
inline constexpr TPIFWord TPIFLightenDarkenMap[] = {
    {"PrinterDefault", UnsetValue},
    {nullptr,          0         },
};

// A screen of 54 lpi has no ticket value: the printer decides.
inline constexpr TPIFWord TPIFHalftoneScreenMap[] = {
    {"PrinterDefault", UnsetValue},
    {"42lpi",          29        },
    {"53lpi",          15        },
    {"54lpi",          UnsetValue},
    {"56lpi",          23        },
    {"60lpi",          24        },
    {"71lpi",          18        },
    {"85lpi",          16        },
    {"85lpi+",         19        },
    {"106lpi",         17        },
    {"106lpi+",        20        },
    {"120lpi",         21        },
    {"125lpi",         30        },
    {"134lpi",         4         },
    {"141lpi",         22        },
    {"156lpi",         31        },
    {"150dpi",         7         },
    {"175dpi",         13        },
    {"200dpi",         6         },
    {"300dpi",         11        },
    {"600dpi",         12        },
    {"200lpi",         8         },
    {"300lpi",         9         },
    {"600lpi",         10        },
    {"Stochastic",     14        },
    {"107lpiNormal",   25        },
    {"107lpiLight",    26        },
    {"107lpiDark",     27        },
    {nullptr,          0         },
};

/// The keyword of the first row with the ticket value; nullopt when there is none.
std::optional<std::string_view> TPIFConvertKeyword(const TPIFWord* map, std::int32_t value);

/// The ticket value of the row with exactly that keyword; nullopt when there is none.
std::optional<std::int32_t> TPIFConvertKeyword(const TPIFWord* map, std::string_view keyword);

} // namespace tarvo
