#include "stocklibrary/StockColumnTexts.h"

#include "stocklibrary/StockLibrary.h"
#include "stocklibrary/StockLibraryView.h"
#include "support/BuiltBundle.h"
#include "support/StockText.h"

namespace tarvo {
namespace {

// The columns that say something, "NAME=text" each.
std::string ColumnsOf(const std::string& stock, const std::string& name)
{
    const CFBundle bundle = BuiltBundle();
    StockLibrary paper;
    paper.stock().takeAsItIs(StockOf(stock));
    paper.setName(name);
    std::string text;
    for (std::size_t column = 0; column < StockColumns.size(); ++column) {
        const std::string shown = StockColumnText(bundle, paper, column);
        if (!shown.empty()) {
            text += (text.empty() ? "" : "; ") + bundle.localizedString(StockColumnKey(column)) +
                    "=" + shown;
        }
    }
    return text;
}

struct ColumnCase {
    const char* name;
    const char* stock;
    const char* paper;
    const char* columns;
};

constexpr ColumnCase ColumnCases[] = {
    {"nothing is set",                  "",                                                                    "",     ""                              },
    {"every attribute",
     "Size=75 Width=21000 Length=59400 Type=4 Modulus=5 Color=2 Weight=160 Punched=2 "
     "Description=thick SidesCoated=2 kCoatingType=5 Finish=3 kGrain=2 CustomComment=drawer",                  "Tabs",
     "Name=Tabs; Size=Custom, 210 × 594 mm; Color=Blue; Type=Precut Tabs; Count=5; "
     "Punching=Punched; Weight=160 gsm; Description=thick; Coated Sides=Coated on One Side; "
     "Coating=Matte; Finish=Rough; Grain=Short Grain; Comment=drawer"                                                                                  },
    {"names of the user's own",         "Type=7 CustomType=Felt Color=10 CustomColor=Lime",                    "Own",
     "Name=Own; Color=Lime; Type=Felt"                                                                                                                 },
    {"an ordered stock without a name", "Type=6 Modulus=3",                                                    "",     "Type=Ordered Sequence; Count=3"},
    {"of a printer: its custom name",   "CustomName=Tray",                                                     "",     "Name=Tray"                     },
    {"a coating of no side",            "SidesCoated=1 kCoatingType=5",                                        "",     "Coated Sides=Uncoated"         },
    {"without words",                   "Size=73 Type=999 Color=77 Punched=9 SidesCoated=9 Finish=9 kGrain=9", "",
     "Coating=Gloss"                                                                                                                                   },
};

TEST(StockColumnTexts, SayWhatThePaperIs)
{
    for (const auto& row : ColumnCases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(ColumnsOf(row.stock, row.paper), row.columns);
    }
}

} // namespace
} // namespace tarvo
