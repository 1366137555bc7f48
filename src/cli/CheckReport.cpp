#include "cli/CheckReport.h"

#include "cli/JsonText.h"
#include "cli/Messages.h"
#include "platform/text/Utf8.h"

#include <nlohmann/json.hpp>

namespace tarvo {
namespace {

std::string Counted(std::size_t count, const std::string& thing)
{
    return std::to_string(count) + ' ' + thing + (count == 1 ? "" : "s");
}

// A key may be megabytes long.
std::string ShownEntry(const std::string& entry)
{
    constexpr std::size_t Longest = 200; // bytes
    const std::string_view prefix = Utf8Prefix(entry, Longest);
    return WithoutControls(prefix) + (prefix.size() < entry.size() ? "..." : "");
}

void AddFile(std::string& text, const CheckedFile& file)
{
    const std::string name = WithoutControls(file.file) + ':';
    for (const Finding& finding : file.findings.list()) {
        const std::string line = finding.line == 0 ? " " : std::to_string(finding.line) + ": ";
        text +=
            name + line + ShownEntry(finding.entry) + ' ' + WithoutControls(finding.reason) + '\n';
    }
    if (file.findings.more() != 0) {
        text += name + " and " + std::to_string(file.findings.more()) + " more\n";
    }
}

nlohmann::ordered_json JsonOf(const CheckedFile& file)
{
    nlohmann::ordered_json json;
    json["file"] = file.file;
    json["kind"] = file.kind == nullptr ? nlohmann::ordered_json(nullptr) : file.kind;
    json["error"] = nullptr;
    if (file.error) {
        json["error"]["line"] = file.error->line;
        json["error"]["reason"] = file.error->reason;
    }
    json["findings"] = nlohmann::ordered_json::array();
    for (const Finding& finding : file.findings.list()) {
        json["findings"].push_back({
            {"line",   finding.line  },
            {"entry",  finding.entry },
            {"reason", finding.reason}
        });
    }
    json["more"] = file.findings.more();
    return json;
}

} // namespace

std::string CheckText(const std::vector<CheckedFile>& files)
{
    std::string text;
    std::size_t findings = 0;
    std::size_t checked = 0;
    for (const CheckedFile& file : files) {
        AddFile(text, file);
        findings += file.findings.list().size() + file.findings.more();
        checked += file.error ? 0U : 1U;
    }
    return text + Counted(checked, "file") + " checked, " + Counted(findings, "finding") + '\n';
}

std::string CheckJson(const std::vector<CheckedFile>& files)
{
    nlohmann::ordered_json json;
    json["files"] = nlohmann::ordered_json::array();
    for (const CheckedFile& file : files) {
        json["files"].push_back(JsonOf(file));
    }
    return JsonText(json);
}

} // namespace tarvo
