#include "records/StockSummary.h"

#include "printer/FeatureMap.h"
#include "printer/PPDKeywordInfo.h"
#include "printer/PrinterDescription.h"
#include "support/EchoBundle.h"
#include "support/StockText.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

const CFBundle& Bundle()
{
    static const CFBundle bundle =
        EchoBundle({"StockName",       "StockSize",      "StockColor",       "StockType",
                    "StockPunched",    "StockWeight",    "StockDescription", "PrinterDefault",
                    "UseJobSetting",   "StockColorBlue", "StockTypePlain",   "StockTypePrecutTab",
                    "StockPunchedYes", "Custom",         "StockSize223x297", "Labels",
                    "StockWeightUnit", "Uncoated",       "One Sided",        "Two Sided",
                    "Gloss",           "Matte",          "Smooth",           "Short"});
    return bundle;
}

constexpr auto Job = JobContext::Job;
constexpr auto Page = JobContext::ExceptionPage;

struct SummaryCase {
    const char* name;
    JobContext context;
    const char* stock;
    const char* summary;
};

// clang-format off
constexpr SummaryCase SummaryCases[] = {
    {"a page's empty stock", Page, "", ""},
    {"a job's names all defaults but the size", Job, "Size=4",
        "<StockColor>:<PrinterDefault>; <StockType>:<PrinterDefault>; "
        "<StockPunched>:<PrinterDefault>; <StockWeight>:<PrinterDefault>; "
        "<StockDescription>:<PrinterDefault>"},
    {"all of a page's, in order", Page,
        "Description=thick Weight=75 Punched=2 Type=4 Modulus=5 Color=10 CustomColor=Teal Size=75 CustomName=Mine "
        "SidesCoated=2 Finish=1 kGrain=1 CustomComment=never",
        "<StockName>:Mine; <StockSize>:<Custom>; <StockColor>:Teal; "
        "<StockType>:<StockTypePrecutTab> (5); <StockPunched>:<StockPunchedYes>; <StockWeight>:75 <StockWeightUnit>; "
        "<StockDescription>:thick"},
    {"the name alone", Job, "CustomName=Mine CustomNameOnly=true Color=2", "<StockName>:Mine"},
    {"not even a name", Job, "CustomNameOnly=true Color=2", ""},
    {"size by its long name", Page, "Size=7", "<StockSize>:<StockSize223x297>"},
    {"size that only printers have", Page, "Size=6", "<StockSize>:STRING NOT FOUND"},
    {"name of another colour", Page, "Color=2 CustomColor=Teal", "<StockColor>:<StockColorBlue>"},
    {"ordered", Page, "Type=6 CustomType=NCR Modulus=3", "<StockType>:NCR (3)"},
    {"ordered without a number", Page, "Type=6", "<StockType>: (-2147483648)"},
    {"type under a name", Page, "Type=7 CustomType=Vellum", "<StockType>:Vellum"},
    {"type that is stored, not offered", Page, "Type=9", "<StockType>:<Labels>"},
    {"the printer's tabs lack a number", Page, "Type=24 Modulus=3", "<StockType>:STRING NOT FOUND"},
};
// clang-format on

TEST(StockSummary, HasALineForWhatIsSet)
{
    for (const auto& row : SummaryCases) {
        const Stock stock = StockOf(row.stock);
        EXPECT_EQ(GenerateStockSummary(Bundle(), row.context, stock, "; "), row.summary)
            << row.name;
    }
}

struct WordsCase {
    const char* name;
    const char* stock;
    const char* words;
};

// clang-format off
constexpr WordsCase WordsCases[] = {
    {"not punched",            "Punched=1", ""},
    {"all, in order",          "Size=75 Width=21000 Length=59400 Color=2 Weight=90 SidesCoated=3 kCoatingType=5 Finish=1 kGrain=2",
        "<Custom>, 210 × 594 mm, <StockColorBlue>, 90 <StockWeightUnit>, <Matte>, <Two Sided>, <Smooth>, <Short>"},
    {"what is not coated has no gloss", "SidesCoated=1 kCoatingType=1", "<Uncoated>"},
    {"no word",                "SidesCoated=7 Finish=9 Color=2", "<StockColorBlue>"},
    {"the name alone",         "Size=75 CustomName=Mine CustomNameOnly=true SidesCoated=2", "Mine"},
};
// clang-format on

TEST(StockWords, TellAlsoWhatTheSummaryLeavesOut)
{
    for (const auto& row : WordsCases) {
        EXPECT_EQ(StockWords(Bundle(), StockOf(row.stock)), row.words) << row.name;
    }
}

TEST(StockSummary, NamesThePrintersTabsByItsDescription)
{
    Stock stock;
    stock.setType(24);
    stock.setModulus(3);
    EXPECT_EQ(GenerateStockSummary(Bundle(), Page, stock, ""), "<StockType>: (3)");
    ParseError error;
    auto ppd = PPDFile::Open(TARVO_SOURCE_DIR "/resources/ppd/TarvoQL900.ppd", error);
    ASSERT_TRUE(ppd) << error.reason;
    {
        const PrinterDescription printer(std::move(ppd), nullptr, featureMap, Bundle());
        const std::string name = GetPPDOptionAliasForTicketValue("MediaType", 24);
        EXPECT_NE(name, "");
        EXPECT_EQ(GenerateStockSummary(Bundle(), Page, stock, ""), "<StockType>:" + name + " (3)");
    }
    stock.setModulus(0);
    EXPECT_EQ(GenerateStockSummary(Bundle(), Page, stock, ""), "<StockType>:STRING NOT FOUND");
}

TEST(StockSummaryText, SaysSoWhenNothingIsChosen)
{
    Stock stock;
    EXPECT_EQ(StockSummaryText(Bundle(), Page, nullptr), "");
    EXPECT_EQ(StockSummaryText(Bundle(), Page, &stock), "<UseJobSetting>");
    stock.setCustomNameOnly(true);
    EXPECT_EQ(StockSummaryText(Bundle(), Job, &stock), "<PrinterDefault>");
    stock.setCustomNameOnly(false);
    stock.setWeight(90);
    stock.setColor(2);
    EXPECT_EQ(StockSummaryText(Bundle(), Page, &stock),
              "<StockColor>:<StockColorBlue>\n<StockWeight>:90 <StockWeightUnit>");
}

} // namespace
} // namespace tarvo
