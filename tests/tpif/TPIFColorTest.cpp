#include "tpif/TPIFColor.h"

#include "TPIFTestSupport.h"

namespace tarvo {
namespace {

std::string FullColor(const CFDictionary& options)
{
    return Written(
        [&](TPIFChannel& channel) { WriteTPifFullColor(channel, FillFullColorOptions(options)); });
}

std::string Keyword(const std::string& element, const std::string& word)
{
    return "\t\t<" + element + " syntax=\"keyword\">" + word + "</" + element + ">\n";
}

std::string Name(const std::string& element, const std::string& name)
{
    return "\t\t<" + element + " syntax=\"name\" xml:space=\"preserve\">" + name + "</" + element +
           ">\n";
}

TEST(FullColor, HasItsElementsInOrder)
{
    const CFDictionary options = Dictionary({
        {"GraphicRendering",           3                                                  },
        {"TextRendering",              2                                                  },
        {"ImageRendering",             1                                                  },
        {"DestinationProfile",         "Press"                                            },
        {"GrayTextAndGraphicsProfile", "g2"                                               },
        {"GrayImagesProfile",          "g1"                                               },
        {"CMYKTextAndGraphicsProfile", "c2"                                               },
        {"CMYKImagesProfile",          1                                                  },
        {"RGBTextAndGraphicsProfile",  4                                                  },
        {"RGBImagesProfile",           "r<1"                                              },
        {"FCTRC",                      "curve & co"                                       },
        {"FCBlackOverprint",           2                                                  },
        {"FCTrapping",                 2                                                  },
        {"FCTrappingSlowDirection",    4                                                  },
        {"FCTrappingFastDirection",    3                                                  },
        {"FCColorCast",                Dictionary({{"FCYellowBlue", 3}, {"FCCyanRed", 1}})},
        {"FCSaturation",               30                                                 },
        {"FCContrast",                 20                                                 },
        {"FCLightness",                10                                                 },
    });
    EXPECT_EQ(FullColor(options),
              "\t\t<adjust-lightness syntax =\"integer\">10</adjust-lightness>\n"
              "\t\t<adjust-contrast syntax =\"integer\">20</adjust-contrast>\n"
              "\t\t<adjust-saturation syntax =\"integer\">30</adjust-saturation>\n"
              "\t\t<adjust-cyan-red syntax =\"integer\">1</adjust-cyan-red>\n"
              "\t\t<adjust-yellow-blue syntax =\"integer\">3</adjust-yellow-blue>\n" +
                  Keyword("trapping", "off") +
                  "\t\t<trap-width-fast syntax=\"integer\">3</trap-width-fast>\n"
                  "\t\t<trap-width-slow syntax=\"integer\">4</trap-width-slow>\n" +
                  Keyword("black-overprint", "black-overprint-off") +
                  "\t\t<trc syntax=\"collection\">\n"
                  "\t\t\t<trc-name syntax=\"name\" xml:space=\"preserve\">curve &amp; co"
                  "</trc-name>\n"
                  "\t\t</trc>\n" +
                  Name("undefined-source-rgb-images", "r&lt;1") +
                  Keyword("undefined-source-rgb-text", "sRGB") +
                  Keyword("undefined-source-rgb-graphics", "sRGB") +
                  Keyword("undefined-source-cmyk-images", "native-cmyk") +
                  Name("undefined-source-cmyk-text", "c2") +
                  Name("undefined-source-cmyk-graphics", "c2") +
                  Name("undefined-source-gray-images", "g1") +
                  Name("undefined-source-gray-text", "g2") +
                  Name("undefined-source-gray-graphics", "g2") +
                  Name("color-destination-profile-front", "Press") +
                  Name("color-destination-profile-back", "Press") +
                  Keyword("rendering-intent-images", "saturation") +
                  Keyword("rendering-intent-text", "relative-colorimetric") +
                  Keyword("rendering-intent-graphics", "absolute-colorimetric"));
}

struct ColorCase {
    const char* name;
    CFDictionary options;
    std::string xml;
};

TEST(FullColor, LeavesOutWhatIsNotSet)
{
    constexpr auto RGB = "RGBImagesProfile";
    constexpr auto CMYK = "CMYKImagesProfile";
    const std::string rgb = "undefined-source-rgb-images";
    const std::string cmyk = "undefined-source-cmyk-images";
    std::string longest; // 255 characters of two bytes
    for (int count = 0; count < 255; ++count) {
        longest += "ü";
    }
    const std::string both = "\t\t<color-destination-profile-front syntax=\"keyword\">"
                             "system-specified</color-destination-profile-front>"
                             "\t\t<color-destination-profile-back syntax=\"keyword\">"
                             "system-specified</color-destination-profile-back>";
    const ColorCase cases[] = {
        {"nothing",                           {},                                                                        ""                                                                       },
        {"unset",                             Dictionary({{"FCLightness", UnsetValue}, {"ImageRendering", UnsetValue}}), ""                                                                       },
        {"widths go with trapping",
         Dictionary({{"FCTrappingFastDirection", 3}, {"FCTrappingSlowDirection", 4}}),                                   ""                                                                       },
        {"a curve without a name",            Dictionary({{"FCTRC", ""}}),                                               ""                                                                       },
        {"first RGB",                         Dictionary({{RGB, 1}}),                                                    Keyword(rgb,                                                               "xcc-mode-rgb")},
        {"RGB keyword",                                   Dictionary({{RGB, 3}}),                                                                                                Keyword(rgb,                                                                                                                 "Smpte-240m")},
        {"custom RGB needs a name",                      Dictionary({{RGB, 5}}),                                                                                               ""                               },
        {"RGB name",                                 Dictionary({{RGB, 6}}),            Name(rgb,                                             "Adobe RGB")},
        {"RGB beyond",                           Dictionary({{RGB, 7}}),                                                                             ""                                                                                                         },
        {"CMYK keyword",Dictionary({{CMYK, 2}}),Keyword(cmyk,"swop")},
        {"custom CMYK needs a name",                          Dictionary({{CMYK, 3}}),                                                                                                          ""                                                                                                                                                                                                                              },
        {"CMYK name",          Dictionary({{CMYK, 8}}),                                   Name(cmyk, "Japan Color 2001 (Type1:Art) CMYK")},
        {"last CMYK",                         Dictionary({{CMYK, 15}}),                                                                  Name(cmyk,                                                                                                "Swop Plus CMYK")},
        {"CMYK beyond",                                   Dictionary({{CMYK, 16}}),                                                                                                  ""                                                                                                                          },
        {"gray by number",                  Dictionary({{"GrayImagesProfile", 1}}),                                                                                           ""                                                        },
        {"longest name",                                 Dictionary({{RGB, longest}}),         Name(rgb,longest)},
        {"too long a name",                                 Dictionary({{RGB, longest + "x"}}),                ""                   },
        {"one line for both",                           Dictionary({{"DestinationProfile", 1}, {"ImageRendering", 6}}),
         both + Keyword("rendering-intent-images",                                                                                                                                                                                                                     "automatic")},
        {"other destination",Dictionary({{"DestinationProfile", 2}}),                         ""                                                                              },
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(FullColor(row.options), row.xml);
    }
}

std::string Highlight(const CFDictionary& options)
{
    return Written([&](TPIFChannel& channel) { WriteTPIFHighlightColor(channel, options); });
}

TEST(HighlightColor, HasAWordForEachChoice)
{
    const ColorCase cases[] = {
        {"nothing",                                          {},                                  ""                     },
        {"defaults",
         Dictionary({{"HiglightPrintingColor", 0},
                     {"HighlightMappingColor", 0},
                     {"HighlightMismatchAction", 0},
                     {"HighlightMappingAlgorithm", 0}}),
         ""                                                                                                              },
        {"first",
         Dictionary({{"HighlightMappingAlgorithm", 1},
                     {"HighlightMismatchAction", 1},
                     {"HighlightMappingColor", 1},
                     {"HiglightPrintingColor", 1}}),
         Keyword("highlight-colorant",                                                                                     "red") + Keyword("highlight-map-color", "red") +
             Keyword("highlight-colorant-mismatch", "use-ready") +
             Keyword("highlight-map", "object-based")},
        {"last",
         Dictionary({{"HiglightPrintingColor", 5},
                     {"HighlightMappingColor", 12},
                     {"HighlightMismatchAction", 3},
                     {"HighlightMappingAlgorithm", 5}}),
         Keyword("highlight-colorant",         "use-ready") + Keyword("highlight-map-color", "brown") +
             Keyword("highlight-colorant-mismatch", "hold") +
             Keyword("highlight-map", "monochrome-grayscale")},
        {"beyond",
         Dictionary({{"HiglightPrintingColor", 6},
                     {"HighlightMappingColor", 14},
                     {"HighlightMismatchAction", 4},
                     {"HighlightMappingAlgorithm", 6}}),
         ""                                                                                    },
        {"the right spelling is unknown", Dictionary({{"HighlightPrintingColor", 1}}), ""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Highlight(row.options), row.xml);
    }
}

TEST(HighlightColor, CustomColorIsRGBUnlessToldOtherwise)
{
    const std::string start = "\t\t<highlight-map-color-custom-col syntax=\"collection\">\n";
    const std::string end =
        "\t\t</highlight-map-color-custom-col>\n" + Keyword("highlight-map-color", "other");
    const std::string rgb = start +
                            "\t\t\t<color-srgb-col syntax=\"collection\">\n"
                            "\t\t\t\t<color-srgb-red syntax=\"integer\">65535"
                            "</color-srgb-red>\n"
                            "\t\t\t\t<color-srgb-green syntax=\"integer\">257"
                            "</color-srgb-green>\n"
                            "\t\t\t\t<color-srgb-blue syntax=\"integer\">0"
                            "</color-srgb-blue>\n"
                            "\t\t\t</color-srgb-col>\n" +
                            end;
    const std::string hsv = start +
                            "\t\t\t<color-hsv-col syntax=\"collection\">\n"
                            "\t\t\t\t<color-hsv-hue syntax=\"integer\">36000"
                            "</color-hsv-hue>\n"
                            "\t\t\t\t<color-hsv-saturation syntax=\"integer\">0"
                            "</color-hsv-saturation>\n"
                            "\t\t\t\t<color-hsv-value syntax=\"integer\">100"
                            "</color-hsv-value>\n"
                            "\t\t\t</color-hsv-col>\n" +
                            end;
    CFDictionary options = Dictionary({
        {"HighlightMappingColor", 13   },
        {"HighlightColorR",       65535},
        {"HighlightColorG",       257  },
        {"HighlightColorH",       36000},
        {"HighlightColorV",       100  }
    });
    EXPECT_EQ(Highlight(options), rgb);
    for (const CFPropertyList& on :
         {CFPropertyList(true), CFPropertyList(2), CFPropertyList(""), CFPropertyList(0.5)}) {
        options.set("HighlightColorRGB", on);
        EXPECT_EQ(Highlight(options), rgb) << on.kindName();
    }
    for (const CFPropertyList& off :
         {CFPropertyList(false), CFPropertyList(0), CFPropertyList(0.0)}) {
        options.set("HighlightColorRGB", off);
        EXPECT_EQ(Highlight(options), hsv) << off.kindName();
    }
}

TEST(Halftone, IsTheSameForAllObjects)
{
    const auto screen = [](std::int32_t value) {
        return Written([&](TPIFChannel& channel) { WriteTPifHalfTone(channel, value); });
    };
    constexpr std::pair<int, const char*> Words[] = {
        {1,  "85-lpi"         },
        {2,  "106-lpi"        },
        {8,  "200-lpi"        },
        {14, "stochastic"     },
        {16, "85-lpi"         },
        {29, "42-lpi"         },
        {19, "85-lpi-enhanced"},
        {47, "134-lpi-dark"   },
    };
    for (const auto& [value, word] : Words) {
        SCOPED_TRACE(value);
        EXPECT_EQ(screen(value), Keyword("halftone-graphics", word) +
                                     Keyword("halftone-images", word) +
                                     Keyword("halftone-text", word));
    }
    EXPECT_EQ(screen(0), "");
    EXPECT_EQ(screen(48), "");
    EXPECT_EQ(screen(UnsetValue), "");
}

} // namespace
} // namespace tarvo
