#include "cli/JsonText.h"
#include "cli/Messages.h"
#include "cli/PrinterReport.h"
#include "platform/text/TextFormat.h"
#include "settings/NumberText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>

namespace tarvo {
namespace {

constexpr float PointsPerInch = 72;
constexpr float MillimetersPerInch = 25.4F;

std::int32_t TenthsOfMillimeter(float points)
{
    return static_cast<std::int32_t>(std::lround(points * MillimetersPerInch * 10 / PointsPerInch));
}

std::int32_t HundredthsOfInch(float points)
{
    return static_cast<std::int32_t>(std::lround(points * 100 / PointsPerInch));
}

std::string MillimeterText(float points)
{
    return CreateLocalizedCFStringFromNumberWithDecimals(TenthsOfMillimeter(points), 1);
}

std::string InchText(float points)
{
    return CreateLocalizedCFStringFromNumberWithDecimals(HundredthsOfInch(points), 2);
}

// "width 152.4 to 330.2 mm (6 to 13 in)"
std::string LimitText(const CFBundle& bundle, const char* key, float minimum, float maximum)
{
    return FilledFormat(
        bundle.localizedString(key),
        {MillimeterText(minimum), MillimeterText(maximum), InchText(minimum), InchText(maximum)});
}

void AddHeading(std::string& text, const CFBundle& bundle, const char* key)
{
    ((text += '\n') += bundle.localizedString(key)) += '\n';
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

void AddOptions(std::string& text, const PrinterReport& report, const CFBundle& bundle)
{
    AddHeading(text, bundle, "PrinterOptions");
    for (const auto& [group, options] : report.groups) {
        text += "  ";
        AddShown(text, TextOr(group.text, group.name));
        text += '\n';
        for (const PPDOption* option : options) {
            AddOption(text, *option);
        }
    }
}

void AddLines(std::string& text, const CFBundle& bundle, const char* key,
              const std::vector<std::string>& lines)
{
    AddHeading(text, bundle, key);
    for (const std::string& line : lines) {
        text += "  " + WithoutControls(line) + '\n';
    }
    if (lines.empty()) {
        text += "  " + bundle.localizedString("PrinterNone") + '\n';
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

nlohmann::ordered_json JsonOf(const PrinterReport::Group& group)
{
    auto options = nlohmann::ordered_json::array();
    for (const PPDOption* option : group.options) {
        options.push_back(JsonOf(*option));
    }
    auto row = JsonOf(group.group.name, group.group.text);
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

// @param unit  takes points
template <typename Unit>
nlohmann::ordered_json JsonOf(const PPDSizeLimits& limits, Unit unit)
{
    return {
        {"minimumWidth",  unit(limits.minimumWidth) },
        {"minimumLength", unit(limits.minimumLength)},
        {"maximumWidth",  unit(limits.maximumWidth) },
        {"maximumLength", unit(limits.maximumLength)}
    };
}

nlohmann::ordered_json JsonOf(const std::optional<PPDSizeLimits>& limits)
{
    if (!limits) {
        return nullptr;
    }
    auto json = JsonOf(*limits, [](float points) { return points; });
    json["unit"] = "point";
    json["millimeters"] =
        JsonOf(*limits, [](float points) { return TenthsOfMillimeter(points) / 10.0; });
    json["inches"] = JsonOf(*limits, [](float points) { return HundredthsOfInch(points) / 100.0; });
    return json;
}

} // namespace

std::string PrinterText(const PrinterReport& report, const CFBundle& bundle)
{
    const PPDFile& ppd = report.ppd;
    std::string text = WithoutControls(
        FilledFormat(bundle.localizedString("PrinterMadeBy"),
                     {TextOr(ppd.nickName(), bundle.localizedString("PrinterUnnamed")),
                      TextOr(ppd.manufacturer(), bundle.localizedString("PrinterUnknown"))}));
    text += '\n';
    AddOptions(text, report, bundle);
    std::vector<std::string> installed;
    for (const auto& option : report.installed) {
        installed.push_back(option.text + bundle.localizedString(":") + option.choice.text);
    }
    AddLines(text, bundle, "PrinterInstalled", installed);
    std::vector<std::string> sizes;
    if (const auto& limits = ppd.customSizes()) {
        sizes = {LimitText(bundle, "PrinterWidth", limits->minimumWidth, limits->maximumWidth),
                 LimitText(bundle, "PrinterLength", limits->minimumLength, limits->maximumLength)};
    }
    AddLines(text, bundle, "PrinterCustomSizes", sizes);
    AddLines(text, bundle, "PrinterConstraints", report.constraints);
    AddLines(text, bundle, "PrinterJobTypes", TextsOf(report.jobTypes));
    AddLines(text, bundle, "PrinterFinishing", TextsOf(report.finishing));
    return text;
}

std::string PrinterJson(const PrinterReport& report)
{
    nlohmann::ordered_json json = {
        {"name",  report.ppd.nickName()    },
        {"maker", report.ppd.manufacturer()}
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
    return JsonText(json);
}

} // namespace tarvo
