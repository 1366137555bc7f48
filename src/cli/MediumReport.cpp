#include "cli/MediumReport.h"

#include "cli/Messages.h"
#include "cli/StockJson.h"
#include "platform/text/Utf8.h"
#include "stocklibrary/PrinterMedia.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace tarvo {
namespace {

constexpr std::string_view NotAsWide = "no size has that width or that length";
constexpr std::string_view OneDimension = "the other dimension is missing";

// The members that a stock can be made of, as in PrinterMedia.cpp, how each is taken away, and why
// it can make no difference.
struct MemberRow {
    std::string_view name;
    void (*remove)(PrinterMedium& medium);
    std::string_view noDifference;
};

template <auto Place>
void Remove(PrinterMedium& medium)
{
    (medium.*Place).reset();
}

// clang-format off
constexpr MemberRow MemberRows[] = {
    {"media-key",              Remove<&PrinterMedium::key>,          "it is empty"},
    {"media-description",      Remove<&PrinterMedium::description>,  "it is empty"},
    {"media-info",             Remove<&PrinterMedium::info>,         "it is empty"},
    {"media-color",            Remove<&PrinterMedium::color>,        "a transparency is clear"},
    {"media-type",             Remove<&PrinterMedium::type>,         ""},
    {"media-pre-printed",      Remove<&PrinterMedium::prePrinted>,   "the type is known without it"},
    {"media-recycled",         Remove<&PrinterMedium::recycled>,     "the type is known without it"},
    {"media-order-count",      Remove<&PrinterMedium::orderCount>,   "only pre-cut tabs and ordered sheets are counted"},
    {"media-front-coating",    Remove<&PrinterMedium::frontCoating>, "uncoated counts only when both sides are"},
    {"media-back-coating",     Remove<&PrinterMedium::backCoating>,  "uncoated counts only when both sides are"},
    {"media-hole-count",       Remove<&PrinterMedium::holeCount>,    "only 0, 2, 3 and 4 holes are known"},
    {"media-weight-metric",    Remove<&PrinterMedium::weight>,       "0 is no weight"},
    {"media-size.x-dimension", Remove<&PrinterMedium::width>,        NotAsWide},
    {"media-size.y-dimension", Remove<&PrinterMedium::length>,       NotAsWide},
};
// clang-format on

const MemberRow* RowOf(std::string_view name)
{
    for (const MemberRow& row : MemberRows) {
        if (row.name == name) {
            return &row;
        }
    }
    return nullptr;
}

// What one stock has and the other has not, or has otherwise.
Stock Difference(const Stock& stock, const Stock& other)
{
    const CFDictionary tickets[] = {stock.asTicket(), other.asTicket()};
    CFDictionary difference;
    for (const auto& each : tickets[0]) {
        const auto* there = tickets[1].find(each.key);
        if (there == nullptr || *there != each.value) {
            difference.set(each.key, each.value);
        }
    }
    // Some values tell nothing without others.
    for (const auto& [key, needed] : {
             std::pair(StockModulusKey, StockTypeKey),
             {StockModulusKey,     StockCustomTypeKey },
             {StockCoatingTypeKey, StockSidesCoatedKey},
             {StockSidesCoatedKey, StockCoatingTypeKey},
             {StockCustomTypeKey,  StockTypeKey       },
    }) {
        if (const auto* value = tickets[0].find(needed);
            value != nullptr && difference.contains(key)) {
            difference.set(needed, *value);
        }
    }
    return Stock(difference);
}

std::string_view WhyNoDifference(const MemberRow& row, const PrinterMedium& medium)
{
    const bool isHalf = medium.width.has_value() != medium.length.has_value();
    return row.noDifference == NotAsWide && isHalf ? OneDimension : row.noDifference;
}

class MediumDescriber {
public:
    MediumDescriber(const CFBundle& bundle, const ReportedMedium& reported)
        : bundle_(bundle), reported_(reported), stock_(StockOfMedium(reported.medium))
    {
    }

    MediumReport describe()
    {
        StockLibrary entry;
        entry.setStock(stock_);
        entry.setName(stock_.customName());
        entry.validateStockEntry();
        MediumReport report = {DescribePaper(bundle_, "", entry), {}, reported_.furtherMembers};
        for (const auto& member : reported_.members) {
            report.members.push_back({member.name, member.value, {}, ""});
            describe(member, report.members.back());
        }
        return report;
    }

private:
    void describe(const ReportedMedium::Member& member, MediumReport::Member& told)
    {
        const MemberRow* row = RowOf(member.name);
        if (row == nullptr) {
            told.leftOut = "no attribute of a stock";
            return;
        }
        if (!member.isKept) {
            told.leftOut = isKept(member.name) ? "told already" : "of another kind than expected";
            return;
        }
        PrinterMedium without(reported_.medium);
        row->remove(without);
        const Stock difference = Difference(stock_, StockOfMedium(std::move(without)));
        told.became = StockLines(bundle_, difference);
        told.leftOut = told.became.empty() ? WhyNoDifference(*row, reported_.medium) : "";
    }

    bool isKept(std::string_view name) const
    {
        return std::any_of(
            reported_.members.begin(), reported_.members.end(),
            [name](const auto& member) { return member.isKept && member.name == name; });
    }

    const CFBundle& bundle_;
    const ReportedMedium& reported_;
    Stock stock_;
};

std::string Joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : ", ") + line;
    }
    return text;
}

std::string MemberText(const MediumReport::Member& member)
{
    constexpr std::size_t Column = 44; // of what became of it
    std::string text = "  " + WithoutControls(member.name + ": " + member.value);
    const std::size_t width = Utf8Length(text);
    text += width + 2 > Column ? '\n' + std::string(Column, ' ') : std::string(Column - width, ' ');
    text += member.leftOut.empty() ? WithoutControls(Joined(member.became))
                                   : "(left out: " + member.leftOut + ')';
    return text + '\n';
}

} // namespace

MediumReport DescribeMedium(const CFBundle& bundle, const ReportedMedium& reported)
{
    return MediumDescriber(bundle, reported).describe();
}

std::string MediumText(const MediumReport& medium)
{
    const PaperReport& paper = medium.paper;
    std::string text = WithoutControls(paper.name.empty() ? "(no name)" : paper.name);
    text += paper.mark.empty() ? "\n" : " (" + paper.mark + ")\n";
    for (const MediumReport::Member& member : medium.members) {
        text += MemberText(member);
    }
    if (medium.furtherMembers > 0) {
        text += "  and " + std::to_string(medium.furtherMembers) + " more\n";
    }
    return text;
}

std::string MediumJson(const MediumReport& medium)
{
    auto json = nlohmann::ordered_json{
        {"name",           medium.paper.name              },
        {"status",         medium.paper.status            },
        {"stock",          StockJson(medium.paper.stock)  },
        {"furtherMembers", medium.furtherMembers          },
        {"members",        nlohmann::ordered_json::array()}
    };
    for (const MediumReport::Member& member : medium.members) {
        json["members"].push_back({
            {"name",    member.name   },
            {"value",   member.value  },
            {"became",  member.became },
            {"leftOut", member.leftOut}
        });
    }
    std::string text = JsonText(json, -1);
    text.pop_back(); // the line's end
    return text;
}

} // namespace tarvo
