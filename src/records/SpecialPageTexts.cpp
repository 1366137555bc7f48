#include "records/SpecialPageTexts.h"

#include "platform/bundle/CFBundle.h"
#include "records/SpecialPages.h"
#include "records/StockSummary.h"
#include "settings/JobMaps.h"
#include "settings/SpecialPageMaps.h"

#include <initializer_list>

namespace tarvo {
namespace {

constexpr std::string_view StockLineSeparator = ", ";

const std::string& TextForValue(const CFBundle& bundle, const SettingMap* map, std::int32_t value)
{
    return bundle.localizedString(LocalizedKeyForTicketValue(map, value));
}

// Empty parts leave no separator behind.
std::string Joined(std::initializer_list<std::string_view> parts)
{
    std::string joined;
    for (const auto part : parts) {
        joined += joined.empty() || part.empty() ? "" : PartSeparator;
        joined += part;
    }
    return joined;
}

} // namespace

std::string CoverDescription(const CFBundle& bundle, const Cover& cover)
{
    return Joined({
        TextForValue(bundle, CoverSidesImagedMap, cover.sidesImaged()),
        GenerateStockSummary(bundle, JobContext::Cover, cover.stock(), StockLineSeparator),
    });
}

std::string InsertDescription(const CFBundle& bundle, const Insert& insert)
{
    return Joined({
        bundle.localizedString("InsertSummaryQuantity") + ' ' + std::to_string(insert.quantity()),
        GenerateStockSummary(bundle, JobContext::Insert, insert.stock(), StockLineSeparator),
    });
}

std::string ExceptionPageDescription(const CFBundle& bundle, const ExceptionPage& page)
{
    return Joined({
        page.plex() == UnsetValue ? "" : TextForValue(bundle, PlexMap, page.plex()),
        GenerateStockSummary(bundle, JobContext::ExceptionPage, page.stock(), StockLineSeparator),
        ImageShiftDescription(bundle, page.imageShift()),
    });
}

std::string PageRangeText(const ExceptionPage& page)
{
    const std::string first = std::to_string(page.startPage());
    return page.startPage() == page.endPage() ? first
                                              : first + '-' + std::to_string(page.endPage());
}

SpecialPageTexts CoverTexts(const CFBundle& bundle, const Cover& cover, CoverPlace place)
{
    const char* pageKey =
        place == CoverPlace::Front ? "SpecialPageSummaryFront" : "SpecialPageSummaryBack";
    return {bundle.localizedString(pageKey), bundle.localizedString("SpecialPageSummaryCover"),
            CoverDescription(bundle, cover)};
}

SpecialPageTexts InsertTexts(const CFBundle& bundle, const Insert& insert)
{
    return {insert.startPage() == 0 ? bundle.localizedString("SpecialPageSummaryBefore1")
                                    : std::to_string(insert.startPage()),
            bundle.localizedString("SpecialPageSummaryInsert"), InsertDescription(bundle, insert)};
}

SpecialPageTexts ExceptionPageTexts(const CFBundle& bundle, const ExceptionPage& page)
{
    return {PageRangeText(page), bundle.localizedString("SpecialPageSummaryException"),
            ExceptionPageDescription(bundle, page)};
}

OSStatus TextOfColumn(const SpecialPageTexts& texts, std::uint32_t column, std::string* text)
{
    if (text == nullptr) {
        return StatusBadArgument;
    }
    switch (column) {
    case SpecialPageColumn:
        *text = texts.page;
        return StatusOk;
    case SpecialPageTypeColumn:
        *text = texts.type;
        return StatusOk;
    case SpecialPageAttributesColumn:
        *text = texts.attributes;
        return StatusOk;
    default:
        return StatusNoSuchColumn;
    }
}

} // namespace tarvo
