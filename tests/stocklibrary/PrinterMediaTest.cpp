#include "stocklibrary/PrinterMedia.h"

#include "support/StockText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tarvo {
namespace {

using Text = std::optional<std::string>;

constexpr std::pair<std::string_view, Text PrinterMedium::*> Texts[] = {
    {"key",     &PrinterMedium::key         },
    {"text",    &PrinterMedium::description },
    {"color",   &PrinterMedium::color       },
    {"type",    &PrinterMedium::type        },
    {"printed", &PrinterMedium::prePrinted  },
    {"again",   &PrinterMedium::recycled    },
    {"front",   &PrinterMedium::frontCoating},
    {"back",    &PrinterMedium::backCoating },
    {"info",    &PrinterMedium::info        },
};

constexpr std::pair<std::string_view, std::optional<std::int32_t> PrinterMedium::*> Numbers[] = {
    {"holes",  &PrinterMedium::holeCount },
    {"count",  &PrinterMedium::orderCount},
    {"weight", &PrinterMedium::weight    },
    {"width",  &PrinterMedium::width     },
    {"length", &PrinterMedium::length    },
};

// A medium from words such as "type=own count=5".
PrinterMedium MediumOf(const char* text)
{
    PrinterMedium medium;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const std::string name = word.substr(0, word.find('='));
        const std::string value = word.substr(name.size() + 1);
        for (const auto& [known, place] : Texts) {
            medium.*place = name == known ? value : medium.*place;
        }
        for (const auto& [known, place] : Numbers) {
            medium.*place = name == known ? std::stoi(value) : medium.*place;
        }
    }
    return medium;
}

struct MediumCase {
    const char* medium;
    const char* stock;
};

// clang-format off
constexpr MediumCase MediumCases[] = {
    {"key=Gloss text=covers color=Cream type=Company-Letter front=Glossy back=none info=drawer holes=3 weight=170 width=21600 length=35600",
     "Size=1 Type=7 CustomType=Company-Letter Color=10 CustomColor=Cream Weight=170 Punched=2 "
     "Description=covers SidesCoated=2 kCoatingType=1 CustomName=Gloss CustomComment=drawer"},
    // What it does not tell is unset.
    {"",                                                "" },
    {"weight=0 width=21000",                            "" },
    {"weight=0 length=-1",                              "" },
    // The first size that is as wide counts, then the first that is as long; none when both are unknown.
    {"width=21000 length=-1",                           "Size=4" },
    {"width=-1 length=-1",                              "" },
    {"type=envelope width=22000 length=31200",          "Size=24 Type=8" },
    {"type=envelope width=0 length=31200",              "Size=75 Width=unset Length=unset Type=8" },
    // A type goes by its name, else by what else the medium tells.
    {"type=stationery printed=pre-printed again=none count=5", "Type=1" },
    {"type=TRANSPARENCY",                               "Type=2 Color=6" },
    {"type=transparency color=red",                     "Type=2 Color=6" },
    {"type=tab-stock count=5",                          "Type=24" },
    {"type=pre-cut-tabs count=5",                       "Type=4 Modulus=5" },
    {"type=pre-cut-tabs",                               "Type=4" },
    {"type=custom7",                                    "Type=21" },
    {"type=own printed=Pre-Printed again=standard count=5", "Type=3" },
    {"type=own printed=letter-head",                    "Type=14" },
    {"type=recycled printed=blank again=standard",      "Type=10" },
    {"type=recycled again=none count=5",                "Type=10" },
    {"type=recycled",                                   "Type=7 CustomType=recycled" },
    {"type=own printed=blank again=other count=5",      "Type=6 Modulus=5" },
    {"color=white",                                     "Color=1" },
    {"color=No-Color",                                  "Color=6" },
    {"color=gray",                                      "Color=12" },
    {"color=other",                                     "Color=14" },
    {"color=custom1",                                   "Color=15" },
    {"color=custom7",                                   "Color=21" },
    {"color=custom8",                                   "Color=10 CustomColor=custom8" },
    {"color=",                                          "Color=10" },
    {"holes=0",                                         "Punched=1" },
    {"holes=1",                                         "" },
    {"holes=2",                                         "Punched=2" },
    {"holes=4",                                         "Punched=2" },
    {"holes=5",                                         "" },
};
// clang-format on

TEST(PrinterMedium, BecomesAStockWithWhatItTells)
{
    for (const auto& row : MediumCases) {
        const Stock stock = StockOfMedium(MediumOf(row.medium));
        EXPECT_EQ(StockText(stock), row.stock) << row.medium;
    }
    Stock nothing;
    nothing.setCoatingType(UnsetValue); // told by every medium, unlike a new stock's
    EXPECT_EQ(StockOfMedium(PrinterMedium()), nothing);
}

constexpr int Same = -7; // what stood there before

struct CoatingCase {
    const char* medium;
    int sides;
    int coating;
};

constexpr CoatingCase CoatingCases[] = {
    {"",                           Same, Same      },
    {"front=None back=none",       1,    UnsetValue},
    {"front=Glossy back=matte",    3,    1         },
    {"front=high-gloss back=none", 2,    2         },
    {"front=satin",                2,    4         },
    {"front=none back=matte",      2,    5         },
    {"back=semi-gloss",            2,    3         },
    {"front=waxed",                2,    UnsetValue},
    {"front=none",                 Same, Same      },
    {"back=none",                  Same, Same      },
};

TEST(PrinterMedium, IsCoatedOnTheSidesThatItTells)
{
    for (const auto& row : CoatingCases) {
        SCOPED_TRACE(row.medium);
        const PrinterMedium medium = MediumOf(row.medium);
        std::int32_t sides = Same;
        std::int32_t coating = Same;
        convertTPIFSidesCoatedAndCoatingType(medium.frontCoating, medium.backCoating, sides,
                                             coating);
        EXPECT_EQ(sides, row.sides);
        EXPECT_EQ(coating, row.coating);
    }
}

} // namespace
} // namespace tarvo
