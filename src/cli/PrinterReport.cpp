#include "cli/PrinterReport.h"

#include "platform/text/TextFormat.h"
#include "printer/JobTypeOffers.h"
#include "printer/PPDKeywordMaps.h"

#include <algorithm>
#include <set>
#include <unordered_map>

namespace tarvo {
namespace {

constexpr std::string_view InstallableGroup = "InstallableOptions";
constexpr std::string_view PageRegionKeyword = "PageRegion"; // PageSize for manual feeding

PrinterReport::Named ChoiceOf(const PPDOption& option, const std::string& keyword)
{
    for (const PPDChoice& choice : option.choices) {
        if (choice.keyword == keyword) {
            return {keyword, TextOr(choice.text, keyword)};
        }
    }
    return {keyword, keyword};
}

// Collects the groups of a description, and apart from them what may be installed: the options of
// the file's own group for that, and those by whose names the features ask.
class GroupWalk {
public:
    GroupWalk(PrinterReport& report, const InstallableOptions& installed, const CFBundle& bundle)
        : report_(report), installed_(installed), bundle_(bundle)
    {
    }

    void visit(const PPDGroup& group, bool isInInstallable = false)
    {
        const bool isInstallable = isInInstallable || group.name == InstallableGroup;
        PrinterReport::Group shown = {group, {}};
        for (const PPDOption& option : group.options) {
            if (isInstallable || installed_.value(option.keyword) != nullptr) {
                addInstalled(option);
            } else if (option.keyword != PageRegionKeyword) {
                shown.options.push_back(&option);
            }
        }
        if (!shown.options.empty()) {
            report_.groups.push_back(std::move(shown));
        }
        for (const PPDGroup& subgroup : group.subgroups) {
            visit(subgroup, isInstallable);
        }
    }

private:
    void addInstalled(const PPDOption& option)
    {
        const std::string* marked = report_.ppd.markedChoice(option.keyword);
        report_.installed.push_back({
            {option.keyword, TextOr(option.text, option.keyword)},
            marked == nullptr ? PrinterReport::Named{"",              bundle_.localizedString("PrinterUnknown")                              }
                              : ChoiceOf(option, *marked)
        });
    }

    PrinterReport& report_;
    const InstallableOptions& installed_;
    const CFBundle& bundle_;
};

using OptionIndex = std::unordered_map<std::string_view, const PPDOption*>;

// Such as Fold "Booklet"; the option alone when any choice that switches it on is meant.
std::string SideOf(const OptionIndex& options, const std::string& keyword,
                   const std::string& choice, const CFBundle& bundle)
{
    const auto found = options.find(keyword);
    const PPDOption* option = found == options.end() ? nullptr : found->second;
    const std::string& text = option == nullptr ? keyword : TextOr(option->text, keyword);
    return choice.empty()
               ? text
               : FilledFormat(bundle.localizedString("PrinterChoice"),
                              {text, option == nullptr ? choice : ChoiceOf(*option, choice).text});
}

// Files state most constraints from both sides.
void AddConstraints(PrinterReport& report, const PPDFile& ppd, const CFBundle& bundle)
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
        const std::string first = SideOf(options, pair.option1, pair.choice1, bundle);
        const std::string second = SideOf(options, pair.option2, pair.choice2, bundle);
        if (known.emplace(std::min(first, second), std::max(first, second)).second) {
            report.constraints.push_back(
                FilledFormat(bundle.localizedString("PrinterExcludes"), {first, second}));
        }
    }
}

void AddFinishing(PrinterReport& report, const PPDFile& ppd, const InstallableOptions& installed,
                  const CFBundle& bundle)
{
    const auto folds =
        PPDCopyOptionsForMainKeyword(ppd, FoldMainKeyword).value_or(PPDKeywordInfos());
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
    GroupWalk walk(report, installed, bundle);
    for (const PPDGroup& group : ppd.groups()) {
        walk.visit(group);
    }
    AddConstraints(report, ppd, bundle);
    for (const JobTypeOffer& offer : JobTypeOffers(features)) {
        report.jobTypes.push_back({offer.key, bundle.localizedString(offer.key)});
    }
    AddFinishing(report, ppd, installed, bundle);
    return report;
}

} // namespace tarvo
