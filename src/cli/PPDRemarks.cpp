#include "cli/PPDRemarks.h"

#include "cli/PPDOutline.h"
#include "printer/PPDKeywordMaps.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr std::string_view MakerOfFamily = "Tarvo";

void AddDefault(std::vector<PPDRemark>& remarks, const PPDOption& option, const PPDOutline& outline)
{
    const std::string& standard = option.defaultChoice;
    if (standard.empty()) {
        remarks.push_back(
            {outline.lineOf(option.keyword), true, QuotedName(option.keyword) + " has no default"});
    } else if (std::none_of(option.choices.begin(), option.choices.end(),
                            [&](const PPDChoice& choice) { return choice.keyword == standard; })) {
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
    } else if (maker != MakerOfFamily) {
        remarks.push_back({0, false, "the manufacturer is " + QuotedName(maker) + unseen});
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
        }
    }
    if (!missing.empty()) {
        remarks.push_back({0, false, "without " + missing + ": their menus stay away"});
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
    remarks.insert(remarks.end(), outline.faults().begin(), outline.faults().end());
    std::stable_sort(
        remarks.begin(), remarks.end(),
        [](const PPDRemark& one, const PPDRemark& other) { return one.line < other.line; });
    remarks.erase(std::unique(remarks.begin(), remarks.end()), remarks.end());
    return remarks;
}

} // namespace tarvo
