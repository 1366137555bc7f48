#include "cli/TicketPages.h"

#include "cli/TicketSettings.h"
#include "cli/TicketWords.h"
#include "records/SpecialPageTexts.h"
#include "records/StockSummary.h"
#include "records/TicketSpecialPages.h"

#include <optional>
#include <utility>

namespace tarvo {
namespace {

using Pages = std::vector<TicketReport::SpecialPage>;

// @param details  what the panel's list has no room for
void AddSpecialPage(Pages& pages, SpecialPageTexts texts, const std::vector<std::string>& details)
{
    for (const std::string& detail : details) {
        texts.attributes += texts.attributes.empty() || detail.empty() ? "" : PartSeparator;
        texts.attributes += detail;
    }
    pages.push_back({std::move(texts.page), std::move(texts.type), std::move(texts.attributes)});
}

// "label:value", or "" where nothing is set.
std::string DetailText(const TicketSource& source, const TicketSettingRow& row, std::int32_t number)
{
    const std::string value = TextOfNumber(source, row, number);
    return value.empty() ? "" : source.text(row.labelKey) + source.text(":") + value;
}

// Null has none.
void AddDetails(std::vector<std::string>& details, const TicketSource& source,
                const CFDictionary* settings, const TicketSettingRow* row)
{
    for (; settings != nullptr && row->labelKey != nullptr; ++row) {
        const CFPropertyList* value = settings->find(row->key);
        const std::string text = value == nullptr ? "" : TextOfValue(source, *row, *value);
        details.push_back(text.empty() ? "" : source.text(row->labelKey) + source.text(":") + text);
    }
}

void AddCover(Pages& pages, const TicketSource& source, const std::optional<Cover>& cover,
              CoverPlace place)
{
    if (cover) {
        AddSpecialPage(pages, CoverTexts(source.bundle, *cover, place),
                       {StockSurfaceText(source.bundle, cover->stock())});
    }
}

void AddInsert(Pages& pages, const TicketSource& source, const Insert& insert)
{
    AddSpecialPage(pages, InsertTexts(source.bundle, insert),
                   {StockSurfaceText(source.bundle, insert.stock())});
}

void AddException(Pages& pages, const TicketSource& source, const ExceptionPage& page)
{
    std::vector<std::string> details;
    if (page.imageShift().twoSidedMode != UnsetValue) {
        const auto sides = SideShifts(source, page.imageShift());
        details.assign(sides.begin(), sides.end());
    }
    details.push_back(StockSurfaceText(source.bundle, page.stock()));
    details.push_back(DetailText(source, PageLightenDarkenRow, page.lightenDarken()));
    const CFDictionary& color = page.colorEntries();
    AddDetails(details, source, &color, PageColorRows);
    AddDetails(details, source, color.get<CFDictionary>(PageFullColorKey), FullColorRows);
    AddSpecialPage(pages, ExceptionPageTexts(source.bundle, page), details);
}

} // namespace

Pages DescribeSpecialPages(const TicketSource& source, const TicketSpecialPages& special)
{
    Pages pages;
    AddCover(pages, source, special.frontCover, CoverPlace::Front);
    AddCover(pages, source, special.backCover, CoverPlace::Back);
    for (std::int32_t index = 0; index < special.inserts.count(); ++index) {
        AddInsert(pages, source, *special.inserts.pageAtIndex(index));
    }
    for (std::int32_t index = 0; index < special.exceptions.count(); ++index) {
        AddException(pages, source, *special.exceptions.pageAtIndex(index));
    }
    return pages;
}

} // namespace tarvo
