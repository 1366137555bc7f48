#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/printing/PMStatus.h"
#include "records/BackgroundFormsKeys.h"
#include "records/FormHistory.h"

#include <cstdint>
#include <string>
#include <utility>

namespace tarvo {

struct PreferenceFailure;
struct PreferenceFolders;

/// Whether a job is printed over a form that the printer holds, or makes one; and the names of
/// forms that the user has used before, for the dialogs to offer.
class BackgroundFormsOptions {
public:
    /// Without a history.
    BackgroundFormsOptions() = default;
    explicit BackgroundFormsOptions(const PreferenceFolders& folders) { loadHistory(folders); }
    BackgroundFormsOptions(const CFDictionary& ticket, const PreferenceFolders& folders)
    {
        fromTicket(ticket, folders);
    }

    bool mergesWithForm() const
    {
        return useExistingForm_ == static_cast<std::int32_t>(FormUse::Merge);
    }
    std::int32_t useExistingForm() const { return useExistingForm_; }
    std::int32_t cyclePages() const { return cyclePages_; }
    bool isInches() const { return inches_ != 0; }
    std::int32_t xOffset() const { return xOffset_; }
    std::int32_t yOffset() const { return yOffset_; }
    const std::string& mergeWithString() const { return mergeWithString_; }
    const std::string& newFormString() const { return newFormString_; }
    const FormHistory& existingForms() const { return existingForms_; }
    const FormHistory& newForms() const { return newForms_; }

    void setUseExistingForm(FormUse use) { useExistingForm_ = static_cast<std::int32_t>(use); }
    /// @return StatusBadArgument, with nothing changed, outside 0 to MostCyclePages
    [[nodiscard]] OSStatus setCyclePages(std::int32_t pages);
    void setInches(bool isInches) { inches_ = isInches ? 1 : 0; }
    void setXOffset(std::int32_t offset) { xOffset_ = offset; }
    void setYOffset(std::int32_t offset) { yOffset_ = offset; }
    void setMergeWithString(std::string name) { mergeWithString_ = std::move(name); }
    void setNewFormString(std::string name) { newFormString_ = std::move(name); }

    /// {"UseExistingForm", "CyclePages", "Inches", "X1", "Y1": numbers, "MergeWithString": string
    /// when the job merges with a form, "NewFormString": string when there is one}
    CFDictionary asTicket() const;

    /// Rebuilds everything from that dictionary, an absent entry with its default, and loads the
    /// history. Offsets that say they have full precision come back in the units of the dialogs.
    void fromTicket(const CFDictionary& ticket, const PreferenceFolders& folders);

    /// Reads the names: the user's or, when there are none, the site's. What cannot be read gives
    /// empty lists.
    void loadHistory(const PreferenceFolders& folders);

    /// Puts the names of the forms in use first in their lists; saveHistory makes it last.
    void rememberForms();

    /// Stores the names that were remembered since loading in front of those that other programs
    /// have stored meanwhile, and takes over theirs.
    /// @return false with `failure` filled, nothing stored or changed
    [[nodiscard]] bool saveHistory(const PreferenceFolders& folders, PreferenceFailure& failure);

    bool operator==(const BackgroundFormsOptions&) const = default;

private:
    std::int32_t useExistingForm_ = static_cast<std::int32_t>(FormUse::None);
    std::int32_t cyclePages_ = 0;
    std::int32_t inches_ = 1;  // 0 millimetres
    std::int32_t xOffset_ = 0; // in 1/100 in or 1/10 mm
    std::int32_t yOffset_ = 0;
    FormHistory existingForms_;
    FormHistory newForms_;
    std::string mergeWithString_; // "" names no form
    std::string newFormString_;   // "" leaves the name of a new form to the job's
};

} // namespace tarvo
