#pragma once

#include "platform/bundle/CFBundle.h"
#include "platform/cf/PropertyListWriter.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>

namespace tarvo {

/// A bundle whose texts are their keys in angle brackets, and ":" itself; so a test sees which text
/// is looked up, whatever its wording.
/// @param keys  all that it has; any other key is not found
inline CFBundle EchoBundle(std::initializer_list<const char*> keys)
{
    CFDictionary texts;
    for (const char* key : keys) {
        texts.set(key, "<" + std::string(key) + ">");
    }
    texts.set(":", ":");
    std::string folder = ::testing::TempDir() + "tarvo-echo-XXXXXX";
    EXPECT_NE(mkdtemp(folder.data()), nullptr);
    const std::filesystem::path language = folder + "/Contents/Resources/en.lproj";
    std::filesystem::create_directories(language);
    ParseError error;
    std::ofstream(language / "Localizable.plist") << WritePropertyList(texts, error).value_or("");
    CFBundle bundle(folder, {});
    std::filesystem::remove_all(folder);
    return bundle;
}

} // namespace tarvo
