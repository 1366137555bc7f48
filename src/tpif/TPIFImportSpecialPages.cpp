#include "tpif/TPIFImportSpecialPages.h"

#include "records/SpecialPageKeys.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFImportJob.h"

namespace tarvo {
namespace {

// Sides of a cover that are printed on.
constexpr std::int32_t PrintNone = 1;
constexpr std::int32_t PrintFront = 2;
constexpr std::int32_t PrintBack = 3;

constexpr const char* NoCover = "its cover is left out";
constexpr const char* NoPage = "its exception page is left out";

std::string EntryKeys(std::string_view list, const CFArray& entries)
{
    return std::string(list) + "[" + std::to_string(entries.size()) + "]/";
}

} // namespace

TPIFSpecialPagesImport::TPIFSpecialPagesImport(const TPIFImportFeatures& features)
    : features_(features),
      stock_(features),
      oneToOne_(features),
      fullColor_(features),
      coverType_(features.named("CoverType")),
      inserts_(features.named("Inserts")),
      exceptions_(features.named("Exceptions")),
      imageShift_(features.named("ImageShift"))
{
}

// Missing, nothing is printed; a type that is no use is no cover.
std::optional<std::int32_t> TPIFSpecialPagesImport::coverType(const TPIFImportGroup& group) const
{
    return coverType_.node(group) == nullptr ? PrintNone : coverType_.number(group);
}

CFDictionary TPIFSpecialPagesImport::cover(const TPIFImportGroup& group, std::int32_t sides,
                                           const TPIFImportNode* type) const
{
    CFDictionary cover;
    TPIFImportTarget target(cover, group);
    cover.set(StartPageKey, 0);
    target.set(SidesImagedKey, sides, {type});
    cover.set(PageStockKey, stock_.read(group, PageStockKey));
    return cover;
}

void TPIFSpecialPagesImport::addFrontCover(const TPIFImportGroup& group)
{
    if (const auto sides = coverType(group)) {
        front_ = cover(group, *sides, coverType_.node(group));
    } else {
        group.tellRest(NoCover);
    }
}

void TPIFSpecialPagesImport::addBackCover(const TPIFImportGroup& group)
{
    const auto sides = coverType(group);
    if (!sides) {
        group.tellRest(NoCover);
        return;
    }
    const TPIFImportNode* type = coverType_.node(group);
    isBackPrintedOnBack_ = *sides == PrintBack;
    if (isBackPrintedOnBack_) { // the front cover, which may follow, decides
        backType_ = *type;
        type->isTold = true;
        type = nullptr;
    }
    back_ = cover(group, *sides, type);
}

// Documents have one word for a back cover's 2 and 3. Covers of one kind have 3.
std::int32_t TPIFSpecialPagesImport::backSides() const
{
    return front_ && front_->int32(SidesImagedKey) == PrintBack ? PrintBack : PrintFront;
}

// A page number: 1 when it is missing, nullopt when it is no use.
std::optional<std::int32_t> TPIFSpecialPagesImport::boundary(const TPIFFeatureReader& feature,
                                                             const TPIFImportGroup& group,
                                                             std::size_t slot) const
{
    const TPIFImportNode* node = group.node(slot);
    if (node == nullptr) {
        return 1;
    }
    const auto value = feature.valueOf(group, node);
    return value ? std::optional(value->number) : std::nullopt;
}

void TPIFSpecialPagesImport::addInsert(const TPIFImportGroup& group)
{
    ++count_;
    const auto page = boundary(inserts_, group, features_.insertAfterSlot);
    if (!page) {
        group.tellRest("its insert is left out");
        return;
    }
    CFDictionary insert;
    insert.reserve(3);
    TPIFImportTarget target(insert, group);
    target.set(StartPageKey, *page, {group.node(features_.insertAfterSlot)});
    const TPIFImportNode* countNode = group.node(features_.insertCountSlot);
    const auto count = inserts_.valueOf(group, countNode);
    target.set(InsertQuantityKey, count ? count->number : 1, {count ? countNode : nullptr});
    insert.set(PageStockKey, stock_.read(group, PageStockKey));
    insertList_.emplace_back(std::move(insert));
}

void TPIFSpecialPagesImport::addPage(const TPIFImportGroup& group)
{
    ++count_;
    const TPIFImportNode* lowerNode = group.node(features_.lowerBoundSlot);
    const TPIFImportNode* upperNode = group.node(features_.upperBoundSlot);
    const auto first = boundary(exceptions_, group, features_.lowerBoundSlot);
    const auto last = boundary(exceptions_, group, features_.upperBoundSlot);
    if (!first || !last) {
        group.tellRest(NoPage);
        return;
    }
    if (*last < *first) {
        for (const TPIFImportNode* node : {lowerNode, upperNode}) {
            if (node != nullptr) {
                group.tell(TPIFImportOutcome::Refused, *node, "the range ends before it begins");
            }
        }
        group.tellRest(NoPage);
        return;
    }
    CFDictionary page;
    page.reserve(4);
    TPIFImportTarget target(page, group);
    target.set(StartPageKey, *first, {lowerNode});
    target.set(EndPageKey, *last, {upperNode});
    page.set(PageStockKey, stock_.read(group, PageStockKey));
    oneToOne_.readPage(group, page);
    ImportImageShift(imageShift_, group, page, PageImageShiftKey);
    if (CFDictionary color = fullColor_.read(group, PageFullColorKey); !color.empty()) {
        page.set(PageFullColorKey, std::move(color));
    }
    exceptionList_.emplace_back(std::move(page));
}

std::string TPIFSpecialPagesImport::nextInsertKeys() const
{
    return EntryKeys(InsertListKey, insertList_);
}

std::string TPIFSpecialPagesImport::nextPageKeys() const
{
    return EntryKeys(ExceptionListKey, exceptionList_);
}

void TPIFSpecialPagesImport::store(const TPIFImportGroup& group, CFDictionary& result) &&
{
    if (back_) {
        if (isBackPrintedOnBack_) {
            const std::string key = std::string(BackCoverKey).append("/").append(SidesImagedKey);
            group.tellTaken(*backType_, key, backSides());
            back_->set(SidesImagedKey, backSides());
        }
        result.set(BackCoverKey, std::move(*back_));
    }
    if (front_) {
        result.set(FrontCoverKey, std::move(*front_));
    }
    if (!insertList_.empty()) {
        result.set(InsertListKey, std::move(insertList_));
    }
    if (!exceptionList_.empty()) {
        result.set(ExceptionListKey, std::move(exceptionList_));
    }
}

} // namespace tarvo
