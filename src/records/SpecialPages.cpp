#include "records/SpecialPages.h"

#include "records/SpecialPageKeys.h"
#include "settings/TicketAccess.h"

#include <utility>

namespace tarvo {
namespace {

constexpr std::string_view ExtraKeys[] = {
    PageFullColorKey,
    PageAntialiasingKey,
    PageHalftoneScreenKey,
    PageOutputColorKey,
};

Stock StockFromTicket(const CFDictionary& ticket)
{
    const auto* stock = ticket.get<CFDictionary>(PageStockKey);
    return stock == nullptr ? Stock() : Stock(*stock);
}

} // namespace

SpecialPage::SpecialPage(const CFDictionary& ticket) : stock_(StockFromTicket(ticket))
{
    GetCFIndexFromCFDictionary(&ticket, StartPageKey, &startPage_);
}

SpecialPage& SpecialPage::operator=(const SpecialPage& other)
{
    startPage_ = other.startPage_;
    stock_.takeAsItIs(other.stock_);
    return *this;
}

SpecialPage& SpecialPage::operator=(SpecialPage&& other) noexcept
{
    startPage_ = other.startPage_;
    stock_.takeAsItIs(std::move(other.stock_));
    return *this;
}

CFDictionary SpecialPage::asTicket() const
{
    CFDictionary ticket;
    WriteTicketValue(ticket, StartPageKey, startPage_);
    ticket.set(PageStockKey, stock_.asTicket());
    return ticket;
}

Cover::Cover(const CFDictionary& ticket) : SpecialPage(ticket)
{
    GetCFIndexFromCFDictionary(&ticket, SidesImagedKey, &sidesImaged_);
}

CFDictionary Cover::asTicket() const
{
    CFDictionary ticket = SpecialPage::asTicket();
    WriteTicketValue(ticket, SidesImagedKey, sidesImaged_);
    return ticket;
}

std::unique_ptr<SpecialPage> Cover::clone() const
{
    return std::make_unique<Cover>(*this);
}

bool Cover::operator==(const Cover& other) const
{
    return sidesImaged_ == other.sidesImaged_ && stock() == other.stock();
}

Insert::Insert(const CFDictionary& ticket) : SpecialPage(ticket)
{
    GetCFIndexFromCFDictionary(&ticket, InsertQuantityKey, &quantity_);
}

CFDictionary Insert::asTicket() const
{
    CFDictionary ticket = SpecialPage::asTicket();
    WriteTicketValue(ticket, InsertQuantityKey, quantity_);
    return ticket;
}

std::unique_ptr<SpecialPage> Insert::clone() const
{
    return std::make_unique<Insert>(*this);
}

ExceptionPage::ExceptionPage(const CFDictionary& ticket) : SpecialPage(ticket)
{
    if (const auto* shift = ticket.get<CFDictionary>(PageImageShiftKey)) {
        ImageShiftSetOptionsFromTicket(imageShift_, *shift);
    }
    GetCFIndexFromCFDictionary(&ticket, EndPageKey, &endPage_);
    GetCFIndexFromCFDictionary(&ticket, SidesImagedKey, &plex_);
    GetCFIndexFromCFDictionary(&ticket, PageLightenDarkenKey, &lightenDarken_);
    for (const auto key : ExtraKeys) {
        if (const auto* value = ticket.find(key)) {
            extra_.set(key, *value);
        }
    }
}

void ExceptionPage::setOutputColor(std::int32_t outputColor)
{
    extra_.remove(PageOutputColorKey);
    WriteTicketValueIfSet(extra_, PageOutputColorKey, outputColor);
}

std::int32_t ExceptionPage::outputColor() const
{
    return extra_.int32(PageOutputColorKey).value_or(UnsetValue);
}

CFDictionary ExceptionPage::asTicket() const
{
    CFDictionary ticket = SpecialPage::asTicket();
    WriteTicketValue(ticket, EndPageKey, endPage_);
    if (imageShift_.isValid && imageShift_.twoSidedMode != UnsetValue) {
        ticket.set(PageImageShiftKey, ImageShiftCreateTicketFromOptions(imageShift_));
    }
    WriteTicketValueIfSet(ticket, SidesImagedKey, plex_);
    WriteTicketValueIfSet(ticket, PageLightenDarkenKey, lightenDarken_);
    for (const auto& [key, value] : extra_) {
        ticket.set(key, value);
    }
    return ticket;
}

std::unique_ptr<SpecialPage> ExceptionPage::clone() const
{
    return std::make_unique<ExceptionPage>(*this);
}

} // namespace tarvo
