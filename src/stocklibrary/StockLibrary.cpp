#include "stocklibrary/StockLibrary.h"

#include "settings/SettingMap.h"
#include "settings/StockMaps.h"
#include "settings/TicketAccess.h"
#include "stocklibrary/StockLibraryKeys.h"

#include <utility>

namespace tarvo {

StockLibrary::StockLibrary(const CFDictionary& entry)
{
    GetCFIndexFromCFDictionary(&entry, EntryStatusKey, &status_);
    if (const auto* stock = entry.get<CFDictionary>(EntryStockKey)) {
        stock_.takeAsItIs(Stock(*stock));
    }
    if (const auto* uuid = entry.get<std::string>(EntryUuidKey)) {
        uuid_ = *uuid;
    }
    if (const auto* name = entry.get<std::string>(EntryNameKey)) {
        name_ = *name;
    }
    validateStockEntry();
}

StockLibrary& StockLibrary::operator=(StockLibrary&& other) noexcept
{
    status_ = other.status_;
    stock_.takeAsItIs(std::move(other.stock_));
    uuid_ = std::move(other.uuid_);
    name_ = std::move(other.name_);
    return *this;
}

CFDictionary StockLibrary::asTicket() const
{
    CFDictionary entry;
    WriteTicketValue(entry, EntryStatusKey, status_);
    entry.set(EntryStockKey, stock_.asTicket());
    if (!uuid_.empty()) {
        entry.set(EntryUuidKey, uuid_);
    }
    if (!name_.empty()) {
        entry.set(EntryNameKey, name_);
    }
    return entry;
}

void StockLibrary::validateStockEntry()
{
    const bool isOffered = TicketToUI(StockSizeMap, stock_.size()) != -1 &&
                           TicketToUI(StockColorMap, stock_.color()) != -1 &&
                           TicketToUI(StockTypeMap, stock_.type()) != -1;
    if (!isOffered) {
        setStatus(StockEntryStatus::Invalid);
    }
}

} // namespace tarvo
