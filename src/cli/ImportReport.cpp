#include "cli/ImportReport.h"

#include "cli/Messages.h"
#include "platform/text/Utf8.h"
#include "platform/text/WhiteSpace.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFWriter.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

namespace tarvo {
namespace {

using Element = ImportReport::Element;

// The elements of a document that hold no others, in its order.
class ElementList : public XmlEvents {
public:
    std::string startElement(const XmlElement& element) override
    {
        lengths_.push_back(path_.size());
        path_.append(".").append(element.name());
        line_ = element.line();
        text_.clear();
        isLeaf_ = true;
        return "";
    }
    std::string endElement() override
    {
        if (isLeaf_) {
            elements.push_back({line_, path_, std::string(Trimmed(text_))});
        }
        isLeaf_ = false;
        path_.resize(lengths_.back());
        lengths_.pop_back();
        return "";
    }
    void characters(std::string_view text) override { text_ += text; }

    std::vector<Element> elements;

private:
    std::vector<std::size_t> lengths_; // of the path around each open element
    std::string path_;
    std::string text_;
    std::size_t line_ = 0;
    bool isLeaf_ = false;
};

std::vector<Element> ElementsOf(const std::string& xml)
{
    ElementList list;
    ParseError error; // of an import's own export there is none
    static_cast<void>(ReadXml(XmlSourceOf(xml), TPIFImportLimits, list, error));
    return std::move(list.elements);
}

std::string ExportOf(CFDictionary ticket)
{
    CFDictionary all;
    all.set(ExportAllKey, true);
    ticket.set(ExportOptionsKey, std::move(all));
    std::string document;
    TPIFChannel channel([&document](std::string_view piece) { document += piece; }, true);
    WriteTPIF(channel, ticket, nullptr);
    channel.flush();
    return document;
}

// Those of the elements that an export has fewer of.
std::vector<Element> MissingFrom(const std::vector<Element>& exported,
                                 const std::vector<Element>& elements)
{
    const auto key = [](const Element& element) { return element.path + '\0' + element.text; };
    std::unordered_map<std::string, std::size_t> counts;
    for (const Element& element : exported) {
        ++counts[key(element)];
    }
    std::vector<Element> missing;
    for (const Element& element : elements) {
        const auto found = counts.find(key(element));
        if (found == counts.end() || found->second == 0) {
            missing.push_back(element);
        } else {
            --found->second;
        }
    }
    return missing;
}

// ".tpif.job-template-attributes.sides" of that element and of all inside it.
std::string_view AttributeOf(std::string_view path)
{
    constexpr std::size_t Names = 3;
    std::size_t end = 0;
    for (std::size_t name = 0; name < Names && end != std::string_view::npos; ++name) {
        end = path.find('.', end + 1);
    }
    return path.substr(0, end);
}

// The first elements of the attributes that an export has before one that comes earlier here.
std::vector<Element> MisplacedIn(const std::vector<Element>& exported,
                                 const std::vector<Element>& elements)
{
    std::unordered_map<std::string_view, std::size_t> ranks;
    for (const Element& element : exported) {
        ranks.emplace(AttributeOf(element.path), ranks.size());
    }
    std::vector<Element> misplaced;
    std::string_view former;
    std::size_t highest = 0;
    for (const Element& element : elements) {
        const std::string_view attribute = AttributeOf(element.path);
        const auto rank = ranks.find(attribute);
        if (rank == ranks.end() || std::exchange(former, attribute) == attribute) {
            continue;
        }
        if (rank->second < highest) {
            misplaced.push_back({element.line, std::string(attribute), ""});
        }
        highest = std::max(highest, rank->second);
    }
    return misplaced;
}

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

void AddSteps(std::string& text, const ImportReport& report)
{
    for (const ImportReport::Step& step : report.steps) {
        text += ElementText(step.element) + ": " + NameOf(step.outcome);
        text += step.value ? ", " + WithoutControls(step.key) + " = " + ValueText(*step.value)
                           : ", " + step.reason;
        text += '\n';
    }
}

std::string CountsOf(const ImportReport& report)
{
    std::array<std::size_t, OutcomeNames.size()> counts = {};
    for (const ImportReport::Step& step : report.steps) {
        ++counts[static_cast<std::size_t>(step.outcome)];
    }
    std::string text;
    for (std::size_t index = 0; index < counts.size(); ++index) {
        text +=
            (text.empty() ? "" : ", ") + std::to_string(counts[index]) + ' ' + OutcomeNames[index];
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

nlohmann::ordered_json JsonOf(const ImportReport& report)
{
    nlohmann::ordered_json json;
    json["file"] = report.file;
    json["error"] = nullptr;
    if (report.error) {
        json["error"]["line"] = report.error->line;
        json["error"]["reason"] = report.error->reason;
    }
    json["elements"] = nlohmann::ordered_json::array();
    for (const ImportReport::Step& step : report.steps) {
        auto row = JsonOf(step.element);
        row["outcome"] = NameOf(step.outcome);
        if (step.value) {
            row["key"] = step.key;
            row["value"] = JsonOf(*step.value);
        } else {
            row["reason"] = step.reason;
        }
        json["elements"].push_back(std::move(row));
    }
    json["missingFromExport"] = nlohmann::ordered_json::array();
    for (const Element& element : report.missing) {
        json["missingFromExport"].push_back(JsonOf(element));
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
    return WithoutControls(path);
}

std::string ShownText(std::string_view text)
{
    constexpr std::size_t Longest = 60; // bytes
    const std::string_view prefix = Utf8Prefix(text, Longest);
    return '"' + WithoutControls(prefix) + (prefix.size() < text.size() ? "...\"" : "\"");
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
    const TPIFImportObserver observer = [&report](const TPIFImportStep& step) {
        report.steps.push_back({
            {step.line, std::string(step.path), std::string(step.text)},
            step.outcome,
            std::string(step.key),
            step.value == nullptr ? std::nullopt : std::optional(*step.value),
            std::string(step.reason)
        });
    };
    CFDictionary own;
    ParseError error;
    if (TPIFImportDocument(features, XmlSourceOf(xml), own, error, &observer) != StatusOk) {
        report.steps.clear();
        report.error = std::move(error);
        return report;
    }
    std::stable_sort(report.steps.begin(), report.steps.end(),
                     [](const auto& first, const auto& second) {
                         return first.element.line < second.element.line;
                     });
    const auto exported = ElementsOf(ExportOf(own));
    const auto elements = ElementsOf(xml);
    report.missing = MissingFrom(exported, elements);
    report.misplaced = MisplacedIn(exported, elements);
    for (auto& entry : std::move(own).takeEntries()) {
        result.set(entry.key, std::move(entry.value));
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
        if (!report.missing.empty()) {
            text += "Not in a new export:\n";
        }
        for (const Element& element : report.missing) {
            text += ElementText(element) + '\n';
        }
        text += CountsOf(report) + "; " + std::to_string(report.missing.size()) +
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
    return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

} // namespace tarvo
