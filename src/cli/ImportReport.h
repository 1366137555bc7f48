#pragma once

#include "tpif/TPIFImport.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// What an import made of a document.
struct ImportReport {
    struct Element {
        std::size_t line;
        std::string path;
        std::string text;
    };
    struct Step {
        Element element;
        TPIFImportOutcome outcome;
        std::string key;                     // of what is taken
        std::optional<CFPropertyList> value; // likewise
        std::string reason;                  // of what is not
    };

    std::string file;                // by its name for people
    std::optional<ParseError> error; // of an unreadable document; the rest is empty then
    std::vector<Step> steps;         // in the order of the document
    std::vector<Element> missing;    // that a new export would not contain
    std::vector<Element> misplaced;  // the first of each attribute that an export has further up
};

/// Imports a document and tells what became of each element. The whole of it is kept in memory.
/// @param result  as of TPIFImportDocument
ImportReport ImportWithReport(const TPIFImportFeatures& features, const std::string& file,
                              const std::string& xml, CFDictionary& result);

/// The path of an element for people: from its group down, without control characters.
std::string ShownPath(std::string_view path);
/// A text in quotes, without control characters and cut when it is long.
std::string ShownText(std::string_view text);
/// "taken", "ignored", "refused" or "lost".
const char* NameOf(TPIFImportOutcome outcome);

/// For a person at a terminal.
std::string ImportText(const std::vector<ImportReport>& reports);

/// For a program: {"documents": an object for each with the members of ImportReport}.
std::string ImportJson(const std::vector<ImportReport>& reports);

} // namespace tarvo
