#include "tpif/TPIFFinishing.h"

#include "settings/TicketKeys.h"
#include "tpif/TPIFCommands.h"
#include "tpif/TPIFElement.h"
#include "tpif/TPIFWord.h"

#include <algorithm>
#include <cstdio>
#include <span>

namespace tarvo {
namespace {

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
// Beside staples alone the driver has a further position, which no set part stands for.
constexpr IndexRow StapledPunchIndexes[] = {
    {32, 31},
    {33, 32},
    {34, 33},
    {35, 34},
    {49, 38}
};
constexpr IndexRow HoleIndexes[] = {
    {3, 35},
    {4, 36},
    {5, 37}
};
constexpr std::int32_t DefaultHoles = 4; // three holes
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

void Report(const FinishingChoices& choices)
{
    std::fprintf(stderr,
                 "DEBUG: ******* finishingOptions = %ld, foldOptions = %ld, stapleValue = %ld, "
                 "holePunchValue = %ld, simpleFoldValue = %ld, bindValue = %ld, bookletValue = "
                 "%ld\n",
                 static_cast<long>(choices.option), static_cast<long>(choices.zFold),
                 static_cast<long>(choices.staple), static_cast<long>(choices.punch),
                 static_cast<long>(choices.fold), static_cast<long>(choices.bind),
                 static_cast<long>(choices.booklet));
}

// The parts that the finishing family takes from the choices.
FinishingData PartsOf(const FinishingChoices& choices, const CFDictionary& settings)
{
    FinishingData parts;
    switch (choices.option) {
    case 0: // nothing chosen: the booklet's own folding
    case 24:
        if (choices.booklet == 7) {
            parts.fold = 10;
        } else if (choices.booklet == 8) {
            parts.staple = 7;
        }
        break;
    case 1: // none
        parts.fold = 9;
        break;
    case 3: // signature booklet
        parts.fold = 15;
        break;
    case 4: // one, two and centre staples
    case 9:
    case 25:
        parts.staple = IndexOf(StapleIndexes, choices.staple);
        break;
    case 14:
        parts.fold = IndexOf(BindIndexes, choices.bind);
        break;
    case 18:
        parts.fold = IndexOf(SimpleFoldIndexes, choices.fold);
        break;
    case 22:
        parts.templateName = EscapedTPIFText(settings, CustomFinishingKey);
        break;
    case 30: // holes
        parts.punch = IndexOf(PunchIndexes, choices.punch);
        break;
    case 32: // holes, the position itself
    case 33:
    case 34:
    case 35:
        parts.punch = IndexOf(PunchIndexes, choices.option);
        break;
    case 36:
        parts.fold = IndexOf(ZFoldIndexes, choices.zFold);
        break;
    case 40:
        parts.fold = IndexOf(AdvancedFoldIndexes, choices.fold);
        break;
    case 49: // staples and holes
        parts.punch = IndexOf(StapledPunchIndexes, choices.punch);
        parts.staple = IndexOf(StapleIndexes, choices.staple);
        break;
    case 50: // all three
        parts.fold = IndexOf(ZFoldIndexes, choices.zFold);
        parts.punch = IndexOf(StapledPunchIndexes, choices.punch);
        parts.staple = IndexOf(StapleIndexes, choices.staple);
        break;
    case 51: // staples and Z-fold
        parts.fold = IndexOf(ZFoldIndexes, choices.zFold);
        parts.staple = IndexOf(StapleIndexes, choices.staple);
        break;
    case 52: // Z-fold and holes
        parts.fold = IndexOf(ZFoldIndexes, choices.zFold);
        parts.punch = IndexOf(StapledPunchIndexes, choices.punch);
        break;
    default:
        break;
    }
    return parts;
}

bool IsPunched(std::int32_t option)
{
    constexpr std::int32_t PunchedOptions[] = {30, 32, 33, 34, 35, 49, 50, 52};
    return std::find(std::begin(PunchedOptions), std::end(PunchedOptions), option) !=
           std::end(PunchedOptions);
}

void WriteSlipSheets(TPIFChannel& writeData, const CFDictionary& settings)
{
    constexpr std::int32_t SlipSheetsOn = 2;
    const auto slipSheet = settings.int32(SlipSheetKey);
    if (!slipSheet) {
        return;
    }
    std::fputs("DEBUG: ************ SLIPSHEET ************\n", stderr);
    if (*slipSheet == SlipSheetsOn) {
        std::fputs("DEBUG: ************** SLIPSHEET ON ****************\n", stderr);
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

void WriteTPIFFinishing(TPIFChannel& writeData, const CFDictionary& settings)
{
    const FinishingChoices choices(settings);
    Report(choices);
    WriteSlipSheets(writeData, settings);
    FinishingData parts = PartsOf(choices, settings);
    if (IsPunched(choices.option)) {
        parts.holes =
            IndexOf(HoleIndexes, settings.int32(HolePunchOptionsKey).value_or(DefaultHoles));
    }
    WriteTPifFinishing(writeData, parts);
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
    std::fprintf(stderr,
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
