#pragma once

#include "platform/printing/PPDFile.h"
#include "records/StockSizes.h"

#include <array>
#include <cstdint>
#include <optional>

namespace tarvo {

enum class LengthUnit : std::int32_t {
    NotChosen = 0,
    Inches = 1,      // fields hold 1/100 in
    Millimeters = 2, // fields hold 1/10 mm
};

/// The unit of the process's locale.
LengthUnit LocaleLengthUnit();

/// The unit in which the user last entered a custom size; kept while the process lives, for the
/// thread that shows dialogs.
LengthUnit& CustomSizeUnit();

// A field's number is not exactly what is stored: an A4 width, entered in inches, is 20980.

/// @param stored  1/100 mm
/// @param unit    inches or millimetres
std::int32_t FieldFromStored(std::int32_t stored, LengthUnit unit);
std::int32_t StoredFromField(std::int32_t field, LengthUnit unit);

/// What the fields of the custom size dialog hold while somebody fills them in.
class CustomSizeEntry {
public:
    enum Field { Width = 0, Length = 1 };
    struct Range {
        std::int32_t minimum = 0;
        std::int32_t maximum = 0;
    };

    /// @param width   in 1/100 mm, as is length; when either is unset both start at the default
    /// size of the locale's unit: Letter or A4
    /// @param limits  of the printer, see GetMediaLimits
    /// @param unit    borrowed, see CustomSizeUnit; one not chosen becomes the locale's
    CustomSizeEntry(std::int32_t width, std::int32_t length, const PPDSizeLimits& limits,
                    LengthUnit& unit, LengthUnit localeUnit);

    LengthUnit unit() const { return unit_; }
    /// Converts both fields; a valid number stays valid.
    void setUnit(LengthUnit unit);
    std::int32_t decimals() const { return unit_ == LengthUnit::Inches ? 2 : 1; }

    /// The numbers that a field takes, in its unit.
    Range range(Field field) const;
    /// @return nullopt when the field's text is no number
    std::optional<std::int32_t> value(Field field) const { return values_[field]; }
    void setValue(Field field, std::optional<std::int32_t> value);

    /// Back to the locale's unit and its default size.
    void setDefaults();

    /// What OK stores; a field whose number was never changed keeps what was stored, whatever its
    /// number is rounded to. A width above the length is nothing special.
    /// @return nullopt when a field is no number within its range; then both are back at their last
    /// valid values
    std::optional<StockDimensions> accept();

private:
    bool isValid(Field field) const;
    void setStored(const StockDimensions& dimensions);
    void start(Field field, std::int32_t stored);

    PPDSizeLimits limits_;
    LengthUnit& unit_;
    LengthUnit localeUnit_;
    std::array<std::optional<std::int32_t>, 2> values_;
    std::array<std::int32_t, 2> lastValid_ = {};
    std::array<std::optional<std::int32_t>, 2> untouched_; // 1/100 mm, as they were stored
};

} // namespace tarvo
