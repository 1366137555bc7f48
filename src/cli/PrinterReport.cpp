#include "cli/PrinterReport.h"

#include "printer/JobTypeOffers.h"
#include "printer/PPDKeywordMaps.h"

#include <algorithm>
#include <set>
#include <unordered_map>

namespace tarvo {
namespace {

constexpr std::string_view MakerOfFamily = "Tarvo";
constexpr const char* FoldKeyword = "TRFoldOptions";
constexpr std::string_view InstallableGroup = "InstallableOptions";
constexpr std::string_view RegionKeyword = "PageRegion"; // PageSize once more, for manual feeding

std::string TextOr(const std::string& text, const std::string& keyword)
{
    return text.empty() ? keyword : text;
}

PrinterReport::Option OptionOf(const PPDOption& from)
{
    PrinterReport::Option option = {
        {from.keyword,   TextOr(from.text, from.keyword)},
        {             }
    };
    for (const PPDChoice& choice : from.choices) {
        option.choices.push_back({
            {choice.keyword, TextOr(choice.text, choice.keyword)},
            choice.keyword == from.defaultChoice
        });
    }
    return option;
}

void AddGroup(PrinterReport& report, const PPDGroup& from)
{
    if (from.name == InstallableGroup) {
        return;
    }
    PrinterReport::Group group = {
        {from.name,   TextOr(from.text, from.name)},
        {          }
    };
    for (const PPDOption& option : from.options) {
        if (option.keyword != RegionKeyword) {
            group.options.push_back(OptionOf(option));
        }
    }
    report.groups.push_back(std::move(group));
    for (const PPDGroup& subgroup : from.subgroups) {
        AddGroup(report, subgroup);
    }
}

PrinterReport::Named ChoiceOf(const PPDOption& option, const std::string& keyword)
{
    for (const PPDChoice& choice : option.choices) {
        if (choice.keyword == keyword) {
            return {keyword, TextOr(choice.text, keyword)};
        }
    }
    return {keyword, keyword};
}

void AddInstalledOf(PrinterReport& report, const PPDFile& ppd, const PPDOption& option)
{
    const std::string* marked = ppd.markedChoice(option.keyword);
    report.installed.push_back({
        {option.keyword, TextOr(option.text, option.keyword)},
        marked == nullptr ? PrinterReport::Named{"",              "(unknown)"                              }
        : ChoiceOf(option, *marked)
    });
}

// The options of the file's own group for them, and those by whose names the features ask.
void AddInstalled(PrinterReport& report, const PPDFile& ppd, const InstallableOptions& installed)
{
    for (const PPDGroup& group : ppd.groups()) {
        for (const PPDOption& option : group.options) {
            if (group.name == InstallableGroup || installed.value(option.keyword) != nullptr) {
                AddInstalledOf(report, ppd, option);
            }
        }
    }
}

using OptionIndex = std::unordered_map<std::string_view, const PPDOption*>;

// "Fold \"Booklet\"", or "Fold" when any choice that switches it on is meant.
std::string SideOf(const OptionIndex& options, const std::string& keyword,
                   const std::string& choice)
{
    const auto found = options.find(keyword);
    const PPDOption* option = found == options.end() ? nullptr : found->second;
    std::string text = option == nullptr ? keyword : TextOr(option->text, keyword);
    if (!choice.empty()) {
        text += " \"" + (option == nullptr ? choice : ChoiceOf(*option, choice).text) + '"';
    }
    return text;
}

// Files state most constraints from both sides.
void AddConstraints(PrinterReport& report, const PPDFile& ppd)
{
    OptionIndex options;
    for (const PPDOption* option : ppd.options()) {
        options.emplace(option->keyword, option);
    }
    std::set<std::pair<std::string, std::string>> known;
    for (const PPDConstraint& pair : ppd.constraints()) {
        if (pair.option1 == RegionKeyword || pair.option2 == RegionKeyword) {
            continue;
        }
        const std::string first = SideOf(options, pair.option1, pair.choice1);
        const std::string second = SideOf(options, pair.option2, pair.choice2);
        if (known.emplace(std::min(first, second), std::max(first, second)).second) {
            report.constraints.emplace_back(first).append(" excludes ").append(second);
        }
    }
}

void AddFinishing(PrinterReport& report, const PPDFile& ppd, const InstallableOptions& installed,
                  const CFBundle& bundle)
{
    const auto folds = PPDCopyOptionsForMainKeyword(ppd, FoldKeyword).value_or(PPDKeywordInfos());
    for (FinishingOffer& offer : FinishingOffers(installed, folds)) {
        report.finishing.push_back({
            {offer.key, bundle.localizedString(offer.key)},
            offer.option,
            std::move(offer.choices)
        });
    }
}

void AddFaultsOf(PrinterReport& report, const PPDOption& option)
{
    std::vector<std::string_view> keywords(option.choices.size());
    std::transform(option.choices.begin(), option.choices.end(), keywords.begin(),
                   [](const PPDChoice& choice) -> std::string_view { return choice.keyword; });
    std::sort(keywords.begin(), keywords.end());
    const auto twice = std::adjacent_find(keywords.begin(), keywords.end());
    if (twice != keywords.end()) {
        report.faults.push_back("\"" + option.keyword + "\" has the choice \"" +
                                std::string(*twice) + "\" twice");
    }
    if (option.defaultChoice.empty()) {
        report.faults.push_back("\"" + option.keyword + "\" has no default");
    } else if (!std::binary_search(keywords.begin(), keywords.end(), option.defaultChoice)) {
        report.faults.push_back("the default \"" + option.defaultChoice + "\" of \"" +
                                option.keyword + "\" is none of its choices");
    }
}

void AddFaults(PrinterReport& report, const PPDFile& ppd)
{
    if (ppd.manufacturer().empty()) {
        report.faults.emplace_back("no manufacturer; print dialogs won't show these features");
    } else if (ppd.manufacturer() != MakerOfFamily) {
        report.faults.push_back("the manufacturer is \"" + ppd.manufacturer() +
                                "\"; print dialogs won't show these features");
    }
    std::set<std::string_view> keywords;
    for (const PPDOption* option : ppd.options()) {
        if (!keywords.insert(option->keyword).second) {
            report.faults.push_back("\"" + option->keyword + "\" is there twice");
        }
        AddFaultsOf(report, *option);
    }
    std::string missing;
    for (const auto* row = MainKeywordMap; row->keyword != nullptr; ++row) {
        const PPDOption* option = ppd.option(row->keyword);
        if (option == nullptr) {
            missing += (missing.empty() ? "" : ", ") + std::string(row->keyword);
        } else if (option->type != PPDUIType::PickOne) {
            report.faults.push_back("\"" + option->keyword +
                                    "\" is not of type PickOne: its menu stays away");
        }
    }
    if (!missing.empty()) {
        report.faults.push_back("without " + missing + ": their menus stay away");
    }
}

} // namespace

PrinterReport DescribePrinter(PPDFile ppd, const CFBundle& bundle)
{
    const InstallableOptions installed(ppd, nullptr, InstalledFeatures);
    PrinterReport report;
    report.name = ppd.nickName();
    report.maker = ppd.manufacturer();
    for (const PPDGroup& group : ppd.groups()) {
        AddGroup(report, group);
    }
    AddInstalled(report, ppd, installed);
    report.customSizes = ppd.customSizes();
    AddConstraints(report, ppd);
    const FeatureDatabase features(bundle.propertyList(DeviceProfileName).value_or(CFDictionary()));
    for (const JobTypeOffer& offer : JobTypeOffers(features)) {
        report.jobTypes.push_back({offer.key, bundle.localizedString(offer.key)});
    }
    AddFinishing(report, ppd, installed, bundle);
    AddFaults(report, ppd);
    return report;
}

} // namespace tarvo
