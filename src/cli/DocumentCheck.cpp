#include "cli/DocumentCheck.h"

#include "cli/DocumentReview.h"
#include "cli/ImportReport.h"
#include "cli/TicketCheck.h"

#include <unordered_map>
#include <utility>

namespace tarvo {
namespace {

// Notes what an import refuses and what a new export lacks. An element that an import passes over
// and an export writes again, such as one that says what holds anyway, is no finding.
class LossFinder : public DocumentReviewer {
public:
    explicit LossFinder(Findings& findings) : findings_(findings) {}

    void step(const TPIFImportStep& step, bool isMissing) override
    {
        if (!isMissing && step.outcome != TPIFImportOutcome::Refused) {
            return;
        }
        if (findings_.isFull()) {
            findings_.countMore(1);
            return;
        }
        const std::string what = ShownText(step.text) + " is " + NameOf(step.outcome);
        findings_.note({step.line, ShownPath(step.path),
                        step.outcome == TPIFImportOutcome::Taken
                            ? what + " by an import, but a new export does not contain it"
                            : what + " by an import: " + std::string(step.reason),
                        step.element});
    }
    void misplaced(std::string_view path, std::size_t element, std::size_t line) override
    {
        findings_.note({line, ShownPath(path),
                        "stands out of order: the printer reads it before what is above", element});
    }

private:
    Findings& findings_;
};

// Gives the findings the places of the elements that gave the entries.
void FindPlaces(const TPIFImportFeatures& features, const std::string& xml,
                std::vector<Finding>& findings)
{
    std::unordered_multimap<std::string_view, Finding*> byEntry;
    for (Finding& finding : findings) {
        byEntry.emplace(finding.entry, &finding);
    }
    const TPIFImportObserver observer = [&byEntry](const TPIFImportStep& step) {
        const auto [first, last] = byEntry.equal_range(step.key);
        for (auto found = first; found != last; ++found) {
            Finding& finding = *found->second;
            if (finding.element == 0) {
                finding.element = step.element;
                finding.line = step.line;
            }
        }
    };
    CFDictionary ticket;
    ParseError none; // it has been read before
    TPIFImportDocument(features, XmlSourceOf(xml), ticket, none, &observer);
}

void AddContradictions(const TPIFImportFeatures& features, const std::string& xml,
                       const CFDictionary& ticket, Findings& findings)
{
    Findings contradictions;
    CheckTicketContradictions(TicketPlace(ticket, nullptr), contradictions);
    if (contradictions.list().empty()) {
        return;
    }
    std::vector<Finding> placed = contradictions.list();
    FindPlaces(features, xml, placed);
    for (Finding& finding : placed) {
        findings.note(std::move(finding));
    }
    findings.countMore(contradictions.more());
}

} // namespace

std::optional<ParseError> CheckDocument(const TPIFImportFeatures& features, const std::string& xml,
                                        Findings& findings)
{
    CFDictionary ticket;
    ParseError error;
    LossFinder losses(findings);
    if (!ReviewDocument(features, xml, losses, ticket, error)) {
        return error;
    }
    AddContradictions(features, xml, ticket, findings);
    return std::nullopt;
}

} // namespace tarvo
