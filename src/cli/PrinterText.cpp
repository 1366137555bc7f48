#include "cli/Messages.h"
#include "cli/PrinterReport.h"

#include <nlohmann/json.hpp>

#include <array>
#include <charconv>

namespace tarvo {
namespace {

constexpr float PointsPerInch = 72;
constexpr float MillimetersPerInch = 25.4F;

std::string Fixed(float number, int decimals)
{
    std::array<char, 64> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::fixed, decimals)
                         .ptr;
    return {text.data(), end};
}

// "width 152.4 to 330.2 mm (6.00 to 13.00 in)"
std::string LimitText(const std::string& name, float minimum, float maximum)
{
    constexpr float Inch = 1 / PointsPerInch;
    constexpr float Millimeter = MillimetersPerInch / PointsPerInch;
    return name + ' ' + Fixed(minimum * Millimeter, 1) + " to " + Fixed(maximum * Millimeter, 1) +
           " mm (" + Fixed(minimum * Inch, 2) + " to " + Fixed(maximum * Inch, 2) + " in)";
}

void AddHeading(std::string& text, const char* heading)
{
    (((text += '\n') += heading) += '\n');
}

void AddOptions(std::string& text, const PrinterReport& report)
{
    AddHeading(text, "Options (* by default)");
    for (const auto& group : report.groups) {
        text += "  " + WithoutControls(group.text) + '\n';
        for (const auto& option : group.options) {
            text += "    " + WithoutControls(option.text) + ':';
            const char* separator = " ";
            for (const auto& choice : option.choices) {
                text += separator + WithoutControls(choice.text) + (choice.isDefault ? " *" : "");
                separator = "; "; // texts hold commas
            }
            text += '\n';
        }
    }
}

void AddLines(std::string& text, const char* heading, const std::vector<std::string>& lines)
{
    AddHeading(text, heading);
    for (const std::string& line : lines) {
        text += "  " + WithoutControls(line) + '\n';
    }
    if (lines.empty()) {
        text += "  none\n";
    }
}

template <typename Rows>
std::vector<std::string> TextsOf(const Rows& rows)
{
    std::vector<std::string> texts;
    texts.reserve(rows.size());
    for (const auto& row : rows) {
        texts.push_back(row.text);
    }
    return texts;
}

nlohmann::ordered_json JsonOf(const PrinterReport::Named& named)
{
    return {
        {"keyword", named.keyword},
        {"text",    named.text   }
    };
}

nlohmann::ordered_json JsonOf(const PrinterReport::Group& group)
{
    auto options = nlohmann::ordered_json::array();
    for (const auto& option : group.options) {
        auto choices = nlohmann::ordered_json::array();
        for (const auto& choice : option.choices) {
            auto row = JsonOf(static_cast<const PrinterReport::Named&>(choice));
            row["default"] = choice.isDefault;
            choices.push_back(std::move(row));
        }
        auto row = JsonOf(static_cast<const PrinterReport::Named&>(option));
        row["choices"] = std::move(choices);
        options.push_back(std::move(row));
    }
    auto row = JsonOf(static_cast<const PrinterReport::Named&>(group));
    row["options"] = std::move(options);
    return row;
}

nlohmann::ordered_json JsonOf(const std::optional<PPDSizeLimits>& limits)
{
    if (!limits) {
        return nullptr;
    }
    return {
        {"minimumWidth",  limits->minimumWidth },
        {"minimumLength", limits->minimumLength},
        {"maximumWidth",  limits->maximumWidth },
        {"maximumLength", limits->maximumLength},
        {"unit",          "point"              }
    };
}

} // namespace

std::string PrinterText(const PrinterReport& report)
{
    std::string text =
        WithoutControls((report.name.empty() ? "(no name)" : report.name) + ", made by " +
                        (report.maker.empty() ? "(unknown)" : report.maker)) +
        '\n';
    AddOptions(text, report);
    std::vector<std::string> installed;
    for (const auto& option : report.installed) {
        installed.push_back(option.text + ": " + option.choice.text);
    }
    AddLines(text, "Installed", installed);
    std::vector<std::string> sizes;
    if (const auto& limits = report.customSizes) {
        sizes = {LimitText("width", limits->minimumWidth, limits->maximumWidth),
                 LimitText("length", limits->minimumLength, limits->maximumLength)};
    }
    AddLines(text, "Custom paper sizes", sizes);
    AddLines(text, "Constraints", report.constraints);
    AddLines(text, "Job types", TextsOf(report.jobTypes));
    AddLines(text, "Finishing", TextsOf(report.finishing));
    return text;
}

std::string PrinterJson(const PrinterReport& report)
{
    nlohmann::ordered_json json = {
        {"name",  report.name },
        {"maker", report.maker}
    };
    json["groups"] = nlohmann::ordered_json::array();
    for (const auto& group : report.groups) {
        json["groups"].push_back(JsonOf(group));
    }
    json["installed"] = nlohmann::ordered_json::array();
    for (const auto& option : report.installed) {
        auto row = JsonOf(static_cast<const PrinterReport::Named&>(option));
        row["choice"] = JsonOf(option.choice);
        json["installed"].push_back(std::move(row));
    }
    json["customSizes"] = JsonOf(report.customSizes);
    json["constraints"] = report.constraints;
    json["jobTypes"] = nlohmann::ordered_json::array();
    for (const auto& type : report.jobTypes) {
        json["jobTypes"].push_back(JsonOf(type));
    }
    json["finishing"] = nlohmann::ordered_json::array();
    for (const auto& offer : report.finishing) {
        auto row = JsonOf(static_cast<const PrinterReport::Named&>(offer));
        row["option"] = offer.option;
        row["choices"] = offer.choices;
        json["finishing"].push_back(std::move(row));
    }
    json["faults"] = report.faults;
    return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

} // namespace tarvo
