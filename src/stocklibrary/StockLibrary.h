#pragma once

#include "platform/cf/CFPropertyList.h"
#include "records/Stock.h"

#include <cstdint>
#include <string>
#include <utility>

namespace tarvo {

/// What an entry of a stock library is to the job at hand.
enum class StockEntryStatus : std::int32_t {
    NotInUse = 0,
    InUse = 1,   // the job, a cover, an insert or an exception page is printed on it
    Invalid = 2, // the menus do not offer its size, colour or type
};

/// A named paper of a stock library: a stock with an identity and a name. Its stock is copied as it
/// stands; the rules among a stock's attributes are for who sets it.
class StockLibrary {
public:
    StockLibrary() = default;
    /// Rebuilds an entry from its dictionary, keys of StockLibraryKeys.h, and validates it. A key
    /// absent or of another type keeps the default.
    explicit StockLibrary(const CFDictionary& entry);
    StockLibrary(const StockLibrary&) = default;
    StockLibrary(StockLibrary&&) noexcept = default;
    StockLibrary& operator=(const StockLibrary& other) { return *this = StockLibrary(other); }
    StockLibrary& operator=(StockLibrary&& other) noexcept;
    ~StockLibrary() = default;

    void setStatus(StockEntryStatus status) { status_ = static_cast<std::int32_t>(status); }
    /// A value of StockEntryStatus, or whatever a newer version has written.
    std::int32_t status() const { return status_; }
    bool isInvalid() const
    {
        return status_ == static_cast<std::int32_t>(StockEntryStatus::Invalid);
    }

    /// Every value passes through its setter.
    void setStock(const Stock& stock) { stock_ = stock; }
    Stock& stock() { return stock_; }
    const Stock& stock() const { return stock_; }

    /// The key of the entry in its list; "" as long as it is in none.
    void setUUID(std::string uuid) { uuid_ = std::move(uuid); }
    const std::string& uuid() const { return uuid_; }
    /// What lists and menus show.
    void setName(std::string name) { name_ = std::move(name); }
    const std::string& name() const { return name_; }

    /// The entry's dictionary; an empty uuid or name is left out.
    CFDictionary asTicket() const;

    /// Makes the status Invalid when the menus of StockMaps.h lack the stock's size, colour or
    /// type; a valid entry keeps the status it has.
    void validateStockEntry();

    bool operator==(const StockLibrary&) const = default;

private:
    std::int32_t status_ = static_cast<std::int32_t>(StockEntryStatus::NotInUse);
    Stock stock_;
    std::string uuid_;
    std::string name_;
};

} // namespace tarvo
