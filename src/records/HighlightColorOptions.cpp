#include "records/HighlightColorOptions.h"

#include "platform/bundle/CFBundle.h"
#include "records/HighlightColorKeys.h"
#include "settings/ColorMaps.h"
#include "settings/TicketAccess.h"

#include <algorithm>
#include <limits>

namespace tarvo {
namespace {

constexpr std::int32_t EightToSixteenBits = 257; // 255 becomes 65535
constexpr int BitsDropped = 8;
constexpr std::int32_t Hundredths = 100;

struct ChoiceField {
    std::string_view key;
    std::int32_t HighlightColorOptions::*choice;
    const SettingMap* map;
    const char* labelKey;
};

// In the order of the summary.
// clang-format off
constexpr ChoiceField Choices[] = {
    {HighlightPrintingColorKey,    &HighlightColorOptions::printingColor,    HighlightPrintingColorMap,    "Color"             },
    {HighlightMappingAlgorithmKey, &HighlightColorOptions::mappingAlgorithm, HighlightMappingAlgorithmMap, "HLMappingAlgorithm"},
    {HighlightMismatchActionKey,   &HighlightColorOptions::mismatchAction,   HighlightMismatchColorMap,    "HLMismatchAction"  },
    {HighlightMappingColorKey,     &HighlightColorOptions::mappingColor,     HighlightMappingColorMap,     "HLMappingColor"    },
};
// clang-format on

struct ComponentField {
    std::string_view key;
    std::int32_t HighlightColorOptions::*component;
};

constexpr ComponentField RGBComponents[] = {
    {HighlightColorRKey, &HighlightColorOptions::red  },
    {HighlightColorGKey, &HighlightColorOptions::green},
    {HighlightColorBKey, &HighlightColorOptions::blue },
};

constexpr ComponentField HSVComponents[] = {
    {HighlightColorHKey, &HighlightColorOptions::hue       },
    {HighlightColorSKey, &HighlightColorOptions::saturation},
    {HighlightColorVKey, &HighlightColorOptions::value     },
};

std::int32_t Scaled(std::int32_t component, std::int32_t factor)
{
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        std::int64_t{component} * factor, std::numeric_limits<std::int32_t>::min(),
        std::numeric_limits<std::int32_t>::max()));
}

const SettingMap& ChosenRow(const ChoiceField& field, const HighlightColorOptions& options)
{
    return field.map[HighlightRow(field.map, options.*field.choice)];
}

} // namespace

CFDictionary ColorSetupHLCCreateTicketFromOptions(const HighlightColorOptions& options)
{
    CFDictionary ticket;
    for (const ChoiceField& field : Choices) {
        WriteTicketValue(ticket, field.key, options.*field.choice);
    }
    WriteTicketValue(ticket, HighlightColorRGBKey, options.useRGB ? 1 : 0);
    for (const ComponentField& field : RGBComponents) {
        WriteTicketValue(ticket, field.key, Scaled(options.*field.component, EightToSixteenBits));
    }
    for (const ComponentField& field : HSVComponents) {
        WriteTicketValue(ticket, field.key, Scaled(options.*field.component, Hundredths));
    }
    return ticket;
}

void ColorSetupHLCSetOptionsFromTicket(HighlightColorOptions& options, const CFDictionary& ticket)
{
    options = {};
    for (const ChoiceField& field : Choices) {
        GetCFIndexFromCFDictionary(&ticket, field.key, &(options.*field.choice));
    }
    options.useRGB = IsHighlightColorRGB(ticket);
    for (const ComponentField& field : RGBComponents) {
        options.*field.component = ticket.int32(field.key).value_or(0) >> BitsDropped;
    }
    for (const ComponentField& field : HSVComponents) {
        options.*field.component = ticket.int32(field.key).value_or(0) / Hundredths;
    }
    options.isValid = true;
}

bool IsHighlightColorRGB(const CFDictionary& ticket)
{
    const CFPropertyList* flag = ticket.find(HighlightColorRGBKey);
    if (flag == nullptr) {
        return true;
    }
    if (const bool* isRGB = flag->get<bool>()) {
        return *isRGB;
    }
    const bool isNumber = flag->get<std::int64_t>() != nullptr || flag->get<double>() != nullptr;
    return !isNumber || IsNonZeroNumber(flag);
}

std::int32_t HighlightRow(const SettingMap* map, std::int32_t choice)
{
    return choice >= 0 && choice < CountMaps(map) ? choice : 0;
}

bool HasCustomMappingColor(const HighlightColorOptions& options)
{
    const std::int32_t row = HighlightRow(HighlightMappingColorMap, options.mappingColor);
    return HighlightMappingColorMap[row].value == CustomHighlightMappingColor;
}

std::string CreateColorSetupHLCSummary(const CFBundle& bundle, const HighlightColorOptions& options,
                                       JobContext context)
{
    std::string summary;
    for (const ChoiceField& field : Choices) {
        const SettingMap& row = ChosenRow(field, options);
        if (row.value == UnsetValue) {
            continue;
        }
        summary += summary.empty() ? "" : "\n";
        summary += bundle.localizedString(field.labelKey);
        summary += bundle.localizedString(":");
        summary += bundle.localizedString(row.key);
    }
    if (!summary.empty()) {
        return summary;
    }
    // With blanks: texts of their own beside those of the menus' first rows.
    return bundle.localizedString(context == JobContext::Job ? "Printer Default"
                                                             : "Use Job Setting");
}

} // namespace tarvo
