#pragma once

#include "platform/cf/CFPropertyList.h"

#include <utility>

namespace tarvo {

inline void AddEntries(CFDictionary& /*entries*/) {}

template <typename Value, typename... Others>
void AddEntries(CFDictionary& entries, const char* key, Value&& value, Others&&... others)
{
    entries.set(key, std::forward<Value>(value));
    AddEntries(entries, std::forward<Others>(others)...);
}

/// A dictionary as a test writes it down: Entries("JobType", 3, "SavedJobName", "Menu").
template <typename... KeysAndValues>
CFDictionary Entries(KeysAndValues&&... keysAndValues)
{
    CFDictionary entries;
    AddEntries(entries, std::forward<KeysAndValues>(keysAndValues)...);
    return entries;
}

} // namespace tarvo
