#pragma once

#include "platform/cf/OrderedMap.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// The elements that hold a group of their own, and the document itself.
enum class TPIFImportScope : std::uint8_t { Document, Job, Operation, Cover, Insert, Page };
inline constexpr std::size_t TPIFImportScopeCount = 6;

/// The element paths that an import asks for, as one tree for each scope, so that a reader knows
/// with each start tag whether it is wanted. A path has the same slot in every scope.
class TPIFImportPaths {
public:
    struct Place {
        std::string name;
        std::size_t index = 0;                // among all places
        OrderedMap<std::size_t> inside;       // name to index
        std::optional<std::size_t> slot;      // of the path
        bool wantsText = false;               // else it is enough to know that it is there
        bool repeats = false;                 // its following siblings of the same name count too
        std::optional<TPIFImportScope> opens; // the group of its members
    };

    TPIFImportPaths();

    /// @param path  names from the scope's members down, each after a dot
    /// @return the slot of its text
    std::size_t addText(TPIFImportScope scope, std::string_view path);
    /// Adds a path of which only the presence counts.
    std::size_t addPresence(TPIFImportScope scope, std::string_view path);
    /// Adds a path whose element and following siblings have a text each.
    std::size_t addRepeatedText(TPIFImportScope scope, std::string_view path);
    /// Adds a path whose element holds a group.
    /// @param repeats  so do its following siblings of the same name
    std::size_t addGroup(TPIFImportScope scope, std::string_view path, TPIFImportScope group,
                         bool repeats);

    std::size_t slotCount() const { return slots_.size(); }
    std::size_t placeCount() const { return places_.size(); }
    /// The place around a scope's members.
    const Place& root(TPIFImportScope scope) const
    {
        return places_[static_cast<std::size_t>(scope)];
    }
    /// The place of that name inside another, borrowed; null when nothing asks for it.
    const Place* find(const Place& around, std::string_view name) const;

private:
    Place& add(TPIFImportScope scope, std::string_view path);
    std::size_t enter(std::size_t around, std::string_view name);

    std::vector<Place> places_; // the scopes' roots first
    std::map<std::string, std::size_t, std::less<>> slots_;
};

} // namespace tarvo
