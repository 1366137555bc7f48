#include "shell/SecurePrint.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(SecurePrint, NeedsAPasscode)
{
    // name, job type, passcode (false: none), whether it is blocked
    const std::tuple<const char*, CFPropertyList, CFPropertyList, bool> cases[] = {
        {"secure, without",             6,   false,  true },
        {"secure, empty",               6,   "",     true },
        {"secure, a number is no text", 6,   1234,   true },
        {"secure, with",                6,   "1234", false},
        {"another type",                7,   "",     false},
        {"type of another kind",        "6", "",     false},
    };
    for (const auto& [name, type, passcode, isBlocked] : cases) {
        CFDictionary jobType;
        jobType.set("JobType", type);
        if (passcode != CFPropertyList(false)) {
            jobType.set("SecurePrintPassword", passcode);
        }
        EXPECT_EQ(LacksPasscode(&jobType), isBlocked) << name;
    }
    EXPECT_FALSE(LacksPasscode(nullptr)) << "no panel sets the job type";
    const CFDictionary empty;
    EXPECT_FALSE(LacksPasscode(&empty));
}

} // namespace
} // namespace tarvo
