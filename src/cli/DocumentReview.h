#pragma once

#include "tpif/TPIFImport.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvo {

/// Is told what becomes of a document, element by element.
class DocumentReviewer {
public:
    DocumentReviewer() = default;
    DocumentReviewer(const DocumentReviewer&) = delete;
    DocumentReviewer& operator=(const DocumentReviewer&) = delete;
    virtual ~DocumentReviewer() = default;

    /// @param isMissing  a new export does not contain the element; only with its first step
    virtual void step(const TPIFImportStep& step, bool isMissing) = 0;
    /// Told once for an attribute that an export has before one that comes earlier here.
    /// @param path  ".tpif.job-template-attributes.sides", borrowed for the call
    virtual void misplaced(std::string_view path, std::size_t element, std::size_t line) = 0;
};

/// Imports a document, exports the result, and tells what becomes of each element by both. A
/// document of many elements takes no more memory than its ticket, an export of that and a number
/// for each of the export's elements. Elements are the same when path and text are, without the
/// white space around the text.
/// @param result, error  as of TPIFImportDocument
/// @return false when the document is unreadable; nothing is told of it
[[nodiscard]] bool ReviewDocument(const TPIFImportFeatures& features, std::string_view xml,
                                  DocumentReviewer& reviewer, CFDictionary& result,
                                  ParseError& error);

} // namespace tarvo
