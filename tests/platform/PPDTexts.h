#pragma once

#include "platform/printing/PPDFile.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace tarvo {

/// The beginning of every description in the tests; what follows begins in line 5.
inline const std::string PPDHeader = "*PPD-Adobe: \"4.3\"\n"
                                     "*LanguageEncoding: None\n"
                                     "*Manufacturer: \"Tarvo\"\n"
                                     "*NickName: \"Tarvo Test\"\n";

/// A main keyword picked from a list.
inline std::string PickOne(const std::string& keyword, const std::string& standard,
                           std::initializer_list<std::string> choices)
{
    std::string text =
        "*OpenUI *" + keyword + ": PickOne\n*Default" + keyword + ": " + standard + "\n";
    for (const std::string& choice : choices) {
        text += "*" + keyword + " " + choice + ": \"\"\n";
    }
    return text + "*CloseUI: *" + keyword + "\n";
}

/// A description of these main keywords, which must be readable.
inline PPDFile PrinterOf(const std::string& options)
{
    ParseError error;
    auto ppd = PPDFile::Read(PPDHeader + options, {}, error);
    EXPECT_TRUE(ppd) << error.line << ": " << error.reason;
    return ppd.value_or(PPDFile());
}

} // namespace tarvo
