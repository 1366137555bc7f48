#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace tarvo {

/// Which families a combined one has.
struct FinishingParts {
    bool operator==(const FinishingParts&) const = default;
    bool staples = false;
    bool holes = false;
    bool zFold = false;
};

/// @return nullopt for a family that combines none
std::optional<FinishingParts> PartsOfFinishing(std::int32_t option);

/// @return the option that combines them; nullopt for fewer than two
std::optional<std::int32_t> FinishingOfParts(const FinishingParts& parts);

/// The options that need nothing but these parts, ascending.
std::vector<std::int32_t> FinishingsOfParts(const FinishingParts& parts);

} // namespace tarvo
