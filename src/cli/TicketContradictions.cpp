#include "cli/TicketCheck.h"
#include "records/BackgroundFormsKeys.h"
#include "records/FinishingSummary.h"
#include "records/FullColorKeys.h"
#include "records/JobTypeKeys.h"
#include "records/SpecialPageKeys.h"
#include "records/StockKeys.h"
#include "settings/JobMaps.h"
#include "settings/TicketKeys.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr std::int32_t SecurePrint = 6; // OptionalJobTypeMap, as the next
constexpr std::int32_t DelayedPrint = 7;
constexpr std::int32_t CoverPrintedOnBothSides = 4; // CoverSidesImagedMap
constexpr std::int32_t OffsetEachSubset = 4;        // OffsetMap, as the next
constexpr std::int32_t OffsetEachSetAndSubset = 5;

// A number that is there and set.
std::optional<std::int32_t> NumberOf(const CFDictionary& entries, std::string_view key)
{
    const auto number = entries.int32(key);
    return number == UnsetValue ? std::nullopt : number;
}

bool HasText(const CFDictionary& entries, std::string_view key)
{
    const auto* text = entries.get<std::string>(key);
    return text != nullptr && !text->empty();
}

bool IsTwoSided(std::optional<std::int32_t> sides)
{
    return sides == TwoSidedLongEdge || sides == TwoSidedShortEdge;
}

std::string Needs(std::optional<std::int32_t> number, std::string_view key)
{
    return "is " + std::to_string(number.value_or(0)) + " and needs " + std::string(key);
}

void CheckFinishing(const TicketPlace& ticket, Findings& findings)
{
    const FinishingChoice choice(ticket.entries());
    for (const auto key : MissingFinishingKeys(choice)) {
        findings.note(ticket.finding(FinishingOptionsKey, Needs(choice.option, key)));
    }
    for (const auto key : UnusedFinishingKeys(choice)) {
        findings.note(ticket.finding(
            key, "is " + std::to_string(*ticket.entries().int32(key)) +
                     " and does not count: " + std::string(FinishingOptionsKey) + " is " +
                     (choice.option == UnsetValue ? "unset" : std::to_string(choice.option))));
    }
}

void CheckOffset(const TicketPlace& ticket, Findings& findings)
{
    const auto offset = NumberOf(ticket.entries(), OffsetKey);
    const bool hasSubsets = NumberOf(ticket.entries(), OffsetEnableSubsetKey).value_or(0) != 0;
    if (hasSubsets && NumberOf(ticket.entries(), OffsetPagesPerSubsetKey).value_or(0) == 0) {
        findings.note(ticket.finding(OffsetEnableSubsetKey, Needs(1, OffsetPagesPerSubsetKey)));
    }
    if (hasSubsets && !offset) {
        findings.note(ticket.finding(OffsetEnableSubsetKey, Needs(1, OffsetKey)));
    }
    if (!hasSubsets && (offset == OffsetEachSubset || offset == OffsetEachSetAndSubset)) {
        findings.note(ticket.finding(OffsetKey, Needs(offset, OffsetEnableSubsetKey)));
    }
}

void CheckSides(const TicketPlace& ticket, Findings& findings)
{
    const auto sides = NumberOf(ticket.entries(), DuplexKey);
    const auto system = NumberOf(ticket.entries(), SystemDuplexKey);
    if (sides && system && sides != system) {
        findings.note(ticket.finding(SystemDuplexKey, "is " + std::to_string(*system) + ", but " +
                                                          std::string(DuplexKey) + " is " +
                                                          std::to_string(*sides)));
    }
    if (ticket.entries().isTrue(BookletLayoutKey) && sides && sides != TwoSidedShortEdge) {
        findings.note(ticket.finding(BookletLayoutKey, "needs " + std::string(DuplexKey) + " " +
                                                           std::to_string(TwoSidedShortEdge) +
                                                           ", which is " + std::to_string(*sides)));
    }
}

