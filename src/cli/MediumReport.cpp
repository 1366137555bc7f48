#include "cli/MediumReport.h"

#include "cli/JsonText.h"
#include "cli/Messages.h"
#include "cli/StockJson.h"
#include "platform/bundle/CFBundle.h"
#include "platform/text/TextFormat.h"
#include "platform/text/Utf8.h"
#include "stocklibrary/PrinterMedia.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string_view>
#include <utility>

namespace tarvo {
namespace {

// The members that a stock can be made of, by the names of TextMembers, NumberMembers and
// SizeMembers in PrinterMedia.cpp, how each is taken away, and why it can make no difference.
struct MemberRow {
    std::string_view name;
    void (*remove)(PrinterMedium& medium);
    const char* noDifferenceKey; // null for a member that always makes one
};

template <auto Place>
void Remove(PrinterMedium& medium)
{
    (medium.*Place).reset();
}

constexpr MemberRow MemberRows[] = {
    {"media-key",              Remove<&PrinterMedium::key>,          "MediumEmpty"       },
    {"media-description",      Remove<&PrinterMedium::description>,  "MediumEmpty"       },
    {"media-info",             Remove<&PrinterMedium::info>,         "MediumEmpty"       },
    {"media-color",            Remove<&PrinterMedium::color>,        "MediumTransparency"},
    {"media-type",             Remove<&PrinterMedium::type>,         nullptr             },
    {"media-pre-printed",      Remove<&PrinterMedium::prePrinted>,   "MediumTypeKnown"   },
    {"media-recycled",         Remove<&PrinterMedium::recycled>,     "MediumTypeKnown"   },
    {"media-order-count",      Remove<&PrinterMedium::orderCount>,   "MediumNotCounted"  },
    {"media-front-coating",    Remove<&PrinterMedium::frontCoating>, "MediumUncoated"    },
    {"media-back-coating",     Remove<&PrinterMedium::backCoating>,  "MediumUncoated"    },
    {"media-hole-count",       Remove<&PrinterMedium::holeCount>,    "MediumHoles"       },
    {"media-weight-metric",    Remove<&PrinterMedium::weight>,       "MediumNoWeight"    },
    {"media-size.x-dimension", Remove<&PrinterMedium::width>,        "MediumNotAsWide"   },
    {"media-size.y-dimension", Remove<&PrinterMedium::length>,       "MediumNotAsWide"   },
};

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

bool IsHalfASize(const MemberRow& row, const PrinterMedium& medium)
{
    return row.name.starts_with("media-size.") &&
           medium.width.has_value() != medium.length.has_value();
}

const char* WhyNoDifferenceKey(const MemberRow& row, const PrinterMedium& medium)
{
    return IsHalfASize(row, medium) ? "MediumOneDimension" : row.noDifferenceKey;
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
            told.leftOut = bundle_.localizedString("MediumNoAttribute");
            return;
        }
        if (!member.isKept) {
            told.leftOut = bundle_.localizedString(isKept(member.name) ? "MediumToldAlready"
                                                                       : "MediumOtherKind");
            return;
        }
        PrinterMedium without(reported_.medium);
        row->remove(without);
        const Stock difference = Difference(stock_, StockOfMedium(std::move(without)));
        told.became = StockLines(bundle_, difference);
        const char* whyKey = WhyNoDifferenceKey(*row, reported_.medium);
        if (told.became.empty() && whyKey != nullptr) {
            told.leftOut = bundle_.localizedString(whyKey);
        }
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

std::string MemberText(const CFBundle& bundle, const MediumReport::Member& member)
{
    constexpr std::size_t Column = 44; // of what became of it
    std::string text = "  " + WithoutControls(member.name + ": " + member.value);
    const std::size_t width = Utf8Length(text);
    text += width + 2 > Column ? '\n' + std::string(Column, ' ') : std::string(Column - width, ' ');
    text += member.leftOut.empty()
                ? WithoutControls(Joined(member.became))
                : FilledFormat(bundle.localizedString("MediumLeftOut"), member.leftOut);
    return text + '\n';
}

} // namespace

MediumReport DescribeMedium(const CFBundle& bundle, const ReportedMedium& reported)
{
    return MediumDescriber(bundle, reported).describe();
}

std::string MediumText(const CFBundle& bundle, const MediumReport& medium)
{
    std::string text = PaperTitle(bundle, medium.paper);
    for (const MediumReport::Member& member : medium.members) {
        text += MemberText(bundle, member);
    }
    if (medium.furtherMembers > 0) {
        const std::string count = std::to_string(medium.furtherMembers);
        text += "  " + FilledFormat(bundle.localizedString("MediumMore"), count) + '\n';
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
