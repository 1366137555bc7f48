#include "records/SpecialPageTexts.h"

#include "records/SpecialPages.h"
#include "support/EchoBundle.h"
#include "support/TicketText.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

const CFBundle& Bundle()
{
    static const CFBundle bundle = EchoBundle(
        {"SpecialPageSummaryFront", "SpecialPageSummaryBack", "SpecialPageSummaryBefore1",
         "SpecialPageSummaryCover", "SpecialPageSummaryInsert", "SpecialPageSummaryException",
         "CoverBlankorPreprinted", "CoverPrintSide2", "InsertSummaryQuantity", "Duplex",
         "ImageShift", "MirrorX", "StockColor", "StockColorBlue", "StockWeight",
         "StockWeightUnit"});
    return bundle;
}

struct TextsCase {
    const char* name;
    SpecialPageTexts texts;
    const char* page;
    const char* type;
    const char* attributes;
};

TEST(SpecialPageTexts, TellWhatIsSetAndNoMore)
{
    const auto cover = [](const char* ticket, CoverPlace place) {
        return CoverTexts(Bundle(), Cover(TicketFromText(ticket)), place);
    };
    const auto insert = [](const char* ticket) {
        return InsertTexts(Bundle(), Insert(TicketFromText(ticket)));
    };
    const auto exception = [](const char* ticket) {
        return ExceptionPageTexts(Bundle(), ExceptionPage(TicketFromText(ticket)));
    };
    // clang-format off
    const TextsCase cases[] = {
        {"new cover", cover("", CoverPlace::Front),
            "<SpecialPageSummaryFront>", "<SpecialPageSummaryCover>", "<CoverBlankorPreprinted>"},
        {"cover on a stock of its own", cover("SidesImaged: 3, Stock: {Color: 2, Weight: 90}", CoverPlace::Back),
            "<SpecialPageSummaryBack>", "<SpecialPageSummaryCover>",
            "<CoverPrintSide2>;  <StockColor>:<StockColorBlue>, <StockWeight>:90 <StockWeightUnit>"},
        {"sides that covers do not have", cover("SidesImaged: 5", CoverPlace::Back),
            "<SpecialPageSummaryBack>", "<SpecialPageSummaryCover>", "STRING NOT FOUND"},
        {"insert before page 1", insert(""),
            "<SpecialPageSummaryBefore1>", "<SpecialPageSummaryInsert>", "<InsertSummaryQuantity> 1"},
        {"insert later", insert("StartPage: 12, Quantity: 3, Stock: {Color: 2}"),
            "12", "<SpecialPageSummaryInsert>", "<InsertSummaryQuantity> 3;  <StockColor>:<StockColorBlue>"},
        {"page with nothing set", exception("StartPage: 4, EndPage: 4"), "4", "<SpecialPageSummaryException>", ""},
        {"pages with all",
            exception("StartPage: 4, EndPage: 9, SidesImaged: 2, Stock: {Color: 2}, .ImageShiftOptionsPage: {Option: 3}"),
            "4-9", "<SpecialPageSummaryException>",
            "<Duplex>;  <StockColor>:<StockColorBlue>;  <ImageShift>:<MirrorX>"},
        {"shift alone, unknown", exception("EndPage: 1, .ImageShiftOptionsPage: {Option: 2}"),
            "0-1", "<SpecialPageSummaryException>", "<ImageShift>:STRING NOT FOUND"},
    };
    // clang-format on
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.texts.page, row.page);
        EXPECT_EQ(row.texts.type, row.type);
        EXPECT_EQ(row.texts.attributes, row.attributes);
    }
}

TEST(SpecialPageTexts, AreFoundByTheirColumns)
{
    const SpecialPageTexts texts = {"page", "type", "attributes"};
    std::string text;
    EXPECT_EQ(TextOfColumn(texts, 0x50414745, &text), StatusOk);
    EXPECT_EQ(text, "page");
    EXPECT_EQ(TextOfColumn(texts, FourCharCode("TYPE"), &text), StatusOk);
    EXPECT_EQ(text, "type");
    EXPECT_EQ(TextOfColumn(texts, FourCharCode("ATTR"), &text), StatusOk);
    EXPECT_EQ(TextOfColumn(texts, FourCharCode("Page"), &text), -4979);
    EXPECT_EQ(text, "attributes");
    EXPECT_EQ(TextOfColumn(texts, FourCharCode("PAGE"), nullptr), StatusBadArgument);
}

} // namespace
} // namespace tarvo
