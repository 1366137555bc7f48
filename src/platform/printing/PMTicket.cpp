#include "platform/printing/PMTicket.h"

namespace tarvo {
namespace {

bool LockedAgainst(const PMTicket::Item* item, std::string_view client)
{
    return item != nullptr && item->locked && item->client != client;
}

// Hands a found value out, or says why not.
template <typename Found, typename Out>
OSStatus HandOut(const Found& found, Out* out)
{
    if (out == nullptr) {
        return StatusBadArgument;
    }
    if (!found) {
        return StatusItemNotFound;
    }
    if constexpr (std::is_pointer_v<Out>) {
        *out = found;
    } else {
        *out = *found;
    }
    return StatusOk;
}

} // namespace

PMTicket::PMTicket(CFDictionary values, std::string_view client)
{
    items_.reserve(values.size());
    for (auto& [key, value] : std::move(values).takeEntries()) {
        items_.insert(key, Item{std::move(value), std::string(client), false});
    }
}

OSStatus PMTicket::setItem(std::string_view client, std::string_view key, CFPropertyList value,
                           bool locked)
{
    if (LockedAgainst(item(key), client)) {
        return StatusItemLocked;
    }
    items_.set(key, Item{std::move(value), std::string(client), locked});
    return StatusOk;
}

OSStatus PMTicket::removeItem(std::string_view client, std::string_view key)
{
    if (LockedAgainst(item(key), client)) {
        return StatusItemLocked;
    }
    return items_.remove(key) ? StatusOk : StatusItemNotFound;
}

std::vector<std::string> PMTicket::keys() const
{
    std::vector<std::string> keys;
    keys.reserve(items_.size());
    for (const auto& entry : items_) {
        keys.push_back(entry.key);
    }
    return keys;
}

template <typename Type>
const Type* PMTicket::typed(std::string_view key) const
{
    const Item* found = item(key);
    return found == nullptr ? nullptr : found->value.get<Type>();
}

OSStatus PMTicket::getItem(std::string_view key, const CFPropertyList** value) const
{
    const Item* found = item(key);
    return HandOut(found == nullptr ? nullptr : &found->value, value);
}

OSStatus PMTicket::getNumber(std::string_view key, std::int32_t* value) const
{
    const Item* found = item(key);
    return HandOut(Int32Value(found == nullptr ? nullptr : &found->value), value);
}

OSStatus PMTicket::getBoolean(std::string_view key, bool* value) const
{
    return HandOut(typed<bool>(key), value);
}

OSStatus PMTicket::getString(std::string_view key, std::string* value) const
{
    return HandOut(typed<std::string>(key), value);
}

OSStatus PMTicket::getDate(std::string_view key, CFDate* value) const
{
    return HandOut(typed<CFDate>(key), value);
}

OSStatus PMTicket::getData(std::string_view key, const CFData** value) const
{
    return HandOut(typed<CFData>(key), value);
}

OSStatus PMTicket::getArray(std::string_view key, const CFArray** value) const
{
    return HandOut(typed<CFArray>(key), value);
}

OSStatus PMTicket::getDictionary(std::string_view key, const CFDictionary** value) const
{
    return HandOut(typed<CFDictionary>(key), value);
}

} // namespace tarvo
