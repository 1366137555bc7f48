#include "tpif/TPIFSpecialPages.h"

#include "records/SpecialPageKeys.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFColor.h"
#include "tpif/TPIFCommands.h"
#include "tpif/TPIFDocument.h"
#include "tpif/TPIFElement.h"
#include "tpif/TPIFImageShift.h"
#include "tpif/TPIFMedia.h"
#include "tpif/TPIFWords.h"

#include <iterator>

namespace tarvo {
namespace {

// The only side of a back cover that is printed alone is its back: 2 and 3 share a word on purpose.
constexpr TPIFWord BackCoverWords[] = {
    {"print-none", 1},
    {"print-back", 2},
    {"print-back", 3},
    {"print-both", 4},
    {nullptr,      0},
};

void WriteTPifCover(TPIFChannel& writeData, std::string_view element, const TPIFWord* words,
                    const CFDictionary& cover, const PageFormat* pageFormat)
{
    const char* word = WordForValue(words, cover.int32(SidesImagedKey).value_or(1));
    const TPIFBlock collection(writeData, AttributeIndent, element, TPIFSyntax::Collection);
    WriteTPIFElement(writeData, MemberIndent, "cover-type", TPIFSyntax::Keyword,
                     word != nullptr ? word : "no-cover");
    WriteTPIFPageStock(writeData, cover, pageFormat);
}

void WriteTPifInsert(TPIFChannel& writeData, const CFDictionary& insert,
                     const PageFormat* pageFormat)
{
    const TPIFBlock value(writeData, MemberIndent, "value", TPIFSyntax::Collection);
    WriteTPIFElement(writeData, MemberIndent, "insert-after-page-number",
                     insert.int32(StartPageKey).value_or(1));
    WriteTPIFElement(writeData, MemberIndent, "insert-count",
                     insert.int32(InsertQuantityKey).value_or(1));
    WriteTPIFPageStock(writeData, insert, pageFormat);
}

void WriteRange(TPIFChannel& writeData, std::string_view element, std::int32_t lower,
                std::int32_t upper)
{
    const TPIFBlock set(writeData, MemberIndent, element, TPIFSyntax::OneSetOf);
    const TPIFBlock value(writeData, MemberIndent + 1, "value", TPIFSyntax::RangeOfInteger);
    WriteTPIFElement(writeData, MemberIndent + 2, "lower-bound", lower);
    WriteTPIFElement(writeData, MemberIndent + 2, "upper-bound", upper);
}

FullColorData PageColor(const CFDictionary& page)
{
    const auto* options = page.get<CFDictionary>(PageFullColorKey);
    FullColorData color = options != nullptr ? FillFullColorOptions(*options) : FullColorData();
    color.antialiasing = page.int32(PageAntialiasingKey).value_or(UnsetValue);
    color.outputColor = page.int32(PageOutputColorKey).value_or(UnsetValue);
    return color;
}

// The simple elements and the colour keep the attributes' indent inside the page.
void WriteTPifPageException(TPIFChannel& writeData, const CFDictionary& page,
                            const PageFormat* pageFormat)
{
    const TPIFBlock value(writeData, MemberIndent, "value", TPIFSyntax::Collection);
    WriteRange(writeData, "input-documents", 1, 1); // a job has one document
    WriteRange(writeData, "pages", page.int32(StartPageKey).value_or(1),
               page.int32(EndPageKey).value_or(1));
    // One-sided 1, long edge 2, short edge 3; the command counts from 0.
    const auto sides = page.int32(SidesImagedKey);
    if (sides && *sides >= 1 && *sides <= 3) {
        WriteTPifCommands(writeData, TPIFCommand::Sides, *sides - 1);
    }
    if (const auto lighten = page.int32(PageLightenDarkenKey)) {
        WriteTPifCommands(writeData, TPIFCommand::LightenDarken, *lighten);
    }
    if (const auto* shift = page.get<CFDictionary>(PageImageShiftKey)) {
        WriteTPifImageShift(writeData, MemberIndent, FillImageShift(*shift));
    }
    WriteTPIFPageStock(writeData, page, pageFormat);
    WriteTPifFullColor(writeData, PageColor(page));
}

// Writes the set around a list's pages; an absent or empty list writes nothing.
template <typename WritePage>
void WriteList(TPIFChannel& writeData, const CFArray* pages, TPIFSpecialPages kind,
               WritePage writePage)
{
    if (pages == nullptr || pages->empty()) {
        return;
    }
    WriteTPifSpecialPagesStart(writeData, kind);
    for (const CFPropertyList& page : *pages) {
        if (const auto* dictionary = page.get<CFDictionary>()) {
            writePage(*dictionary);
        }
    }
    WriteTPifSpecialPagesEnd(writeData, kind);
}

} // namespace

void WriteTPIFFrontCover(TPIFChannel& writeData, const CFDictionary& settings,
                         const PageFormat* pageFormat)
{
    if (const auto* cover = settings.get<CFDictionary>(FrontCoverKey)) {
        WriteTPifCover(writeData, "cover-front", FrontCoverWords, *cover, pageFormat);
    }
}

void WriteTPIFBackCover(TPIFChannel& writeData, const CFDictionary& settings,
                        const PageFormat* pageFormat)
{
    if (const auto* cover = settings.get<CFDictionary>(BackCoverKey)) {
        WriteTPifCover(writeData, "cover-back", BackCoverWords, *cover, pageFormat);
    }
}

void WriteTPIFInserts(TPIFChannel& writeData, const CFDictionary& settings,
                      const PageFormat* pageFormat)
{
    WriteList(writeData, settings.get<CFArray>(InsertListKey), TPIFSpecialPages::InsertSheets,
              [&](const CFDictionary& insert) { WriteTPifInsert(writeData, insert, pageFormat); });
}

void WriteTPIFExceptions(TPIFChannel& writeData, const CFDictionary& settings,
                         const PageFormat* pageFormat)
{
    WriteList(
        writeData, settings.get<CFArray>(ExceptionListKey), TPIFSpecialPages::PageOverrides,
        [&](const CFDictionary& page) { WriteTPifPageException(writeData, page, pageFormat); });
}

} // namespace tarvo
