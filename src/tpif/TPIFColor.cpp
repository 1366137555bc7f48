#include "tpif/TPIFColor.h"

#include "platform/text/Utf8.h"
#include "records/FullColorKeys.h"
#include "records/HighlightColorKeys.h"
#include "records/HighlightColorOptions.h"
#include "settings/ColorMaps.h"
#include "tpif/TPIFCommands.h"
#include "tpif/TPIFElement.h"
#include "tpif/TPIFWords.h"

namespace tarvo {
namespace {

// A gray source is a custom profile or none.
constexpr TPIFWord GraySourceWords[] = {
    {nullptr, 0},
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

void WriteSource(TPIFChannel& writeData, std::string_view element, const TPIFWord* words,
                 const ProfileData& profile)
{
    if (!profile.name.empty()) {
        WriteTPIFElement(writeData, AttributeIndent, element, TPIFSyntax::Name, profile.name);
        return;
    }
    for (const TPIFWord* row = words; row->word != nullptr; ++row) {
        if (row->value == profile.kind) {
            const auto syntax = row->isName ? TPIFSyntax::Name : TPIFSyntax::Keyword;
            WriteTPIFElement(writeData, AttributeIndent, element, syntax, row->word);
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
    WriteSource(writeData, "undefined-source-gray-images", GraySourceWords, color.grayImages);
    WriteSource(writeData, "undefined-source-gray-text", GraySourceWords,
                color.grayTextAndGraphics);
    WriteSource(writeData, "undefined-source-gray-graphics", GraySourceWords,
                color.grayTextAndGraphics);
}

void WriteTPifColorDestination(TPIFChannel& writeData, std::string_view element,
                               const ProfileData& destination)
{
    if (!destination.name.empty()) {
        WriteTPIFElement(writeData, AttributeIndent, element, TPIFSyntax::Name, destination.name);
    } else if (const char* word = WordForValue(DestinationWords, destination.kind)) {
        // Without a line feed: the front end takes the element that follows from the same line.
        const std::string name(element);
        DevWriteTpif(writeData, "\t\t<" + name + " syntax=\"keyword\">" + word + "</" + name + ">");
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
    const bool isRGB = IsHighlightColorRGB(options);
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
    if (mappingColor == CustomHighlightMappingColor) {
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
