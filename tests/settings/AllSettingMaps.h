#pragma once

#include "settings/ColorMaps.h"
#include "settings/FinishingMaps.h"
#include "settings/ImageMaps.h"
#include "settings/JobMaps.h"
#include "settings/OutputMaps.h"
#include "settings/SettingMap.h"
#include "settings/SpecialPageMaps.h"
#include "settings/StockMaps.h"
#include "settings/WatermarkMaps.h"

namespace tarvo {

struct NamedSettingMap {
    const char* name;
    const SettingMap* map;
};

// Every table of menu choices. CompleteStockSizeMap, whose rows hold more, stands for itself.
inline constexpr NamedSettingMap AllSettingMaps[] = {
    {"StockSizeMap",                 StockSizeMap                },
    {"StockColorMap",                StockColorMap               },
    {"CompleteStockColorMap",        CompleteStockColorMap       },
    {"StockTypeMap",                 StockTypeMap                },
    {"CompleteStockTypeMap",         CompleteStockTypeMap        },
    {"StockPunchedMap",              StockPunchedMap             },
    {"WeightMap",                    WeightMap                   },
    {"SidesCoatedMap",               SidesCoatedMap              },
    {"CoatingTypeMap",               CoatingTypeMap              },
    {"FinishMap",                    FinishMap                   },
    {"GrainMap",                     GrainMap                    },
    {"StockDescriptionMap",          StockDescriptionMap         },
    {"StockLibraryMap",              StockLibraryMap             },
    {"NamedPaperPaperListMap",       NamedPaperPaperListMap      },
    {"CoverOptionMap",               CoverOptionMap              },
    {"CoverSidesImagedMap",          CoverSidesImagedMap         },
    {"OutputColorMap",               OutputColorMap              },
    {"TrappingMap",                  TrappingMap                 },
    {"BlackOverprintMap",            BlackOverprintMap           },
    {"TRCMap",                       TRCMap                      },
    {"GraySourceProfileMap",         GraySourceProfileMap        },
    {"RGBSourceProfileMap",          RGBSourceProfileMap         },
    {"CMYKSourceProfileMap",         CMYKSourceProfileMap        },
    {"DestinationProfileMap",        DestinationProfileMap       },
    {"ObjectRenderingMap",           ObjectRenderingMap          },
    {"HighlightPrintingColorMap",    HighlightPrintingColorMap   },
    {"HighlightMappingAlgorithmMap", HighlightMappingAlgorithmMap},
    {"HighlightMismatchColorMap",    HighlightMismatchColorMap   },
    {"HighlightMappingColorMap",     HighlightMappingColorMap    },
    {"ResolutionMap",                ResolutionMap               },
    {"HalftoneScreenMap",            HalftoneScreenMap           },
    {"AntialiasingMap",              AntialiasingMap             },
    {"ImageShiftOptions2SidedMap",   ImageShiftOptions2SidedMap  },
    {"ImageShiftOptions1SidedMap",   ImageShiftOptions1SidedMap  },
    {"OutputDestOCTMap",             OutputDestOCTMap            },
    {"OutputDestLCSSMap",            OutputDestLCSSMap           },
    {"OutputDestHCSSMap",            OutputDestHCSSMap           },
    {"OutputDestHCSS_BKMap",         OutputDestHCSS_BKMap        },
    {"OutputStapleOCTMap",           OutputStapleOCTMap          },
    {"OutputStapleLCSSMap",          OutputStapleLCSSMap         },
    {"OutputStapleHCSSMap",          OutputStapleHCSSMap         },
    {"PunchMap",                     PunchMap                    },
    {"PunchNoneMap",                 PunchNoneMap                },
    {"HolePunchOptionsMap",          HolePunchOptionsMap         },
    {"ZFoldMap",                     ZFoldMap                    },
    {"ComplexBookletFoldMap",        ComplexBookletFoldMap       },
    {"ComplexFoldMap",               ComplexFoldMap              },
    {"JobTypeMap",                   JobTypeMap                  },
    {"JobFormatMap",                 JobFormatMap                },
    {"DuplexMap",                    DuplexMap                   },
    {"PlexMap",                      PlexMap                     },
    {"WatermarkOptionsMap",          WatermarkOptionsMap         },
    {"WatermarkStringMap",           WatermarkStringMap          },
};

} // namespace tarvo
