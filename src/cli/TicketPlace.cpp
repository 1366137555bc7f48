#include "cli/TicketPlace.h"

#include <algorithm>
#include <tuple>

namespace tarvo {

void Findings::sort()
{
    std::stable_sort(list_.begin(), list_.end(), [](const Finding& finding, const Finding& other) {
        return std::tie(finding.line, finding.element) < std::tie(other.line, other.element);
    });
}

// Walks the entries: it is asked about what is wrong, or once for each dictionary inside.
const PropertyListPlace* TicketPlace::placeOf(std::string_view key) const
{
    const auto found = std::find_if(entries_->begin(), entries_->end(),
                                    [key](const auto& entry) { return entry.key == key; });
    if (place_ == nullptr || found == entries_->end()) {
        return nullptr;
    }
    return &place_->inside[static_cast<std::size_t>(found - entries_->begin())];
}

std::size_t TicketPlace::lineOf(std::string_view key) const
{
    const PropertyListPlace* place = placeOf(key);
    if (place != nullptr) {
        return place->line;
    }
    return place_ == nullptr ? 0 : place_->line;
}

Finding TicketPlace::findingAt(std::size_t index, std::string reason) const
{
    return {place_ == nullptr ? 0 : place_->inside[index].line,
            pathOf((entries_->begin() + static_cast<std::ptrdiff_t>(index))->key),
            std::move(reason)};
}

std::optional<TicketPlace> TicketPlace::inside(std::string_view key) const
{
    const auto* entries = entries_->get<CFDictionary>(key);
    return entries == nullptr
               ? std::nullopt
               : std::optional(TicketPlace(*entries, placeOf(key), pathOf(key) + '/'));
}

std::vector<TicketPlace> TicketPlace::listed(std::string_view key) const
{
    std::vector<TicketPlace> list;
    const auto* array = entries_->get<CFArray>(key);
    if (array == nullptr) {
        return list;
    }
    const PropertyListPlace* places = placeOf(key);
    for (std::size_t index = 0; index < array->size(); ++index) {
        if (const auto* entries = (*array)[index].get<CFDictionary>()) {
            list.push_back(TicketPlace(*entries,
                                       places == nullptr ? nullptr : &places->inside[index],
                                       pathOf(key) + '[' + std::to_string(index) + "]/"));
        }
    }
    return list;
}

} // namespace tarvo
