#pragma once

#include "tpif/TPIFWord.h"

namespace tarvo {

// Words of the document. The writer goes from a number to its word, a reader from the word to the
// keyword that the feature database has for it; what has no keyword is only written. The numbers
// are the writer's: those of some commands differ from the ticket's.

// Of a medium. A name stands for the colours that have no word here.
inline constexpr TPIFWord StockColorWords[] = {
    {"white",     1,  "White"    },
    {"blue",      2,  "Blue"     },
    {"yellow",    3,  "Yellow"   },
    {"green",     4,  "Green"    },
    {"pink",      5,  "Pink"     },
    {"no-color",  6,  "Clear"    },
    {"buff",      7,  "Buff"     },
    {"goldenrod", 8,  "Goldenrod"},
    {"red",       9,  "Red"      },
    {"ivory",     11, "Ivory"    },
    {"gray",      12, "Gray"     },
    {"orange",    13, "Orange"   },
    {nullptr,     0,  nullptr    },
};

// Colours that are a name in the document although nobody gave it.
inline constexpr TPIFWord StockColorNames[] = {
    {"other",   14},
    {"custom1", 15},
    {"custom2", 16},
    {"custom3", 17},
    {"custom4", 18},
    {"custom5", 19},
    {"custom6", 20},
    {"custom7", 21},
    {nullptr,   0 },
};

inline constexpr TPIFWord StockCoatingWords[] = {
    {"glossy",     1, "Gloss"    },
    {"high-gloss", 2, "HighGloss"},
    {"semi-gloss", 3, "SemiGloss"},
    {"satin",      4, "Satin"    },
    {"matte",      5, "Matte"    },
    {nullptr,      0, nullptr    },
};

inline constexpr TPIFWord StockFinishWords[] = {
    {"fine",   1, "Smooth" },
    {"medium", 2, "Regular"},
    {"coarse", 3, "Coarse" },
    {nullptr,  0, nullptr  },
};

inline constexpr TPIFWord StockGrainWords[] = {
    {"y-grain", 1, "Long" },
    {"x-grain", 2, "Short"},
    {nullptr,   0, nullptr},
};

// Of a front cover; the words of a back cover are among them.
inline constexpr TPIFWord FrontCoverWords[] = {
    {"print-none",  1, "PrintNone" },
    {"print-front", 2, "PrintFront"},
    {"print-back",  3, "PrintBack" },
    {"print-both",  4, "PrintBoth" },
    {nullptr,       0, nullptr     },
};

// A held job has an element of its own, apart from the saved ones. What is printed at once and not
// kept needs no keyword.
inline constexpr TPIFWord SaveDispositionWords[] = {
    {"none",       1, nullptr       },
    {"save-only",  3, "Save"        },
    {"print-save", 4, "SaveAndPrint"},
    {nullptr,      0, nullptr       },
};

inline constexpr TPIFWord HoldWords[] = {
    {"indefinite", 2, "Hold" },
    {nullptr,      0, nullptr},
};

inline constexpr TPIFWord SaveFormatWords[] = {
    {"application/X-single-page-tiff",     1, "TIFFSinglePage"},
    {"application/X-multi-page-tiff",      2, "TIFFMultiPage" },
    {"application/pdf",                    3, "PDF"           },
    {"application/X-fast-reprint",         4, "FastReprint"   },
    {"application/X-fast-reprint-and-dri", 5, "FastReprintDRI"},
    {nullptr,                              0, nullptr         },
};

inline constexpr TPIFWord SidesWords[] = {
    {"one-sided",            0, "Simplex"    },
    {"two-sided-long-edge",  1, "DuplexLong" },
    {"two-sided-short-edge", 2, "DuplexShort"},
    {nullptr,                0, nullptr      },
};

inline constexpr TPIFWord OutputBinWords[] = {
    {"automatic", 0, "Auto" },
    {"top",       1, "Top"  },
    {"stacker",   2, "Main" },
    {"side",      3, nullptr},
    {"top-1",     4, nullptr},
    {"top-2",     5, nullptr},
    {"stacker-1", 6, nullptr},
    {"stacker-2", 7, nullptr},
    {nullptr,     0, nullptr},
};

inline constexpr TPIFWord SlipSheetWords[] = {
    {"slip-sheets", 2, "Enabled"},
    {nullptr,       0, nullptr  },
};

// Every word of a value is a member of the set: 3 has two.
inline constexpr TPIFWord OffsetWords[] = {
    {"none",          0, "None"      },
    {"offset-set",    1, "EachSet"   },
    {"offset-subset", 2, "EachSubset"},
    {"offset-set",    3, nullptr     },
    {"offset-subset", 3, nullptr     },
    {"offset-job",    4, nullptr     },
    {nullptr,         0, nullptr     },
};

inline constexpr TPIFWord ColorEffectsWords[] = {
    {"monochrome-grayscale", 1, "Grayscale"},
    {"color",                2, "Color"    },
    {nullptr,                0, nullptr    },
};

inline constexpr TPIFWord AntiAliasingWords[] = {
    {"none",     1, "Disabled"},
    {"standard", 2, "Enabled" },
    {nullptr,    0, nullptr   },
};

inline constexpr TPIFWord DarknessModeWords[] = {
    {"normal",                2, "Normal"    },
    {"quillon900-adjustable", 3, "Quillon900"},
    {nullptr,                 0, nullptr     },
};

inline constexpr TPIFWord PageRotationWords[] = {
    {"rotate-0",   1, "0"    },
    {"rotate-180", 0, "180"  },
    {nullptr,      0, nullptr},
};

inline constexpr TPIFWord PageDeliveryWords[] = {
    {"same-order-face-down",    2, "SameOrderFaceDown"   },
    {"reverse-order-face-up",   3, "ReverseOrderFaceUp"  },
    {"same-order-face-up",      4, "SameOrderFaceUp"     },
    {"reverse-order-face-down", 5, "ReverseOrderFaceDown"},
    {nullptr,                   0, nullptr               },
};

inline constexpr TPIFWord OPIImageInsertionWords[] = {
    {"insert",        0, "Insert"     },
    {"do-not-insert", 1, "DoNotInsert"},
    {nullptr,         0, nullptr      },
};

inline constexpr TPIFWord OPIPreScanWords[] = {
    {"no-pre-scan",         0, "NoPreScan"       },
    {"pre-scan",            1, "PreScan"         },
    {"pre-scan-and-gather", 2, "PreScanAndGather"},
    {nullptr,               0, nullptr           },
};

inline constexpr TPIFWord RGBSourceWords[] = {
    {"xcc-mode-rgb",        1, "TrueHueModRGB",        false},
    {"xcc-mode-rgb-gamma1", 2, "TrueHueModeRGBGamma1", false},
    {"Smpte-240m",          3, "Smpte240m",            false},
    {"sRGB",                4, "sRGB",                 false},
    {"Adobe RGB",           6, "AdobeRGB",             true },
    {nullptr,               0, nullptr,                false},
};

// Some are names for the front end although the printer has them built in.
inline constexpr TPIFWord CMYKSourceWords[] = {
    {"native-cmyk",                            1,  "Native",              false},
    {"swop",                                   2,  "Swop",                false},
    {"FOGRA Gloss Coated CMYK",                4,  "FOGRAGlossCoated",    true },
    {"FOGRA Matte Coated CMYK",                5,  "FOGRAMatteCoated",    true },
    {"FOGRA Uncoated CMYK",                    6,  "FOGRAUncoated",       true },
    {"Japan Color 2001 Plus CMYK",             7,  "JapanColor2001Plus",  true },
    {"Japan Color 2001 (Type1:Art) CMYK",      8,  "JapanColor2001Type1", true },
    {"Japan Color 2001 (Type2:Matte) CMYK",    9,  "JapanColor2001Type2", true },
    {"Japan Color 2001 (Type3:Coated) CMYK",   10, "JapanColor2001Type3", true },
    {"Japan Color 2001 (Type4:Uncoated) CMYK", 11, "JapanColor2001Type4", true },
    {"FOGRA Web Offset CMYK",                  12, "FOGRAWebOffset",      true },
    {"FOGRA Plus CMYK",                        13, "FOGRAPlus",           true },
    {"Commercial CMYK",                        14, "Commercial",          true },
    {"Swop Plus CMYK",                         15, "SwopPlus",            true },
    {nullptr,                                  0,  nullptr,               false},
};

inline constexpr TPIFWord DestinationWords[] = {
    {"system-specified", 1, "SystemSpecified"},
    {nullptr,            0, nullptr          },
};

inline constexpr TPIFWord RenderingIntentWords[] = {
    {"saturation",            1, "Saturation"          },
    {"relative-colorimetric", 2, "RelativeColorimetric"},
    {"absolute-colorimetric", 3, "AbsoluteColorimetric"},
    {"perceptual",            4, "Perceptual"          },
    {"pure-text",             5, "Pure"                },
    {"automatic",             6, "Automatic"           },
    {nullptr,                 0, nullptr               },
};

inline constexpr TPIFWord TrappingWords[] = {
    {"all",   1, "On"   },
    {"off",   2, "Off"  },
    {nullptr, 0, nullptr},
};

inline constexpr TPIFWord BlackOverprintWords[] = {
    {"black-overprint-on",  1, "On"   },
    {"black-overprint-off", 2, "Off"  },
    {nullptr,               0, nullptr},
};

inline constexpr TPIFWord HighlightColorantWords[] = {
    {"red",       1, "Red"     },
    {"green",     2, "Green"   },
    {"blue",      3, "Blue"    },
    {"royal",     4, "Royal"   },
    {"use-ready", 5, "UseReady"},
    {nullptr,     0, nullptr   },
};

inline constexpr TPIFWord HighlightMapColorWords[] = {
    {"red",      1,  "Red"     },
    {"green",    2,  "Green"   },
    {"blue",     3,  "Blue"    },
    {"cyan",     4,  "Cyan"    },
    {"magenta",  5,  "Magenta" },
    {"yellow",   6,  "Yellow"  },
    {"cardinal", 7,  "Cardinal"},
    {"royal",    8,  "Royal"   },
    {"black",    9,  "Black"   },
    {"ruby",     10, "Ruby"    },
    {"violet",   11, "Violet"  },
    {"brown",    12, "Brown"   },
    {"other",    13, "Other"   },
    {nullptr,    0,  nullptr   },
};

inline constexpr TPIFWord HighlightMismatchWords[] = {
    {"use-ready", 1, "UseReady"},
    {"abort",     2, "Abort"   },
    {"hold",      3, "Hold"    },
    {nullptr,     0, nullptr   },
};

inline constexpr TPIFWord HighlightMapWords[] = {
    {"object-based",         1, "ObjectBased"     },
    {"pictorial",            2, "Pictorial"       },
    {"presentation",         3, "Presentation"    },
    {"color-to-highlight",   4, "ColorToHighlight"},
    {"monochrome-grayscale", 5, "Monochrome"      },
    {nullptr,                0, nullptr           },
};

// Only one of several screens with the same word has the keyword.
inline constexpr TPIFWord HalftoneWords[] = {
    {"85-lpi",           1,  nullptr       },
    {"106-lpi",          2,  nullptr       },
    {"125-lpi",          3,  nullptr       },
    {"134-lpi",          4,  "134lpi"      },
    {"156-lpi",          5,  nullptr       },
    {"200-dpi",          6,  "200dpi"      },
    {"150-dpi",          7,  "150dpi"      },
    {"200-lpi",          8,  "200lpi"      },
    {"300-lpi",          9,  "300lpi"      },
    {"600-lpi",          10, "600lpi"      },
    {"300-dpi",          11, "300dpi"      },
    {"600-dpi",          12, "600dpi"      },
    {"175-dpi",          13, "175dpi"      },
    {"stochastic",       14, "Stochastic"  },
    {"53-lpi",           15, "53lpi"       },
    {"85-lpi",           16, "85lpi"       },
    {"106-lpi",          17, "106lpi"      },
    {"71-lpi",           18, "71lpi"       },
    {"85-lpi-enhanced",  19, "85lpi+"      },
    {"106-lpi-enhanced", 20, "106lpi+"     },
    {"120-lpi",          21, "120lpi"      },
    {"141-lpi",          22, "141lpi"      },
    {"56-lpi",           23, "56lpi"       },
    {"60-lpi",           24, "60lpi"       },
    {"107-lpi-normal",   25, "107lpiNormal"},
    {"107-lpi-light",    26, "107lpiLight" },
    {"107-lpi-dark",     27, "107lpiDark"  },
    {"151-lpi",          28, nullptr       },
    {"42-lpi",           29, "42lpi"       },
    {"125-lpi",          30, "125lpi"      },
    {"156-lpi",          31, "156lpi"      },
    {"54-lpi",           32, "54lpi"       },
    {"85-lpi-normal",    33, nullptr       },
    {"85-lpi-light",     34, nullptr       },
    {"85-lpi-dark",      35, nullptr       },
    {"106-lpi-normal",   36, nullptr       },
    {"106-lpi-light",    37, nullptr       },
    {"106-lpi-dark",     38, nullptr       },
    {"120-lpi-normal",   39, nullptr       },
    {"120-lpi-light",    40, nullptr       },
    {"120-lpi-dark",     41, nullptr       },
    {"125-lpi-normal",   42, nullptr       },
    {"125-lpi-light",    43, nullptr       },
    {"125-lpi-dark",     44, nullptr       },
    {"134-lpi-normal",   45, nullptr       },
    {"134-lpi-light",    46, nullptr       },
    {"134-lpi-dark",     47, nullptr       },
    {nullptr,            0,  nullptr       },
};

} // namespace tarvo
