#include "tpif/TPIFColor.h"

#include "platform/text/Utf8.h"
#include "records/FullColorKeys.h"
#include "records/HighlightColorKeys.h"
#include "tpif/TPIFCommands.h"
#include "tpif/TPIFElement.h"
#include "tpif/TPIFWord.h"

#include <span>

namespace tarvo {
namespace {

// A source profile of the printer's own.
struct SourceWord {
    std::int32_t kind;
    TPIFSyntax syntax;
    const char* word;
};

constexpr SourceWord RGBSourceWords[] = {
    {1, TPIFSyntax::Keyword, "xcc-mode-rgb"       },
    {2, TPIFSyntax::Keyword, "xcc-mode-rgb-gamma1"},
    {3, TPIFSyntax::Keyword, "Smpte-240m"         },
    {4, TPIFSyntax::Keyword, "sRGB"               },
    {6, TPIFSyntax::Name,    "Adobe RGB"          },
};

constexpr SourceWord CMYKSourceWords[] = {
    {1,  TPIFSyntax::Keyword, "native-cmyk"                           },
    {2,  TPIFSyntax::Keyword, "swop"                                  },
    {4,  TPIFSyntax::Name,    "FOGRA Gloss Coated CMYK"               },
    {5,  TPIFSyntax::Name,    "FOGRA Matte Coated CMYK"               },
    {6,  TPIFSyntax::Name,    "FOGRA Uncoated CMYK"                   },
    {7,  TPIFSyntax::Name,    "Japan Color 2001 Plus CMYK"            },
    {8,  TPIFSyntax::Name,    "Japan Color 2001 (Type1:Art) CMYK"     },
    {9,  TPIFSyntax::Name,    "Japan Color 2001 (Type2:Matte) CMYK"   },
    {10, TPIFSyntax::Name,    "Japan Color 2001 (Type3:Coated) CMYK"  },
    {11, TPIFSyntax::Name,    "Japan Color 2001 (Type4:Uncoated) CMYK"},
    {12, TPIFSyntax::Name,    "FOGRA Web Offset CMYK"                 },
    {13, TPIFSyntax::Name,    "FOGRA Plus CMYK"                       },
    {14, TPIFSyntax::Name,    "Commercial CMYK"                       },
    {15, TPIFSyntax::Name,    "Swop Plus CMYK"                        },
};

constexpr std::int32_t SystemSpecifiedDestination = 1;

constexpr TPIFWord HighlightColorantWords[] = {
    {"red",       1},
    {"green",     2},
    {"blue",      3},
    {"royal",     4},
    {"use-ready", 5},
    {nullptr,     0},
};

constexpr TPIFWord HighlightMapColorWords[] = {
    {"red",      1 },
    {"green",    2 },
    {"blue",     3 },
    {"cyan",     4 },
    {"magenta",  5 },
    {"yellow",   6 },
    {"cardinal", 7 },
    {"royal",    8 },
    {"black",    9 },
    {"ruby",     10},
    {"violet",   11},
    {"brown",    12},
    {"other",    13},
    {nullptr,    0 },
};
constexpr std::int32_t CustomMappingColor = 13;

constexpr TPIFWord HighlightMismatchWords[] = {
    {"use-ready", 1},
    {"abort",     2},
    {"hold",      3},
    {nullptr,     0},
};

constexpr TPIFWord HighlightMapWords[] = {
    {"object-based",         1},
    {"pictorial",            2},
    {"presentation",         3},
    {"color-to-highlight",   4},
    {"monochrome-grayscale", 5},
    {nullptr,                0},
};

constexpr TPIFWord HalftoneWords[] = {
    {"85-lpi",           1 },
    {"106-lpi",          2 },
    {"125-lpi",          3 },
    {"134-lpi",          4 },
    {"156-lpi",          5 },
    {"200-dpi",          6 },
    {"150-dpi",          7 },
    {"200-lpi",          8 },
    {"300-lpi",          9 },
    {"600-lpi",          10},
    {"300-dpi",          11},
    {"600-dpi",          12},
    {"175-dpi",          13},
    {"stochastic",       14},
    {"53-lpi",           15},
    {"85-lpi",           16},
    {"106-lpi",          17},
    {"71-lpi",           18},
    {"85-lpi-enhanced",  19},
    {"106-lpi-enhanced", 20},
    {"120-lpi",          21},
    {"141-lpi",          22},
    {"56-lpi",           23},
    {"60-lpi",           24},
    {"107-lpi-normal",   25},
    {"107-lpi-light",    26},
    {"107-lpi-dark",     27},
    {"151-lpi",          28},
    {"42-lpi",           29},
    {"125-lpi",          30},
    {"156-lpi",          31},
    {"54-lpi",           32},
    {"85-lpi-normal",    33},
    {"85-lpi-light",     34},
    {"85-lpi-dark",      35},
    {"106-lpi-normal",   36},
    {"106-lpi-light",    37},
    {"106-lpi-dark",     38},
    {"120-lpi-normal",   39},
    {"120-lpi-light",    40},
    {"120-lpi-dark",     41},
    {"125-lpi-normal",   42},
    {"125-lpi-light",    43},
    {"125-lpi-dark",     44},
    {"134-lpi-normal",   45},
    {"134-lpi-light",    46},
    {"134-lpi-dark",     47},
    {nullptr,            0 },
};

std::int32_t NumberOrUnset(const CFDictionary& options, std::string_view key)
{
    return options.int32(key).value_or(UnsetValue);
}

// The name of a custom profile. One that is too long for the front end is no name.
std::string ProfileName(const CFDictionary& options, std::string_view key)
{
    if (Utf8Length(TPIFText(options, key)) > LongestProfileName) {
        return "";
    }
    return EscapedTPIFText(options, key);
}

ProfileData Profile(const CFDictionary& options, std::string_view key)
{
    return {NumberOrUnset(options, key), ProfileName(options, key)};
}

ProfileData NamedProfile(const CFDictionary& options, std::string_view key)
{
    return {UnsetValue, ProfileName(options, key)};
}

void WriteSet(TPIFChannel& writeData, std::int32_t command, std::int32_t value)
{
    if (value != UnsetValue) {
        WriteTPifCommands(writeData, command, value);
    }
}

void WriteTPifTRC(TPIFChannel& writeData, const std::string& trc)
{
    if (!trc.empty()) {
        const TPIFBlock collection(writeData, AttributeIndent, "trc", TPIFSyntax::Collection);
        WriteTPIFElement(writeData, MemberIndent, "trc-name", TPIFSyntax::Name, trc);
    }
}

void WriteSource(TPIFChannel& writeData, std::string_view element,
                 std::span<const SourceWord> words, const ProfileData& profile)
{
    if (!profile.name.empty()) {
        WriteTPIFElement(writeData, AttributeIndent, element, TPIFSyntax::Name, profile.name);
        return;
    }
    for (const SourceWord& row : words) {
        if (row.kind == profile.kind) {
            WriteTPIFElement(writeData, AttributeIndent, element, row.syntax, row.word);
        }
    }
}

void WriteTPifRGBSource(TPIFChannel& writeData, const FullColorData& color)
{
    WriteSource(writeData, "undefined-source-rgb-images", RGBSourceWords, color.rgbImages);
    WriteSource(writeData, "undefined-source-rgb-text", RGBSourceWords, color.rgbTextAndGraphics);
    WriteSource(writeData, "undefined-source-rgb-graphics", RGBSourceWords,
                color.rgbTextAndGraphics);
}

void WriteTPifCMYKSource(TPIFChannel& writeData, const FullColorData& color)
{
    WriteSource(writeData, "undefined-source-cmyk-images", CMYKSourceWords, color.cmykImages);
    WriteSource(writeData, "undefined-source-cmyk-text", CMYKSourceWords,
                color.cmykTextAndGraphics);
    WriteSource(writeData, "undefined-source-cmyk-graphics", CMYKSourceWords,
                color.cmykTextAndGraphics);
}

void WriteTPifGraySource(TPIFChannel& writeData, const FullColorData& color)
{
    WriteSource(writeData, "undefined-source-gray-images", {}, color.grayImages);
    WriteSource(writeData, "undefined-source-gray-text", {}, color.grayTextAndGraphics);
    WriteSource(writeData, "undefined-source-gray-graphics", {}, color.grayTextAndGraphics);
}

void WriteTPifColorDestination(TPIFChannel& writeData, std::string_view element,
                               const ProfileData& destination)
{
    if (!destination.name.empty()) {
        WriteTPIFElement(writeData, AttributeIndent, element, TPIFSyntax::Name, destination.name);
    } else if (destination.kind == SystemSpecifiedDestination) {
        // Without a line feed: the front end takes the element that follows from the same line.
        const std::string name(element);
        DevWriteTpif(writeData,
                     "\t\t<" + name + " syntax=\"keyword\">system-specified</" + name + ">");
    }
}

void WriteHighlightWord(TPIFChannel& writeData, std::string_view element, const TPIFWord* words,
                        std::optional<std::int32_t> value)
{
    const char* word = value ? WordForValue(words, *value) : nullptr;
    if (word != nullptr) {
        WriteTPIFElement(writeData, AttributeIndent, element, TPIFSyntax::Keyword, word);
    }
}

// Given as red, green and blue unless the options say otherwise.
bool IsRGB(const CFDictionary& options)
{
    const CFPropertyList* flag = options.find(HighlightColorRGBKey);
    const bool isNumber = flag != nullptr && (flag->get<std::int64_t>() || flag->get<double>());
    const bool isFalse =
        flag != nullptr && flag->get<bool>() && !options.isTrue(HighlightColorRGBKey);
    return !isFalse && (!isNumber || IsNonZeroNumber(flag));
}

void WriteCustomMappingColor(TPIFChannel& writeData, const CFDictionary& options)
{
    struct Component {
        std::string_view key;
        const char* element;
    };
    static constexpr Component RGB[] = {
        {HighlightColorRKey, "color-srgb-red"  },
        {HighlightColorGKey, "color-srgb-green"},
        {HighlightColorBKey, "color-srgb-blue" },
    };
    static constexpr Component HSV[] = {
        {HighlightColorHKey, "color-hsv-hue"       },
        {HighlightColorSKey, "color-hsv-saturation"},
        {HighlightColorVKey, "color-hsv-value"     },
    };
    const bool isRGB = IsRGB(options);
    const TPIFBlock custom(writeData, AttributeIndent, "highlight-map-color-custom-col",
                           TPIFSyntax::Collection);
    const TPIFBlock color(writeData, MemberIndent, isRGB ? "color-srgb-col" : "color-hsv-col",
                          TPIFSyntax::Collection);
    for (const Component& component : isRGB ? RGB : HSV) {
        WriteTPIFElement(writeData, MemberIndent + 1, component.element,
                         options.int32(component.key).value_or(0));
    }
}

} // namespace

FullColorData FillFullColorOptions(const CFDictionary& options)
{
    FullColorData color;
    color.lightness = NumberOrUnset(options, FullColorLightnessKey);
    color.contrast = NumberOrUnset(options, FullColorContrastKey);
    color.saturation = NumberOrUnset(options, FullColorSaturationKey);
    if (const auto* cast = options.get<CFDictionary>(FullColorCastKey)) {
        color.cyanRed = NumberOrUnset(*cast, FullColorCyanRedKey);
        color.magentaGreen = NumberOrUnset(*cast, FullColorMagentaGreenKey);
        color.yellowBlue = NumberOrUnset(*cast, FullColorYellowBlueKey);
    }
    if (const auto trapping = options.int32(FullColorTrappingKey)) { // widths go with it
        color.trapping = *trapping;
        color.trappingFast = NumberOrUnset(options, FullColorTrappingFastKey);
        color.trappingSlow = NumberOrUnset(options, FullColorTrappingSlowKey);
    }
    color.blackOverprint = NumberOrUnset(options, FullColorBlackOverprintKey);
    color.trc = EscapedTPIFText(options, FullColorTRCKey);
    color.rgbImages = Profile(options, RGBImagesProfileKey);
    color.rgbTextAndGraphics = Profile(options, RGBTextAndGraphicsProfileKey);
    color.cmykImages = Profile(options, CMYKImagesProfileKey);
    color.cmykTextAndGraphics = Profile(options, CMYKTextAndGraphicsProfileKey);
    color.grayImages = NamedProfile(options, GrayImagesProfileKey);
    color.grayTextAndGraphics = NamedProfile(options, GrayTextAndGraphicsProfileKey);
    color.destination = Profile(options, DestinationProfileKey);
    color.imageRendering = NumberOrUnset(options, ImageRenderingKey);
    color.textRendering = NumberOrUnset(options, TextRenderingKey);
    color.graphicRendering = NumberOrUnset(options, GraphicRenderingKey);
    return color;
}

void WriteTPifFullColor(TPIFChannel& writeData, const FullColorData& color)
{
    WriteSet(writeData, TPIFCommand::Lightness, color.lightness);
    WriteSet(writeData, TPIFCommand::Contrast, color.contrast);
    WriteSet(writeData, TPIFCommand::Saturation, color.saturation);
    WriteSet(writeData, TPIFCommand::CyanRed, color.cyanRed);
    WriteSet(writeData, TPIFCommand::MagentaGreen, color.magentaGreen);
    WriteSet(writeData, TPIFCommand::YellowBlue, color.yellowBlue);
    WriteSet(writeData, TPIFCommand::Trapping, color.trapping);
    WriteSet(writeData, TPIFCommand::TrapWidthFast, color.trappingFast);
    WriteSet(writeData, TPIFCommand::TrapWidthSlow, color.trappingSlow);
    WriteSet(writeData, TPIFCommand::BlackOverprint, color.blackOverprint);
    WriteTPifTRC(writeData, color.trc);
    WriteTPifRGBSource(writeData, color);
    WriteTPifCMYKSource(writeData, color);
    WriteTPifGraySource(writeData, color);
    WriteTPifColorDestination(writeData, "color-destination-profile-front", color.destination);
    WriteTPifColorDestination(writeData, "color-destination-profile-back", color.destination);
    WriteSet(writeData, TPIFCommand::RenderingImages, color.imageRendering);
    WriteSet(writeData, TPIFCommand::RenderingText, color.textRendering);
    WriteSet(writeData, TPIFCommand::RenderingGraphics, color.graphicRendering);
    WriteSet(writeData, TPIFCommand::AntiAliasing, color.antialiasing);
    WriteSet(writeData, TPIFCommand::ColorEffects, color.outputColor);
}

void WriteTPIFHighlightColor(TPIFChannel& writeData, const CFDictionary& options)
{
    const auto mappingColor = options.int32(HighlightMappingColorKey);
    WriteHighlightWord(writeData, "highlight-colorant", HighlightColorantWords,
                       options.int32(HighlightPrintingColorKey));
    if (mappingColor == CustomMappingColor) {
        WriteCustomMappingColor(writeData, options);
    }
    WriteHighlightWord(writeData, "highlight-map-color", HighlightMapColorWords, mappingColor);
    WriteHighlightWord(writeData, "highlight-colorant-mismatch", HighlightMismatchWords,
                       options.int32(HighlightMismatchActionKey));
    WriteHighlightWord(writeData, "highlight-map", HighlightMapWords,
                       options.int32(HighlightMappingAlgorithmKey));
}

void WriteTPifHalfTone(TPIFChannel& writeData, std::int32_t screen)
{
    const char* word = WordForValue(HalftoneWords, screen);
    if (word == nullptr) {
        return;
    }
    for (const auto* element : {"halftone-graphics", "halftone-images", "halftone-text"}) {
        WriteTPIFElement(writeData, AttributeIndent, element, TPIFSyntax::Keyword, word);
    }
}

} // namespace tarvo
