#include "records/BackgroundFormsChoice.h"

#include "platform/text/Utf8.h"
#include "platform/text/WhiteSpace.h"
#include "records/BackgroundFormsOptions.h"

#include <algorithm>
#include <limits>

namespace tarvo {
namespace {

// A hundredth of an inch is 2.54 tenths of a millimetre.
constexpr std::int64_t Tenths = 254;
constexpr std::int64_t Hundredths = 100;

// @return value * factor / divisor to the nearest, halves away from 0
std::int32_t Scaled(std::int64_t value, std::int64_t factor, std::int64_t divisor)
{
    const std::int64_t half = value < 0 ? -divisor / 2 : divisor / 2;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        (value * factor + half) / divisor, std::numeric_limits<std::int32_t>::min(),
        std::numeric_limits<std::int32_t>::max()));
}

std::int32_t InOtherUnit(std::int32_t offset, bool toInches)
{
    return toInches ? Scaled(offset, Hundredths, Tenths) : Scaled(offset, Tenths, Hundredths);
}

// Blanks are no name.
bool IsName(const std::string& name)
{
    return !Trimmed(name).empty() && Utf8Length(name) <= LongestFormNameInput;
}

} // namespace

BackgroundFormsChoice ChoiceFromBackgroundForms(const BackgroundFormsOptions& options)
{
    return {
        .mergesWithForm = options.mergesWithForm(),
        .existingForm = options.mergeWithString(),
        .cyclePages = std::clamp(options.cyclePages(), 0, MostCyclePages),
        .isInches = options.isInches(),
        .xOffset = options.xOffset(),
        .yOffset = options.yOffset(),
        .newForm = options.newFormString(),
    };
}

void SwitchOffsetUnit(BackgroundFormsChoice& choice, bool isInches)
{
    if (choice.isInches == isInches) {
        return;
    }
    choice.isInches = isInches;
    choice.xOffset = InOtherUnit(choice.xOffset, isInches);
    choice.yOffset = InOtherUnit(choice.yOffset, isInches);
}

bool IsAcceptable(const BackgroundFormsChoice& choice)
{
    if (!choice.mergesWithForm) {
        return IsName(choice.newForm);
    }
    return IsName(choice.existingForm) && choice.cyclePages >= 0 &&
           choice.cyclePages <= MostCyclePages;
}

// A name that does not count would do something of its own: a form may be merged and made at once.
OSStatus AcceptBackgroundForms(BackgroundFormsOptions& options, const BackgroundFormsChoice& choice)
{
    if (!IsAcceptable(choice)) {
        return StatusBadArgument;
    }
    options.setUseExistingForm(choice.mergesWithForm ? FormUse::Merge : FormUse::None);
    if (choice.mergesWithForm) {
        static_cast<void>(options.setCyclePages(choice.cyclePages)); // in range
    }
    options.setMergeWithString(choice.mergesWithForm ? choice.existingForm : "");
    options.setNewFormString(choice.mergesWithForm ? "" : choice.newForm);
    options.setInches(choice.isInches);
    options.setXOffset(choice.xOffset);
    options.setYOffset(choice.yOffset);
    options.rememberForms();
    return StatusOk;
}

} // namespace tarvo
