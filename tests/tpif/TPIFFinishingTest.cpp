#include "tpif/TPIFFinishing.h"

#include "TPIFTestSupport.h"

namespace tarvo {
namespace {

// Finishing settings; the names are those behind "com.tarvo.print.".
CFDictionary Finishing(std::initializer_list<std::pair<std::string_view, CFPropertyList>> entries)
{
    CFDictionary settings;
    for (const auto& [name, value] : entries) {
        settings.set("com.tarvo.print." + std::string(name), value);
    }
    return settings;
}

std::string FinishingOf(const CFDictionary& settings)
{
    return Written([&](TPIFChannel& channel) { WriteTPIFFinishing(channel, settings); });
}

// The set of these enum values; "" for none.
std::string Set(std::initializer_list<int> values)
{
    std::string text = "\t\t<finishings syntax=\"1setOf\">\n";
    for (const int value : values) {
        text += "\t\t\t<value syntax=\"enum\">" + std::to_string(value) + "</value>\n";
    }
    return values.size() == 0 ? "" : text + "\t\t</finishings>\n";
}

struct FinishingCase {
    const char* name;
    CFDictionary settings;
    std::string xml;
};

TEST(Finishing, FamilyDecidesWhichChoicesCount)
{
    constexpr auto Option = "FinishingOptions";
    constexpr auto Staple1 = "FinishingStaple1Value";
    constexpr auto Staple2 = "FinishingStaple2Value";
    constexpr auto Center = "FinishingStapleCenterValue";
    constexpr auto Punch = "FinishingHolePunchValue";
    constexpr auto Holes = "FinishingHolePunchOptions";
    constexpr auto Fold = "FinishingFoldValue";
    constexpr auto Bind = "FinishingBindValue";
    constexpr auto ZFold = "FinishingZFoldValue";
    constexpr auto Booklet = "BookletFoldStaple";
    const FinishingCase cases[] = {
        {"nothing",                                {},                                                                             ""                 },
        {"none",                                   Finishing({{Option, 1}}),                                                       Set({3})           },
        {"no such family",                         Finishing({{Option, 2}, {Staple1, 5}}),                                         ""                 },
        {"signature booklet",                      Finishing({{Option, 3}}),                                                       Set({13})          },
        {"one staple, first",                      Finishing({{Option, 4}, {Staple1, 5}}),                                         Set({20})          },
        {"one staple, crossed",                    Finishing({{Option, 4}, {Staple1, 6}}),                                         Set({21})          },
        {"one staple, last",                       Finishing({{Option, 4}, {Staple1, 8}}),                                         Set({23})          },
        {"a family where a position is wanted",    Finishing({{Option, 4}, {Staple1, 9}}),                                         ""                 },
        {"two staples",                            Finishing({{Option, 9}, {Staple2, 12}}),                                        Set({31})          },
        {"first staple family wins",               Finishing({{Option, 9}, {Staple1, 7}, {Staple2, 10}}),
         Set({22})                                                                                                                                    },
        {"centre staple, last",                    Finishing({{Option, 25}, {Center, 29}}),                                        Set({34})          },
        {"bind",                                   Finishing({{Option, 14}, {Bind, 16}}),                                          Set({52})          },
        {"simple fold",                            Finishing({{Option, 18}, {Fold, 19}}),                                          Set({1000})        },
        {"simple fold beyond",                     Finishing({{Option, 18}, {Fold, 41}}),                                          ""                 },
        {"booklet fold",                           Finishing({{Option, 24}, {Booklet, 7}}),                                        Set({111})         },
        {"booklet fold and staple",                Finishing({{Booklet, 8}}),                                                      Set({110})         },
        {"unset family has no booklet",            Finishing({{Option, UnsetValue}, {Booklet, 8}}),                                ""                 },
        {"holes",                                  Finishing({{Option, 30}, {Punch, 33}}),                                         Set({94, 91})      },
        {"holes beside staples only",              Finishing({{Option, 30}, {Punch, 49}}),                                         ""                 },
        {"position as family",                     Finishing({{Option, 35}, {Holes, 3}}),                                          Set({96, 90})      },
        {"four holes",                             Finishing({{Option, 32}, {Holes, 5}}),                                          Set({93, 92})      },
        {"unknown count left out",                 Finishing({{Option, 30}, {Punch, 32}, {Holes, 0}}),                             Set({93})          },
        {"Z-fold",                                 Finishing({{Option, 36}, {ZFold, 39}}),                                         Set({1008})        },
        {"advanced fold, first",                   Finishing({{Option, 40}, {Fold, 41}}),                                          Set({1003})        },
        {"advanced fold, same enum",               Finishing({{Option, 40}, {Fold, 47}}),                                          Set({1001})        },
        {"advanced fold, last",                    Finishing({{Option, 40}, {Fold, 48}}),                                          Set({1012})        },
        {"staples and holes",                      Finishing({{Option, 49}, {Punch, 34}, {Staple1, 8}}),
         Set({23, 95, 91})                                                                                                                            },
        {"all",                                    Finishing({{Option, 50}, {Punch, 32}, {Staple2, 13}, {ZFold, 38}, {Holes, 3}}),
         Set({30, 1011, 93, 90})                                                                                                                      },
        {"staples and Z-fold, no holes",
         Finishing({{Option, 51}, {Punch, 32}, {Center, 26}, {ZFold, 38}}),                                                        Set({32, 1011})    },
        {"holes and Z-fold, no staples",
         Finishing({{Option, 52}, {Punch, 35}, {Staple1, 5}, {ZFold, 39}}),                                                        Set({1008, 96, 91})},
        {"unknown position repeats the staples",
         Finishing({{Option, 49}, {Staple1, 5}, {Punch, 49}}),                                                                     Set({20, 20, 91})  },
        {"unknown position repeats the fold",
         Finishing({{Option, 52}, {ZFold, 38}, {Punch, 49}, {Holes, 0}}),                                                          Set({1011, 1011})  },
        {"unknown position repeats the start tag", Finishing({{Option, 50}, {Punch, 49}}),
         "\t\t<finishings syntax=\"1setOf\">\n" + Set({91})                                                                                           },
        {"texts are absent",                       Finishing({{Option, "4"}, {Staple1, 5}, {Booklet, 7.5}}),                       ""                 },
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(FinishingOf(row.settings), row.xml);
    }
}

TEST(Finishing, CustomIsATemplate)
{
    EXPECT_EQ(FinishingOf(Finishing({
                  {"FinishingOptions", 22   },
                  {"FinishingCustom",  "A&B"}
    })),
              "\t\t<finishings-col syntax=\"collection\">\n"
              "\t\t\t<finishing-template syntax=\"name\" xml:space=\"preserve\">A&amp;B"
              "</finishing-template>\n"
              "\t\t</finishings-col>\n");
    EXPECT_EQ(FinishingOf(Finishing({
                  {"FinishingOptions", 22},
                  {"FinishingCustom",  ""}
    })),
              "");
    EXPECT_EQ(FinishingOf(Finishing({
                  {"FinishingOptions", 1  },
                  {"FinishingCustom",  "A"}
    })),
              Set({3}));
}

TEST(Finishing, SlipSheetsComeFirstAndOffsetLast)
{
    const std::string slip = "\t\t<separator-sheets syntax=\"collection\">\n"
                             "\t\t\t<separator-sheets-type syntax=\"keyword\">slip-sheets"
                             "</separator-sheets-type>\n"
                             "\t\t</separator-sheets>\n";
    const std::string each = "\t\t<job-offset syntax=\"1setOf\">\n"
                             "\t\t\t<value syntax=\"keyword\">offset-set</value>\n"
                             "\t\t</job-offset>\n";
    const auto pages = [](const std::string& count) {
        return "\t\t<pages-per-subset syntax=\"1setOf\">\n"
               "\t\t\t<value syntax=\"integer\">" +
               count +
               "</value>\n"
               "\t\t</pages-per-subset>\n";
    };
    constexpr auto Offset = "FinishingOffset";
    constexpr auto Enable = "FinishingOffsetEnableSubset";
    constexpr auto Pages = "FinishingOffsetPagesPerSubset";
    EXPECT_EQ(FinishingOf(Finishing({
                  {Offset,               3},
                  {"FinishingOptions",   1},
                  {"FinishingSlipSheet", 2}
    })),
              slip + Set({3}) + each);
    EXPECT_EQ(FinishingOf(Finishing({
                  {Offset, 3 },
                  {Enable, 1 },
                  {Pages,  12}
    })),
              each + pages("12"));
    EXPECT_EQ(FinishingOf(Finishing({
                  {Offset, 1 },
                  {Enable, -1}
    })),
              pages("0"));
    EXPECT_EQ(FinishingOf(Finishing({
                  {Offset, 6 },
                  {Enable, 0 },
                  {Pages,  12}
    })),
              "");
    EXPECT_EQ(FinishingOf(Finishing({
                  {Enable, 1 },
                  {Pages,  12}
    })),
              "");
    EXPECT_EQ(FinishingOf(Finishing({
                  {"FinishingSlipSheet", 1}
    })),
              "");
}

TEST(Finishing, SaysWhatItReadAndWrites)
{
    const CFDictionary settings = Finishing({
        {"FinishingOptions",           50},
        {"FinishingZFoldValue",        38},
        {"FinishingStapleCenterValue", 26},
        {"FinishingHolePunchValue",    49},
        {"FinishingFoldValue",         41},
        {"FinishingBindValue",         15},
        {"BookletFoldStaple",          8 },
        {"FinishingSlipSheet",         2 },
        {"FinishingHolePunchOptions",  9 },
    });
    EXPECT_EQ(
        Diagnostics([&](TPIFChannel& channel) { WriteTPIFFinishing(channel, settings); }),
        "DEBUG: ******* finishingOptions = 50, foldOptions = 38, stapleValue = 26, holePunchValue "
        "= 49, simpleFoldValue = 41, bindValue = 15, bookletValue = 8\n"
        "DEBUG: ************ SLIPSHEET ************\n"
        "DEBUG: ************** SLIPSHEET ON ****************\n"
        "DEBUG: WriteTPifFinishing: nStapleOptions = 16, nFoldOptions = 25, nHolePunchOptions = "
        "38, nHolePunchNumHoles = -1\n");
    EXPECT_EQ(Diagnostics([&](TPIFChannel& channel) {
                  WriteTPIFFinishing(channel, Finishing({
                                                  {"FinishingSlipSheet", 1}
                  }));
              }),
              "DEBUG: ******* finishingOptions = 0, foldOptions = 0, stapleValue = 0, "
              "holePunchValue = 0, simpleFoldValue = 0, bindValue = 0, bookletValue = 0\n"
              "DEBUG: ************ SLIPSHEET ************\n");
}

} // namespace
} // namespace tarvo
