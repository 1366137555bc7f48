#include "tpif/TPIFImportFinishing.h"

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

std::optional<std::int32_t> CombinedFamily(bool isStapled, bool isPunched, bool isZFolded)
{
    if (isStapled && isPunched) {
        return isZFolded ? Family::StaplesHolesAndZFold : Family::StaplesAndHoles;
    }
    if (isZFolded && (isStapled || isPunched)) {
        return isStapled ? Family::StaplesAndZFold : Family::HolesAndZFold;
    }
    return std::nullopt;
}

std::optional<std::int32_t> FamilyOf(const CFDictionary& parts)
{
    if (const auto family =
            CombinedFamily(HasStaple(parts), NumberOf(parts, HolePunchValueKey) != 0,
                           NumberOf(parts, ZFoldValueKey) != 0)) {
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
    hasTwice_ = !keywords_.insert(finishing->keyword).second || hasTwice_;
    parts_.set(part->key, finishing->number);
    group.tellTaken(value, part->key, finishing->number);
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
        members_.insert(member->number);
        group.tellTaken(value, OffsetKey, member->number + 2);
    }
}

// None 2, each set 3, each subset 4, both 5. None beside another says nothing.
std::optional<std::int32_t> TPIFOffsetImport::offset() const
{
    static const std::set<std::int32_t> Both = {1, 2};
    if (members_.size() == 1) {
        return 2 + *members_.begin();
    }
    return members_ == Both ? std::optional(5) : std::nullopt;
}

void TPIFOffsetImport::store(const TPIFImportGroup& group, CFDictionary& result) const
{
    constexpr std::int32_t NoOffsetGiven = 1; // and yet the entry that the pages stand beside
    const auto given = offset();
    if (given) {
        result.set(OffsetKey, *given);
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
