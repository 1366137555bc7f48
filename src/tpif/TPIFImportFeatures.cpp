#include "tpif/TPIFImportFeatures.h"

#include "printer/FeatureDatabase.h"

#include <algorithm>

namespace tarvo {
namespace {

using Scope = TPIFImportScope;

// The groups that a document repeats inside the job's, or has twice.
struct GroupRow {
    std::string_view feature;
    Scope scope;
    bool repeats;
};

constexpr GroupRow Groups[] = {
    {"FrontCover", Scope::Cover,  false},
    {"BackCover",  Scope::Cover,  false},
    {"Inserts",    Scope::Insert, true },
    {"Exceptions", Scope::Page,   true },
};

// Sets, each value of which is an element of its own.
constexpr std::string_view Sets[] = {"Finishings", "Offset"};

// What describes a medium stands wherever a medium does.
bool IsStockFeature(std::string_view name)
{
    return name.starts_with("Stock");
}

constexpr std::string_view PageFeatures[] = {
    "Sides",
    "LightenDarken",
    "ImageShift",
    "ColorEffects",
    "AntiAliasing",
    "HalftoneScreen",
    "TRC",
    "RenderingGraphics",
    "RenderingText",
    "RenderingImages",
    "AdjustLightness",
    "AdjustContrast",
    "AdjustCyanRed",
    "AdjustMagentaGreen",
    "AdjustYellowBlue",
    "AdjustSaturation",
    "TrapWidthFast",
    "TrapWidthSlow",
    "Trapping",
    "BlackOverprint",
    "RGBSourceText",
    "RGBSourceImages",
    "CMYKSourceText",
    "CMYKSourceImages",
    "GraySourceText",
    "GraySourceImages",
    "DestinationFront",
    "DestinationBack",
};

} // namespace

bool IsPageFeature(std::string_view name)
{
    return IsStockFeature(name) || std::find(std::begin(PageFeatures), std::end(PageFeatures),
                                             name) != std::end(PageFeatures);
}

TPIFImportFeatures::TPIFImportFeatures(const FeatureDatabase& database)
{
    const auto attributes = database.featuresWithPropertyAndValue(TPIFProperty, true);
    for (const TPIFFeature& feature : TPIFFeatures()) {
        const CFDictionary* entry = database.feature(feature.name);
        const bool isAsked =
            feature.use == TPIFFeatureUse::ByName ||
            std::find(attributes.begin(), attributes.end(), entry) != attributes.end();
        if (entry != nullptr && isAsked) {
            add(feature, *entry);
        }
    }
    addOwnPaths();
}

const TPIFFeatureReader& TPIFImportFeatures::named(std::string_view name) const
{
    static const TPIFFeatureReader Nothing;
    const auto found = readers_.find(name);
    return found == readers_.end() ? Nothing : found->second;
}

void TPIFImportFeatures::add(const TPIFFeature& feature, const CFDictionary& entry)
{
    addPaths(feature,
             readers_[feature.name] = TPIFFeatureReader(TPIFFeatureSyntaxes(entry, feature)));
}

void TPIFImportFeatures::addPaths(const TPIFFeature& feature, TPIFFeatureReader& reader)
{
    const std::string_view name = feature.name;
    for (const GroupRow& row : Groups) {
        if (row.feature == name) {
            reader.setSlot(0,
                           paths_.addGroup(Scope::Job, feature.paths[0], row.scope, row.repeats));
            return;
        }
    }
    if (std::find(std::begin(Sets), std::end(Sets), name) != std::end(Sets)) {
        reader.setSlot(0, paths_.addRepeatedText(Scope::Job, feature.paths[0]));
        return;
    }
    std::vector<Scope> scopes = {Scope::Job};
    if (name == "JobName" || name == "SenderName") {
        scopes = {Scope::Operation};
    } else if (name == "CoverType") {
        scopes = {Scope::Cover};
    } else if (IsStockFeature(name)) {
        scopes = {Scope::Job, Scope::Page, Scope::Insert, Scope::Cover};
    } else if (IsPageFeature(name)) {
        scopes = {Scope::Job, Scope::Page};
    }
    for (std::size_t index = 0; index < TPIFFeatureReader::MostPaths; ++index) {
        if (feature.paths[index] == nullptr) {
            break;
        }
        for (const Scope scope : scopes) {
            reader.setSlot(index, paths_.addText(scope, feature.paths[index]));
        }
    }
}

void TPIFImportFeatures::addOwnPaths()
{
    paths_.addGroup(Scope::Document, ".tpif.job-template-attributes", Scope::Job, false);
    paths_.addGroup(Scope::Document, ".tpif.tpif-operation-attributes", Scope::Operation, false);
    saveDispositionSlot = paths_.addPresence(Scope::Job, ".job-save-disposition");
    formSaveSlot = paths_.addPresence(Scope::Job, ".form-save");
    insertAfterSlot = paths_.addText(Scope::Insert, ".insert-after-page-number");
    insertCountSlot = paths_.addText(Scope::Insert, ".insert-count");
    lowerBoundSlot = paths_.addText(Scope::Page, ".pages.value.lower-bound");
    upperBoundSlot = paths_.addText(Scope::Page, ".pages.value.upper-bound");
}

} // namespace tarvo
