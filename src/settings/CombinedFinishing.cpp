#include "settings/CombinedFinishing.h"

#include "settings/FinishingMaps.h"

#include <algorithm>
#include <iterator>

namespace tarvo {
namespace {

struct CombinationRow {
    std::int32_t option;
    FinishingParts parts;
};

constexpr CombinationRow Combinations[] = {
    {FinishingFamily::StaplesAndHoles,      {true, true, false}},
    {FinishingFamily::StaplesHolesAndZFold, {true, true, true} },
    {FinishingFamily::StaplesAndZFold,      {true, false, true}},
    {FinishingFamily::HolesAndZFold,        {false, true, true}},
};

bool HasAll(const FinishingParts& present, const FinishingParts& wanted)
{
    return (present.staples || !wanted.staples) && (present.holes || !wanted.holes) &&
           (present.zFold || !wanted.zFold);
}

} // namespace

std::optional<FinishingParts> PartsOfFinishing(std::int32_t option)
{
    const auto* row =
        std::find_if(std::begin(Combinations), std::end(Combinations),
                     [option](const CombinationRow& each) { return each.option == option; });
    return row == std::end(Combinations) ? std::nullopt : std::optional(row->parts);
}

std::optional<std::int32_t> FinishingOfParts(const FinishingParts& parts)
{
    const auto* row =
        std::find_if(std::begin(Combinations), std::end(Combinations),
                     [&parts](const CombinationRow& each) { return each.parts == parts; });
    return row == std::end(Combinations) ? std::nullopt : std::optional(row->option);
}

std::vector<std::int32_t> FinishingsOfParts(const FinishingParts& parts)
{
    std::vector<std::int32_t> options;
    for (const CombinationRow& row : Combinations) {
        if (HasAll(parts, row.parts)) {
            options.push_back(row.option);
        }
    }
    return options;
}

} // namespace tarvo
