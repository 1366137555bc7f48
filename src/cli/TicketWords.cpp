#include "cli/TicketWords.h"

#include "cli/TicketSettings.h"
#include "platform/text/TextFormat.h"
#include "records/ImageShiftOptions.h"
#include "settings/NumberText.h"

namespace tarvo {

std::string TextOfNumber(const TicketSource& source, const TicketSettingRow& row,
                         std::int32_t number)
{
    if (number == UnsetValue) {
        return "";
    }
    if (row.map == nullptr) {
        return std::to_string(number);
    }
    if (const char* key = LocalizedKeyForTicketValue(row.map, number)) {
        return source.text(key);
    }
    if (number == 0) { // where there is a menu, 0 chooses nothing
        return "";
    }
    const auto name = row.names == nullptr ? std::nullopt : TPIFConvertKeyword(row.names, number);
    return name ? std::string(*name) : std::to_string(number);
}

std::string TextOfValue(const TicketSource& source, const TicketSettingRow& row,
                        const CFPropertyList& value)
{
    const auto* text = value.get<std::string>();
    if (text != nullptr && (row.kind == SettingKind::Text || row.kind == SettingKind::Profile)) {
        return *text;
    }
    const auto* flag = value.get<bool>();
    if (flag != nullptr && row.kind == SettingKind::Flag) {
        return source.text(*flag ? "On" : "Off");
    }
    const bool isNumber = row.kind == SettingKind::Number || row.kind == SettingKind::Profile;
    const auto number = isNumber ? Int32Value(&value) : std::nullopt;
    return number ? TextOfNumber(source, row, *number) : "";
}

std::string OffsetsText(const TicketSource& source, bool isInches, std::int32_t x, std::int32_t y)
{
    std::string text;
    for (const std::int32_t offset : {x, y}) {
        text += text.empty() ? "" : ", ";
        text +=
            FilledFormat(source.text(isInches ? "ShowInches" : "ShowMillimeters"),
                         CreateLocalizedCFStringFromNumberWithDecimals(offset, isInches ? 2 : 1));
    }
    return text;
}

std::array<std::string, 2> SideShifts(const TicketSource& source, const ImageShiftOptions& shift)
{
    return {
        source.text("ShowSide1") + source.text(":") +
            OffsetsText(source, shift.isInches, shift.x1, shift.y1),
        source.text("ShowSide2") + source.text(":") +
            OffsetsText(source, shift.isInches, shift.x2, shift.y2),
    };
}

} // namespace tarvo
