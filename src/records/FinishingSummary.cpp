#include "records/FinishingSummary.h"

#include "platform/bundle/CFBundle.h"
#include "settings/FinishingMaps.h"
#include "settings/TicketKeys.h"

#include <algorithm>
#include <iterator>

namespace tarvo {
namespace {

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

constexpr std::int32_t HolePunching = 30;

constexpr FamilyRow Families[] = {
    {1,  &FinishingChoice::option,       PlainFinishingMap    },
    {3,  &FinishingChoice::option,       PlainFinishingMap    },
    {4,  &FinishingChoice::oneStaple,    OneStapleMap         },
    {9,  &FinishingChoice::twoStaples,   TwoStaplesMap        },
    {14, &FinishingChoice::bind,         BindMap              },
    {18, &FinishingChoice::fold,         FoldMap              },
    {24, &FinishingChoice::bookletFold,  BookletFoldMap       },
    {25, &FinishingChoice::centerStaple, CenterStapleMap      },
    {30, &FinishingChoice::punch,        PunchMap             },
    {36, &FinishingChoice::zFold,        ZFoldMap             },
    {40, &FinishingChoice::fold,         ComplexBookletFoldMap},
    {40, &FinishingChoice::fold,         ComplexFoldMap       },
};
constexpr std::int32_t CustomFinishing = 22;

// The parts of the combined families, each a line.
struct CombinationRow {
    std::int32_t option;
    bool staples;
    bool holes;
    bool zFold;
};

constexpr CombinationRow Combinations[] = {
    {49, true,  true,  false},
    {50, true,  true,  true },
    {51, true,  false, true },
    {52, false, true,  true },
};

// The staples of a combination: the first of these that the ticket sets. On the side that has the
// holes, the line of the holes tells where; the staples then have the short text.
struct StapleRow {
    std::int32_t FinishingChoice::*position;
    const SettingMap* map;
    const char* shortKey; // null when the family has none
};

constexpr StapleRow StapleFamilies[] = {
    {&FinishingChoice::oneStaple,    OneStapleMap,    nullptr          },
    {&FinishingChoice::twoStaples,   TwoStaplesMap,   "2 Staples"      },
    {&FinishingChoice::centerStaple, CenterStapleMap, "1 Center Staple"},
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

std::string StapleText(const FinishingChoice& choice, bool besideHoles, const CFBundle& bundle)
{
    const auto* family =
        std::find_if(std::begin(StapleFamilies), std::end(StapleFamilies),
                     [&choice](const StapleRow& row) { return IsSet(choice.*row.position); });
    if (family == std::end(StapleFamilies)) {
        return "";
    }
    const std::int32_t position = choice.*family->position;
    if (besideHoles && family->shortKey != nullptr &&
        AreOnTheSameSide(family->map, position, choice.punch)) {
        return bundle.localizedString(family->shortKey) + bundle.localizedString(",");
    }
    return TextOrNothing(family->map, position, bundle);
}

std::string CombinedLines(const CombinationRow& parts, const FinishingChoice& choice,
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
    if (choice.option == CustomFinishing) {
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
    for (const CombinationRow& row : Combinations) {
        if (row.option == choice.option) {
            return CombinedLines(row, choice, bundle);
        }
    }
    return FamilyText(choice, bundle) + "\n";
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
    return choice.option == HolePunching ||
           std::any_of(std::begin(Combinations), std::end(Combinations),
                       [&choice](const CombinationRow& row) {
                           return row.option == choice.option && row.holes;
                       });
}

std::string CreateFinishingString(const FinishingChoice& choice, const CFBundle& bundle)
{
    constexpr std::int32_t SlipSheetsOn = 2;
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
