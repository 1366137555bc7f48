#include "tpif/TPIFFinishing.h"

#include "settings/FinishingMaps.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFCommands.h"
#include "tpif/TPIFElement.h"
#include "tpif/TPIFWord.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace tarvo {
namespace {

namespace Family = FinishingFamily;

constexpr std::int32_t NoFinishing = FinishingData::NoFinishing;

// A ticket's choice and the index of the set's part that it becomes.
struct IndexRow {
    std::int32_t choice;
    std::int32_t index;
};

constexpr IndexRow StapleIndexes[] = {
    {5,  0 },
    {6,  2 },
    {7,  1 },
    {8,  20}, // one staple
    {10, 3 },
    {11, 4 },
    {12, 5 },
    {13, 6 }, // two staples
    {26, 16},
    {27, 17},
    {28, 18},
    {29, 19}, // centre staple
};
constexpr IndexRow PunchIndexes[] = {
    {32, 31},
    {33, 32},
    {34, 33},
    {35, 34}
};
constexpr IndexRow CombinedPunchIndexes[] = {
    {32,                   31},
    {33,                   32},
    {34,                   33},
    {35,                   34},
    {DriversPunchPosition, 38}
};
constexpr IndexRow HoleIndexes[] = {
    {3, 35},
    {4, 36},
    {5, 37}
};
constexpr IndexRow BookletStapleIndexes[] = {
    {8, 7}
};
constexpr IndexRow BookletFoldIndexes[] = {
    {7, 10}
};
// No finishing and the signature booklet count as folds.
constexpr IndexRow OptionFoldIndexes[] = {
    {1, 9 },
    {3, 15},
};
constexpr IndexRow ZFoldIndexes[] = {
    {38, 25},
    {39, 26}
};
constexpr IndexRow BindIndexes[] = {
    {15, 13},
    {16, 14}
};
constexpr IndexRow SimpleFoldIndexes[] = {
    {19, 11},
    {20, 12}
};
constexpr IndexRow AdvancedFoldIndexes[] = {
    {41, 21},
    {42, 22},
    {43, 23},
    {44, 24},
    {45, 27},
    {46, 28},
    {47, 29},
    {48, 30},
};

// The enum values of the document, by index. An index without a row is not known to the document.
struct EnumRow {
    std::int32_t index;
    std::int32_t value;
};

constexpr EnumRow StapleEnums[] = {
    {0,  20 },
    {1,  22 },
    {2,  21 },
    {3,  28 },
    {4,  29 },
    {5,  31 },
    {6,  30 },
    {7,  110},
    {16, 32 },
    {17, 33 },
    {18, 35 },
    {19, 34 },
    {20, 23 },
};
constexpr EnumRow FoldEnums[] = {
    {9,  3   },
    {10, 111 },
    {11, 1000},
    {12, 1001},
    {13, 50  },
    {14, 52  },
    {15, 13  },
    {21, 1003},
    {22, 1004},
    {23, 111 },
    {24, 110 },
    {25, 1011},
    {26, 1008},
    {27, 1000},
    {28, 1005},
    {29, 1001},
    {30, 1012},
};
constexpr EnumRow PunchEnums[] = {
    {31, 93},
    {32, 94},
    {33, 95},
    {34, 96}
};
constexpr EnumRow HoleEnums[] = {
    {35, 90},
    {36, 91},
    {37, 92}
};

std::int32_t IndexOf(std::span<const IndexRow> rows, std::int32_t choice)
{
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [choice](const IndexRow& each) { return each.choice == choice; });
    return row == rows.end() ? NoFinishing : row->index;
}

// What the ticket holds; absent numbers are 0.
struct FinishingChoices {
    explicit FinishingChoices(const CFDictionary& settings);

    std::int32_t option = 0;
    std::int32_t zFold = 0;
    std::int32_t staple = 0; // of the first staple family that is set
    std::int32_t punch = 0;
    std::int32_t fold = 0;
    std::int32_t bind = 0;
    std::int32_t booklet = 0;
};

FinishingChoices::FinishingChoices(const CFDictionary& settings)
{
    const auto number = [&settings](std::string_view key) {
        return settings.int32(key).value_or(0);
    };
    option = number(FinishingOptionsKey);
    zFold = number(ZFoldValueKey);
    for (const auto key : {Staple1ValueKey, Staple2ValueKey, StapleCenterValueKey}) {
        staple = staple == 0 ? number(key) : staple;
    }
    punch = number(HolePunchValueKey);
    fold = number(FoldValueKey);
    bind = number(BindValueKey);
    booklet = number(BookletFoldStapleKey);
}

