#include "tpif/TPIFImportFinishing.h"

#include "settings/CombinedFinishing.h"
#include "settings/FinishingMaps.h"
#include "settings/TicketKeys.h"

#include <algorithm>

namespace tarvo {
namespace {

namespace Family = FinishingFamily;

// The entry that a keyword of the set chooses in; the first row whose beginning it has decides.
struct PartRow {
    std::string_view keywordStart;
    std::string_view key;
};

constexpr PartRow Parts[] = {
    {"None",             FinishingOptionsKey },
    {"SignatureBooklet", FinishingOptionsKey },
    {"1Staple",          Staple1ValueKey     },
    {"2Staples",         Staple2ValueKey     },
    {"CenterStaple",     StapleCenterValueKey},
    {"BookletFold",      BookletFoldStapleKey},
    {"Bind",             BindValueKey        },
    {"FoldCFold",        FoldValueKey        },
    {"FoldZFold",        FoldValueKey        },
    {"BiFold",           FoldValueKey        },
    {"CTriFold",         FoldValueKey        },
    {"ZTriFold",         FoldValueKey        },
    {"ZFold",            ZFoldValueKey       },
    {"HolePunch",        HolePunchValueKey   },
    {"Holes",            HolePunchOptionsKey },
};

constexpr std::string_view PartKeys[] = {Staple1ValueKey, Staple2ValueKey, StapleCenterValueKey,
                                         FoldValueKey,    BindValueKey,    HolePunchValueKey,
                                         ZFoldValueKey};
constexpr std::string_view StapleKeys[] = {Staple1ValueKey, Staple2ValueKey, StapleCenterValueKey};

constexpr const char* SaidBefore = "it is said before";

std::int32_t NumberOf(const CFDictionary& dictionary, std::string_view key)
{
    return dictionary.int32(key).value_or(0);
}

bool HasStaple(const CFDictionary& parts)
{
    return std::any_of(std::begin(StapleKeys), std::end(StapleKeys),
                       [&](std::string_view key) { return NumberOf(parts, key) != 0; });
}

// A family and the choices in one entry that it stands for.
struct FamilyRow {
    std::string_view key;
    const SettingMap* choices; // null: any
    std::int32_t family;
};

// Of a set with parts of one kind; the first row that holds decides.
constexpr FamilyRow Families[] = {
    {Staple1ValueKey,      nullptr,               Family::OneStaple   },
    {Staple2ValueKey,      nullptr,               Family::TwoStaples  },
    {StapleCenterValueKey, nullptr,               Family::CenterStaple},
    {HolePunchValueKey,    nullptr,               Family::HolePunch   },
    {ZFoldValueKey,        nullptr,               Family::ZFold       },
    {FoldValueKey,         FoldMap,               Family::Fold        },
    {FoldValueKey,         ComplexBookletFoldMap, Family::AdvancedFold},
    {FoldValueKey,         ComplexFoldMap,        Family::AdvancedFold},
    {BindValueKey,         nullptr,               Family::Bind        },
    {BookletFoldStapleKey, BookletFoldMap,        Family::Booklet     },
};

std::optional<std::int32_t> FamilyOf(const CFDictionary& parts)
{
    if (const auto family =
            FinishingOfParts({HasStaple(parts), NumberOf(parts, HolePunchValueKey) != 0,
                              NumberOf(parts, ZFoldValueKey) != 0})) {
        return family;
    }
    for (const FamilyRow& row : Families) {
        const std::int32_t choice = NumberOf(parts, row.key);
        const bool isRows =
            row.choices == nullptr || LocalizedKeyForTicketValue(row.choices, choice) != nullptr;
        if (choice != 0 && isRows) {
            return row.family;
        }
    }
    return std::nullopt;
}

} // namespace

TPIFFinishingImport::TPIFFinishingImport(const TPIFImportFeatures& features)
    : finishings_(features.named("Finishings"))
{
}

void TPIFFinishingImport::add(const TPIFImportGroup& group, const TPIFImportNode& value)
{
    const auto finishing = finishings_.valueOf(group, &value);
    if (!finishing) {
        return;
    }
    const auto* part = std::find_if(std::begin(Parts), std::end(Parts), [&](const PartRow& row) {
        return finishing->keyword.starts_with(row.keywordStart);
    });
    if (part == std::end(Parts)) {
        group.tell(TPIFImportOutcome::Lost, value, "no ticket entry stands for it");
        return;
    }
    const bool isRepeated = !keywords_.insert(finishing->keyword).second;
    hasTwice_ = isRepeated || hasTwice_;
    if (group.isObserved()) {
        const bool isSaidAgain = isRepeated && parts_.int32(part->key) == finishing->number;
        keep(group, value, isSaidAgain ? repeated_ : lastOfParts_[part->key]);
    }
    parts_.set(part->key, finishing->number);
}

// What a value comes to is known when the set is whole.
void TPIFFinishingImport::keep(const TPIFImportGroup& group, const TPIFImportNode& value,
                               std::optional<TPIFImportNode>& kept)
{
    if (kept) {
        group.tellIgnored(&*kept, "a later one of its kind counts");
    }
    kept = value;
}

void TPIFFinishingImport::tell(const TPIFImportGroup& group, const CFDictionary& result) const
{
    const bool isUnknownPosition = result.int32(HolePunchValueKey) == DriversPunchPosition;
    for (const auto& [key, node] : lastOfParts_) {
        const std::int32_t choice = NumberOf(parts_, key);
        if (result.int32(key) != choice) {
            group.tellIgnored(&*node, "the values beside it decide");
            continue;
        }
        group.tellTaken(*node, key, choice);
        if (key == HolePunchOptionsKey && isUnknownPosition &&
            !parts_.contains(HolePunchValueKey)) {
            group.tellTaken(*node, HolePunchValueKey, DriversPunchPosition);
        }
    }
    if (repeated_ && isUnknownPosition) {
        group.tellTaken(*repeated_, HolePunchValueKey, DriversPunchPosition);
    } else if (repeated_) {
        group.tellIgnored(&*repeated_, SaidBefore);
    }
}

bool TPIFFinishingImport::isBesideStapleOrZFold() const
{
    return HasStaple(parts_) || NumberOf(parts_, ZFoldValueKey) != 0;
}

void TPIFFinishingImport::store(CFDictionary& result) const
{
    if (parts_.empty()) {
        return;
    }
    const bool hasHoles = parts_.contains(HolePunchOptionsKey);
    const bool hasPosition = parts_.contains(HolePunchValueKey);
    // A punch position that documents don't know repeats the value before it.
    const bool isUnknownPosition =
        isBesideStapleOrZFold() && (hasTwice_ || (hasHoles && !hasPosition));
    for (const std::string_view key : PartKeys) {
        result.set(key, NumberOf(parts_, key));
    }
    if (isUnknownPosition) {
        result.set(HolePunchValueKey, DriversPunchPosition);
    }
    const bool isPunched = isUnknownPosition || hasPosition;
    result.set(HolePunchOptionsKey,
               parts_.int32(HolePunchOptionsKey).value_or(isPunched ? 0 : DefaultHoles));
    for (const std::string_view key : {FinishingOptionsKey, BookletFoldStapleKey}) {
        if (const auto choice = parts_.int32(key)) {
            result.set(key, *choice);
        }
    }
}

void ComputeFinishingOptionKey(CFDictionary& result)
{
    const bool hasParts = result.contains(BookletFoldStapleKey) ||
                          std::any_of(std::begin(PartKeys), std::end(PartKeys),
                                      [&](std::string_view key) { return result.contains(key); });
    const auto family = hasParts ? FamilyOf(result) : std::nullopt;
    if (family) {
        result.set(FinishingOptionsKey, *family);
    }
}

TPIFOffsetImport::TPIFOffsetImport(const TPIFImportFeatures& features)
    : offset_(features.named("Offset")), pagesPerSubset_(features.named("PagesPerSubset"))
{
}

void TPIFOffsetImport::add(const TPIFImportGroup& group, const TPIFImportNode& value)
{
    if (const auto member = offset_.valueOf(group, &value)) {
        if (!members_.try_emplace(member->number, value).second) {
            group.tellIgnored(&value, SaidBefore);
        }
    }
}

// None 2, each set 3, each subset 4, both 5. None beside another says nothing.
std::optional<std::int32_t> TPIFOffsetImport::offset() const
{
    if (members_.size() == 1) {
        return 2 + members_.begin()->first;
    }
    const bool isBoth = members_.size() == 2 && members_.contains(1) && members_.contains(2);
    return isBoth ? std::optional(5) : std::nullopt;
}

void TPIFOffsetImport::store(const TPIFImportGroup& group, CFDictionary& result) const
{
    constexpr std::int32_t NoOffsetGiven = 1; // and yet the entry that the pages stand beside
    const auto given = offset();
    if (given) {
        result.set(OffsetKey, *given);
    }
    for (const auto& [number, node] : members_) {
        if (given) {
            group.tellTaken(node, OffsetKey, *given);
        } else {
            group.tell(TPIFImportOutcome::Lost, node, "no ticket value stands for all of the set");
        }
    }
    TPIFImportTarget target(result, group);
    for (const std::size_t path : {0U, 1U}) { // alone, or as the set's value
        if (const auto pages = pagesPerSubset_.number(group, path)) {
            target.set(OffsetPagesPerSubsetKey, *pages, {pagesPerSubset_.node(group, path)});
            result.set(OffsetEnableSubsetKey, 1);
            if (!given) {
                result.set(OffsetKey, NoOffsetGiven);
            }
            return;
        }
    }
}

} // namespace tarvo
