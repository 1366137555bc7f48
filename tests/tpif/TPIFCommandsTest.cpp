#include "tpif/TPIFCommands.h"

#include "TPIFTestSupport.h"

namespace tarvo {
namespace {

struct CommandCase {
    std::int32_t command;
    std::int32_t value;
    const char* xml; // without its two tabs and line feed; "" writes nothing
};

// The first, the last and an unknown value of each command; cases/commands.txt has those of several
// lines.
constexpr CommandCase Lines[] = {
    {0,  -3,         "<copies syntax=\"integer\">-3</copies>"                                             },
    {0,  UnsetValue, "<copies syntax=\"integer\">-2147483648</copies>"                                    },
    {1,  1,          "<sheet-collate syntax=\"keyword\">collated</sheet-collate>"                         },
    {1,  7,          "<sheet-collate syntax=\"keyword\">uncollated</sheet-collate>"                       },
    {2,  0,          "<sides syntax=\"keyword\">one-sided</sides>"                                        },
    {2,  2,          "<sides syntax=\"keyword\">two-sided-short-edge</sides>"                             },
    {2,  3,          ""                                                                                   },
    {3,  0,          "<orientation-requested syntax=\"enum\">3</orientation-requested>"                   },
    {3,  3,          "<orientation-requested syntax=\"enum\">6</orientation-requested>"                   },
    {3,  4,          "<orientation-requested syntax=\"enum\">3</orientation-requested>"                   },
    {3,  -1,         "<orientation-requested syntax=\"enum\">3</orientation-requested>"                   },
    {4,  0,          "<output-bin syntax=\"keyword\">automatic</output-bin>"                              },
    {4,  3,          "<output-bin syntax=\"keyword\">side</output-bin>"                                   },
    {4,  7,          "<output-bin syntax=\"keyword\">stacker-2</output-bin>"                              },
    {4,  8,          ""                                                                                   },
    {5,  -50,        "<adjust-bw-darkness-value syntax=\"integer\">-50</adjust-bw-darkness-value>"        },
    {6,  0,          "<toner-saver syntax=\"keyword\">none</toner-saver>"                                 },
    {6,  1,          "<toner-saver syntax=\"keyword\">standard</toner-saver>"                             },
    {6,  2,          ""                                                                                   },
    {9,  2,          "<adjust-bw-darkness-mode syntax=\"keyword\">normal</adjust-bw-darkness-mode>"       },
    {9,  3,
     "<adjust-bw-darkness-mode syntax=\"keyword\">quillon900-adjustable</adjust-bw-darkness-mode>"        },
    {9,  1,          ""                                                                                   },
    {10, 1,          "<page-rotation syntax=\"keyword\">rotate-0</page-rotation>"                         },
    {10, 0,          "<page-rotation syntax=\"keyword\">rotate-180</page-rotation>"                       },
    {12, 0,          "<opi-image-insertion syntax=\"keyword\">insert</opi-image-insertion>"               },
    {12, 1,          "<opi-image-insertion syntax=\"keyword\">do-not-insert</opi-image-insertion>"        },
    {12, 2,          ""                                                                                   },
    {13, 0,          "<opi-image-pre-scan syntax=\"keyword\">no-pre-scan</opi-image-pre-scan>"            },
    {13, 2,          "<opi-image-pre-scan syntax=\"keyword\">pre-scan-and-gather</opi-image-pre-scan>"    },
    {14, 1,          "<anti-aliasing syntax=\"keyword\">none</anti-aliasing>"                             },
    {14, 2,          "<anti-aliasing syntax=\"keyword\">standard</anti-aliasing>"                         },
    {15, 1,          ""                                                                                   },
    {16, 100,        "<adjust-lightness syntax =\"integer\">100</adjust-lightness>"                       },
    {17, -100,       "<adjust-contrast syntax =\"integer\">-100</adjust-contrast>"                        },
    {18, 1,          "<adjust-saturation syntax =\"integer\">1</adjust-saturation>"                       },
    {19, 2,          "<adjust-cyan-red syntax =\"integer\">2</adjust-cyan-red>"                           },
    {20, 3,          "<adjust-magenta-green syntax =\"integer\">3</adjust-magenta-green>"                 },
    {21, 4,          "<adjust-yellow-blue syntax =\"integer\">4</adjust-yellow-blue>"                     },
    {22, 1,          "<trapping syntax=\"keyword\">all</trapping>"                                        },
    {22, 2,          "<trapping syntax=\"keyword\">off</trapping>"                                        },
    {22, 3,          ""                                                                                   },
    {23, 20,         "<trap-width-fast syntax=\"integer\">20</trap-width-fast>"                           },
    {24, 0,          "<trap-width-slow syntax=\"integer\">0</trap-width-slow>"                            },
    {25, 1,          "<black-overprint syntax=\"keyword\">black-overprint-on</black-overprint>"           },
    {25, 2,          "<black-overprint syntax=\"keyword\">black-overprint-off</black-overprint>"          },
    {26, 1,          "<rendering-intent-images syntax=\"keyword\">saturation</rendering-intent-images>"   },
    {27, 5,          "<rendering-intent-text syntax=\"keyword\">pure-text</rendering-intent-text>"        },
    {28, 6,          "<rendering-intent-graphics syntax=\"keyword\">automatic</rendering-intent-graphics>"},
    {28, 7,          ""                                                                                   },
    {29, 2,          "<page-delivery syntax=\"keyword\">same-order-face-down</page-delivery>"             },
    {29, 5,          "<page-delivery syntax=\"keyword\">reverse-order-face-down</page-delivery>"          },
    {29, 1,          ""                                                                                   },
    {30, 1,          "<color-effects-type syntax=\"keyword\">monochrome-grayscale</color-effects-type>"   },
    {30, 2,          "<color-effects-type syntax=\"keyword\">color</color-effects-type>"                  },
    {31, 1,          ""                                                                                   },
    {-1, 1,          ""                                                                                   },
};

TEST(SimpleElements, AreOneLineOrNothing)
{
    for (const auto& row : Lines) {
        SCOPED_TRACE(testing::Message() << "command " << row.command << " value " << row.value);
        const std::string line(row.xml);
        EXPECT_EQ(Written([&](TPIFChannel& channel) {
                      WriteTPifCommands(channel, row.command, row.value);
                  }),
                  line.empty() ? "" : "\t\t" + line + "\n");
    }
}

} // namespace
} // namespace tarvo
