#pragma once

#include "platform/cf/CFPropertyList.h"
#include "tpif/TPIFChannel.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

namespace tarvo {

/// {{key, value}, ...} as a dictionary.
inline CFDictionary
Dictionary(std::initializer_list<std::pair<std::string_view, CFPropertyList>> entries)
{
    CFDictionary dictionary;
    for (const auto& [key, value] : entries) {
        dictionary.set(key, value);
    }
    return dictionary;
}

/// What a writer puts out. What it puts on standard error goes to `diagnostics`, if given.
template <typename Writer>
std::string Written(Writer writer, std::string* diagnostics = nullptr)
{
    std::string text;
    testing::internal::CaptureStderr();
    {
        TPIFChannel channel([&text](std::string_view piece) { text += piece; });
        writer(channel);
    }
    const std::string lines = testing::internal::GetCapturedStderr();
    if (diagnostics != nullptr) {
        *diagnostics = lines;
    }
    return text;
}

} // namespace tarvo
