#pragma once

#include "platform/cf/CFPropertyList.h"
#include "records/ImageShiftOptions.h"
#include "records/Stock.h"

#include <cstdint>
#include <memory>

namespace tarvo {

/// A page, or a sheet put between pages, that is treated in its own way. Its stock is copied as it
/// stands, in assignments too: the rules among a stock's attributes are for who chooses them.
class SpecialPage {
public:
    virtual ~SpecialPage() = default;

    /// From 1; for an insert the page after which it goes in, 0 for before page 1.
    void setStartPage(std::int32_t startPage) { startPage_ = startPage; }
    std::int32_t startPage() const { return startPage_; }
    Stock& stock() { return stock_; }
    const Stock& stock() const { return stock_; }

    /// {"StartPage": number, "Stock": dictionary of StockKeys.h} and what the kind of page adds, by
    /// keys of SpecialPageKeys.h.
    virtual CFDictionary asTicket() const;
    virtual std::unique_ptr<SpecialPage> clone() const = 0;

protected:
    SpecialPage() = default;
    /// Rebuilds the page from its ticket; a key absent or of another type keeps the default.
    explicit SpecialPage(const CFDictionary& ticket);
    SpecialPage(const SpecialPage&) = default;
    SpecialPage(SpecialPage&&) noexcept = default;
    SpecialPage& operator=(const SpecialPage& other);
    SpecialPage& operator=(SpecialPage&& other) noexcept;

private:
    std::int32_t startPage_ = 0;
    Stock stock_;
};

/// A front or back cover.
class Cover : public SpecialPage {
public:
    Cover() = default;
    explicit Cover(const CFDictionary& ticket);

    /// A value of CoverSidesImagedMap.
    void setSidesImaged(std::int32_t sidesImaged) { sidesImaged_ = sidesImaged; }
    std::int32_t sidesImaged() const { return sidesImaged_; }

    /// Adds "SidesImaged".
    CFDictionary asTicket() const override;
    std::unique_ptr<SpecialPage> clone() const override;

    /// Same sides on an equal stock; a cover's start page says nothing.
    bool operator==(const Cover& other) const;

private:
    std::int32_t sidesImaged_ = 1;
};

/// Sheets, blank or printed before, that go in after a page.
class Insert : public SpecialPage {
public:
    Insert() = default;
    explicit Insert(const CFDictionary& ticket);

    /// The number of sheets.
    void setQuantity(std::int32_t quantity) { quantity_ = quantity; }
    std::int32_t quantity() const { return quantity_; }

    /// Adds "Quantity".
    CFDictionary asTicket() const override;
    std::unique_ptr<SpecialPage> clone() const override;

private:
    std::int32_t quantity_ = 1;
};

/// Pages from the start page on that are printed otherwise than the rest.
class ExceptionPage : public SpecialPage {
public:
    ExceptionPage() = default;
    explicit ExceptionPage(const CFDictionary& ticket);

    /// Belongs to the range. A page that ends before it starts stands for no page at all.
    void setEndPage(std::int32_t endPage) { endPage_ = endPage; }
    std::int32_t endPage() const { return endPage_; }
    /// A value of PlexMap.
    void setPlex(std::int32_t plex) { plex_ = plex; }
    std::int32_t plex() const { return plex_; }
    ImageShiftOptions& imageShift() { return imageShift_; }
    const ImageShiftOptions& imageShift() const { return imageShift_; }
    void setLightenDarken(std::int32_t lightenDarken) { lightenDarken_ = lightenDarken; }
    std::int32_t lightenDarken() const { return lightenDarken_; }
    /// A value of OutputColorMap; UnsetValue removes it.
    void setOutputColor(std::int32_t outputColor);
    std::int32_t outputColor() const;
    /// The colour entries that the page came with and no dialog edits, keys of SpecialPageKeys.h.
    const CFDictionary& colorEntries() const { return extra_; }

    /// Adds "EndPage", "SidesImaged" (the plex) and "LightenDarken" when set, a valid image shift
    /// with its mode set, and the colour entries that the page came with.
    CFDictionary asTicket() const override;
    std::unique_ptr<SpecialPage> clone() const override;

private:
    std::int32_t endPage_ = 0;
    std::int32_t plex_ = UnsetValue;
    ImageShiftOptions imageShift_;
    std::int32_t lightenDarken_ = UnsetValue;
    // Entries of the ticket that no dialog edits but the export reads, as they came; and the output
    // colour, which is one of them.
    CFDictionary extra_;
};

} // namespace tarvo
