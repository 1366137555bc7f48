#include "settings/MeasurementSystem.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(MeasurementSystem, IsInchesInTheUnitedStatesAlone)
{
    const std::pair<const char*, bool> cases[] = {
        {"en_US",       true },
        {"en_US_POSIX", true }, // LANG=C
        {"es_US",       true },
        {"de_DE",       false},
        {"en_GB",       false}, // miles on the road, millimetres on paper
        {"de",          false},
    };
    for (const auto& [locale, inches] : cases) {
        EXPECT_EQ(LocaleMeasuresInInches(locale), inches) << locale;
    }
}

} // namespace
} // namespace tarvo
