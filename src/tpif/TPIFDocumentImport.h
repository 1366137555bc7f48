#pragma once

#include "platform/xml/XmlEvents.h"
#include "tpif/TPIFImportFinishing.h"
#include "tpif/TPIFImportSpecialPages.h"

#include <vector>

namespace tarvo {

/// Takes one document element by element. Of each path it keeps the first element; a cover, an
/// insert and a page are made into entries when they end, and forgotten.
class TPIFDocumentImport : public XmlEvents {
public:
    /// @param observer  null: nobody wants to know
    TPIFDocumentImport(const TPIFImportFeatures& features, const TPIFImportObserver* observer);

    /// To be told of the bytes that the elements are read from, before these.
    void take(std::size_t bytes) { bytes_ += bytes; }

    std::string startElement(const XmlElement& element) override;
    std::string endElement() override;
    void characters(std::string_view text) override;

    /// Why there is nothing to import: the root is another one. Empty when it is ours.
    const ParseError& remark() const { return remark_; }

    /// What the whole document gives, to be called behind its end.
    CFDictionary takeResult() &&;

private:
    using Place = TPIFImportPaths::Place;

    // An element that is open. One that nothing asks for has no place.
    struct OpenElement {
        const Place* place = nullptr;
        const Place* around = nullptr;    // that its members are looked for in
        TPIFImportGroup* group = nullptr; // of its members
        TPIFImportNode* node = nullptr;
        std::size_t number = 0; // in the document, the root's being 1
        bool hasElements = false;
        bool opensGroup = false;
    };
    // What an observer is told of it.
    struct ShownElement {
        std::size_t line = 0;
        std::size_t pathLength = 0;       // before it
        const char* whyIgnored = nullptr; // it or one around it
    };

    // Each returns why the element is ignored; null when it is not.
    const char* startMember(OpenElement& element, const XmlElement& start);
    const char* startNode(OpenElement& element, const XmlElement& start);
    bool isFirst(const Place& place, const OpenElement& parent);
    void openGroup(OpenElement& element);
    std::string keysOf(const Place& place) const;
    void show(const XmlElement& start);
    void endMember(const OpenElement& element);
    void endGroup(const OpenElement& element);
    void endJob(const TPIFImportGroup& group);
    void tellIgnored(const OpenElement& element);
    void tellEmptyGroup(const OpenElement& element);

    const TPIFImportFeatures& features_;
    const TPIFImportPaths& paths_;
    const TPIFImportObserver* observer_;

    TPIFImportGroup job_;
    TPIFImportGroup inner_; // of the operation, a cover, an insert or a page: one at a time
    TPIFImportNode member_; // of a set of texts
    TPIFFinishingImport finishing_;
    TPIFOffsetImport offset_;
    TPIFSpecialPagesImport pages_;
    TPIFOneToOneImport oneToOne_;
    TPIFFullColorImport fullColor_;
    CFDictionary result_;
    ParseError remark_;

    std::vector<OpenElement> open_;
    std::vector<ShownElement> shown_; // likewise; empty without an observer
    std::vector<std::optional<std::size_t>>
        firstParents_;                   // of each place, the number of its first one's parent
    std::vector<TPIFImportNode*> texts_; // of open elements
    std::size_t elements_ = 0;
    std::size_t bytes_ = 0; // of the document so far
    std::string path_;      // of the element that is open, for an observer
    std::string ignored_;   // text of the last one that nothing is made of, likewise
};

} // namespace tarvo
