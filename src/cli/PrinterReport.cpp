#include "cli/PrinterReport.h"

#include "printer/JobTypeOffers.h"

#include <algorithm>
#include <set>
#include <unordered_map>

namespace tarvo {
namespace {

constexpr const char* FoldKeyword = "TRFoldOptions";
constexpr std::string_view InstallableGroup = "InstallableOptions";

void AddGroup(PrinterReport& report, const PPDGroup& group)
{
    if (group.name == InstallableGroup) {
        return;
    }
    report.groups.push_back(&group);
    for (const PPDGroup& subgroup : group.subgroups) {
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
        if (pair.option1 == PageRegionKeyword || pair.option2 == PageRegionKeyword) {
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

} // namespace

const std::string& TextOr(const std::string& text, const std::string& keyword)
{
    return text.empty() ? keyword : text;
}

PrinterReport DescribePrinter(PPDFile& ppd, const PPDOutline& outline, const CFBundle& bundle,
                              const FeatureDatabase& features)
{
    const InstallableOptions installed(ppd, nullptr, InstalledFeatures);
    PrinterReport report = {ppd, {}, {}, {}, {}, {}, RemarksOn(ppd, outline)};
    for (const PPDGroup& group : ppd.groups()) {
        AddGroup(report, group);
    }
    AddInstalled(report, ppd, installed);
    AddConstraints(report, ppd);
    for (const JobTypeOffer& offer : JobTypeOffers(features)) {
        report.jobTypes.push_back({offer.key, bundle.localizedString(offer.key)});
    }
    AddFinishing(report, ppd, installed, bundle);
    return report;
}

} // namespace tarvo
