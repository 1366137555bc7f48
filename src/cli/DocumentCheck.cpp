#include "cli/DocumentCheck.h"

#include "cli/ImportReport.h"
#include "cli/TicketCheck.h"

#include <set>
#include <unordered_map>
#include <utility>

namespace tarvo {
namespace {

// An element that an import passes over and an export writes again, such as one that says what
// holds anyway, is no finding.
void AddLosses(const ImportReport& report, Findings& findings)
{
    std::set<std::pair<std::size_t, std::string_view>> missing;
    for (const auto& element : report.missing) {
        missing.emplace(element.line, element.path);
    }
    for (const auto& step : report.steps) {
        const bool isLost = step.outcome != TPIFImportOutcome::Taken &&
                            missing.contains({step.element.line, step.element.path});
        if (isLost || step.outcome == TPIFImportOutcome::Refused) {
            findings.note({step.element.line, ShownPath(step.element.path),
                           ShownText(step.element.text) + " is " + NameOf(step.outcome) +
                               " by an import: " + step.reason});
        }
    }
}

void AddMisplaced(const ImportReport& report, Findings& findings)
{
    for (const auto& element : report.misplaced) {
        findings.note({element.line, ShownPath(element.path),
                       "stands out of order: the printer reads it before what is above"});
    }
}

// The ticket's entries stand where the elements do that gave them.
void AddContradictions(const ImportReport& report, const CFDictionary& ticket, Findings& findings)
{
    Findings contradictions;
    CheckTicketContradictions(TicketPlace(ticket, nullptr), contradictions);
    std::unordered_map<std::string_view, std::size_t> lines;
    for (const auto& step : report.steps) {
        lines.emplace(step.key, step.element.line);
    }
    for (Finding finding : contradictions.list()) {
        const auto line = lines.find(finding.entry);
        finding.line = line == lines.end() ? 0 : line->second;
        findings.note(std::move(finding));
    }
}

} // namespace

std::optional<ParseError> CheckDocument(const TPIFImportFeatures& features, const std::string& xml,
                                        Findings& findings)
{
    CFDictionary ticket;
    const ImportReport report = ImportWithReport(features, "", xml, ticket);
    if (report.error) {
        return report.error;
    }
    AddLosses(report, findings);
    AddMisplaced(report, findings);
    AddContradictions(report, ticket, findings);
    return std::nullopt;
}

} // namespace tarvo
