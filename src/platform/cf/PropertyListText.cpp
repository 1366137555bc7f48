#include "platform/cf/PropertyListText.h"

#include "platform/text/WhiteSpace.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <iterator>

namespace tarvo {
namespace {

constexpr std::string_view Base64Digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t NoDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> MakeBase64Values()
{
    std::array<std::uint8_t, 256> values = {};
    values.fill(NoDigit);
    for (std::size_t value = 0; value < Base64Digits.size(); ++value) {
        values[static_cast<unsigned char>(Base64Digits[value])] = static_cast<std::uint8_t>(value);
    }
    return values;
}

constexpr auto Base64Values = MakeBase64Values();

bool IsWhiteSpace(char letter)
{
    return letter == ' ' || letter == '\n' || letter == '\t' || letter == '\r';
}

template <typename Number>
std::optional<Number> WholeNumber(std::string_view text)
{
    Number number = {};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

// The digits of a date's field; nullopt when one of them is no digit.
std::optional<int> Field(std::string_view text, std::size_t position, std::size_t length)
{
    const std::string_view digits = text.substr(position, length);
    if (digits.find_first_not_of("0123456789") != std::string_view::npos) {
        return std::nullopt;
    }
    return WholeNumber<int>(digits);
}

} // namespace

std::optional<std::int64_t> IntegerFromText(std::string_view text)
{
    return WholeNumber<std::int64_t>(Trimmed(text));
}

std::optional<double> RealFromText(std::string_view text)
{
    text = Trimmed(text);
    if (text.starts_with("+") && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    if (text.find('(') != std::string_view::npos) { // from_chars takes nan(text)
        return std::nullopt;
    }
    return WholeNumber<double>(text);
}

std::string TextFromReal(double value)
{
    std::array<char, 32> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), result.ptr};
}

std::optional<CFDate> DateFromText(std::string_view text)
{
    using namespace std::chrono;
    text = Trimmed(text);
    if (text.size() != 20 || text[4] != '-' || text[7] != '-' || text[10] != 'T' ||
        text[13] != ':' || text[16] != ':' || text[19] != 'Z') {
        return std::nullopt;
    }
    const auto years = Field(text, 0, 4), months = Field(text, 5, 2), days = Field(text, 8, 2);
    const auto hour = Field(text, 11, 2), minute = Field(text, 14, 2), second = Field(text, 17, 2);
    if (!years || !months || !days || !hour || !minute || !second) {
        return std::nullopt;
    }
    const year_month_day date(year(*years), month(static_cast<unsigned>(*months)),
                              day(static_cast<unsigned>(*days)));
    if (*years < 1 || !date.ok() || *hour > 23 || *minute > 59 || *second > 59) {
        return std::nullopt;
    }
    const std::int64_t daySeconds = sys_days(date).time_since_epoch().count() * std::int64_t{86400};
    const std::int64_t minutes = std::int64_t{*hour} * 60 + *minute;
    return CFDate{daySeconds + minutes * 60 + *second};
}

std::optional<std::string> TextFromDate(CFDate date)
{
    using namespace std::chrono;
    constexpr std::int64_t First = -62135596800; // 0001-01-01T00:00:00Z
    constexpr std::int64_t Last = 253402300799;  // 9999-12-31T23:59:59Z
    if (date.secondsSinceEpoch < First || date.secondsSinceEpoch > Last) {
        return std::nullopt;
    }
    const sys_seconds moment{seconds(date.secondsSinceEpoch)};
    const auto midnight = floor<days>(moment);
    const year_month_day day(midnight);
    const hh_mm_ss time(moment - midnight);
    std::array<char, 32> buffer;
    const int length = std::snprintf(
        buffer.data(), buffer.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
        static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
        static_cast<unsigned>(day.day()), static_cast<int>(time.hours().count()),
        static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    return std::string(buffer.data(), static_cast<std::size_t>(length));
}

std::optional<CFData> DataFromBase64(std::string_view text)
{
    std::string digits;
    digits.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
                 [](char letter) { return !IsWhiteSpace(letter); });
    if (digits.size() % 4 != 0) {
        return std::nullopt;
    }
    const std::size_t padding = digits.ends_with("==") ? 2 : digits.ends_with("=") ? 1 : 0;
    const std::size_t significant = digits.size() - padding;
    CFData data;
    data.bytes.reserve(digits.size() / 4 * 3);
    std::uint32_t bits = 0; // of the group of four digits at hand
    for (std::size_t position = 0; position < digits.size(); ++position) {
        const std::uint8_t value =
            position < significant ? Base64Values[static_cast<unsigned char>(digits[position])] : 0;
        if (value == NoDigit) {
            return std::nullopt;
        }
        bits = bits << 6 | value;
        if (position % 4 == 3) {
            data.bytes += {static_cast<char>(bits >> 16), static_cast<char>(bits >> 8),
                           static_cast<char>(bits)};
            bits = 0;
        }
    }
    // Bits that belong to no byte are zero, or the text is damaged.
    const std::string_view unused =
        std::string_view(data.bytes).substr(data.bytes.size() - padding);
    if (unused.find_first_not_of('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    data.bytes.resize(data.bytes.size() - padding);
    return data;
}

std::string Base64FromData(const CFData& data)
{
    std::string text;
    text.reserve((data.bytes.size() + 2) / 3 * 4);
    for (std::size_t position = 0; position < data.bytes.size(); position += 3) {
        const std::size_t taken = std::min<std::size_t>(3, data.bytes.size() - position);
        std::uint32_t group = 0;
        for (std::size_t byte = 0; byte < 3; ++byte) {
            const auto value =
                byte < taken ? static_cast<unsigned char>(data.bytes[position + byte]) : 0U;
            group = group << 8 | value;
        }
        for (std::size_t digit = 0; digit < 4; ++digit) {
            text.push_back(digit <= taken ? Base64Digits[group >> (18 - 6 * digit) & 0x3F] : '=');
        }
    }
    return text;
}

} // namespace tarvo
