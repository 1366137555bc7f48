#include "settings/NumberText.h"

#include <gtest/gtest.h>
#include <unicode/uloc.h>

namespace tarvo {
namespace {

struct NumberTextCase {
    const char* name;
    std::int32_t value;
    std::int32_t decimals;
    const char* locale;
    const char* text;
};

constexpr NumberTextCase NumberTextCases[] = {
    {"no needless zero",           1250,            2, "en_US",       "12.5"       },
    {"whole, grouped",             1234567,         0, "de_DE",       "1.234.567"  },
    {"whole keeps every digit",    123456789,       0, "en_US",       "123,456,789"},
    {"single precision in German", 12345678,        2, "de_DE",       "123.456,781"},
    {"no locale, no groups",       12345678,        2, "en_US_POSIX", "123456.781" },
    {"below one",                  5,               2, "en_US",       "0.05"       },
    {"negative",                   -105,            1, "en_US",       "-10.5"      },
    {"lowest",                     -2147483647 - 1, 0, "en_US_POSIX", "-2147483648"},
};

TEST(NumberText, IsWhatPeopleOfTheLocaleWrite)
{
    for (const auto& row : NumberTextCases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(
            CreateLocalizedCFStringFromNumberWithDecimals(row.value, row.decimals, row.locale),
            row.text);
    }
}

TEST(NumberText, OfTheProcessIsInItsLocale)
{
    EXPECT_EQ(CreateLocalizedCFStringFromNumberWithDecimals(12345, 2),
              CreateLocalizedCFStringFromNumberWithDecimals(12345, 2, uloc_getDefault()));
}

} // namespace
} // namespace tarvo
