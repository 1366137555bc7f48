#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/printing/PMStatus.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

// Who wrote an item of the job ticket.
inline constexpr std::string_view PanelClient = "com.tarvo.printingmanager"; // every panel
inline constexpr std::string_view SpecialPagesClient = "com.tarvo.print";    // its four lists
inline constexpr std::string_view ExportOptionsClient = "T"; // the options of an export
inline constexpr std::string_view ImportClient = "TARVO";    // all that an import writes

/// A ticket of the printing system: named values, each with the client that wrote it and a lock,
/// and the printer's main keywords with their chosen options.
class PMTicket {
public:
    struct Item {
        CFPropertyList value;
        std::string client;
        bool locked = false;
    };

    PMTicket() = default;
    /// A ticket of one client's unlocked items.
    PMTicket(CFDictionary values, std::string_view client);

    /// Writes an item, replacing a present one; the value's own type is the item's.
    /// @param locked  others than this client are refused from now on
    /// @return StatusItemLocked, with nothing changed, when another client has locked the item
    OSStatus setItem(std::string_view client, std::string_view key, CFPropertyList value,
                     bool locked = false);

    /// @return StatusItemNotFound when absent, StatusItemLocked when another client has locked it
    OSStatus removeItem(std::string_view client, std::string_view key);

    /// @return the item, borrowed until the next change; null when absent
    const Item* item(std::string_view key) const { return items_.find(key); }
    bool containsItem(std::string_view key) const { return items_.contains(key); }
    std::size_t count() const { return items_.size(); }
    /// In the order in which the items came.
    std::vector<std::string> keys() const;

    // Each reads an item of one type. StatusItemNotFound, with `value` untouched, when it is absent
    // or of another type; StatusBadArgument when `value` is null. Pointers are borrowed until the
    // next change of the ticket.
    OSStatus getItem(std::string_view key, const CFPropertyList** value) const;
    OSStatus getNumber(std::string_view key, std::int32_t* value) const; // rule of Int32Value
    OSStatus getBoolean(std::string_view key, bool* value) const;
    OSStatus getString(std::string_view key, std::string* value) const;
    OSStatus getDate(std::string_view key, CFDate* value) const;
    OSStatus getData(std::string_view key, const CFData** value) const;
    OSStatus getArray(std::string_view key, const CFArray** value) const;
    OSStatus getDictionary(std::string_view key, const CFDictionary** value) const;

    /// Main keyword to option keyword, both strings.
    CFDictionary& ppdDictionary() { return ppdDictionary_; }
    const CFDictionary& ppdDictionary() const { return ppdDictionary_; }

private:
    template <typename Type>
    const Type* typed(std::string_view key) const;

    OrderedMap<Item> items_;
    CFDictionary ppdDictionary_;
};

} // namespace tarvo
