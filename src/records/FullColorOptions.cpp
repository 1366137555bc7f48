#include "records/FullColorOptions.h"

#include "platform/text/Utf8.h"
#include "records/FullColorKeys.h"
#include "settings/ColorMaps.h"
#include "settings/TicketAccess.h"

#include <utility>

namespace tarvo {
namespace {

constexpr std::int32_t TrappingOn = 1; // TrappingMap

bool IsPercentOrUnset(std::int32_t value)
{
    return value == UnsetValue || (value >= -100 && value <= 100);
}

bool IsTrappingWidthOrUnset(std::int32_t value)
{
    return value == UnsetValue || (value >= 0 && value <= 20);
}

bool IsProfileName(const std::string& name)
{
    return Utf8Length(name) <= LongestProfileName;
}

OSStatus SetPercent(std::int32_t& field, std::int32_t value)
{
    if (!IsPercentOrUnset(value)) {
        return StatusBadArgument;
    }
    field = value;
    return StatusOk;
}

OSStatus SetProfile(ColorProfile& field, const ColorProfile& profile, std::int32_t customKind)
{
    if (profile.kind != customKind) {
        field.kind = profile.kind;
        return StatusOk;
    }
    if (!profile.name || !IsProfileName(*profile.name)) {
        return StatusBadArgument;
    }
    field = profile;
    return StatusOk;
}

void WriteTextIfSet(CFDictionary& ticket, std::string_view key,
                    const std::optional<std::string>& text)
{
    if (text) {
        ticket.set(key, *text);
    }
}

void WriteCast(CFDictionary& ticket, const ColorCast& cast)
{
    if (cast.cyanRed == UnsetValue || cast.magentaGreen == UnsetValue ||
        cast.yellowBlue == UnsetValue) {
        return;
    }
    CFDictionary parts;
    WriteTicketValue(parts, FullColorCyanRedKey, cast.cyanRed);
    WriteTicketValue(parts, FullColorMagentaGreenKey, cast.magentaGreen);
    WriteTicketValue(parts, FullColorYellowBlueKey, cast.yellowBlue);
    ticket.set(FullColorCastKey, std::move(parts));
}

void ReadCast(const CFDictionary& ticket, ColorCast& cast)
{
    const auto* parts = ticket.get<CFDictionary>(FullColorCastKey);
    GetCFIndexFromCFDictionary(parts, FullColorCyanRedKey, &cast.cyanRed);
    GetCFIndexFromCFDictionary(parts, FullColorMagentaGreenKey, &cast.magentaGreen);
    GetCFIndexFromCFDictionary(parts, FullColorYellowBlueKey, &cast.yellowBlue);
}

void ReadProfileName(const CFDictionary& ticket, std::string_view key,
                     std::optional<std::string>& name)
{
    const auto* text = ticket.get<std::string>(key);
    if (text != nullptr && IsProfileName(*text)) {
        name = *text;
    }
}

void WriteProfile(CFDictionary& ticket, std::string_view key, const ColorProfile& profile,
                  std::int32_t customKind)
{
    if (profile.kind == customKind) {
        WriteTextIfSet(ticket, key, profile.name);
    } else {
        WriteTicketValueIfSet(ticket, key, profile.kind);
    }
}

void ReadProfile(const CFDictionary& ticket, std::string_view key, ColorProfile& profile,
                 std::int32_t customKind)
{
    const auto* name = ticket.get<std::string>(key);
    if (name == nullptr) {
        GetCFIndexFromCFDictionary(&ticket, key, &profile.kind);
    } else if (IsProfileName(*name)) {
        profile = {customKind, *name};
    }
}

} // namespace

struct FullColorOptions::NumberField {
    std::string_view key;
    std::int32_t FullColorOptions::*number;
};

struct FullColorOptions::NameField {
    std::string_view key;
    std::optional<std::string> FullColorOptions::*name;
};

struct FullColorOptions::ProfileField {
    std::string_view key;
    ColorProfile FullColorOptions::*profile;
    std::int32_t customKind;
};

constexpr FullColorOptions::NumberField FullColorOptions::Numbers[] = {
    {FullColorLightnessKey,      &FullColorOptions::lightness_       },
    {FullColorContrastKey,       &FullColorOptions::contrast_        },
    {FullColorSaturationKey,     &FullColorOptions::saturation_      },
    {FullColorBlackOverprintKey, &FullColorOptions::blackOverprint_  },
    {ImageRenderingKey,          &FullColorOptions::imageRendering_  },
    {TextRenderingKey,           &FullColorOptions::textRendering_   },
    {GraphicRenderingKey,        &FullColorOptions::graphicRendering_},
};

constexpr FullColorOptions::NameField FullColorOptions::GrayProfiles[] = {
    {GrayImagesProfileKey,          &FullColorOptions::grayImages_         },
    {GrayTextAndGraphicsProfileKey, &FullColorOptions::grayTextAndGraphics_},
};

constexpr FullColorOptions::ProfileField FullColorOptions::Profiles[] = {
    {RGBImagesProfileKey,           &FullColorOptions::rgbImages_,           CustomRGBProfile        },
    {RGBTextAndGraphicsProfileKey,  &FullColorOptions::rgbTextAndGraphics_,  CustomRGBProfile        },
    {CMYKImagesProfileKey,          &FullColorOptions::cmykImages_,          CustomCMYKProfile       },
    {CMYKTextAndGraphicsProfileKey, &FullColorOptions::cmykTextAndGraphics_, CustomCMYKProfile       },
    {DestinationProfileKey,         &FullColorOptions::destination_,         CustomDestinationProfile},
};

OSStatus FullColorOptions::setLightness(std::int32_t lightness)
{
    return SetPercent(lightness_, lightness);
}

OSStatus FullColorOptions::setContrast(std::int32_t contrast)
{
    return SetPercent(contrast_, contrast);
}

OSStatus FullColorOptions::setSaturation(std::int32_t saturation)
{
    return SetPercent(saturation_, saturation);
}

OSStatus FullColorOptions::setColorCast(const ColorCast& cast)
{
    if (!IsPercentOrUnset(cast.cyanRed) || !IsPercentOrUnset(cast.magentaGreen) ||
        !IsPercentOrUnset(cast.yellowBlue)) {
        return StatusBadArgument;
    }
    colorCast_ = cast;
    return StatusOk;
}

OSStatus FullColorOptions::setTrappingAdjustment(const TrappingAdjustment& adjustment)
{
    if (!IsTrappingWidthOrUnset(adjustment.slow) || !IsTrappingWidthOrUnset(adjustment.fast)) {
        return StatusBadArgument;
    }
    trappingAdjustment_ = adjustment;
    return StatusOk;
}

OSStatus FullColorOptions::setRGBImagesProfile(const ColorProfile& profile)
{
    return SetProfile(rgbImages_, profile, CustomRGBProfile);
}

OSStatus FullColorOptions::setRGBTextAndGraphicsProfile(const ColorProfile& profile)
{
    return SetProfile(rgbTextAndGraphics_, profile, CustomRGBProfile);
}

OSStatus FullColorOptions::setCMYKImagesProfile(const ColorProfile& profile)
{
    return SetProfile(cmykImages_, profile, CustomCMYKProfile);
}

OSStatus FullColorOptions::setCMYKTextAndGraphicsProfile(const ColorProfile& profile)
{
    return SetProfile(cmykTextAndGraphics_, profile, CustomCMYKProfile);
}

OSStatus FullColorOptions::setDestinationProfile(const ColorProfile& profile)
{
    return SetProfile(destination_, profile, CustomDestinationProfile);
}

CFDictionary FullColorOptions::asTicket() const
{
    CFDictionary ticket;
    for (const NumberField& field : Numbers) {
        WriteTicketValueIfSet(ticket, field.key, this->*field.number);
    }
    WriteCast(ticket, colorCast_);
    writeTrapping(ticket);
    WriteTextIfSet(ticket, FullColorTRCKey, trc_);
    for (const ProfileField& field : Profiles) {
        WriteProfile(ticket, field.key, this->*field.profile, field.customKind);
    }
    for (const NameField& field : GrayProfiles) {
        WriteTextIfSet(ticket, field.key, this->*field.name);
    }
    return ticket;
}

void FullColorOptions::fromTicket(const CFDictionary& ticket)
{
    for (const NumberField& field : Numbers) {
        GetCFIndexFromCFDictionary(&ticket, field.key, &(this->*field.number));
    }
    ReadCast(ticket, colorCast_);
    readTrapping(ticket);
    if (const auto* name = ticket.get<std::string>(FullColorTRCKey)) {
        trc_ = *name;
    }
    for (const ProfileField& field : Profiles) {
        ReadProfile(ticket, field.key, this->*field.profile, field.customKind);
    }
    for (const NameField& field : GrayProfiles) {
        ReadProfileName(ticket, field.key, this->*field.name);
    }
}

void FullColorOptions::writeTrapping(CFDictionary& ticket) const
{
    WriteTicketValueIfSet(ticket, FullColorTrappingKey, trapping_);
    if (trapping_ == TrappingOn) {
        WriteTicketValueIfSet(ticket, FullColorTrappingFastKey, trappingAdjustment_.fast);
        WriteTicketValueIfSet(ticket, FullColorTrappingSlowKey, trappingAdjustment_.slow);
    }
}

void FullColorOptions::readTrapping(const CFDictionary& ticket)
{
    trapping_ = UnsetValue;
    trappingAdjustment_ = {};
    if (GetCFIndexFromCFDictionary(&ticket, FullColorTrappingKey, &trapping_)) {
        GetCFIndexFromCFDictionary(&ticket, FullColorTrappingFastKey, &trappingAdjustment_.fast);
        GetCFIndexFromCFDictionary(&ticket, FullColorTrappingSlowKey, &trappingAdjustment_.slow);
    }
}

} // namespace tarvo
