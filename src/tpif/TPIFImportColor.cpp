#include "tpif/TPIFImportColor.h"

#include "records/FullColorKeys.h"
#include "records/HighlightColorKeys.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFImportOneToOne.h"

namespace tarvo {
namespace {

struct FullColorRow {
    std::string_view feature;
    std::string_view key;
    bool isOfCast;
};

constexpr FullColorRow FullColorFeatures[] = {
    {"AdjustLightness",    FullColorLightnessKey,         false},
    {"AdjustContrast",     FullColorContrastKey,          false},
    {"AdjustSaturation",   FullColorSaturationKey,        false},
    {"AdjustCyanRed",      FullColorCyanRedKey,           true },
    {"AdjustMagentaGreen", FullColorMagentaGreenKey,      true },
    {"AdjustYellowBlue",   FullColorYellowBlueKey,        true },
    {"Trapping",           FullColorTrappingKey,          false},
    {"TrapWidthFast",      FullColorTrappingFastKey,      false},
    {"TrapWidthSlow",      FullColorTrappingSlowKey,      false},
    {"BlackOverprint",     FullColorBlackOverprintKey,    false},
    {"TRC",                FullColorTRCKey,               false},
    {"RGBSourceImages",    RGBImagesProfileKey,           false},
    {"RGBSourceText",      RGBTextAndGraphicsProfileKey,  false},
    {"CMYKSourceImages",   CMYKImagesProfileKey,          false},
    {"CMYKSourceText",     CMYKTextAndGraphicsProfileKey, false},
    {"GraySourceImages",   GrayImagesProfileKey,          false},
    {"GraySourceText",     GrayTextAndGraphicsProfileKey, false},
    {"RenderingImages",    ImageRenderingKey,             false},
    {"RenderingText",      TextRenderingKey,              false},
    {"RenderingGraphics",  GraphicRenderingKey,           false},
};

struct HighlightRow {
    std::string_view feature;
    std::string_view key;
};

constexpr HighlightRow HighlightFeatures[] = {
    {"HighlightColorant", HighlightPrintingColorKey   },
    {"HighlightMapColor", HighlightMappingColorKey    },
    {"HighlightMap",      HighlightMappingAlgorithmKey},
    {"HighlightMismatch", HighlightMismatchActionKey  },
};

} // namespace

TPIFFullColorImport::TPIFFullColorImport(const TPIFImportFeatures& features)
    : front_(features.named("DestinationFront")), back_(features.named("DestinationBack"))
{
    for (const auto& row : FullColorFeatures) {
        steps_.push_back({&features.named(row.feature), row.key, row.isOfCast});
    }
}

CFDictionary TPIFFullColorImport::read(const TPIFImportGroup& group, std::string_view key) const
{
    CFDictionary dictionary;
    CFDictionary cast;
    if (group.isEmpty()) {
        return dictionary;
    }
    TPIFImportTarget options(dictionary, group, key);
    const std::string castKey = std::string(key) + "/" + std::string(FullColorCastKey);
    TPIFImportTarget castOptions(cast, group, castKey);
    for (const Step& step : steps_) {
        TPIFImportFeatureOneToOne(*step.feature, group, step.isOfCast ? castOptions : options,
                                  step.key);
    }
    if (!cast.empty()) {
        dictionary.set(FullColorCastKey, std::move(cast));
    }
    const bool hasWidth = dictionary.contains(FullColorTrappingFastKey) ||
                          dictionary.contains(FullColorTrappingSlowKey);
    if (hasWidth && !dictionary.contains(FullColorTrappingKey)) {
        dictionary.set(FullColorTrappingKey, UnsetValue); // widths count beside it only
    }
    readDestination(group, options);
    return dictionary;
}

// Both sides have one profile: the back's counts where the front's is no use.
void TPIFFullColorImport::readDestination(const TPIFImportGroup& group,
                                          TPIFImportTarget& options) const
{
    if (!TPIFImportFeatureOneToOne(front_, group, options, DestinationProfileKey)) {
        TPIFImportFeatureOneToOne(back_, group, options, DestinationProfileKey);
    } else if (const TPIFImportNode* back = back_.node(group)) {
        group.tell(TPIFImportOutcome::Ignored, *back, "the front's profile is both sides'");
    }
}

CFDictionary ReadHighlightColor(const TPIFImportFeatures& features, const TPIFImportGroup& group)
{
    CFDictionary dictionary;
    TPIFImportTarget options(dictionary, group, HighlightColorOptionsKey);
    for (const auto& row : HighlightFeatures) {
        TPIFImportFeatureOneToOne(features.named(row.feature), group, options, row.key);
    }
    return dictionary;
}

} // namespace tarvo
