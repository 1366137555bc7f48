#pragma once

#include "platform/cf/CFPropertyList.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// Kinds of values, by the `syntax` attribute of an element.
enum class TPIFImportSyntax : std::uint8_t { Unknown, Keyword, Number, Name };

/// "keyword", "mimeMediaType" and "enum" are keywords, "integer" is a number, "name", "uri" and
/// "text" are names; anything else, and no attribute, is unknown.
TPIFImportSyntax TPIFImportGetNodeSyntax(std::optional<std::string_view> syntaxAttribute);

/// What became of an element.
enum class TPIFImportOutcome {
    Taken,
    Ignored, // nothing asks for it, or something else decides
    Refused, // not a value that its feature takes
    Lost,    // a good value that the ticket has no number for
};

/// Of one of two measures.
inline constexpr const char* NoOtherMeasure = "the other measure is missing or no use";

/// Told for each element that holds no others or gives a value, once or for each value, in no
/// order; the texts are borrowed for the call.
struct TPIFImportStep {
    TPIFImportOutcome outcome;
    std::string_view path; // ".tpif.job-template-attributes.sides"
    std::size_t element;   // its number in the document, the root's being 1
    std::size_t line;
    std::string_view text;
    std::string_view key;        // of what is taken: "com.tarvo.print.JobLevelStock/Weight"
    const CFPropertyList* value; // of what is taken; else null
    std::string_view reason;     // of what is not
};

using TPIFImportObserver = std::function<void(const TPIFImportStep&)>;

/// An element that a feature has asked for.
struct TPIFImportNode {
    TPIFImportSyntax syntax = TPIFImportSyntax::Unknown;
    bool isPresent = false;
    bool hasElements = false;    // inside
    mutable bool isTold = false; // to the observer
    std::size_t element = 0;     // as of a step
    std::size_t line = 0;
    std::string text; // of the element and all inside
    std::string path; // from the root; only for an observer
};

/// The elements of a group, a cover, an insert or a page, each in the slot of its path.
class TPIFImportGroup {
public:
    /// @param observer  null: nobody wants to know
    TPIFImportGroup(std::size_t slots, const TPIFImportObserver* observer)
        : nodes_(slots), observer_(observer)
    {
    }

    /// The first element with the slot's path, in document order; null when there is none.
    const TPIFImportNode* node(std::optional<std::size_t> slot) const
    {
        return slot && nodes_[*slot].isPresent ? &nodes_[*slot] : nullptr;
    }
    /// Fills an empty slot. The node stays where it is.
    TPIFImportNode& add(std::size_t slot);
    /// Empties all slots.
    /// @param keys  before the keys that are told to the observer
    void clear(std::string_view keys);

    bool isEmpty() const { return filled_.empty(); }
    bool isObserved() const { return observer_ != nullptr; }
    void tellTaken(const TPIFImportNode& node, std::string_view key,
                   const CFPropertyList& value) const;
    void tell(TPIFImportOutcome outcome, const TPIFImportNode& node, std::string_view reason) const;
    /// Tells that nothing was made of an element, which may be null.
    void tellIgnored(const TPIFImportNode* node, std::string_view reason) const;
    /// Tells why nothing was made of the elements that nothing has been told of.
    void tellRest(std::string_view reason) const;

private:
    std::vector<TPIFImportNode> nodes_;
    std::vector<std::size_t> filled_;
    const TPIFImportObserver* observer_;
    std::string keys_;
};

/// A dictionary of the result: what is set in it is told to the group's observer.
class TPIFImportTarget {
public:
    /// @param key  of the dictionary, as the observer is told it; "" for the result itself
    TPIFImportTarget(CFDictionary& dictionary, const TPIFImportGroup& group,
                     std::string_view key = "")
        : dictionary_(dictionary), group_(group), key_(key)
    {
    }

    /// @param nodes  the elements that give the value; null ones are none
    void set(std::string_view key, CFPropertyList value,
             std::initializer_list<const TPIFImportNode*> nodes);

private:
    CFDictionary& dictionary_;
    const TPIFImportGroup& group_;
    std::string_view key_;
};

/// Finds the element of a path, which leads from the group's members down.
inline const TPIFImportNode* TPIFImportGetNode(const TPIFImportGroup& group,
                                               std::optional<std::size_t> slot)
{
    return group.node(slot);
}

} // namespace tarvo
