#include "records/Stock.h"

#include "platform/text/CaseFolding.h"
#include "settings/TicketAccess.h"

#include <memory>
#include <string_view>

namespace tarvo {
namespace {

void ReadString(const CFDictionary& ticket, std::string_view key, std::string& value)
{
    if (const auto* text = ticket.get<std::string>(key)) {
        value = *text;
    }
}

void WriteString(CFDictionary& ticket, std::string_view key, const std::string& value)
{
    if (!value.empty()) {
        ticket.set(key, value);
    }
}

} // namespace

Stock::Stock(const CFDictionary& ticket)
{
    GetCFIndexFromCFDictionary(&ticket, StockSizeKey, &size_);
    if (size_ == CustomStockSize) {
        GetCFIndexFromCFDictionary(&ticket, StockWidthKey, &width_);
        GetCFIndexFromCFDictionary(&ticket, StockLengthKey, &length_);
    }
    GetCFIndexFromCFDictionary(&ticket, StockTypeKey, &type_);
    ReadString(ticket, StockCustomTypeKey, customType_);
    if (type_ == PrecutTabStockType || type_ == OrderedStockType) {
        GetCFIndexFromCFDictionary(&ticket, StockModulusKey, &modulus_);
    }
    GetCFIndexFromCFDictionary(&ticket, StockColorKey, &color_);
    ReadString(ticket, StockCustomColorKey, customColor_);
    GetCFIndexFromCFDictionary(&ticket, StockWeightKey, &weight_);
    GetCFIndexFromCFDictionary(&ticket, StockPunchedKey, &punched_);
    ReadString(ticket, StockDescriptionKey, description_);
    if (GetCFIndexFromCFDictionary(&ticket, StockSidesCoatedKey, &sidesCoated_)) {
        GetCFIndexFromCFDictionary(&ticket, StockCoatingTypeKey, &coatingType_);
    }
    GetCFIndexFromCFDictionary(&ticket, StockFinishKey, &finish_);
    GetCFIndexFromCFDictionary(&ticket, StockGrainKey, &grain_);
    ReadString(ticket, StockCustomNameKey, customName_);
    customNameOnly_ = ticket.isTrue(StockCustomNameOnlyKey);
    ReadString(ticket, StockCommentKey, comment_);
}

Stock& Stock::operator=(const Stock& other)
{
    if (this == &other) {
        return *this;
    }
    setSize(other.size_);
    setWidth(other.width_);
    setLength(other.length_);
    setColor(other.color_);
    setCustomColor(other.customColor_);
    setType(other.type_); // after the colour, which a transparency decides
    setCustomType(other.customType_);
    setModulus(other.modulus_);
    setWeight(other.weight_);
    setPunched(other.punched_);
    setDescription(other.description_);
    setSidesCoated(other.sidesCoated_);
    setCoatingType(other.coatingType_);
    setFinish(other.finish_);
    setGrain(other.grain_);
    setCustomName(other.customName_);
    setCustomNameOnly(other.customNameOnly_);
    setComment(other.comment_);
    return *this;
}

void Stock::takeAsItIs(Stock other) noexcept
{
    std::destroy_at(this);
    std::construct_at(this, std::move(other));
}

void Stock::setSize(std::int32_t size)
{
    size_ = size;
    if (size != CustomStockSize) {
        width_ = UnsetValue;
        length_ = UnsetValue;
    }
}

void Stock::setWidth(std::int32_t width)
{
    width_ = width;
    if (width != UnsetValue) {
        size_ = CustomStockSize;
    }
}

void Stock::setLength(std::int32_t length)
{
    length_ = length;
    if (length != UnsetValue) {
        size_ = CustomStockSize;
    }
}

void Stock::setType(std::int32_t type)
{
    type_ = type;
    if (type == TransparencyStockType) {
        color_ = ClearStockColor;
    }
}

CFDictionary Stock::asTicket() const
{
    CFDictionary ticket;
    WriteTicketValueIfSet(ticket, StockSizeKey, size_);
    if (size_ == CustomStockSize) {
        WriteTicketValue(ticket, StockWidthKey, width_);
        WriteTicketValue(ticket, StockLengthKey, length_);
    }
    WriteTicketValueIfSet(ticket, StockTypeKey, type_);
    WriteString(ticket, StockCustomTypeKey, customType_);
    WriteTicketValueIfSet(ticket, StockModulusKey, modulus_);
    WriteTicketValueIfSet(ticket, StockColorKey, color_);
    WriteString(ticket, StockCustomColorKey, customColor_);
    WriteTicketValueIfSet(ticket, StockWeightKey, weight_);
    WriteTicketValueIfSet(ticket, StockPunchedKey, punched_);
    WriteString(ticket, StockDescriptionKey, description_);
    if (sidesCoated_ != UnsetValue) {
        WriteTicketValue(ticket, StockSidesCoatedKey, sidesCoated_);
        WriteTicketValue(ticket, StockCoatingTypeKey, coatingType_);
    }
    WriteTicketValueIfSet(ticket, StockFinishKey, finish_);
    WriteTicketValueIfSet(ticket, StockGrainKey, grain_);
    WriteString(ticket, StockCustomNameKey, customName_);
    if (customNameOnly_) {
        ticket.set(StockCustomNameOnlyKey, true);
    }
    WriteString(ticket, StockCommentKey, comment_);
    return ticket;
}

bool Stock::operator==(const Stock& other) const
{
    return hasNumbersOf(other) && hasTextsOf(other);
}

bool Stock::hasNumbersOf(const Stock& other) const
{
    return size_ == other.size_ && width_ == other.width_ && length_ == other.length_ &&
           type_ == other.type_ && color_ == other.color_ && modulus_ == other.modulus_ &&
           punched_ == other.punched_ && weight_ == other.weight_ &&
           sidesCoated_ == other.sidesCoated_ && coatingType_ == other.coatingType_ &&
           finish_ == other.finish_ && grain_ == other.grain_ &&
           customNameOnly_ == other.customNameOnly_;
}

bool Stock::hasTextsOf(const Stock& other) const
{
    return EqualIgnoringCase(customColor_, other.customColor_) &&
           EqualIgnoringCase(customType_, other.customType_) &&
           EqualIgnoringCase(description_, other.description_) &&
           EqualIgnoringCase(customName_, other.customName_) &&
           EqualIgnoringCase(comment_, other.comment_);
}

void DefaultStock(Stock& stock, JobContext context)
{
    stock.setSize(UnsetValue);
    stock.setColor(UnsetValue);
    stock.setType(UnsetValue);
    stock.setWeight(UnsetValue);
    stock.setModulus(UnsetValue);
    stock.setPunched(context == JobContext::Job ? NotPunchedStock : UnsetValue);
    stock.setCustomType("");
    stock.setCustomColor("");
    stock.setDescription("");
    stock.setCustomName("");
    stock.setCustomNameOnly(false);
}

} // namespace tarvo