void Report(const TPIFChannel& writeData, const FinishingChoices& choices)
{
    DevDiagnose(writeData,
                "DEBUG: ******* finishingOptions = %ld, foldOptions = %ld, stapleValue = %ld, "
                "holePunchValue = %ld, simpleFoldValue = %ld, bindValue = %ld, bookletValue = "
                "%ld\n",
                static_cast<long>(choices.option), static_cast<long>(choices.zFold),
                static_cast<long>(choices.staple), static_cast<long>(choices.punch),
                static_cast<long>(choices.fold), static_cast<long>(choices.bind),
                static_cast<long>(choices.booklet));
}

// A part of the set: the choice that decides on it, and what that choice becomes.
struct PartRule {
    std::int32_t FinishingChoices::*choice;
    std::span<const IndexRow> indexes;
};

constexpr PartRule NoPart = {&FinishingChoices::option, {}};
constexpr PartRule Staples = {&FinishingChoices::staple, StapleIndexes};
constexpr PartRule BookletStaple = {&FinishingChoices::booklet, BookletStapleIndexes};
constexpr PartRule BookletFold = {&FinishingChoices::booklet, BookletFoldIndexes};
constexpr PartRule OptionFold = {&FinishingChoices::option, OptionFoldIndexes};
constexpr PartRule Bind = {&FinishingChoices::bind, BindIndexes};
constexpr PartRule SimpleFold = {&FinishingChoices::fold, SimpleFoldIndexes};
constexpr PartRule AdvancedFold = {&FinishingChoices::fold, AdvancedFoldIndexes};
constexpr PartRule ZFold = {&FinishingChoices::zFold, ZFoldIndexes};
constexpr PartRule Punch = {&FinishingChoices::punch, PunchIndexes};
constexpr PartRule OptionPunch = {&FinishingChoices::option, PunchIndexes};
constexpr PartRule CombinedPunch = {&FinishingChoices::punch, CombinedPunchIndexes};

// Which parts a finishing family has: the printer's default has a booklet's own folding, and 32 to
// 35 are a position in place of a family. One that is punched has a number of holes besides.
struct FamilyRow {
    std::int32_t option;
    PartRule staple;
    PartRule fold;
    PartRule punch;
};

constexpr FamilyRow Families[] = {
    {Family::PrinterDefault,       BookletStaple, BookletFold,  NoPart       },
    {Family::None,                 NoPart,        OptionFold,   NoPart       },
    {Family::SignatureBooklet,     NoPart,        OptionFold,   NoPart       },
    {Family::OneStaple,            Staples,       NoPart,       NoPart       },
    {Family::TwoStaples,           Staples,       NoPart,       NoPart       },
    {Family::Bind,                 NoPart,        Bind,         NoPart       },
    {Family::Fold,                 NoPart,        SimpleFold,   NoPart       },
    {Family::Booklet,              BookletStaple, BookletFold,  NoPart       },
    {Family::CenterStaple,         Staples,       NoPart,       NoPart       },
    {Family::HolePunch,            NoPart,        NoPart,       Punch        },
    {32,                           NoPart,        NoPart,       OptionPunch  },
    {33,                           NoPart,        NoPart,       OptionPunch  },
    {34,                           NoPart,        NoPart,       OptionPunch  },
    {35,                           NoPart,        NoPart,       OptionPunch  },
    {Family::ZFold,                NoPart,        ZFold,        NoPart       },
    {Family::AdvancedFold,         NoPart,        AdvancedFold, NoPart       },
    {Family::StaplesAndHoles,      Staples,       NoPart,       CombinedPunch},
    {Family::StaplesHolesAndZFold, Staples,       ZFold,        CombinedPunch},
    {Family::StaplesAndZFold,      Staples,       ZFold,        NoPart       },
    {Family::HolesAndZFold,        NoPart,        ZFold,        CombinedPunch},
};

// Null when there is none, as for a template.
const FamilyRow* FamilyOf(std::int32_t option)
{
    const auto* family =
        std::find_if(std::begin(Families), std::end(Families),
                     [option](const FamilyRow& each) { return each.option == option; });
    return family == std::end(Families) ? nullptr : family;
}

FinishingData PartsOf(const FinishingChoices& choices, const CFDictionary& settings)
{
    FinishingData parts;
    if (choices.option == Family::Custom) {
        parts.templateName = EscapedTPIFText(settings, CustomFinishingKey);
        return parts;
    }
    const auto* family = FamilyOf(choices.option);
    if (family == nullptr) {
        return parts;
    }
    const auto index = [&choices](const PartRule& rule) {
        return IndexOf(rule.indexes, choices.*rule.choice);
    };
    parts.staple = index(family->staple);
    parts.fold = index(family->fold);
    parts.punch = index(family->punch);
    if (!family->punch.indexes.empty()) {
        parts.holes =
            IndexOf(HoleIndexes, settings.int32(HolePunchOptionsKey).value_or(DefaultHoles));
    }
    return parts;
}

