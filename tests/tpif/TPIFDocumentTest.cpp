#include "tpif/TPIFDocument.h"

#include "TPIFTestSupport.h"
#include "support/TicketText.h"
#include "tpif/TPIFJob.h"
#include "tpif/TPIFWriter.h"

namespace tarvo {
namespace {

TEST(Document, HeaderNamesTheDocumentTypeOfItsVersion)
{
    const auto header = [](int version) {
        return Written([&](TPIFChannel& channel) { WriteTPifHeader(channel, version); });
    };
    const std::string without = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<tpif version=\"1.0\" xml:lang=\"en-US\" cpss-version=\"2.01\">\n";
    EXPECT_EQ(header(-1), without);
    EXPECT_NE(header(0).find("\n<!DOCTYPE tpif SYSTEM \"tpif-v02020.dtd\">\n"), std::string::npos);
    EXPECT_EQ(header(6), without);
}

TEST(Document, RecipientCanStandAlone)
{
    EXPECT_EQ(Written([](TPIFChannel& channel) { WriteTPifOpAttrib(channel, true, "job", "me"); }),
              "\t\t<job-recipient-name syntax=\"name\" xml:space=\"preserve\">me"
              "</job-recipient-name>\n");
}

TEST(Document, HoldsLongTextsWhole)
{
    const CFDictionary settings = TicketFromText(".JobNotesMessage: \"x\"*5000");
    EXPECT_EQ(Written([&](TPIFChannel& channel) { WriteTPIFJobNotes(channel, settings); }),
              "\t\t<job-message-to-operator syntax=\"text\" xml:space=\"preserve\">" +
                  std::string(5000, 'x') + "</job-message-to-operator>\n");
}

TEST(Export, TakesTheKeysOfTheMaker)
{
    EXPECT_TRUE(IsExportedKey("com.tarvo.print.JobType"));
    EXPECT_TRUE(IsExportedKey("com.tarvotic"));
    EXPECT_FALSE(IsExportedKey("com.tarv"));
    EXPECT_FALSE(IsExportedKey("UseJobName"));
    EXPECT_FALSE(IsExportedKey("x.com.tarvo.print.JobType"));
}

TEST(Channel, HandsOnLargeDocumentsInPieces)
{
    std::size_t pieces = 0;
    std::string text;
    {
        TPIFChannel channel([&](std::string_view piece) {
            ++pieces;
            text += piece;
        });
        DevWriteTpif(channel, std::string("before\0after", 12));
        DevWriteTpif(channel, std::string(200000, 'x'));
        EXPECT_EQ(pieces, 2U); // what waited, and the large piece uncopied
        DevWriteTpif(channel, "end");
    }
    EXPECT_EQ(pieces, 3U);
    EXPECT_EQ(text, "before" + std::string(200000, 'x') + "end");
}

} // namespace
} // namespace tarvo
