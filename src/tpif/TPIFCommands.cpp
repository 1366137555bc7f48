#include "tpif/TPIFCommands.h"

#include "tpif/TPIFElement.h"
#include "tpif/TPIFWords.h"

#include <algorithm>
#include <iterator>

namespace tarvo {
namespace {

constexpr TPIFWord TonerSaverWords[] = {
    {"none",     0},
    {"standard", 1},
    {nullptr,    0},
};

// An element whose content is the value.
struct NumberElement {
    std::int32_t command;
    const char* name;
    TPIFSyntax syntax;
};

constexpr NumberElement NumberElements[] = {
    {TPIFCommand::Copies,        "copies",                   TPIFSyntax::Integer      },
    {TPIFCommand::LightenDarken, "adjust-bw-darkness-value", TPIFSyntax::Integer      },
    {TPIFCommand::Lightness,     "adjust-lightness",         TPIFSyntax::SpacedInteger},
    {TPIFCommand::Contrast,      "adjust-contrast",          TPIFSyntax::SpacedInteger},
    {TPIFCommand::Saturation,    "adjust-saturation",        TPIFSyntax::SpacedInteger},
    {TPIFCommand::CyanRed,       "adjust-cyan-red",          TPIFSyntax::SpacedInteger},
    {TPIFCommand::MagentaGreen,  "adjust-magenta-green",     TPIFSyntax::SpacedInteger},
    {TPIFCommand::YellowBlue,    "adjust-yellow-blue",       TPIFSyntax::SpacedInteger},
    {TPIFCommand::TrapWidthFast, "trap-width-fast",          TPIFSyntax::Integer      },
    {TPIFCommand::TrapWidthSlow, "trap-width-slow",          TPIFSyntax::Integer      },
};

// An element whose content is the word for the value; a value without a word writes nothing.
struct KeywordElement {
    std::int32_t command;
    const char* name;
    const TPIFWord* words;
};

constexpr KeywordElement KeywordElements[] = {
    {TPIFCommand::Sides,             "sides",                     SidesWords            },
    {TPIFCommand::OutputBin,         "output-bin",                OutputBinWords        },
    {TPIFCommand::TonerSaver,        "toner-saver",               TonerSaverWords       },
    {TPIFCommand::DarknessMode,      "adjust-bw-darkness-mode",   DarknessModeWords     },
    {TPIFCommand::PageRotation,      "page-rotation",             PageRotationWords     },
    {TPIFCommand::OPIImageInsertion, "opi-image-insertion",       OPIImageInsertionWords},
    {TPIFCommand::OPIPreScan,        "opi-image-pre-scan",        OPIPreScanWords       },
    {TPIFCommand::AntiAliasing,      "anti-aliasing",             AntiAliasingWords     },
    {TPIFCommand::Trapping,          "trapping",                  TrappingWords         },
    {TPIFCommand::BlackOverprint,    "black-overprint",           BlackOverprintWords   },
    {TPIFCommand::RenderingImages,   "rendering-intent-images",   RenderingIntentWords  },
    {TPIFCommand::RenderingText,     "rendering-intent-text",     RenderingIntentWords  },
    {TPIFCommand::RenderingGraphics, "rendering-intent-graphics", RenderingIntentWords  },
    {TPIFCommand::PageDelivery,      "page-delivery",             PageDeliveryWords     },
    {TPIFCommand::ColorEffects,      "color-effects-type",        ColorEffectsWords     },
};

template <typename Element, std::size_t Count>
const Element* ElementOf(const Element (&elements)[Count], std::int32_t command)
{
    const auto* found =
        std::find_if(std::begin(elements), std::end(elements),
                     [command](const Element& element) { return element.command == command; });
    return found == std::end(elements) ? nullptr : found;
}

void WriteSimpleElement(TPIFChannel& writeData, std::int32_t command, std::int32_t value)
{
    if (const auto* number = ElementOf(NumberElements, command)) {
        WriteTPIFElement(writeData, AttributeIndent, number->name, value, number->syntax);
    }
    const auto* keyword = ElementOf(KeywordElements, command);
    const char* word = keyword == nullptr ? nullptr : WordForValue(keyword->words, value);
    if (word != nullptr) {
        WriteTPIFElement(writeData, AttributeIndent, keyword->name, TPIFSyntax::Keyword, word);
    }
}

void WriteCollate(TPIFChannel& writeData, std::int32_t value)
{
    WriteTPIFElement(writeData, AttributeIndent, "sheet-collate", TPIFSyntax::Keyword,
                     value == 1 ? "collated" : "uncollated");
}

// The document's enum counts from 3; what is no orientation is portrait.
void WriteOrientation(TPIFChannel& writeData, std::int32_t value)
{
    const std::int32_t orientation = value >= 0 && value <= 3 ? value + 3 : 3;
    WriteTPIFElement(writeData, AttributeIndent, "orientation-requested", orientation,
                     TPIFSyntax::Enum);
}

// The set is there for every value, with or without members.
void WriteJobOffset(TPIFChannel& writeData, std::int32_t value)
{
    const TPIFBlock set(writeData, AttributeIndent, "job-offset", TPIFSyntax::OneSetOf);
    for (const TPIFWord* member = OffsetWords; member->word != nullptr; ++member) {
        if (member->value == value) {
            WriteTPIFElement(writeData, MemberIndent, "value", TPIFSyntax::Keyword, member->word);
        }
    }
}

void WritePagesPerSubset(TPIFChannel& writeData, std::int32_t value)
{
    const TPIFBlock set(writeData, AttributeIndent, "pages-per-subset", TPIFSyntax::OneSetOf);
    WriteTPIFElement(writeData, MemberIndent, "value", value);
}

void WriteSlipSheets(TPIFChannel& writeData)
{
    const TPIFBlock sheets(writeData, AttributeIndent, "separator-sheets", TPIFSyntax::Collection);
    WriteTPIFElement(writeData, MemberIndent, "separator-sheets-type", TPIFSyntax::Keyword,
                     SlipSheetWords->word);
}

} // namespace

void WriteTPifCommands(TPIFChannel& writeData, std::int32_t command, std::int32_t value)
{
    switch (command) {
    case TPIFCommand::SheetCollate:
        WriteCollate(writeData, value);
        break;
    case TPIFCommand::Orientation:
        WriteOrientation(writeData, value);
        break;
    case TPIFCommand::JobOffset:
        WriteJobOffset(writeData, value);
        break;
    case TPIFCommand::PagesPerSubset:
        WritePagesPerSubset(writeData, value);
        break;
    case TPIFCommand::SlipSheets:
        WriteSlipSheets(writeData);
        break;
    default:
        WriteSimpleElement(writeData, command, value);
    }
}

} // namespace tarvo
