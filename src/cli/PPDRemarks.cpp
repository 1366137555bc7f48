#include "cli/PPDRemarks.h"

#include "cli/PPDOutline.h"
#include "printer/Maker.h"
#include "printer/PPDKeywordMaps.h"

#include <algorithm>
#include <unordered_map>

namespace tarvo {
namespace {

constexpr std::string_view CustomChoice = "Custom";

// A value of the user's own is "Custom" or, with the value, "Custom.100x200".
bool HasChoice(const PPDOption& option, std::string_view keyword)
{
    if (option.takesCustom && keyword.substr(0, keyword.find('.')) == CustomChoice) {
        return true;
    }
    return std::any_of(option.choices.begin(), option.choices.end(),
                       [&](const PPDChoice& choice) { return choice.keyword == keyword; });
}

void AddDefault(std::vector<PPDRemark>& remarks, const PPDOption& option, const PPDOutline& outline)
{
    const std::string& standard = option.defaultChoice;
    if (standard.empty()) {
        remarks.push_back(
            {outline.lineOf(option.keyword), true, QuotedName(option.keyword) + " has no default"});
    } else if (!HasChoice(option, standard)) {
        remarks.push_back({outline.lineOfDefault(option.keyword), true,
                           "the default " + QuotedName(standard) + " of " +
                               QuotedName(option.keyword) + " is none of its choices"});
    }
}

void AddMaker(std::vector<PPDRemark>& remarks, const std::string& maker)
{
    const std::string unseen = "; print dialogs won't show these features";
    if (maker.empty()) {
        remarks.push_back({0, true, "no manufacturer" + unseen});
    } else if (maker != FamilyMaker) {
        remarks.push_back({0, false, "the manufacturer is " + QuotedName(maker) + unseen});
    }
}

// Those that would have no number in a ticket.
void AddUnknownChoices(std::vector<PPDRemark>& remarks, const PPDOption& option,
                       const PPDKeywordMap* known, const PPDOutline& outline)
{
    std::string unknown;
    for (const PPDChoice& choice : option.choices) {
        if (GetTicketValueForPPDOptionKeyword(known, choice.keyword) < 0) {
            unknown += (unknown.empty() ? "" : ", ") + choice.keyword;
        }
    }
    if (!unknown.empty()) {
        remarks.push_back({outline.lineOf(option.keyword), false,
                           QuotedName(option.keyword) +
                               " has choices that the print features do not know: " + unknown});
    }
}

void AddMenus(std::vector<PPDRemark>& remarks, const PPDFile& ppd, const PPDOutline& outline)
{
    std::string missing;
    for (const auto* row = MainKeywordMap; row->keyword != nullptr; ++row) {
        const PPDOption* option = ppd.option(row->keyword);
        if (option == nullptr) {
            missing += (missing.empty() ? "" : ", ") + std::string(row->keyword);
        } else if (option->type != PPDUIType::PickOne) {
            remarks.push_back(
                {outline.lineOf(row->keyword), false,
                 QuotedName(row->keyword) + " is not of type PickOne: its menu stays away"});
        } else {
            AddUnknownChoices(remarks, *option, row->options, outline);
        }
    }
    if (!missing.empty()) {
        remarks.push_back({0, false, "without " + missing + ": their menus stay away"});
    }
}

using OptionIndex = std::unordered_map<std::string_view, const PPDOption*>;

// Of an option that takes values of the user's own, "CustomPageSize True" means such a value.
bool IsCustomValue(const OptionIndex& options, std::string_view option)
{
    if (!option.starts_with(CustomChoice)) {
        return false;
    }
    const auto found = options.find(option.substr(CustomChoice.size()));
    return found != options.end() && found->second->takesCustom;
}

void AddConstraintSide(std::vector<PPDRemark>& remarks, const PPDOutline::Constraint& constraint,
                       const std::string& option, const std::string& choice,
                       const OptionIndex& options)
{
    const auto found = options.find(option);
    if (found != options.end()) {
        if (!choice.empty() && !HasChoice(*found->second, choice)) {
            remarks.push_back({constraint.line, true,
                               "a constraint names " + QuotedName(choice) + ", which " +
                                   QuotedName(option) + " does not have"});
        }
    } else if (!constraint.isNonUI && !IsCustomValue(options, option)) {
        remarks.push_back({constraint.line, true,
                           "a constraint names " + QuotedName(option) + ", which is no option"});
    }
}

void AddConstraints(std::vector<PPDRemark>& remarks, const PPDFile& ppd, const PPDOutline& outline)
{
    OptionIndex options;
    for (const PPDOption* option : ppd.options()) {
        options.emplace(option->keyword, option);
    }
    for (const auto& constraint : outline.constraints()) {
        const PPDConstraint& sides = constraint.sides;
        AddConstraintSide(remarks, constraint, sides.option1, sides.choice1, options);
        AddConstraintSide(remarks, constraint, sides.option2, sides.choice2, options);
    }
}

} // namespace

std::vector<PPDRemark> RemarksOn(const PPDFile& ppd, const PPDOutline& outline)
{
    std::vector<PPDRemark> remarks;
    AddMaker(remarks, ppd.manufacturer());
    AddMenus(remarks, ppd, outline);
    for (const PPDOption* option : ppd.options()) {
        AddDefault(remarks, *option, outline);
    }
    AddConstraints(remarks, ppd, outline);
    if (outline.lineOfCustomSizes() != 0 && !ppd.customSizes()) {
        remarks.push_back({outline.lineOfCustomSizes(), true,
                           "the limits of custom paper sizes make no range: none are offered"});
    }
    remarks.insert(remarks.end(), outline.faults().begin(), outline.faults().end());
    std::stable_sort(
        remarks.begin(), remarks.end(),
        [](const PPDRemark& one, const PPDRemark& other) { return one.line < other.line; });
    remarks.erase(std::unique(remarks.begin(), remarks.end()), remarks.end());
    return remarks;
}

} // namespace tarvo
