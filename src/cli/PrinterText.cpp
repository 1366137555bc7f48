#include "cli/Messages.h"
#include "cli/PrinterReport.h"

#include <nlohmann/json.hpp>

#include <algorithm>
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

void AddShown(std::string& text, const std::string& shown)
{
    const auto isPlain = [](char byte) { return byte >= ' ' && byte <= '~'; };
    if (std::all_of(shown.begin(), shown.end(), isPlain)) {
        text += shown; // most are
    } else {
        text += WithoutControls(shown);
    }
}

void AddOption(std::string& text, const PPDOption& option)
{
    text += "    ";
    AddShown(text, TextOr(option.text, option.keyword));
    const char* separator = ": ";
    for (const PPDChoice& choice : option.choices) {
        text += separator;
        AddShown(text, TextOr(choice.text, choice.keyword));
        text += choice.isMarked ? " *" : "";
        separator = "; "; // texts hold commas
    }
    text += option.choices.empty() ? ":\n" : "\n";
}

void AddOptions(std::string& text, const PrinterReport& report)
{
    AddHeading(text, "Options (* by default)");
    for (const PPDGroup* group : report.groups) {
        text += "  ";
        AddShown(text, TextOr(group->text, group->name));
        text += '\n';
        for (const PPDOption& option : group->options) {
            if (option.keyword != PageRegionKeyword) {
                AddOption(text, option);
            }
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

nlohmann::ordered_json JsonOf(const std::string& keyword, const std::string& text)
{
    return {
        {"keyword",    keyword },
        { "text", TextOr(text, keyword)}
    };
}

nlohmann::ordered_json JsonOf(const PrinterReport::Named& named)
{
    return JsonOf(named.keyword, named.text);
}

nlohmann::ordered_json JsonOf(const PPDOption& option)
{
    auto choices = nlohmann::ordered_json::array();
    for (const PPDChoice& choice : option.choices) {
        choices.push_back(JsonOf(choice.keyword, choice.text));
        choices.back()["default"] = choice.isMarked;
    }
    auto row = JsonOf(option.keyword, option.text);
    row["choices"] = std::move(choices);
    return row;
}

nlohmann::ordered_json JsonOf(const PPDGroup& group)
{
    auto options = nlohmann::ordered_json::array();
    for (const PPDOption& option : group.options) {
        if (option.keyword != PageRegionKeyword) {
            options.push_back(JsonOf(option));
        }
    }
    auto row = JsonOf(group.name, group.text);
    row["options"] = std::move(options);
    return row;
}

// Those that are faults, or the others.
nlohmann::ordered_json JsonOf(const std::vector<PPDRemark>& remarks, bool faults)
{
    auto rows = nlohmann::ordered_json::array();
    for (const PPDRemark& remark : remarks) {
        if (remark.isFault == faults) {
            rows.push_back({
                {"line", nullptr    },
                {"text", remark.text}
            });
            if (remark.line != 0) {
                rows.back()["line"] = remark.line;
            }
        }
    }
    return rows;
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
    std::string text = WithoutControls(TextOr(report.ppd.nickName(), "(no name)") + ", made by " +
                                       TextOr(report.ppd.manufacturer(), "(unknown)")) +
                       '\n';
    AddOptions(text, report);
    std::vector<std::string> installed;
    for (const auto& option : report.installed) {
        installed.push_back(option.text + ": " + option.choice.text);
    }
    AddLines(text, "Installed", installed);
    std::vector<std::string> sizes;
    if (const auto& limits = report.ppd.customSizes()) {
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
        {"name",  report.ppd.nickName()    },
        {"maker", report.ppd.manufacturer()}
    };
    json["groups"] = nlohmann::ordered_json::array();
    for (const PPDGroup* group : report.groups) {
        json["groups"].push_back(JsonOf(*group));
    }
    json["installed"] = nlohmann::ordered_json::array();
    for (const auto& option : report.installed) {
        auto row = JsonOf(static_cast<const PrinterReport::Named&>(option));
        row["choice"] = JsonOf(option.choice);
        json["installed"].push_back(std::move(row));
    }
    json["customSizes"] = JsonOf(report.ppd.customSizes());
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
    json["faults"] = JsonOf(report.remarks, true);
    json["notes"] = JsonOf(report.remarks, false);
    return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

} // namespace tarvo
