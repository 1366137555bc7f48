#include "platform/text/Uuid.h"

#include <gmock/gmock.h>

#include <set>

namespace tarvo {
namespace {

TEST(NewUuid, IsRandomAndInUpperCase)
{
    std::set<std::string> known;
    for (int round = 0; round < 1000; ++round) {
        const std::string uuid = NewUuid();
        EXPECT_THAT(uuid,
                    testing::MatchesRegex(
                        "[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}"));
        EXPECT_TRUE(known.insert(uuid).second);
    }
}

} // namespace
} // namespace tarvo