// The passcode itself is none of anybody's business.
void CheckJobType(const TicketPlace& ticket, Findings& findings)
{
    const auto job = ticket.inside(JobTypeKey);
    if (!job) {
        return;
    }
    const auto type = NumberOf(job->entries(), JobTypeNumberKey);
    if (!type && !job->entries().empty()) {
        findings.note(job->finding(JobTypeNumberKey, "is missing"));
    }
    if (type == SecurePrint && !HasText(job->entries(), SecurePrintPasswordKey)) {
        findings.note(job->finding(JobTypeNumberKey, Needs(type, SecurePrintPasswordKey)));
    }
    if (type == DelayedPrint && job->entries().get<CFDate>(DelayedPrintTimeKey) == nullptr) {
        findings.note(job->finding(JobTypeNumberKey, Needs(type, DelayedPrintTimeKey)));
    }
    const bool isSaved = type == static_cast<std::int32_t>(JobType::Save) ||
                         type == static_cast<std::int32_t>(JobType::SaveAndPrint);
    // A document has no word for taking the job's name: its ticket says neither.
    const auto* usesJobName = job->entries().get<bool>(UseJobNameKey);
    const bool hasOwnName = usesJobName != nullptr && !*usesJobName;
    if (isSaved && hasOwnName && !HasText(job->entries(), SavedJobNameKey)) {
        findings.note(job->finding(JobTypeNumberKey, Needs(type, SavedJobNameKey)));
    }
}

void CheckForms(const TicketPlace& ticket, Findings& findings)
{
    const auto forms = ticket.inside(BackgroundFormsOptionsKey);
    if (!forms) {
        return;
    }
    const auto use = NumberOf(forms->entries(), UseExistingFormKey);
    const bool merges = use == static_cast<std::int32_t>(FormUse::Merge);
    const bool hasForm = HasText(forms->entries(), MergeWithStringKey);
    if (merges && !hasForm) {
        findings.note(forms->finding(UseExistingFormKey, Needs(use, MergeWithStringKey)));
    }
    if (hasForm && !merges) {
        findings.note(forms->finding(
            MergeWithStringKey, "needs " + std::string(UseExistingFormKey) + " " +
                                    std::to_string(static_cast<std::int32_t>(FormUse::Merge))));
    }
}

void CheckColor(const std::optional<TicketPlace>& color, Findings& findings)
{
    for (const auto key : {FullColorTrappingFastKey, FullColorTrappingSlowKey}) {
        if (color && NumberOf(color->entries(), key) &&
            !color->entries().contains(FullColorTrappingKey)) {
            findings.note(color->finding(key, "needs " + std::string(FullColorTrappingKey)));
        }
    }
}

void CheckSize(const TicketPlace& stock, Findings& findings)
{
    const auto size = NumberOf(stock.entries(), StockSizeKey);
    for (const auto key : {StockWidthKey, StockLengthKey}) {
        const auto number = NumberOf(stock.entries(), key);
        if (size == CustomStockSize && number.value_or(0) <= 0) {
            findings.note(stock.finding(StockSizeKey, Needs(size, key)));
        }
        if (size != CustomStockSize && number) {
            findings.note(stock.finding(key, "needs " + std::string(StockSizeKey) + " " +
                                                 std::to_string(CustomStockSize)));
        }
    }
}

void CheckStock(const TicketPlace& stock, Findings& findings)
{
    const CFDictionary& entries = stock.entries();
    const auto type = NumberOf(entries, StockTypeKey);
    const auto color = NumberOf(entries, StockColorKey);
    CheckSize(stock, findings);
    if (color == CustomStockColor && !HasText(entries, StockCustomColorKey)) {
        findings.note(stock.finding(StockColorKey, Needs(color, StockCustomColorKey)));
    }
    if (type == TransparencyStockType && color && color != ClearStockColor) {
        findings.note(stock.finding(StockColorKey, "is " + std::to_string(*color) +
                                                       ", but a transparency is clear, " +
                                                       std::to_string(ClearStockColor)));
    }
    if (entries.isTrue(StockCustomNameOnlyKey) && !HasText(entries, StockCustomNameKey)) {
        findings.note(
            stock.finding(StockCustomNameOnlyKey, "needs " + std::string(StockCustomNameKey)));
    }
}

// The ticket's stocks, and whether transparencies among them are printed on both sides. What a page
// does not say, the job does.
class StockCheck {
public:
    StockCheck(const TicketPlace& ticket, Findings& findings)
        : ticket_(ticket), findings_(findings), sides_(NumberOf(ticket.entries(), DuplexKey))
    {
    }

    void checkJob()
    {
        if (const auto stock = ticket_.inside(JobLevelStockKey)) {
            type_ = NumberOf(stock->entries(), StockTypeKey);
            CheckStock(*stock, findings_);
            refuse(*stock, StockTypeKey, type_, IsTwoSided(sides_));
        }
    }

