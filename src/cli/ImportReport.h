#pragma once

#include "tpif/TPIFImport.h"

#include <array>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// The first rows of a document, in its order, up to a number that nobody reads through; what is
/// beyond is counted only.
template <typename Row>
class FirstRows {
public:
    static constexpr std::size_t Most = 10'000;

    /// @param element  whose row it is, by its number in the document
    /// @param make     makes the row, if it is kept
    template <typename Make>
    void add(std::size_t element, Make make)
    {
        if (rows_.size() == Most && element >= rows_.rbegin()->first) {
            ++more_;
            return;
        }
        rows_.emplace(element, make());
        if (rows_.size() > Most) {
            rows_.erase(std::prev(rows_.end()));
            ++more_;
        }
    }
    /// By the numbers of their elements.
    const std::multimap<std::size_t, Row>& rows() const { return rows_; }
    std::size_t more() const { return more_; }
    std::size_t total() const { return rows_.size() + more_; }

private:
    std::multimap<std::size_t, Row> rows_;
    std::size_t more_ = 0;
};

/// What an import made of a document.
struct ImportReport {
    struct Element {
        std::size_t line;
        std::string path; // cut when it is very long
        std::string text; // as it stands in the document
    };
    struct Step {
        Element element;
        TPIFImportOutcome outcome;
        std::string key;                     // of what is taken
        std::optional<CFPropertyList> value; // likewise
        std::string reason;                  // of what is not
    };

    std::string file;                 // by its name for people
    std::optional<ParseError> error;  // of an unreadable document; the rest is empty then
    std::optional<ParseError> remark; // why there was nothing to import
    FirstRows<Step> steps;
    std::array<std::size_t, 4> counts = {}; // of all steps, by their outcomes
    FirstRows<Element> missing;             // that a new export would not contain
    std::vector<Element> misplaced; // attributes that an export has further up, without their texts
};

/// Imports a document and tells what became of each element.
/// @param result  as of TPIFImportDocument
ImportReport ImportWithReport(const TPIFImportFeatures& features, const std::string& file,
                              const std::string& xml, CFDictionary& result);

/// The path of an element for people: from its group down, without control characters and cut when
/// it is very long.
std::string ShownPath(std::string_view path);
/// A text in quotes, without control characters and cut when it is long.
std::string ShownText(std::string_view text);
/// "taken", "ignored", "refused" or "lost".
const char* NameOf(TPIFImportOutcome outcome);

/// For a person at a terminal.
std::string ImportText(const std::vector<ImportReport>& reports);

/// For a program: {"documents": [...]}, an object for each with
///   "file", "error" and "remark" (null or {"line", "reason"}),
///   "elements": [{"line", "path", "text", "outcome", and "key" and "value" of one that is taken,
///     else "reason"}]; a value of null leaves it to the printer,
///   "moreElements": how many more there were,
///   "missingFromExport": [{"line", "path", "text"}], "moreMissing": likewise,
///   "misplaced": [{"line", "path"}].
/// Paths and texts are those of ImportReport.
std::string ImportJson(const std::vector<ImportReport>& reports);

} // namespace tarvo
