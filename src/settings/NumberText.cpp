#include "settings/NumberText.h"

#include <unicode/locid.h>
#include <unicode/numfmt.h>
#include <unicode/unistr.h>

#include <cmath>
#include <memory>

namespace tarvo {
namespace {

// That of people's locales; the computer's own has more, which show single precision.
constexpr std::int32_t MostFractionDigits = 3;

using NumberFormatter = std::unique_ptr<const icu::NumberFormat>;

// @return null when the locale data cannot be read
NumberFormatter CreateDecimalFormatter(const icu::Locale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> formatter(
        icu::NumberFormat::createInstance(locale, UNUM_DECIMAL, status));
    if (U_FAILURE(status)) {
        return nullptr;
    }
    formatter->setMaximumFractionDigits(MostFractionDigits);
    return formatter;
}

std::string FormatNumber(const NumberFormatter& formatter, std::int32_t value,
                         std::int32_t decimals)
{
    if (!formatter) {
        return {};
    }
    icu::UnicodeString text;
    if (decimals == 0) {
        formatter->format(value, text);
    } else {
        const double number = value / std::pow(10.0, decimals);
        formatter->format(static_cast<double>(static_cast<float>(number)), text);
    }
    std::string utf8;
    return text.toUTF8String(utf8);
}

} // namespace

std::string CreateLocalizedCFStringFromNumberWithDecimals(std::int32_t value, std::int32_t decimals)
{
    // Kept, for making one costs far more than using it; any thread may call what is constant.
    static const NumberFormatter formatter = CreateDecimalFormatter(icu::Locale::getDefault());
    return FormatNumber(formatter, value, decimals);
}

std::string CreateLocalizedCFStringFromNumberWithDecimals(std::int32_t value, std::int32_t decimals,
                                                          const char* localeName)
{
    return FormatNumber(CreateDecimalFormatter(icu::Locale(localeName)), value, decimals);
}

} // namespace tarvo
