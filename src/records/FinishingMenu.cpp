#include "records/FinishingMenu.h"

#include "platform/bundle/CFBundle.h"
#include "settings/FinishingMaps.h"
#include "settings/SettingMenu.h"

#include <algorithm>
#include <utility>

namespace tarvo {
namespace {

namespace Family = FinishingFamily;

template <typename Values>
bool Contains(const Values& values, std::int32_t value)
{
    return std::find(std::begin(values), std::end(values), value) != std::end(values);
}

std::vector<std::int32_t> ChoicesOf(const std::vector<FinishingOffer>& offers, std::int32_t option)
{
    const auto offer = std::find_if(offers.begin(), offers.end(),
                                    [option](const auto& each) { return each.option == option; });
    return offer == offers.end() ? std::vector<std::int32_t>() : offer->choices;
}

// Adds the rows of a table that are among the choices or are the job's own.
void AddRows(const CFBundle& bundle, Menu& menu, const SettingMap* map,
             const std::vector<std::int32_t>& choices, std::int32_t own)
{
    for (; map->key != nullptr; ++map) {
        if (map->value == own || Contains(choices, map->value)) {
            menu.push_back({bundle.localizedString(map->key), map->value, 0, true, {}});
        }
    }
}

// Checks the item of the first of the values that has one, else the first item.
void CheckFirstOf(Menu& menu, std::initializer_list<std::int32_t> values)
{
    auto checked = menu.begin();
    for (const std::int32_t value : values) {
        const auto item = std::find_if(menu.begin(), menu.end(), [value](const MenuItem& each) {
            return each.value == value;
        });
        if (item != menu.end()) {
            checked = item;
            break;
        }
    }
    if (checked != menu.end()) {
        checked->isChecked = true;
    }
}

std::vector<std::int32_t> ValuesOf(const SettingMap* map)
{
    std::vector<std::int32_t> values;
    for (; map->key != nullptr; ++map) {
        values.push_back(map->value);
    }
    return values;
}

// 0 for the lack of one.
std::int32_t PositionOrNone(std::int32_t position)
{
    return position == UnsetValue ? 0 : position;
}

// That of the job; 0 when its finishing has no part of that family.
std::int32_t OwnPosition(std::int32_t family, const FinishingChoice& current)
{
    const std::int32_t own = WithoutUnusedPositions(current).*FinishingPosition(family);
    return family == Family::Booklet && own == BookletNotFolded ? 0 : PositionOrNone(own);
}

// 0 for a job without holes, or without their number.
std::int32_t OwnHoles(const FinishingChoice& current)
{
    return IsPunched(current) ? PositionOrNone(current.holes) : 0;
}

// Staples of one family only: of a choice with several the first one counts.
void FindStaples(const FinishingChoice& choice, CombinedFinishing& parts)
{
    for (const std::int32_t family : StapleFamilies) {
        const std::int32_t position = PositionOrNone(choice.*FinishingPosition(family));
        if (position != 0 && parts.stapleFamily == 0) {
            parts.stapleFamily = family;
            parts.staple = position;
        }
    }
}

} // namespace

Menu FinishingMenu(const CFBundle& bundle, const std::vector<FinishingOffer>& offers,
                   const FinishingChoice& current)
{
    const std::int32_t chosen = FinishingMenuValue(current);
    auto all = WithFinishingFamily(offers, chosen);
    for (const std::int32_t always : {Family::PrinterDefault, Family::None}) {
        all = WithFinishingFamily(std::move(all), always);
    }
    Menu menu;
    for (const FinishingOffer& offer : all) {
        menu.push_back({bundle.localizedString(offer.key), offer.option, 0, true, {}});
        menu.back().isChecked = offer.option == chosen;
    }
    if (std::none_of(menu.begin(), menu.end(), [](const auto& item) { return item.isChecked; })) {
        menu.push_back({bundle.localizedString("Unknown"), chosen, 0, true, {}});
        menu.back().isChecked = true;
    }
    return menu;
}

std::int32_t FinishingMenuValue(const FinishingChoice& choice)
{
    if (choice.option == UnsetValue) {
        return Family::PrinterDefault;
    }
    return PartsOfFinishing(choice.option) ? Family::StaplesAndHoles : choice.option;
}

bool HasFinishingDialog(std::int32_t option)
{
    return FinishingPosition(option) != nullptr || option == Family::Custom ||
           PartsOfFinishing(option);
}

bool HasFinishingPart(const CFBundle& bundle, const std::vector<FinishingOffer>& offers,
                      std::int32_t family, const FinishingChoice& current)
{
    if (family == Family::HolePunch) {
        return !ChoicesOf(offers, family).empty() || IsPunched(current);
    }
    return !FinishingPositions(bundle, offers, family, current).empty();
}

bool HasFinishingChoices(const CFBundle& bundle, const std::vector<FinishingOffer>& offers,
                         std::int32_t option, const FinishingChoice& current)
{
    const auto has = [&](std::int32_t family) {
        return HasFinishingPart(bundle, offers, family, current);
    };
    if (!PartsOfFinishing(option)) {
        return option == Family::Custom || (FinishingPosition(option) != nullptr && has(option));
    }
    const bool hasStaples = std::any_of(std::begin(StapleFamilies), std::end(StapleFamilies), has);
    return FinishingOfParts({hasStaples, has(Family::HolePunch), has(Family::ZFold)}).has_value();
}

Menu FinishingPositions(const CFBundle& bundle, const std::vector<FinishingOffer>& offers,
                        std::int32_t option, const FinishingChoice& current)
{
    Menu menu;
    const auto position = FinishingPosition(option);
    if (position == nullptr) {
        return menu;
    }
    const std::int32_t own = WithoutUnusedPositions(current).*position;
    const auto choices =
        option == Family::HolePunch ? ValuesOf(PunchMap) : ChoicesOf(offers, option);
    for (const SettingMap* map : FinishingPositionMaps(option)) {
        AddRows(bundle, menu, map, choices, own);
    }
    CheckFirstOf(menu, {own});
    return menu;
}

Menu HoleCounts(const CFBundle& bundle, const std::vector<FinishingOffer>& offers,
                const FinishingChoice& current)
{
    const std::int32_t own = OwnHoles(current);
    Menu menu;
    AddRows(bundle, menu, HolePunchOptionsMap, ChoicesOf(offers, Family::HolePunch), own);
    if (own == 0) {
        CheckFirstOf(menu, {DefaultHoles});
    } else {
        CheckMenuItemWithValue(menu, own);
    }
    return menu;
}

std::int32_t StartPosition(const Menu& positions, std::int32_t family,
                           const FinishingChoice& current)
{
    const std::int32_t own = OwnPosition(family, current);
    return own == 0 ? CheckedValue(positions) : own;
}

std::int32_t StartHoles(const Menu& counts, const FinishingChoice& current)
{
    const std::int32_t first = counts.empty() ? DefaultHoles : CheckedValue(counts);
    const std::int32_t own = OwnHoles(current);
    return own == 0 ? first : own;
}

FinishingChoice ChooseHoles(const FinishingChoice& current, std::int32_t position,
                            std::int32_t holes)
{
    FinishingChoice punched = ChooseFinishing(current, Family::HolePunch, position);
    punched.holes = holes;
    return punched;
}

FinishingChoice ChooseFinishing(FinishingChoice current, std::int32_t option, std::int32_t position)
{
    current.option = option;
    if (const auto place = FinishingPosition(option)) {
        current.*place = position;
    }
    return WithoutUnusedPositions(std::move(current));
}

CombinedFinishing PartsOf(const FinishingChoice& choice)
{
    const FinishingChoice used = WithoutUnusedPositions(choice);
    CombinedFinishing parts;
    FindStaples(used, parts);
    parts.punch = PositionOrNone(used.punch);
    parts.holes = parts.punch == 0 ? 0 : used.holes;
    parts.zFold = PositionOrNone(used.zFold);
    return parts;
}

std::optional<FinishingChoice> ChooseCombinedFinishing(FinishingChoice current,
                                                       const CombinedFinishing& parts)
{
    const bool hasStaples = parts.stapleFamily != 0 && parts.staple != 0;
    const auto option = FinishingOfParts({hasStaples, parts.punch != 0, parts.zFold != 0});
    if (!option) {
        return std::nullopt;
    }
    for (const std::int32_t family : StapleFamilies) {
        current.*FinishingPosition(family) = family == parts.stapleFamily ? parts.staple : 0;
    }
    current.punch = parts.punch;
    current.holes = parts.punch == 0 ? current.holes : parts.holes;
    current.zFold = parts.zFold;
    return ChooseFinishing(std::move(current), *option);
}

MultipleFinishing StartMultipleFinishing(const CFBundle& bundle,
                                         const std::vector<FinishingOffer>& offers,
                                         const FinishingChoice& current)
{
    const auto has = [&](std::int32_t family) {
        return HasFinishingPart(bundle, offers, family, current);
    };
    const auto position = [&](std::int32_t family) {
        return StartPosition(FinishingPositions(bundle, offers, family, current), family, current);
    };
    MultipleFinishing start = {PartsOf(current), 0, 0};
    CombinedFinishing& parts = start.parts;
    if (parts.stapleFamily != 0 && !has(parts.stapleFamily)) {
        parts.stapleFamily = 0;
        parts.staple = 0;
    }
    start.hasHoles = parts.punch != 0 && has(Family::HolePunch) ? 1 : 0;
    start.hasZFold = parts.zFold != 0 && has(Family::ZFold) ? 1 : 0;
    parts.punch = position(Family::HolePunch);
    parts.holes = StartHoles(HoleCounts(bundle, offers, current), current);
    parts.zFold = position(Family::ZFold);
    return start;
}

std::optional<FinishingChoice> ChosenFinishing(const FinishingChoice& current,
                                               const MultipleFinishing& chosen)
{
    CombinedFinishing parts = chosen.parts;
    parts.punch = chosen.hasHoles == 0 ? 0 : parts.punch;
    parts.zFold = chosen.hasZFold == 0 ? 0 : parts.zFold;
    return ChooseCombinedFinishing(current, parts);
}

FinishingChoice FinishingSoFar(const FinishingChoice& current, const MultipleFinishing& chosen)
{
    const CombinedFinishing& parts = chosen.parts;
    if (const auto all = ChosenFinishing(current, chosen)) {
        return *all;
    }
    if (parts.stapleFamily != 0) {
        return ChooseFinishing(current, parts.stapleFamily, parts.staple);
    }
    if (chosen.hasHoles != 0) {
        return ChooseHoles(current, parts.punch, parts.holes);
    }
    return chosen.hasZFold != 0 ? ChooseFinishing(current, Family::ZFold, parts.zFold)
                                : ChooseFinishing(current, Family::None);
}

} // namespace tarvo
