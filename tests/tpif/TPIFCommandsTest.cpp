#include "tpif/TPIFCommands.h"

#include "TPIFTestSupport.h"
#include "platform/cf/CFPropertyList.h"

namespace tarvo {
namespace {

struct CommandCase {
    std::int32_t command;
    std::int32_t value;
    const char* xml; // without its two tabs and line feed; "" writes nothing
};

// Each command, mostly with its last word or an unknown value; TPIFFeaturesTest.cpp has all words
// of those with keywords, cases/commands.txt those of several lines.
constexpr CommandCase Lines[] = {
    {0,  UnsetValue, "<copies syntax=\"integer\">-2147483648</copies>"                                    },
    {1,  1,          "<sheet-collate syntax=\"keyword\">collated</sheet-collate>"                         },
    {1,  7,          "<sheet-collate syntax=\"keyword\">uncollated</sheet-collate>"                       },
    {2,  3,          ""                                                                                   },
    {3,  0,          "<orientation-requested syntax=\"enum\">3</orientation-requested>"                   },
    {3,  3,          "<orientation-requested syntax=\"enum\">6</orientation-requested>"                   },
    {3,  -1,         "<orientation-requested syntax=\"enum\">3</orientation-requested>"                   },
    {4,  0,          "<output-bin syntax=\"keyword\">automatic</output-bin>"                              },
    {4,  7,          "<output-bin syntax=\"keyword\">stacker-2</output-bin>"                              },
    {4,  8,          ""                                                                                   },
    {5,  -50,        "<adjust-bw-darkness-value syntax=\"integer\">-50</adjust-bw-darkness-value>"        },
    {6,  2,          ""                                                                                   },
    {6,  0,          "<toner-saver syntax=\"keyword\">none</toner-saver>"                                 },
    {6,  1,          "<toner-saver syntax=\"keyword\">standard</toner-saver>"                             },
    {9,  3,
     "<adjust-bw-darkness-mode syntax=\"keyword\">quillon900-adjustable</adjust-bw-darkness-mode>"        },
    {9,  1,          ""                                                                                   },
    {10, 1,          "<page-rotation syntax=\"keyword\">rotate-0</page-rotation>"                         },
    {12, 2,          ""                                                                                   },
    {13, 0,          "<opi-image-pre-scan syntax=\"keyword\">no-pre-scan</opi-image-pre-scan>"            },
    {15, 1,          ""                                                                                   },
    {16, 100,        "<adjust-lightness syntax =\"integer\">100</adjust-lightness>"                       },
    {18, 1,          "<adjust-saturation syntax =\"integer\">1</adjust-saturation>"                       },
    {20, 3,          "<adjust-magenta-green syntax =\"integer\">3</adjust-magenta-green>"                 },
    {21, 4,          "<adjust-yellow-blue syntax =\"integer\">4</adjust-yellow-blue>"                     },
    {22, 3,          ""                                                                                   },
    {23, 20,         "<trap-width-fast syntax=\"integer\">20</trap-width-fast>"                           },
    {24, 0,          "<trap-width-slow syntax=\"integer\">0</trap-width-slow>"                            },
    {26, 1,          "<rendering-intent-images syntax=\"keyword\">saturation</rendering-intent-images>"   },
    {27, 5,          "<rendering-intent-text syntax=\"keyword\">pure-text</rendering-intent-text>"        },
    {28, 6,          "<rendering-intent-graphics syntax=\"keyword\">automatic</rendering-intent-graphics>"},
    {28, 7,          ""                                                                                   },
    {29, 5,          "<page-delivery syntax=\"keyword\">reverse-order-face-down</page-delivery>"          },
    {29, 1,          ""                                                                                   },
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
