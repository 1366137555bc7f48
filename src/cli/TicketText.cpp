#include "cli/JsonText.h"
#include "cli/Messages.h"
#include "cli/TicketReport.h"
#include "platform/bundle/CFBundle.h"
#include "platform/text/Utf8.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tarvo {
namespace {

using Json = nlohmann::ordered_json;

// A text of several lines, each but the first at the column where the first began.
std::string Indented(std::string_view text, std::size_t column)
{
    std::string indented;
    for (const char character : text) {
        indented += character;
        if (character == '\n') {
            indented.append(column, ' ');
        }
    }
    return indented;
}

// Lines stay, every other control character goes.
std::string SafeLines(std::string_view text)
{
    std::string safe;
    for (std::size_t start = 0;;) {
        const std::size_t end = text.find('\n', start);
        safe += WithoutControls(text.substr(start, end - start));
        if (end == std::string_view::npos) {
            return safe;
        }
        safe += '\n';
        start = end + 1;
    }
}

// A finishing without one of its parts has an empty line for it.
std::string WithoutEmptyLines(std::string text)
{
    text.erase(std::unique(text.begin(), text.end(),
                           [](char one, char next) { return one == '\n' && next == '\n'; }),
               text.end());
    return text.starts_with('\n') ? text.substr(1) : text;
}

void AddSection(std::string& text, const TicketReport::Section& section, const std::string& colon)
{
    constexpr std::size_t Column = 4;
    text += section.title + '\n';
    for (const auto& setting : section.settings) {
        const bool isList = setting.text.find('\n') != std::string::npos;
        text += "  " + setting.label + colon;
        if (isList) {
            text.resize(text.find_last_not_of(' ') + 1);
            text += '\n' + std::string(Column, ' ');
        }
        text += Indented(WithoutEmptyLines(SafeLines(setting.text)), Column) + '\n';
    }
}

std::string Padded(const std::string& text, std::size_t width)
{
    return text + std::string(width - Utf8Length(text) + 2, ' ');
}

// The columns of the panel's list.
void AddSpecialPages(std::string& text, const TicketReport& report, const CFBundle& bundle)
{
    std::size_t pages = 0;
    std::size_t types = 0;
    for (const auto& page : report.specialPages) {
        pages = std::max(pages, Utf8Length(page.pages));
        types = std::max(types, Utf8Length(page.type));
    }
    text += bundle.localizedString("SpecialPagesTitle") + '\n';
    for (const auto& page : report.specialPages) {
        text += "  " + Padded(page.pages, pages) + Padded(page.type, types) +
                WithoutControls(page.attributes);
        text.resize(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
}

void AddPlan(std::string& text, const TicketReport::Plan& plan, const CFBundle& bundle)
{
    text += bundle.localizedString("PlanTitle") + '\n';
    for (const auto& sheets : plan.sheets) {
        text += "  " + WithoutControls(sheets.text) + '\n';
    }
    for (const std::string& note : plan.notes) {
        text += "  " + note + '\n';
    }
}

Json JsonOf(const CFPropertyList& value);

Json JsonOf(bool value)
{
    return value;
}

Json JsonOf(std::int64_t value)
{
    return value;
}

Json JsonOf(double value)
{
    return value;
}

Json JsonOf(const std::string& value)
{
    return value;
}

// No setting is one.
Json JsonOf(const CFData& /*value*/)
{
    return nullptr;
}

// Seconds since 1970.
Json JsonOf(const CFDate& value)
{
    return value.secondsSinceEpoch;
}

Json JsonOf(const CFArray& array)
{
    Json json = Json::array();
    for (const CFPropertyList& value : array) {
        json.push_back(JsonOf(value));
    }
    return json;
}

// Appended without a look whether the key is there: it is not, and a look walks all before it.
Json JsonOf(const CFDictionary& dictionary)
{
    Json::object_t members;
    members.reserve(dictionary.size());
    for (const auto& [key, value] : dictionary) {
        members.emplace_back(key, JsonOf(value));
    }
    return members;
}

Json JsonOf(const CFPropertyList& value)
{
    return value.visit([](const auto& own) { return JsonOf(own); });
}

Json JsonOf(const TicketReport::Section& section)
{
    Json settings = Json::array();
    for (const auto& setting : section.settings) {
        settings.push_back({
            {"key",   setting.key          },
            {"entry", setting.entry        },
            {"label", setting.label        },
            {"text",  setting.text         },
            {"value", JsonOf(setting.value)},
        });
    }
    return {
        {"name",     section.name       },
        {"title",    section.title      },
        {"settings", std::move(settings)},
    };
}

// What a report calls the kind of sheet in every language.
const char* NameOf(SheetKind kind)
{
    switch (kind) {
    case SheetKind::FrontCover:
        return "front-cover";
    case SheetKind::Inserts:
        return "inserts";
    case SheetKind::BackCover:
        return "back-cover";
    case SheetKind::BookletCover:
        return "booklet-cover";
    case SheetKind::Pages:
        break;
    }
    return "pages";
}

Json JsonOf(const TicketReport::Plan& plan)
{
    Json rows = Json::array();
    for (const auto& sheets : plan.sheets) {
        Json row = {
            {"kind",       NameOf(sheets.kind)},
            {"firstSheet", sheets.firstSheet  },
            {"lastSheet",  sheets.lastSheet   },
        };
        if (sheets.kind == SheetKind::Pages) {
            row["firstPage"] = sheets.firstPage;
            row["lastPage"] = sheets.lastPage;
        } else if (sheets.kind == SheetKind::Inserts) {
            row["afterPage"] = sheets.firstPage;
        }
        row["stock"] = sheets.stock;
        row["sides"] = sheets.sides;
        row["text"] = sheets.text;
        rows.push_back(std::move(row));
    }
    return {
        {"sheetCount", plan.sheetCount},
        {"sheets",     std::move(rows)},
        {"notes",      plan.notes     },
    };
}

} // namespace

std::string TicketText(const TicketReport& report, const CFBundle& bundle)
{
    std::string text;
    for (const auto& section : report.sections) {
        AddSection(text, section, bundle.localizedString(":"));
    }
    if (!report.specialPages.empty()) {
        AddSpecialPages(text, report, bundle);
    }
    if (report.plan) {
        AddPlan(text, *report.plan, bundle);
    }
    return text.empty() ? bundle.localizedString("ShowNothing") + '\n' : text;
}

std::string TicketJson(const TicketReport& report)
{
    Json json;
    json["sections"] = Json::array();
    for (const auto& section : report.sections) {
        json["sections"].push_back(JsonOf(section));
    }
    json["specialPages"] = Json::array();
    for (const auto& page : report.specialPages) {
        json["specialPages"].push_back({
            {"type",       page.type      },
            {"pages",      page.pages     },
            {"attributes", page.attributes},
        });
    }
    if (report.plan) {
        json["plan"] = JsonOf(*report.plan);
    }
    return JsonText(json);
}

} // namespace tarvo
