#pragma once

#include "tpif/TPIFFeatures.h"
#include "tpif/TPIFImportGroup.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// A value that an element gives for its feature.
struct TPIFImportValue {
    TPIFImportSyntax kind = TPIFImportSyntax::Unknown;
    std::int32_t number = 0;  // of a keyword the ticket's number for it
    std::string_view keyword; // the database's, borrowed from the reader
    std::string name;

    CFPropertyList asTicketValue() const;
};

/// Why an element gives none.
struct TPIFImportRefusal {
    TPIFImportOutcome outcome = TPIFImportOutcome::Refused;
    std::string reason;
};

/// What a feature's elements may hold: the feature database's words, limits and texts, made ready
/// for many documents.
class TPIFFeatureSyntaxes {
public:
    TPIFFeatureSyntaxes() = default;
    /// @param entry    of the database
    /// @param feature  whose tables have the ticket's numbers for the database's keywords
    TPIFFeatureSyntaxes(const CFDictionary& entry, const TPIFFeature& feature);

    struct Keyword {
        std::string word; // of documents
        std::string keyword;
        bool isName;
        std::optional<std::int32_t> value;   // of the ticket
        std::optional<std::int32_t> idValue; // of the ticket, by the keyword's ID
    };
    struct NumberLimits {
        std::optional<std::int32_t> minimum;
        std::optional<std::int32_t> maximum;
    };
    struct NameLimits {
        std::optional<std::int32_t> longest; // characters
        std::optional<std::string> characters;
    };

    std::optional<std::vector<Keyword>> keywords; // nullopt: takes none; the same below
    std::optional<NumberLimits> number;
    std::optional<NameLimits> name;
    bool keywordsUseNameSyntax = false;
    std::vector<std::string_view> lostWords; // that documents have and the ticket does not
};

/// Converts the text of an element. Keywords and numbers stand without the white space around them,
/// names as they are.
/// @return nullopt with `refusal` filled when the feature takes no such value
std::optional<TPIFImportValue> TPIFImportNodeValue(const TPIFImportNode& node,
                                                   const TPIFFeatureSyntaxes& syntaxes,
                                                   TPIFImportRefusal& refusal);

/// A feature of the database: where its elements are, and what they may hold. One that the database
/// lacks finds nothing.
class TPIFFeatureReader {
public:
    static constexpr std::size_t MostPaths = 4;

    TPIFFeatureReader() = default;
    explicit TPIFFeatureReader(TPIFFeatureSyntaxes syntaxes) : syntaxes_(std::move(syntaxes)) {}
    void setSlot(std::size_t path, std::size_t slot) { slots_[path] = slot; }
    std::optional<std::size_t> slot(std::size_t path = 0) const { return slots_[path]; }

    const TPIFImportNode* node(const TPIFImportGroup& group, std::size_t path = 0) const
    {
        return TPIFImportGetNode(group, slots_[path]);
    }
    /// The value of a path's element. What it refuses, it tells the group.
    std::optional<TPIFImportValue> value(const TPIFImportGroup& group, std::size_t path = 0) const;
    /// The same for an element that may be null.
    std::optional<TPIFImportValue> valueOf(const TPIFImportGroup& group,
                                           const TPIFImportNode* node) const;
    /// The number of a value, where a feature takes no names.
    std::optional<std::int32_t> number(const TPIFImportGroup& group, std::size_t path = 0) const;

private:
    TPIFFeatureSyntaxes syntaxes_;
    std::array<std::optional<std::size_t>, MostPaths> slots_;
};

/// Tells why an element of the group was no use.
void TellRefusal(const TPIFImportGroup& group, const TPIFImportNode& node,
                 const TPIFImportRefusal& refusal);

} // namespace tarvo
