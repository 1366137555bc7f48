#pragma once

#include "tpif/TPIFWord.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace tarvo {

/// Where a document has the elements of a feature: names from the attributes' group down, each
/// after a dot. Of a member that may repeat (1setOf) the path leads to the first.
class TPIFPaths {
public:
    /// None, for a feature that is part of another one's elements.
    constexpr TPIFPaths() = default;
    constexpr TPIFPaths(const char* first, const char* second = nullptr,
                        const char* third = nullptr, const char* fourth = nullptr)
        : paths_{first, second, third, fourth}
    {
    }
    /// Null when there are fewer.
    constexpr const char* operator[](std::size_t index) const { return paths_[index]; }
    constexpr auto begin() const { return paths_.begin(); }
    constexpr auto end() const { return paths_.end(); }

private:
    std::array<const char*, 4> paths_ = {};
};

struct TPIFNumberLimits {
    std::int32_t minimum;
    std::int32_t maximum;
};

/// A keyword of a job type and whether a menu offers it. A null keyword ends a table.
struct TPIFOffer {
    const char* keyword;
    bool isOffered;
};

/// The values that a feature takes; a document's value of any other syntax is ignored.
struct TPIFFeatureSyntax {
    const TPIFWord* keywords = nullptr;     // the rows with a keyword count; null: takes none
    const TPIFWord* moreKeywords = nullptr; // likewise
    const char* defaultKeyword = nullptr;
    const TPIFOffer* offers = nullptr;
    bool keywordsUseNameSyntax = false; // a name may be a keyword's word
    bool takesNumbers = false;
    std::optional<TPIFNumberLimits> numberLimits = std::nullopt;
    bool takesNames = false;
    std::optional<std::int32_t> longestName = std::nullopt; // characters
};

/// Whether an import asks each document for the feature, or other features look it up by name.
enum class TPIFFeatureUse { Attribute, ByName };

struct TPIFFeature {
    const char* name;
    TPIFPaths paths;
    TPIFFeatureSyntax syntax;
    TPIFFeatureUse use = TPIFFeatureUse::Attribute;
};

/// The keyword of a medium's side that is not coated.
inline constexpr const char* StockUncoatedKeyword = "Uncoated";

/// Every feature; the one source of the bundle's device profile, which has all but the paths.
std::span<const TPIFFeature> TPIFFeatures();

} // namespace tarvo
