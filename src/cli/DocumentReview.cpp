#include "cli/DocumentReview.h"

#include "platform/text/WhiteSpace.h"
#include "tpif/TPIFDocumentImport.h"
#include "tpif/TPIFWriter.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tarvo {
namespace {

// Stands for a path, or for a path and a text: neither is kept.
using Hash = std::uint64_t;

class Hasher {
public:
    Hash hash(Hash around, std::string_view text)
    {
        text_.assign(reinterpret_cast<const char*>(&around), sizeof around).append(text);
        return KeyHash(text_);
    }

private:
    std::string text_;
};

// Walks the elements of a document. An attribute is what stands in a group of the root, with all
// inside it.
class ElementWalk : public XmlEvents {
public:
    std::string startElement(const XmlElement& element) final
    {
        paths_.push_back(hasher_.hash(paths_.empty() ? 0 : paths_.back(), element.name()));
        ++number_;
        text_.clear();
        isLeaf_ = true;
        constexpr std::size_t AttributeDepth = 3;
        if (paths_.size() < AttributeDepth) {
            names_.resize(paths_.size() - 1);
            names_.emplace_back(element.name());
        } else if (paths_.size() == AttributeDepth) {
            attribute(paths_.back(), element);
        }
        return "";
    }
    std::string endElement() final
    {
        if (isLeaf_) {
            leaf(hasher_.hash(paths_.back(), Trimmed(text_)));
        }
        isLeaf_ = false;
        paths_.pop_back();
        return "";
    }
    void characters(std::string_view text) final
    {
        if (isLeaf_) {
            text_ += text;
        }
    }

protected:
    virtual void attribute(Hash path, const XmlElement& element) = 0;
    /// An element without others inside has ended.
    virtual void leaf(Hash pathAndText) = 0;
    /// Of the element that started last; the root's is 1.
    std::size_t number() const { return number_; }
    /// Of the root and the group that an attribute is in.
    const std::vector<std::string>& names() const { return names_; }

private:
    std::vector<Hash> paths_; // of the open elements
    std::vector<std::string> names_;
    std::size_t number_ = 0;
    std::string text_;
    bool isLeaf_ = false;
    Hasher hasher_;
};

// What an export contains, and the order of its attributes.
class ExportedElements : public ElementWalk {
public:
    /// Takes one of the elements away; false when there is none.
    bool take(Hash pathAndText)
    {
        const auto found = counts_.find(pathAndText);
        if (found == counts_.end()) {
            return false;
        }
        if (--found->second == 0) {
            counts_.erase(found);
        }
        return true;
    }
    std::optional<std::size_t> rankOf(Hash attribute) const
    {
        const auto found = ranks_.find(attribute);
        return found == ranks_.end() ? std::nullopt : std::optional(found->second);
    }

private:
    void attribute(Hash path, const XmlElement&) override { ranks_.emplace(path, ranks_.size()); }
    void leaf(Hash pathAndText) override { ++counts_[pathAndText]; }

    std::unordered_map<Hash, std::size_t> counts_;
    std::unordered_map<Hash, std::size_t> ranks_;
};

// A document beside what its new export contains.
class ReviewedElements : public ElementWalk {
public:
    ReviewedElements(ExportedElements& exported, DocumentReviewer& reviewer)
        : exported_(exported), reviewer_(reviewer)
    {
    }

    /// Whether the element, which has ended, is missing from the export; true once.
    bool takeMissing(std::size_t element) { return missing_.erase(element) != 0; }

private:
    void attribute(Hash path, const XmlElement& element) override
    {
        const auto rank = exported_.rankOf(path);
        if (!rank) {
            return;
        }
        if (*rank < highest_ && misplaced_.insert(path).second) {
            std::string shown;
            for (const std::string& name : names()) {
                shown.append(".").append(name);
            }
            reviewer_.misplaced(shown.append(".").append(element.name()), number(), element.line());
        }
        highest_ = std::max(highest_, *rank);
    }
    void leaf(Hash pathAndText) override
    {
        if (!exported_.take(pathAndText)) {
            missing_.insert(number());
        }
    }

    ExportedElements& exported_;
    DocumentReviewer& reviewer_;
    std::unordered_set<std::size_t> missing_; // that no step has come of yet
    std::unordered_set<Hash> misplaced_;
    std::size_t highest_ = 0; // rank so far
};

// Hands a document to two, to one after the other.
class BothEvents : public XmlEvents {
public:
    BothEvents(XmlEvents& first, XmlEvents& second) : first_(first), second_(second) {}

    std::string startElement(const XmlElement& element) override
    {
        std::string reason = first_.startElement(element);
        return reason.empty() ? second_.startElement(element) : reason;
    }
    std::string endElement() override
    {
        std::string reason = first_.endElement();
        return reason.empty() ? second_.endElement() : reason;
    }
    void characters(std::string_view text) override
    {
        first_.characters(text);
        second_.characters(text);
    }

private:
    XmlEvents& first_;
    XmlEvents& second_;
};

} // namespace

bool ReviewDocument(const TPIFImportFeatures& features, std::string_view xml,
                    DocumentReviewer& reviewer, CFDictionary& result, ParseError& error)
{
    CFDictionary first;
    if (TPIFImportDocument(features, XmlSourceOf(xml), first, error) != StatusOk) {
        return false;
    }
    ExportedElements exported;
    ParseError none; // of what has been read before, and of an import's own export
    XmlLimits limits = TPIFImportLimits;
    limits.bytes = static_cast<std::size_t>(-1); // an export has lines and all defaults
    static_cast<void>(
        ReadXml(XmlSourceOf(TPIFDocumentOf(std::move(first))), limits, exported, none));

    ReviewedElements elements(exported, reviewer);
    const TPIFImportObserver observer = [&](const TPIFImportStep& step) {
        reviewer.step(step, elements.takeMissing(step.element));
    };
    TPIFDocumentImport import(features, &observer);
    import.take(xml.size());
    BothEvents both(elements, import);
    static_cast<void>(ReadXml(XmlSourceOf(xml), TPIFImportLimits, both, none));
    for (auto& entry : std::move(import).takeResult().takeEntries()) {
        result.set(entry.key, std::move(entry.value));
    }
    return true;
}

} // namespace tarvo