void WriteSlipSheets(TPIFChannel& writeData, const CFDictionary& settings)
{
    constexpr std::int32_t SlipSheetsOn = 2;
    const auto slipSheet = settings.int32(SlipSheetKey);
    if (!slipSheet) {
        return;
    }
    DevDiagnose(writeData, "DEBUG: ************ SLIPSHEET ************\n");
    if (*slipSheet == SlipSheetsOn) {
        DevDiagnose(writeData, "DEBUG: ************** SLIPSHEET ON ****************\n");
        WriteTPifCommands(writeData, TPIFCommand::SlipSheets, 1);
    }
}

// The lines of the finishings set. The front end was built beside a writer that formatted every
// line into one buffer: a part that the document does not know puts out the line before once more,
// be it the set's own start tag.
class FinishingLines {
public:
    explicit FinishingLines(TPIFChannel& writeData) : writeData_(writeData)
    {
        put("\t\t<finishings syntax=\"1setOf\">\n");
    }

    void part(std::span<const EnumRow> rows, std::int32_t index)
    {
        if (index == NoFinishing) {
            return;
        }
        if (const EnumRow* row = rowOf(rows, index)) {
            value(*row);
        } else {
            put(line_);
        }
    }

    // Unlike the parts, an unknown number of holes is left out.
    void holes(std::int32_t index)
    {
        if (const EnumRow* row = rowOf(HoleEnums, index)) {
            value(*row);
        }
    }

    void end() { put("\t\t</finishings>\n"); }

private:
    static const EnumRow* rowOf(std::span<const EnumRow> rows, std::int32_t index)
    {
        for (const EnumRow& row : rows) {
            if (row.index == index) {
                return &row;
            }
        }
        return nullptr;
    }

    void value(const EnumRow& row)
    {
        put("\t\t\t<value syntax=\"enum\">" + std::to_string(row.value) + "</value>\n");
    }

    void put(std::string line)
    {
        DevWriteTpif(writeData_, line);
        line_ = std::move(line);
    }

    TPIFChannel& writeData_;
    std::string line_;
};

} // namespace

bool IsFinishingFamily(std::int32_t option)
{
    return option == Family::Custom || FamilyOf(option) != nullptr;
}

void WriteTPIFFinishing(TPIFChannel& writeData, const CFDictionary& settings)
{
    const FinishingChoices choices(settings);
    Report(writeData, choices);
    WriteSlipSheets(writeData, settings);
    WriteTPifFinishing(writeData, PartsOf(choices, settings));
    WriteTPIFOffset(writeData, settings);
}

void WriteTPifFinishing(TPIFChannel& writeData, const FinishingData& finishing)
{
    if (!finishing.templateName.empty()) {
        const TPIFBlock collection(writeData, AttributeIndent, "finishings-col",
                                   TPIFSyntax::Collection);
        WriteTPIFElement(writeData, MemberIndent, "finishing-template", TPIFSyntax::Name,
                         finishing.templateName);
        return;
    }
    if (finishing.staple == NoFinishing && finishing.fold == NoFinishing &&
        finishing.punch == NoFinishing) {
        return;
    }
    DevDiagnose(writeData,
                "DEBUG: WriteTPifFinishing: nStapleOptions = %d, nFoldOptions = %d, "
                "nHolePunchOptions = %d, nHolePunchNumHoles = %d\n",
                finishing.staple, finishing.fold, finishing.punch, finishing.holes);
    FinishingLines lines(writeData);
    lines.part(StapleEnums, finishing.staple);
    lines.part(FoldEnums, finishing.fold);
    lines.part(PunchEnums, finishing.punch);
    if (finishing.punch != NoFinishing) {
        lines.holes(finishing.holes);
    }
    lines.end();
}

void WriteTPIFOffset(TPIFChannel& writeData, const CFDictionary& settings)
{
    const auto offset = settings.int32(OffsetKey);
    if (!offset) {
        return;
    }
    // None 2, each set 3, each subset 4, both 5; the command counts from 0.
    if (*offset >= 2 && *offset <= 5) {
        WriteTPifCommands(writeData, TPIFCommand::JobOffset, *offset - 2);
    }
    if (settings.int32(OffsetEnableSubsetKey).value_or(0) != 0) {
        WriteTPifCommands(writeData, TPIFCommand::PagesPerSubset,
                          settings.int32(OffsetPagesPerSubsetKey).value_or(0));
    }
}

} // namespace tarvo
