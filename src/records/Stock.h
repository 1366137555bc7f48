#pragma once

#include "platform/cf/CFPropertyList.h"
#include "records/StockKeys.h"
#include "settings/JobContext.h"

#include <cstdint>
#include <string>
#include <utility>

namespace tarvo {

/// The paper of a job, a cover, an insert, an exception page or an entry of a stock library.
/// Numbers are ticket values of the tables in settings/StockMaps.h; UnsetValue leaves one to the
/// printer or, for a page, to the job.
class Stock {
public:
    Stock() = default;
    /// Rebuilds a stock from its ticket, exactly as it stands there: the rules of the setters are
    /// not applied. A key absent or of another type keeps the default. A width and a length are
    /// read for a custom size only, a modulus for pre-cut tabs and ordered stock only, a coating
    /// only beside the sides that are coated.
    explicit Stock(const CFDictionary& ticket);

    /// Copying and moving take everything as it is.
    Stock(const Stock&) = default;
    Stock(Stock&&) noexcept = default;
    /// Assigning, a temporary as well, passes every value through its setter, so a blue
    /// transparency that was read from a ticket becomes a clear one here.
    Stock& operator=(const Stock& other);
    /// Assigns without the setters, for what holds a stock and is assigned as a whole.
    void takeAsItIs(Stock other) noexcept;
    ~Stock() = default;

    /// Any other size than the custom one clears width and length.
    void setSize(std::int32_t size);
    std::int32_t size() const { return size_; }
    /// In 1/100 mm; one that is set makes the size the custom one.
    void setWidth(std::int32_t width);
    std::int32_t width() const { return width_; }
    /// In 1/100 mm, in the feed direction; one that is set makes the size the custom one.
    void setLength(std::int32_t length);
    std::int32_t length() const { return length_; }

    /// A transparency is always clear, so choosing it chooses that colour.
    void setType(std::int32_t type);
    std::int32_t type() const { return type_; }
    /// The name of a custom type or of an ordered stock.
    void setCustomType(std::string customType) { customType_ = std::move(customType); }
    const std::string& customType() const { return customType_; }
    /// The number of tabs in a set, or of sheets in an ordered sequence.
    void setModulus(std::int32_t modulus) { modulus_ = modulus; }
    std::int32_t modulus() const { return modulus_; }

    void setColor(std::int32_t color) { color_ = color; }
    std::int32_t color() const { return color_; }
    /// The name of a custom colour.
    void setCustomColor(std::string customColor) { customColor_ = std::move(customColor); }
    const std::string& customColor() const { return customColor_; }

    void setPunched(std::int32_t punched) { punched_ = punched; }
    std::int32_t punched() const { return punched_; }
    /// In g/m2.
    void setWeight(std::int32_t weight) { weight_ = weight; }
    std::int32_t weight() const { return weight_; }
    void setDescription(std::string description) { description_ = std::move(description); }
    const std::string& description() const { return description_; }

    void setSidesCoated(std::int32_t sidesCoated) { sidesCoated_ = sidesCoated; }
    std::int32_t sidesCoated() const { return sidesCoated_; }
    /// Counts only where the sides coated are set.
    void setCoatingType(std::int32_t coatingType) { coatingType_ = coatingType; }
    std::int32_t coatingType() const { return coatingType_; }
    void setFinish(std::int32_t finish) { finish_ = finish; }
    std::int32_t finish() const { return finish_; }
    void setGrain(std::int32_t grain) { grain_ = grain; }
    std::int32_t grain() const { return grain_; }

    /// The named paper that the stock came from; "" for none.
    void setCustomName(std::string customName) { customName_ = std::move(customName); }
    const std::string& customName() const { return customName_; }
    /// Whether the name alone tells the stock.
    void setCustomNameOnly(bool customNameOnly) { customNameOnly_ = customNameOnly; }
    bool customNameOnly() const { return customNameOnly_; }
    /// The named paper's comment.
    void setComment(std::string comment) { comment_ = std::move(comment); }
    const std::string& comment() const { return comment_; }

    /// The stock's dictionary, keys of StockKeys.h. Unset numbers, empty strings and a false
    /// "CustomNameOnly" are left out, except that a custom size always brings "Width" and "Length",
    /// and "SidesCoated" always brings "kCoatingType".
    CFDictionary asTicket() const;

    /// All numbers equal, whether they count or not, and all texts equal but for case.
    bool operator==(const Stock& other) const;

private:
    bool hasNumbersOf(const Stock& other) const;
    bool hasTextsOf(const Stock& other) const;

    std::int32_t size_ = UnsetValue;
    std::int32_t width_ = UnsetValue;
    std::int32_t length_ = UnsetValue;
    std::int32_t type_ = UnsetValue;
    std::string customType_;
    std::int32_t color_ = UnsetValue;
    std::string customColor_;
    std::int32_t modulus_ = UnsetValue;
    std::int32_t punched_ = UnsetValue;
    std::int32_t weight_ = UnsetValue;
    std::string description_;
    std::int32_t sidesCoated_ = UnsetValue;
    std::int32_t coatingType_ = GlossCoating;
    std::int32_t finish_ = UnsetValue;
    std::int32_t grain_ = UnsetValue;
    std::string customName_;
    bool customNameOnly_ = false;
    std::string comment_;
};

/// Forgets what was chosen: a job's stock is then not punched, a page's has nothing set. Coating,
/// finish, grain and comment stay as they were.
void DefaultStock(Stock& stock, JobContext context);

} // namespace tarvo
