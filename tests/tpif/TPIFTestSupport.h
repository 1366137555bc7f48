#pragma once

#include "tpif/TPIFChannel.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvo {

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
