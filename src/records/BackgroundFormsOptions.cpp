#include "records/BackgroundFormsOptions.h"

#include "prefs/PreferenceFiles.h"
#include "records/ImageShiftKeys.h"
#include "records/ImageShiftOptions.h"
#include "settings/TicketAccess.h"

namespace tarvo {
namespace {

std::string Text(const CFDictionary& ticket, std::string_view key)
{
    const auto* text = ticket.get<std::string>(key);
    return text == nullptr ? "" : *text;
}

} // namespace

OSStatus BackgroundFormsOptions::setCyclePages(std::int32_t pages)
{
    if (pages < 0 || pages > MostCyclePages) {
        return StatusBadArgument;
    }
    cyclePages_ = pages;
    return StatusOk;
}

CFDictionary BackgroundFormsOptions::asTicket() const
{
    CFDictionary ticket;
    WriteTicketValue(ticket, UseExistingFormKey, useExistingForm_);
    if (mergesWithForm() && !mergeWithString_.empty()) {
        ticket.set(MergeWithStringKey, mergeWithString_);
    }
    WriteTicketValue(ticket, CyclePagesKey, cyclePages_);
    WriteTicketValue(ticket, ShiftInchesKey, inches_);
    WriteTicketValue(ticket, ShiftX1Key, xOffset_);
    WriteTicketValue(ticket, ShiftY1Key, yOffset_);
    if (!newFormString_.empty()) {
        ticket.set(NewFormStringKey, newFormString_);
    }
    return ticket;
}

void BackgroundFormsOptions::fromTicket(const CFDictionary& ticket,
                                        const PreferenceFolders& folders)
{
    *this = BackgroundFormsOptions();
    GetCFIndexFromCFDictionary(&ticket, UseExistingFormKey, &useExistingForm_);
    GetCFIndexFromCFDictionary(&ticket, CyclePagesKey, &cyclePages_);
    GetCFIndexFromCFDictionary(&ticket, ShiftInchesKey, &inches_);
    xOffset_ = ShiftOffsetFromTicket(ticket, ShiftX1Key);
    yOffset_ = ShiftOffsetFromTicket(ticket, ShiftY1Key);
    newFormString_ = Text(ticket, NewFormStringKey);
    mergeWithString_ = Text(ticket, MergeWithStringKey);
    loadHistory(folders);
}

void BackgroundFormsOptions::loadHistory(const PreferenceFolders& folders)
{
    auto names = CopyUserPreferences(folders, BackgroundFormsFile);
    if (!names) {
        names = CopyXMLData(folders, SiteDefaultsFile);
    }
    const CFDictionary none;
    const CFDictionary& root = names ? *names : none;
    existingForms_ = FormHistory(root.get<CFArray>(ExistingFormsArrayKey));
    newForms_ = FormHistory(root.get<CFArray>(NewFormsArrayKey));
}

void BackgroundFormsOptions::rememberForms()
{
    if (mergesWithForm()) {
        existingForms_.remember(mergeWithString_);
    }
    newForms_.remember(newFormString_);
}

bool BackgroundFormsOptions::saveHistory(const PreferenceFolders& folders,
                                         PreferenceFailure& failure)
{
    BackgroundFormsOptions saved = *this;
    const auto change = [this, &saved](CFDictionary& root, bool isPresent) {
        // Without a file the names are those of the site, which are the user's own from now on.
        const CFArray existing = existingForms_.asArray();
        const CFArray made = newForms_.asArray();
        const auto stored = [&](std::string_view key, const CFArray& own) {
            return isPresent ? root.get<CFArray>(key) : &own;
        };
        saved.existingForms_ = existingForms_.onTopOf(stored(ExistingFormsArrayKey, existing));
        saved.newForms_ = newForms_.onTopOf(stored(NewFormsArrayKey, made));
        root.set(ExistingFormsArrayKey, saved.existingForms_.asArray());
        root.set(NewFormsArrayKey, saved.newForms_.asArray());
        return true;
    };
    if (!ChangeUserPreferences(folders, BackgroundFormsFile, change, failure)) {
        return false;
    }
    *this = std::move(saved);
    return true;
}

} // namespace tarvo
