#include "cli/ImportReport.h"

#include "cli/DocumentReview.h"
#include "cli/JsonText.h"
#include "cli/Messages.h"
#include "platform/text/Utf8.h"

#include <nlohmann/json.hpp>

#include <array>

namespace tarvo {
namespace {

using Element = ImportReport::Element;

constexpr std::size_t LongestPath = 500; // bytes

std::string Cut(std::string_view text, std::size_t longest)
{
    const std::string_view prefix = Utf8Prefix(text, longest);
    return std::string(prefix) + (prefix.size() < text.size() ? "..." : "");
}

// Writes a report.
class ReportWriter : public DocumentReviewer {
public:
    explicit ReportWriter(ImportReport& report) : report_(report) {}

    void step(const TPIFImportStep& step, bool isMissing) override
    {
        const auto element = [&step] {
            return Element{step.line, Cut(step.path, LongestPath), std::string(step.text)};
        };
        report_.steps.add(step.element, [&] {
            return ImportReport::Step{element(), step.outcome, std::string(step.key),
                                      step.value == nullptr ? std::nullopt
                                                            : std::optional(*step.value),
                                      std::string(step.reason)};
        });
        ++report_.counts[static_cast<std::size_t>(step.outcome)];
        if (isMissing) {
            report_.missing.add(step.element, element);
        }
    }
    void misplaced(std::string_view path, std::size_t, std::size_t line) override
    {
        report_.misplaced.push_back({line, std::string(path), ""});
    }

private:
    ImportReport& report_;
};

constexpr std::array<const char*, 4> OutcomeNames = {"taken", "ignored", "refused", "lost"};

nlohmann::ordered_json JsonOf(const CFPropertyList& value)
{
    if (const auto* number = value.get<std::int64_t>()) {
        return *number == UnsetValue ? nlohmann::ordered_json(nullptr)
                                     : nlohmann::ordered_json(*number);
    }
    const auto* text = value.get<std::string>();
    return text == nullptr ? nlohmann::ordered_json(nullptr) : nlohmann::ordered_json(*text);
}

std::string ValueText(const CFPropertyList& value)
{
    if (const auto* number = value.get<std::int64_t>()) {
        return *number == UnsetValue ? "the printer's default" : std::to_string(*number);
    }
    const auto* text = value.get<std::string>();
    return text == nullptr ? "" : ShownText(*text);
}

// "  12  sides "one-sided"", the path below the document's root and group.
std::string ElementText(const Element& element)
{
    std::string line = std::to_string(element.line);
    line.insert(0, line.size() < 6 ? 6 - line.size() : 0, ' ');
    return line + "  " + ShownPath(element.path) + ' ' + ShownText(element.text);
}

template <typename Row>
void AddMore(std::string& text, const FirstRows<Row>& rows)
{
    if (rows.more() != 0) {
        text += "        and " + std::to_string(rows.more()) + " more\n";
    }
}

void AddSteps(std::string& text, const ImportReport& report)
{
    for (const auto& [number, step] : report.steps.rows()) {
        text += ElementText(step.element) + ": " + NameOf(step.outcome);
        text += step.value ? ", " + WithoutControls(step.key) + " = " + ValueText(*step.value)
                           : ", " + step.reason;
        text += '\n';
    }
    AddMore(text, report.steps);
}

void AddMissing(std::string& text, const ImportReport& report)
{
    if (report.missing.total() != 0) {
        text += "Not in a new export:\n";
    }
    for (const auto& [number, element] : report.missing.rows()) {
        text += ElementText(element) + '\n';
    }
    AddMore(text, report.missing);
}

std::string CountsOf(const ImportReport& report)
{
    std::string text;
    for (std::size_t index = 0; index < report.counts.size(); ++index) {
        text += (text.empty() ? "" : ", ") + std::to_string(report.counts[index]) + ' ' +
                OutcomeNames[index];
    }
    return text;
}

nlohmann::ordered_json JsonOf(const Element& element)
{
    return {
        {"line", element.line},
        {"path", element.path},
        {"text", element.text}
    };
}

nlohmann::ordered_json JsonOf(const std::optional<ParseError>& error)
{
    if (!error) {
        return nullptr;
    }
    return {
        {"line",   error->line  },
        {"reason", error->reason}
    };
}

nlohmann::ordered_json JsonOf(const ImportReport::Step& step)
{
    auto json = JsonOf(step.element);
    json["outcome"] = NameOf(step.outcome);
    if (step.value) {
        json["key"] = step.key;
        json["value"] = JsonOf(*step.value);
    } else {
        json["reason"] = step.reason;
    }
    return json;
}

template <typename Row>
nlohmann::ordered_json JsonOf(const FirstRows<Row>& rows)
{
    auto json = nlohmann::ordered_json::array();
    for (const auto& [number, row] : rows.rows()) {
        json.push_back(JsonOf(row));
    }
    return json;
}

nlohmann::ordered_json JsonOf(const ImportReport& report)
{
    nlohmann::ordered_json json;
    json["file"] = report.file;
    json["error"] = JsonOf(report.error);
    json["remark"] = JsonOf(report.remark);
    json["elements"] = JsonOf(report.steps);
    json["moreElements"] = report.steps.more();
    json["missingFromExport"] = JsonOf(report.missing);
    json["moreMissing"] = report.missing.more();
    json["misplaced"] = nlohmann::ordered_json::array();
    for (const Element& attribute : report.misplaced) {
        json["misplaced"].push_back({
            {"line", attribute.line},
            {"path", attribute.path}
        });
    }
    return json;
}

} // namespace

std::string ShownPath(std::string_view path)
{
    for (const std::string_view group :
         {".tpif.job-template-attributes.", ".tpif.tpif-operation-attributes."}) {
        path.remove_prefix(path.starts_with(group) ? group.size() : 0);
    }
    return WithoutControls(Cut(path, LongestPath));
}

std::string ShownText(std::string_view text)
{
    constexpr std::size_t Longest = 60; // bytes
    return '"' + WithoutControls(Cut(text, Longest)) + '"';
}

const char* NameOf(TPIFImportOutcome outcome)
{
    return OutcomeNames[static_cast<std::size_t>(outcome)];
}

ImportReport ImportWithReport(const TPIFImportFeatures& features, const std::string& file,
                              const std::string& xml, CFDictionary& result)
{
    ImportReport report;
    report.file = file;
    ReportWriter writer(report);
    ParseError error;
    if (!ReviewDocument(features, xml, writer, result, error)) {
        report.error = std::move(error);
    } else if (!error.reason.empty()) {
        report.remark = std::move(error);
    }
    return report;
}

std::string ImportText(const std::vector<ImportReport>& reports)
{
    std::string text;
    for (const ImportReport& report : reports) {
        if (report.error) {
            continue; // named on standard error
        }
        text += (text.empty() ? "" : "\n") + WithoutControls(report.file) + '\n';
        AddSteps(text, report);
        AddMissing(text, report);
        text += CountsOf(report) + "; " + std::to_string(report.missing.total()) +
                " not in a new export\n";
    }
    return text;
}

std::string ImportJson(const std::vector<ImportReport>& reports)
{
    nlohmann::ordered_json json;
    json["documents"] = nlohmann::ordered_json::array();
    for (const ImportReport& report : reports) {
        json["documents"].push_back(JsonOf(report));
    }
    return JsonText(json);
}

} // namespace tarvo
