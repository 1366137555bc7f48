#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/printing/PMStatus.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace tarvo {

/// One of the printer's own profiles by number, or a custom one by name. The name means nothing
/// with another kind than the custom one, but stays for when that kind comes back.
struct ColorProfile {
    std::int32_t kind = UnsetValue;
    std::optional<std::string> name;
    bool operator==(const ColorProfile&) const = default;
};

/// The three corrections of a colour cast, each -100 to 100 or unset.
struct ColorCast {
    std::int32_t cyanRed = UnsetValue;
    std::int32_t magentaGreen = UnsetValue;
    std::int32_t yellowBlue = UnsetValue;
    bool operator==(const ColorCast&) const = default;
};

/// How far trapping spreads, each 0 to 20 or unset.
struct TrappingAdjustment {
    std::int32_t slow = UnsetValue;
    std::int32_t fast = UnsetValue;
    bool operator==(const TrappingAdjustment&) const = default;
};

/// Colour management of a job or an exception page printed in full colour. Setters refuse what is
/// out of range with StatusBadArgument and then change nothing; what a ticket holds is taken as it
/// is, since a newer client may know more values.
class FullColorOptions {
public:
    FullColorOptions() = default;
    /// Rebuilds the options from the dictionary of FullColorKeys.h.
    explicit FullColorOptions(const CFDictionary& ticket) { fromTicket(ticket); }

    std::int32_t lightness() const { return lightness_; }
    std::int32_t contrast() const { return contrast_; }
    std::int32_t saturation() const { return saturation_; }
    const ColorCast& colorCast() const { return colorCast_; }
    std::int32_t trapping() const { return trapping_; }
    const TrappingAdjustment& trappingAdjustment() const { return trappingAdjustment_; }
    std::int32_t blackOverprint() const { return blackOverprint_; }
    const std::optional<std::string>& trc() const { return trc_; }
    const ColorProfile& rgbImagesProfile() const { return rgbImages_; }
    const ColorProfile& rgbTextAndGraphicsProfile() const { return rgbTextAndGraphics_; }
    const ColorProfile& cmykImagesProfile() const { return cmykImages_; }
    const ColorProfile& cmykTextAndGraphicsProfile() const { return cmykTextAndGraphics_; }
    const ColorProfile& destinationProfile() const { return destination_; }
    const std::optional<std::string>& grayImagesProfile() const { return grayImages_; }
    const std::optional<std::string>& grayTextAndGraphicsProfile() const
    {
        return grayTextAndGraphics_;
    }
    std::int32_t imageObjectRendering() const { return imageRendering_; }
    std::int32_t textObjectRendering() const { return textRendering_; }
    std::int32_t graphicObjectRendering() const { return graphicRendering_; }

    // -100 to 100, or unset.
    [[nodiscard]] OSStatus setLightness(std::int32_t lightness);
    [[nodiscard]] OSStatus setContrast(std::int32_t contrast);
    [[nodiscard]] OSStatus setSaturation(std::int32_t saturation);
    [[nodiscard]] OSStatus setColorCast(const ColorCast& cast);
    /// Each 0 to 20, or unset.
    [[nodiscard]] OSStatus setTrappingAdjustment(const TrappingAdjustment& adjustment);

    void setTrapping(std::int32_t trapping) { trapping_ = trapping; }
    void setBlackOverprint(std::int32_t overprint) { blackOverprint_ = overprint; }
    void setTRC(std::optional<std::string> name) { trc_ = std::move(name); }
    void setGrayImagesProfile(std::optional<std::string> name) { grayImages_ = std::move(name); }
    void setGrayTextAndGraphicsProfile(std::optional<std::string> name)
    {
        grayTextAndGraphics_ = std::move(name);
    }
    void setImageObjectRendering(std::int32_t rendering) { imageRendering_ = rendering; }
    void setTextObjectRendering(std::int32_t rendering) { textRendering_ = rendering; }
    void setGraphicObjectRendering(std::int32_t rendering) { graphicRendering_ = rendering; }

    // The custom kind needs a name of at most LongestProfileName characters; any other kind takes
    // none, and the former name stays.
    [[nodiscard]] OSStatus setRGBImagesProfile(const ColorProfile& profile);
    [[nodiscard]] OSStatus setRGBTextAndGraphicsProfile(const ColorProfile& profile);
    [[nodiscard]] OSStatus setCMYKImagesProfile(const ColorProfile& profile);
    [[nodiscard]] OSStatus setCMYKTextAndGraphicsProfile(const ColorProfile& profile);
    [[nodiscard]] OSStatus setDestinationProfile(const ColorProfile& profile);

    /// The dictionary of FullColorKeys.h, with what is set. A colour cast is written when all three
    /// corrections are set, trapping's adjustment when trapping is on.
    CFDictionary asTicket() const;

    /// Takes over every entry that is there; one that is absent or of another type changes nothing.
    /// Trapping is the exception: adjustments go with "FCTrapping", and all three are unset
    /// without.
    void fromTicket(const CFDictionary& ticket);

    bool operator==(const FullColorOptions&) const = default;

private:
    struct NumberField;
    struct NameField;
    struct ProfileField;
    static const NumberField Numbers[];
    static const NameField GrayProfiles[];
    static const ProfileField Profiles[];

    void writeTrapping(CFDictionary& ticket) const;
    void readTrapping(const CFDictionary& ticket);

    std::int32_t lightness_ = UnsetValue;
    std::int32_t contrast_ = UnsetValue;
    std::int32_t saturation_ = UnsetValue;
    ColorCast colorCast_;
    std::int32_t trapping_ = UnsetValue; // TrappingMap
    TrappingAdjustment trappingAdjustment_;
    std::int32_t blackOverprint_ = UnsetValue; // BlackOverprintMap
    std::optional<std::string> trc_;
    ColorProfile rgbImages_; // RGBSourceProfileMap
    ColorProfile rgbTextAndGraphics_;
    ColorProfile cmykImages_; // CMYKSourceProfileMap
    ColorProfile cmykTextAndGraphics_;
    std::optional<std::string> grayImages_;
    std::optional<std::string> grayTextAndGraphics_;
    ColorProfile destination_;                 // DestinationProfileMap
    std::int32_t imageRendering_ = UnsetValue; // ObjectRenderingMap
    std::int32_t textRendering_ = UnsetValue;
    std::int32_t graphicRendering_ = UnsetValue;
};

} // namespace tarvo
