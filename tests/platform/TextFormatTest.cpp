#include "platform/text/TextFormat.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(FilledFormat, ReplacesTheFirstPlaceholderAndReadsNothingElse)
{
    EXPECT_EQ(FilledFormat("Replace \"%@\"?", "100%@ %s"), "Replace \"100%@ %s\"?");
    EXPECT_EQ(FilledFormat("%d %n %@ %@", "x"), "%d %n x %@");
    EXPECT_EQ(FilledFormat("plain", "x"), "plain");
}

} // namespace
} // namespace tarvo
