#include "tpif/TPIFImportJob.h"

#include "printer/FeatureDatabase.h"
#include "records/BackgroundFormsKeys.h"
#include "records/ImageShiftKeys.h"
#include "records/JobTypeKeys.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFImportOneToOne.h"
#include "tpif/TPIFJob.h"

namespace tarvo {
namespace {

constexpr std::int32_t Independent = 1; // side 2 of side 1

bool StoreNumber(const TPIFFeatureReader& feature, const TPIFImportGroup& group, std::size_t path,
                 TPIFImportTarget& target, std::string_view key)
{
    const auto number = feature.number(group, path);
    target.set(key, number.value_or(0), {number ? feature.node(group, path) : nullptr});
    return number.has_value();
}

// Whether the document says what becomes of the job, in whatever words.
bool SaysDisposition(const TPIFImportFeatures& features, const TPIFImportGroup& group)
{
    const TPIFFeatureReader& hold = features.named("JobHold");
    return group.node(features.saveDispositionSlot) != nullptr || hold.node(group, 0) != nullptr ||
           hold.node(group, 1) != nullptr;
}

// Stores the number of the job's type; false when nothing gives one.
bool StoreJobType(const TPIFImportFeatures& features, const TPIFImportGroup& group,
                  TPIFImportTarget& jobType)
{
    const TPIFFeatureReader& saved = features.named(JobTypeFeature);
    const TPIFFeatureReader& hold = features.named("JobHold");
    if (TPIFImportFeatureOneToOne(saved, group, jobType, JobTypeNumberKey)) {
        return true;
    }
    for (const std::size_t path : {0U, 1U}) { // inside the disposition, or alone
        if (const auto number = hold.number(group, path)) {
            jobType.set(JobTypeNumberKey, *number, {hold.node(group, path)});
            return true;
        }
    }
    const TPIFImportNode* formSave = group.node(features.formSaveSlot);
    if (SaysDisposition(features, group) || formSave == nullptr) {
        return false;
    }
    jobType.set(JobTypeNumberKey, static_cast<std::int32_t>(JobType::BackgroundForms),
                {formSave->hasElements ? nullptr : formSave});
    return true;
}

} // namespace

void ImportJobType(const TPIFImportFeatures& features, const TPIFImportGroup& group,
                   CFDictionary& result)
{
    CFDictionary dictionary;
    TPIFImportTarget jobType(dictionary, group, JobTypeKey);
    if (!StoreJobType(features, group, jobType)) {
        for (const char* name : {"SaveName", "SaveLocation", "SaveFormat"}) {
            group.tellIgnored(features.named(name).node(group), "there is no job type to go with");
        }
        return; // a dictionary without a type would take the place of a whole one
    }
    for (const std::size_t path : {0U, 1U}) {
        group.tellIgnored(features.named("JobHold").node(group, path), "another one decides");
    }
    TPIFImportFeatureOneToOne(features.named("SaveName"), group, jobType, SavedJobNameKey);
    TPIFImportFeatureOneToOne(features.named("SaveLocation"), group, jobType, SavedJobLocationKey);
    TPIFImportFeatureOneToOne(features.named("SaveFormat"), group, jobType, SaveFormatKey);
    result.set(JobTypeKey, std::move(dictionary));
}

void ImportResolution(const TPIFImportFeatures& features, const TPIFImportGroup& group,
                      CFDictionary& result)
{
    const TPIFFeatureReader& feature = features.named("Resolution");
    const auto crossFeed = feature.number(group, 0);
    const auto feedDirection = feature.number(group, 1);
    const TPIFImportNode* cross = feature.node(group, 0);
    const TPIFImportNode* feed = feature.node(group, 1);
    if (!crossFeed || !feedDirection) {
        group.tellIgnored(cross, NoOtherMeasure);
        group.tellIgnored(feed, NoOtherMeasure);
        return;
    }
    if (const auto resolution = ResolutionOf(*crossFeed, *feedDirection)) {
        TPIFImportTarget(result, group).set(ResolutionKey, *resolution, {cross, feed});
        return;
    }
    for (const TPIFImportNode* node : {cross, feed}) {
        group.tell(TPIFImportOutcome::Lost, *node, "no ticket value stands for the resolution");
    }
}

void ImportImageShift(const TPIFFeatureReader& feature, const TPIFImportGroup& group,
                      CFDictionary& result, std::string_view key)
{
    // As the feature's paths: x and y of side 1, of side 2.
    static constexpr std::string_view Keys[] = {ShiftX1Key, ShiftY1Key, ShiftX2Key, ShiftY2Key};
    CFDictionary dictionary;
    TPIFImportTarget shift(dictionary, group, key);
    bool isThere = false;
    for (std::size_t path = 0; path < std::size(Keys); ++path) {
        isThere = feature.node(group, path) != nullptr || isThere;
    }
    if (!isThere) {
        return;
    }
    bool isGiven = false;
    for (std::size_t path = 0; path < std::size(Keys); ++path) {
        isGiven = StoreNumber(feature, group, path, shift, Keys[path]) || isGiven;
    }
    if (isGiven) {
        dictionary.set(ShiftTwoSidedModeKey, Independent);
        dictionary.set(ShiftInchesKey, 0);
        dictionary.set(ShiftFullPrecisionKey, true);
        result.set(key, std::move(dictionary));
    }
}

void ImportBackgroundForms(const TPIFImportFeatures& features, const TPIFImportGroup& group,
                           CFDictionary& result)
{
    CFDictionary dictionary;
    TPIFImportTarget forms(dictionary, group, BackgroundFormsOptionsKey);
    const bool isMerged =
        TPIFImportFeatureOneToOne(features.named("FormName"), group, forms, MergeWithStringKey);
    const bool isSaved =
        TPIFImportFeatureOneToOne(features.named("NewFormName"), group, forms, NewFormStringKey);
    if (!isMerged && !isSaved) {
        for (const char* name : {"FormCycleStart", "FormXShift", "FormYShift"}) {
            group.tellIgnored(features.named(name).node(group), "no form has a name");
        }
        return;
    }
    const FormUse use = isMerged ? FormUse::Merge : FormUse::None;
    dictionary.set(UseExistingFormKey, static_cast<std::int32_t>(use));
    StoreNumber(features.named("FormCycleStart"), group, 0, forms, CyclePagesKey);
    StoreNumber(features.named("FormXShift"), group, 0, forms, ShiftX1Key);
    StoreNumber(features.named("FormYShift"), group, 0, forms, ShiftY1Key);
    dictionary.set(ShiftInchesKey, 0);
    dictionary.set(ShiftFullPrecisionKey, true);
    result.set(BackgroundFormsOptionsKey, std::move(dictionary));
}

} // namespace tarvo
