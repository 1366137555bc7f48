#include "records/FinishingSummary.h"

#include "platform/bundle/CFBundle.h"
#include "settings/FinishingMaps.h"
#include "settings/TicketKeys.h"

#include <algorithm>
#include <iterator>

namespace tarvo {
namespace {

namespace Family = FinishingFamily;

struct NumberEntry {
    std::string_view key;
    std::int32_t FinishingChoice::*value;
};

constexpr NumberEntry NumberEntries[] = {
    {FinishingOptionsKey,     &FinishingChoice::option        },
    {Staple1ValueKey,         &FinishingChoice::oneStaple     },
    {Staple2ValueKey,         &FinishingChoice::twoStaples    },
    {StapleCenterValueKey,    &FinishingChoice::centerStaple  },
    {FoldValueKey,            &FinishingChoice::fold          },
    {BindValueKey,            &FinishingChoice::bind          },
    {HolePunchValueKey,       &FinishingChoice::punch         },
    {HolePunchOptionsKey,     &FinishingChoice::holes         },
    {ZFoldValueKey,           &FinishingChoice::zFold         },
    {BookletFoldStapleKey,    &FinishingChoice::bookletFold   },
    {SlipSheetKey,            &FinishingChoice::slipSheet     },
    {OffsetKey,               &FinishingChoice::offset        },
    {OffsetEnableSubsetKey,   &FinishingChoice::offsetSubset  },
    {OffsetPagesPerSubsetKey, &FinishingChoice::pagesPerSubset},
};

// Where a family has its position and that its text. The advanced folds have two tables.
struct FamilyRow {
    std::int32_t option;
    std::int32_t FinishingChoice::*position;
    const SettingMap* map;
};

constexpr FamilyRow Families[] = {
    {Family::None,             &FinishingChoice::option,       PlainFinishingMap    },
    {Family::SignatureBooklet, &FinishingChoice::option,       PlainFinishingMap    },
    {Family::OneStaple,        &FinishingChoice::oneStaple,    OneStapleMap         },
    {Family::TwoStaples,       &FinishingChoice::twoStaples,   TwoStaplesMap        },
    {Family::Bind,             &FinishingChoice::bind,         BindMap              },
    {Family::Fold,             &FinishingChoice::fold,         FoldMap              },
    {Family::Booklet,          &FinishingChoice::bookletFold,  BookletFoldMap       },
    {Family::CenterStaple,     &FinishingChoice::centerStaple, CenterStapleMap      },
    {Family::HolePunch,        &FinishingChoice::punch,        PunchMap             },
    {Family::ZFold,            &FinishingChoice::zFold,        ZFoldMap             },
    {Family::AdvancedFold,     &FinishingChoice::fold,         ComplexBookletFoldMap},
    {Family::AdvancedFold,     &FinishingChoice::fold,         ComplexFoldMap       },
};

// The staples of a combination, where the line of the holes tells the side of both.
constexpr SettingMap StaplesBesideHolesMap[] = {
    {"2 Staples",       Family::TwoStaples,   0},
    {"1 Center Staple", Family::CenterStaple, 0},
    {nullptr,           0,                    0},
};

bool IsSet(std::int32_t position)
{
    return position != 0 && position != UnsetValue;
}

std::string TextOrNothing(const SettingMap* map, std::int32_t value, const CFBundle& bundle)
{
    const char* key = LocalizedKeyForTicketValue(map, value);
    return key == nullptr ? "" : bundle.localizedString(key);
}

bool AreOnTheSameSide(const SettingMap* staples, std::int32_t staple, std::int32_t punch)
{
    const std::int32_t side = TicketToUI(staples, staple);
    return side > 0 && side == TicketToUI(PunchMap, punch);
}

const FamilyRow* RowOf(std::int32_t option)
{
    const auto* row =
        std::find_if(std::begin(Families), std::end(Families),
                     [option](const FamilyRow& each) { return each.option == option; });
    return row == std::end(Families) ? nullptr : row;
}

// The first staple family that is set; null when none is.
const FamilyRow* StaplesOf(const FinishingChoice& choice)
{
    const auto* family = std::find_if(
        std::begin(StapleFamilies), std::end(StapleFamilies),
        [&choice](std::int32_t option) { return IsSet(choice.*RowOf(option)->position); });
    return family == std::end(StapleFamilies) ? nullptr : RowOf(*family);
}

std::string StapleText(const FinishingChoice& choice, bool besideHoles, const CFBundle& bundle)
{
    const auto* family = StaplesOf(choice);
    if (family == nullptr) {
        return "";
    }
    const std::int32_t position = choice.*family->position;
    const char* shortKey = LocalizedKeyForTicketValue(StaplesBesideHolesMap, family->option);
    if (besideHoles && shortKey != nullptr &&
        AreOnTheSameSide(family->map, position, choice.punch)) {
        return bundle.localizedString(shortKey) + bundle.localizedString(",");
    }
    return TextOrNothing(family->map, position, bundle);
}

std::string CombinedLines(const FinishingParts& parts, const FinishingChoice& choice,
                          const CFBundle& bundle)
{
    std::string lines;
    if (parts.staples) {
        lines += StapleText(choice, parts.holes, bundle) + "\n";
    }
    if (parts.holes) {
        lines += TextOrNothing(PunchMap, choice.punch, bundle) + "\n";
    }
    if (parts.zFold) {
        lines += TextOrNothing(ZFoldMap, choice.zFold, bundle) + "\n";
    }
    return lines;
}

std::string FamilyText(const FinishingChoice& choice, const CFBundle& bundle)
{
    if (choice.option == Family::Custom) {
        return bundle.localizedString("CustomFinishing") + choice.customText;
    }
    for (const FamilyRow& row : Families) {
        const char* key = LocalizedKeyForTicketValue(row.map, choice.*row.position);
        if (row.option == choice.option && key != nullptr) {
            return bundle.localizedString(key);
        }
    }
    return bundle.localizedString("PrinterDefault");
}

std::string FamilyLines(const FinishingChoice& choice, const CFBundle& bundle)
{
    const auto parts = PartsOfFinishing(choice.option);
    return parts ? CombinedLines(*parts, choice, bundle) : FamilyText(choice, bundle) + "\n";
}

using Position = std::int32_t FinishingChoice::*;

std::string_view KeyOf(Position position)
{
    return std::find_if(std::begin(NumberEntries), std::end(NumberEntries),
                        [position](const NumberEntry& entry) { return entry.value == position; })
        ->key;
}

bool HasWord(const SettingMap* map, std::int32_t position)
{
    return position != 0 && LocalizedKeyForTicketValue(map, position) != nullptr;
}

// The positions that the parts of a combination need and lack; of staples any family's will do.
std::vector<Position> MissingParts(const FinishingParts& parts, const FinishingChoice& choice)
{
    std::vector<Position> missing;
    const auto* staples = StaplesOf(choice);
    if (parts.staples &&
        (staples == nullptr || !HasWord(staples->map, choice.*staples->position))) {
        missing.push_back(staples == nullptr ? &FinishingChoice::oneStaple : staples->position);
    }
    if (parts.holes && choice.punch != DriversPunchPosition && !HasWord(PunchMap, choice.punch)) {
        missing.push_back(&FinishingChoice::punch);
    }
    if (parts.zFold && !HasWord(ZFoldMap, choice.zFold)) {
        missing.push_back(&FinishingChoice::zFold);
    }
    return missing;
}

constexpr Position Positions[] = {&FinishingChoice::oneStaple,    &FinishingChoice::twoStaples,
                                  &FinishingChoice::centerStaple, &FinishingChoice::fold,
                                  &FinishingChoice::bind,         &FinishingChoice::punch,
                                  &FinishingChoice::zFold,        &FinishingChoice::bookletFold};

constexpr std::int32_t NoPosition = 1; // of holes, of a booklet's folding

// Those that decide on the chosen family.
std::vector<Position> UsedPositions(const FinishingChoice& choice)
{
    std::vector<Position> used;
    if (const auto parts = PartsOfFinishing(choice.option)) {
        const auto* staples = parts->staples ? StaplesOf(choice) : nullptr;
        used.push_back(staples == nullptr ? nullptr : staples->position);
        used.push_back(parts->holes ? &FinishingChoice::punch : nullptr);
        used.push_back(parts->zFold ? &FinishingChoice::zFold : nullptr);
    } else if (choice.option == 0 || choice.option == UnsetValue) {
        used.push_back(&FinishingChoice::bookletFold); // nothing chosen: the booklet's own folding
    }
    for (const FamilyRow& row : Families) {
        used.push_back(row.option == choice.option ? row.position : nullptr);
    }
    return used;
}

std::string OffsetText(std::int32_t offset, const CFBundle& bundle)
{
    const char* key = LocalizedKeyForTicketValue(OffsetMap, offset);
    return bundle.localizedString("Offset") +
           bundle.localizedString(key == nullptr ? "PrinterDefault" : key);
}

} // namespace

FinishingChoice::FinishingChoice(const CFDictionary& ticket)
{
    for (const NumberEntry& entry : NumberEntries) {
        this->*entry.value = ticket.int32(entry.key).value_or(this->*entry.value);
    }
    if (const auto* text = ticket.get<std::string>(CustomFinishingKey)) {
        customText = *text;
    }
    bookletLayout = ticket.isTrue(BookletLayoutKey);
}

bool IsPunched(const FinishingChoice& choice)
{
    const auto parts = PartsOfFinishing(choice.option);
    return choice.option == Family::HolePunch || (parts && parts->holes);
}

std::vector<std::string_view> MissingFinishingKeys(const FinishingChoice& choice)
{
    if (choice.option == Family::Custom && choice.customText.empty()) {
        return {CustomFinishingKey};
    }
    std::vector<std::string_view> keys;
    if (const auto parts = PartsOfFinishing(choice.option)) {
        for (const Position position : MissingParts(*parts, choice)) {
            keys.push_back(KeyOf(position));
        }
        return keys;
    }
    for (const FamilyRow& row : Families) {
        if (row.option != choice.option) {
            continue;
        }
        if (HasWord(row.map, choice.*row.position)) {
            return {};
        }
        keys = {KeyOf(row.position)};
    }
    return keys;
}

std::vector<std::string_view> UnusedFinishingKeys(const FinishingChoice& choice)
{
    const auto used = UsedPositions(choice);
    std::vector<std::string_view> keys;
    for (const Position position : Positions) {
        const bool isChosen = IsSet(choice.*position) && choice.*position != NoPosition;
        if (isChosen && std::find(used.begin(), used.end(), position) == used.end()) {
            keys.push_back(KeyOf(position));
        }
    }
    return keys;
}

std::int32_t FinishingChoice::*FinishingPosition(std::int32_t option)
{
    const FamilyRow* family = RowOf(option);
    const bool hasPosition = family != nullptr && family->position != &FinishingChoice::option;
    return hasPosition ? family->position : nullptr;
}

std::vector<const SettingMap*> FinishingPositionMaps(std::int32_t option)
{
    std::vector<const SettingMap*> maps;
    for (const FamilyRow& row : Families) {
        if (row.option == option && row.position != &FinishingChoice::option) {
            maps.push_back(row.map);
        }
    }
    return maps;
}

bool FoldsBooklet(const FinishingChoice& choice)
{
    const bool isOwn = choice.option == Family::Booklet ||
                       choice.option == Family::PrinterDefault || choice.option == UnsetValue;
    return isOwn && LocalizedKeyForTicketValue(BookletFoldMap, choice.bookletFold) != nullptr;
}

FinishingChoice WithoutUnusedPositions(FinishingChoice choice)
{
    const auto used = UsedPositions(choice);
    for (const Position position : Positions) {
        if (std::find(used.begin(), used.end(), position) == used.end() &&
            position != &FinishingChoice::bookletFold) {
            choice.*position = 0;
        }
    }
    if (!IsPunched(choice)) {
        choice.holes = DefaultHoles;
    }
    if (choice.option != Family::Booklet && !choice.bookletLayout) {
        choice.bookletFold = NoPosition;
    }
    return choice;
}

std::string CreateFinishingString(const FinishingChoice& choice, const CFBundle& bundle)
{
    std::string lines = FamilyLines(choice, bundle);
    if (choice.bookletLayout) {
        lines += bundle.localizedString("Booklet Layout") + "\n";
    }
    if (choice.slipSheet == SlipSheetsOn) {
        lines += bundle.localizedString("SlipSheet") + "\n";
    }
    return lines + OffsetText(choice.offset, bundle) + "\n";
}

} // namespace tarvo
