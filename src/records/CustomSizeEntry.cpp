#include "records/CustomSizeEntry.h"

#include "platform/cf/CFPropertyList.h"
#include "settings/MeasurementSystem.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarvo {
namespace {

constexpr double InchesPerMillimeter = 0.39370078740157477; // 1/100 in for each 1/10 mm
constexpr double MillimetersPerInch = 2.54;                 // 1/10 mm for each 1/100 in
constexpr double InchesPerPoint = 1.3888888888888888;       // 1/100 in: 100/72
constexpr double MillimetersPerPoint = 3.5277777777777777;  // 1/10 mm: 254/72

constexpr StockDimensions Letter = {21590, 27940};
constexpr StockDimensions A4 = {21000, 29700};

constexpr CustomSizeEntry::Field Fields[] = {CustomSizeEntry::Width, CustomSizeEntry::Length};

// To nearest, a half away from zero. A size from a ticket or a printer may be any number.
std::int32_t Rounded(double value)
{
    constexpr double Lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double Highest = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<std::int32_t>(std::clamp(std::round(value), Lowest, Highest));
}

std::int32_t Converted(std::int32_t value, LengthUnit unit)
{
    return Rounded(value * (unit == LengthUnit::Inches ? InchesPerMillimeter : MillimetersPerInch));
}

} // namespace

LengthUnit LocaleLengthUnit()
{
    return LocaleMeasuresInInches() ? LengthUnit::Inches : LengthUnit::Millimeters;
}

LengthUnit& CustomSizeUnit()
{
    static LengthUnit unit = LengthUnit::NotChosen;
    return unit;
}

std::int32_t FieldFromStored(std::int32_t stored, LengthUnit unit)
{
    return (unit == LengthUnit::Inches ? Rounded(stored * InchesPerMillimeter) : stored) / 10;
}

std::int32_t StoredFromField(std::int32_t field, LengthUnit unit)
{
    return Rounded(unit == LengthUnit::Inches ? field * MillimetersPerInch * 10.0 : field * 10.0);
}

CustomSizeEntry::CustomSizeEntry(std::int32_t width, std::int32_t length,
                                 const PPDSizeLimits& limits, LengthUnit& unit,
                                 LengthUnit localeUnit)
    : limits_(limits), unit_(unit), localeUnit_(localeUnit)
{
    if (unit_ == LengthUnit::NotChosen) {
        unit_ = localeUnit;
    }
    if (width == UnsetValue || length == UnsetValue) {
        setStored(localeUnit == LengthUnit::Inches ? Letter : A4);
    } else {
        setStored({width, length});
    }
}

void CustomSizeEntry::setUnit(LengthUnit unit)
{
    if (unit == unit_) {
        return;
    }
    const std::array<bool, 2> wasValid = {isValid(Width), isValid(Length)};
    unit_ = unit;
    for (const Field field : Fields) {
        // The limits are rounded on their own and may lie a step beside what was converted.
        const Range allowed = range(field);
        lastValid_[field] =
            std::clamp(Converted(lastValid_[field], unit), allowed.minimum, allowed.maximum);
        if (wasValid[field]) {
            values_[field] = lastValid_[field];
        } else if (values_[field]) {
            values_[field] = Converted(*values_[field], unit);
        }
    }
}

CustomSizeEntry::Range CustomSizeEntry::range(Field field) const
{
    const double factor = unit_ == LengthUnit::Inches ? InchesPerPoint : MillimetersPerPoint;
    const float minimum = field == Width ? limits_.minimumWidth : limits_.minimumLength;
    const float maximum = field == Width ? limits_.maximumWidth : limits_.maximumLength;
    const std::int32_t lowest = Rounded(minimum * factor);
    return {lowest, std::max(lowest, Rounded(maximum * factor))};
}

void CustomSizeEntry::setValue(Field field, std::optional<std::int32_t> value)
{
    if (value != values_[field]) {
        untouched_[field].reset();
    }
    values_[field] = value;
    if (isValid(field)) {
        lastValid_[field] = *value;
    }
}

void CustomSizeEntry::setDefaults()
{
    unit_ = localeUnit_;
    setStored(localeUnit_ == LengthUnit::Inches ? Letter : A4);
}

std::optional<StockDimensions> CustomSizeEntry::accept()
{
    if (isValid(Width) && isValid(Length)) {
        const auto stored = [this](Field field) {
            return untouched_[field].value_or(StoredFromField(*values_[field], unit_));
        };
        return StockDimensions{stored(Width), stored(Length)};
    }
    for (const Field field : Fields) {
        if (!isValid(field)) {
            untouched_[field].reset();
        }
        values_[field] = lastValid_[field];
    }
    return std::nullopt;
}

bool CustomSizeEntry::isValid(Field field) const
{
    const Range allowed = range(field);
    const auto value = values_[field];
    return value && *value >= allowed.minimum && *value <= allowed.maximum;
}

void CustomSizeEntry::setStored(const StockDimensions& dimensions)
{
    start(Width, dimensions.width);
    start(Length, dimensions.length);
}

// Shown as it is; what is out of the printer's range goes to its nearest end when it is refused.
void CustomSizeEntry::start(Field field, std::int32_t stored)
{
    const Range allowed = range(field);
    const std::int32_t value = FieldFromStored(stored, unit_);
    untouched_[field] = stored;
    values_[field] = value;
    lastValid_[field] = std::clamp(value, allowed.minimum, allowed.maximum);
}

} // namespace tarvo