    void checkCover(std::string_view key)
    {
        if (const auto cover = ticket_.inside(key)) {
            const auto sides = cover->entries().int32(SidesImagedKey);
            refuse(*cover, SidesImagedKey, typeOf(*cover), sides == CoverPrintedOnBothSides);
        }
    }

    void checkInsert(const TicketPlace& insert) { typeOf(insert); }

    void checkException(const TicketPlace& page)
    {
        const auto own = NumberOf(page.entries(), SidesImagedKey);
        const auto type = typeOf(page);
        const bool isJobs = !own && type == type_; // told of the job already
        refuse(page, own ? SidesImagedKey : PageStockKey, type,
               !isJobs && IsTwoSided(own ? own : sides_));
        CheckColor(page.inside(PageFullColorKey), findings_);
    }

private:
    std::optional<std::int32_t> typeOf(const TicketPlace& page)
    {
        const auto stock = page.inside(PageStockKey);
        if (!stock) {
            return type_;
        }
        CheckStock(*stock, findings_);
        const auto type = NumberOf(stock->entries(), StockTypeKey);
        return type ? type : type_;
    }

    void refuse(const TicketPlace& place, std::string_view key, std::optional<std::int32_t> type,
                bool isTwoSided)
    {
        if (type == TransparencyStockType && isTwoSided) {
            findings_.note(place.finding(key, "prints a transparency on both sides"));
        }
    }

    const TicketPlace& ticket_;
    Findings& findings_;
    std::optional<std::int32_t> sides_;
    std::optional<std::int32_t> type_;
};

// An exception page's pages; those that cannot be used have none.
struct PageRange {
    const TicketPlace* page;
    std::int32_t first;
    std::int32_t last;
};

std::vector<PageRange> RangesOf(const std::vector<TicketPlace>& pages, Findings& findings)
{
    std::vector<PageRange> ranges;
    for (const TicketPlace& page : pages) {
        const std::int32_t first = page.entries().int32(StartPageKey).value_or(0);
        const std::int32_t last = page.entries().int32(EndPageKey).value_or(0);
        if (last < first) {
            findings.note(page.finding(EndPageKey, "is " + std::to_string(last) + ", before " +
                                                       std::string(StartPageKey) + " " +
                                                       std::to_string(first)));
        } else {
            ranges.push_back({&page, first, last});
        }
    }
    return ranges;
}

std::string OverlapOf(const PageRange& range, const PageRange& other)
{
    const std::int32_t last = std::min(range.last, other.last);
    const std::size_t line = other.page->lineOf(StartPageKey);
    return (range.first == last
                ? "covers page " + std::to_string(last)
                : "covers pages " + std::to_string(range.first) + " to " + std::to_string(last)) +
           (line == 0 ? ", as another exception does"
                      : ", as the exception of line " + std::to_string(line) + " does");
}

// One finding for each that another one reaches into.
void CheckOverlaps(std::vector<PageRange> ranges, Findings& findings)
{
    std::stable_sort(ranges.begin(), ranges.end(), [](const auto& range, const auto& other) {
        return range.first < other.first;
    });
    const PageRange* farthest = nullptr;
    for (const PageRange& range : ranges) {
        if (farthest != nullptr && range.first <= farthest->last) {
            findings.note(range.page->finding(StartPageKey, OverlapOf(range, *farthest)));
        }
        if (farthest == nullptr || range.last > farthest->last) {
            farthest = &range;
        }
    }
}

void CheckPages(const TicketPlace& ticket, Findings& findings)
{
    StockCheck stocks(ticket, findings);
    stocks.checkJob();
    stocks.checkCover(FrontCoverKey);
    stocks.checkCover(BackCoverKey);
    for (const TicketPlace& insert : ticket.listed(InsertListKey)) {
        stocks.checkInsert(insert);
    }
    const auto pages = ticket.listed(ExceptionListKey);
    for (const TicketPlace& page : pages) {
        stocks.checkException(page);
    }
    CheckOverlaps(RangesOf(pages, findings), findings);
}

} // namespace

void CheckTicketContradictions(const TicketPlace& ticket, Findings& findings)
{
    CheckJobType(ticket, findings);
    CheckFinishing(ticket, findings);
    CheckOffset(ticket, findings);
    CheckSides(ticket, findings);
    CheckForms(ticket, findings);
    CheckColor(ticket.inside(FullColorOptionsKey), findings);
    CheckPages(ticket, findings);
}

} // namespace tarvo
