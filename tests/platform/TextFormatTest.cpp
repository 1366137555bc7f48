#include "platform/text/TextFormat.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(FilledFormat, ReplacesTheFirstPlaceholderAndReadsNothingElse)
{
    EXPECT_EQ(FilledFormat("Replace \"%@\"?", "100%@ %s"), "Replace \"100%@ %s\"?");
    EXPECT_EQ(FilledFormat("%d %n %@ %@", "x"), "%d %n x %@");
    EXPECT_EQ(FilledFormat("plain", "x"), "plain");
    EXPECT_EQ(FilledFormat("%@ excludes %@, %@", {"%@", "b"}), "%@ excludes b, %@");
    EXPECT_EQ(FilledFormat("only %@", {"a", "b"}), "only a");
}

} // namespace
} // namespace tarvo
