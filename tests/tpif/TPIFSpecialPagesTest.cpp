#include "tpif/TPIFSpecialPages.h"

#include "TPIFTestSupport.h"
#include "tpif/TPIFBackgroundForms.h"
#include "tpif/TPIFImageShift.h"

namespace tarvo {
namespace {

using PagesWriter = void (*)(TPIFChannel&, const CFDictionary&, const PageFormat*);

std::string Output(PagesWriter writer, std::string_view name, CFPropertyList value)
{
    const CFDictionary settings = Dictionary({
        {"com.tarvo.print." + std::string(name), std::move(value)}
    });
    return Written([&](TPIFChannel& channel) { writer(channel, settings, nullptr); });
}

const std::string EmptyMedia = "\t\t<media-col syntax=\"collection\">\n\t\t</media-col>\n";
const std::string WhiteMedia = "\t\t<media-col syntax=\"collection\">\n"
                               "\t\t\t<media-color syntax=\"keyword\">white</media-color>\n"
                               "\t\t</media-col>\n";

CFDictionary WhiteStock()
{
    return Dictionary({
        {"Color", 1}
    });
}

TEST(Covers, SayWhichSidesArePrinted)
{
    struct {
        const char* name;
        CFDictionary cover;
        const char* front;
        const char* back;
    } const cases[] = {
        {"absent",    {},                               "print-none",  "print-none"},
        {"none",      Dictionary({{"SidesImaged", 1}}), "print-none",  "print-none"},
        {"2 differs", Dictionary({{"SidesImaged", 2}}), "print-front", "print-back"},
        {"3",         Dictionary({{"SidesImaged", 3}}), "print-back",  "print-back"},
        {"both",      Dictionary({{"SidesImaged", 4}}), "print-both",  "print-both"},
        {"0",         Dictionary({{"SidesImaged", 0}}), "no-cover",    "no-cover"  },
        {"beyond",    Dictionary({{"SidesImaged", 5}}), "no-cover",    "no-cover"  },
    };
    const auto cover = [](const std::string& element, const std::string& word) {
        return "\t\t<" + element +
               " syntax=\"collection\">\n\t\t\t<cover-type syntax=\"keyword\">" + word +
               "</cover-type>\n" + EmptyMedia + "\t\t</" + element + ">\n";
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Output(WriteTPIFFrontCover, "SpecialPages.FrontCover", row.cover),
                  cover("cover-front", row.front));
        EXPECT_EQ(Output(WriteTPIFBackCover, "SpecialPages.BackCover", row.cover),
                  cover("cover-back", row.back));
    }
    EXPECT_EQ(Output(WriteTPIFFrontCover, "SpecialPages.FrontCover", CFArray{}), "");
}

TEST(Inserts, StandInTheOrderOfTheList)
{
    const auto insert = [](const std::string& page, const std::string& count,
                           const std::string& media) {
        return "\t\t\t<value syntax=\"collection\">\n"
               "\t\t\t<insert-after-page-number syntax=\"integer\">" +
               page +
               "</insert-after-page-number>\n"
               "\t\t\t<insert-count syntax=\"integer\">" +
               count + "</insert-count>\n" + media + "\t\t\t</value>\n";
    };
    const std::string start = "\t\t<insert-sheet syntax=\"1setOf\">\n";
    const std::string end = "\t\t</insert-sheet>\n";
    const CFArray inserts = {
        Dictionary({{"StartPage", 9}, {"Quantity", 2},    {"Stock", WhiteStock()}}
        ),
        "no insert",
        Dictionary({{"StartPage", 0}, {"Quantity", true}, {"Stock", 1}           }
        ),
        CFDictionary(),
    };
    EXPECT_EQ(Output(WriteTPIFInserts, "SpecialPages.InsertList", inserts),
              start + insert("9", "2", WhiteMedia) + insert("0", "1", EmptyMedia) +
                  insert("1", "1", EmptyMedia) + end);
    EXPECT_EQ(Output(WriteTPIFInserts, "SpecialPages.InsertList", CFArray{1}), start + end);
    EXPECT_EQ(Output(WriteTPIFInserts, "SpecialPages.InsertList", CFArray{}), "");
    EXPECT_EQ(Output(WriteTPIFInserts, "SpecialPages.InsertList", CFDictionary()), "");
}

std::string Range(const std::string& element, const std::string& lower, const std::string& upper)
{
    return "\t\t\t<" + element +
           " syntax=\"1setOf\">\n"
           "\t\t\t\t<value syntax=\"rangeOfInteger\">\n"
           "\t\t\t\t\t<lower-bound syntax=\"integer\">" +
           lower +
           "</lower-bound>\n"
           "\t\t\t\t\t<upper-bound syntax=\"integer\">" +
           upper +
           "</upper-bound>\n"
           "\t\t\t\t</value>\n"
           "\t\t\t</" +
           element + ">\n";
}

std::string Exception(CFDictionary page)
{
    return Output(WriteTPIFExceptions, "SpecialPages.ExceptionList", CFArray{std::move(page)});
}

std::string Overrides(const std::string& lower, const std::string& upper, const std::string& rest)
{
    return "\t\t<page-overrides syntax=\"1setOf\">\n"
           "\t\t\t<value syntax=\"collection\">\n" +
           Range("input-documents", "1", "1") + Range("pages", lower, upper) + rest +
           "\t\t\t</value>\n"
           "\t\t</page-overrides>\n";
}

TEST(Exceptions, HoldAllThatAPageChanges)
{
    const CFDictionary page = Dictionary({
        {"OutputColor",                           1                                                    },
        {"HalftoneScreen",                        2                                                    },
        {"Antialiasing",                          2                                                    },
        {"FullColorOptionsPage",                  Dictionary({{"FCLightness", 5}, {"Antialiasing", 1}})},
        {"Stock",                                 WhiteStock()                                         },
        {"com.tarvo.print.ImageShiftOptionsPage",
         Dictionary({{"X1", 3}, {"Y1", -3}, {"X2", 1}, {"Inches", 1}})                                 },
        {"LightenDarken",                         -50                                                  },
        {"SidesImaged",                           2                                                    },
        {"EndPage",                               7                                                    },
        {"StartPage",                             5                                                    },
    });
    EXPECT_EQ(Exception(page),
              Overrides("5", "7",
                        "\t\t<sides syntax=\"keyword\">two-sided-long-edge</sides>\n"
                        "\t\t<adjust-bw-darkness-value syntax=\"integer\">-50"
                        "</adjust-bw-darkness-value>\n"
                        "\t\t\t<x-side1-image-shift syntax=\"integer\">76</x-side1-image-shift>\n"
                        "\t\t\t<x-side2-image-shift syntax=\"integer\">25</x-side2-image-shift>\n"
                        "\t\t\t<y-side1-image-shift syntax=\"integer\">-76</y-side1-image-shift>\n"
                        "\t\t\t<y-side2-image-shift syntax=\"integer\">0</y-side2-image-shift>\n" +
                            WhiteMedia +
                            "\t\t<adjust-lightness syntax =\"integer\">5</adjust-lightness>\n"
                            "\t\t<anti-aliasing syntax=\"keyword\">standard</anti-aliasing>\n"
                            "\t\t<color-effects-type syntax=\"keyword\">monochrome-grayscale"
                            "</color-effects-type>\n"));
}

TEST(Exceptions, LeaveOutWhatAPageDoesNotChange)
{
    const std::string plain = Overrides("1", "1", EmptyMedia);
    EXPECT_EQ(Exception({}), plain);
    EXPECT_EQ(Exception(Dictionary({
                  {"SidesImaged",   4  },
                  {"LightenDarken", "5"}
    })),
              plain);
    EXPECT_EQ(Exception(Dictionary({
                  {"SidesImaged",  0         },
                  {"Antialiasing", UnsetValue}
    })),
              plain);
    EXPECT_EQ(Exception(Dictionary({
                  {"StartPage", 3},
                  {"EndPage",   2}
    })),
              Overrides("3", "2", EmptyMedia));
}

TEST(ImageShift, IsScaledByUnitUnlessPrecise)
{
    struct {
        const char* name;
        CFDictionary shift;
        std::int32_t x1;
    } const cases[] = {
        {"inches when absent",       Dictionary({{"X1", 3}}),                                          76        },
        {"inches",                   Dictionary({{"X1", -3}, {"Inches", 1}}),                          -76       },
        {"millimetres",              Dictionary({{"X1", 3}, {"Inches", 0}}),                           30        },
        {"a truth value is no unit", Dictionary({{"X1", 3}, {"Inches", false}}),                       76        },
        {"precise",                  Dictionary({{"X1", 3}, {"FullPrecision", true}}),                 3         },
        {"precise by number",        Dictionary({{"X1", 3}, {"FullPrecision", 2.5}}),                  3         },
        {"not precise",              Dictionary({{"X1", 3}, {"Inches", 0}, {"FullPrecision", 0}}),     30        },
        {"false",                    Dictionary({{"X1", 3}, {"Inches", 0}, {"FullPrecision", false}}), 30        },
        {"text",                     Dictionary({{"X1", 3}, {"Inches", 0}, {"FullPrecision", "yes"}}), 30        },
        {"too far",                  Dictionary({{"X1", 2147483647}}),                                 2147483647},
        {"too far back",             Dictionary({{"X1", -300000000}, {"Inches", 0}}),                  UnsetValue},
        {"precise and far",          Dictionary({{"X1", UnsetValue}, {"FullPrecision", 1}}),           UnsetValue},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(FillImageShift(row.shift).x1, row.x1);
    }
}

std::string Forms(const CFDictionary& settings)
{
    return Written([&](TPIFChannel& channel) { WriteTPIFBackgroundForms(channel, settings); });
}

std::string FormSave(const std::string& name)
{
    return "\t\t<form-save syntax=\"collection\">\n"
           "\t\t\t<form-save-disposition syntax=\"keyword\">save-only</form-save-disposition>\n"
           "\t\t\t<form-save-info syntax=\"1setOf\">\n"
           "\t\t\t\t<value syntax=\"collection\">\n"
           "\t\t\t\t\t<form-save-location syntax=\"uri\">/opt/TRVnps/resources/bf"
           "</form-save-location>\n"
           "\t\t\t\t\t<form-save-name syntax=\"name\" xml:space=\"preserve\">" +
           name +
           "</form-save-name>\n"
           "\t\t\t\t\t<form-save-format syntax=\"mimeMediaType\">application/X-single-page-tiff"
           "</form-save-format>\n"
           "\t\t\t\t</value>\n"
           "\t\t\t</form-save-info>\n"
           "\t\t</form-save>\n";
}

TEST(BackgroundForms, AreSavedAndMerged)
{
    const auto settings = [](CFDictionary options, int jobType) {
        return Dictionary({
            {"com.tarvo.print.BackgroundFormsOptions", std::move(options)                },
            {"com.tarvo.print.JobType",                Dictionary({{"JobType", jobType}})},
            {"com.apple.print.JobInfo.PMJobName",      "job & co"                        }
        });
    };
    const std::string merge =
        "\t\t<forms-col syntax=\"1setOf\">\n"
        "\t\t\t<value syntax=\"collection\">\n"
        "\t\t\t\t<form-name syntax=\"name\" xml:space=\"preserve\">Letter&lt;head</form-name>\n"
        "\t\t\t\t<form-cycle-start syntax=\"integer\">4</form-cycle-start>\n"
        "\t\t\t\t<forms-x-image-shift syntax=\"integer\">25</forms-x-image-shift>\n"
        "\t\t\t\t<forms-y-image-shift syntax=\"integer\">50</forms-y-image-shift>\n"
        "\t\t\t</value>\n"
        "\t\t</forms-col>\n";
    const CFDictionary both = Dictionary({
        {"MergeWithString", "Letter<head"},
        {"CyclePages",      4            },
        {"X1",              1            },
        {"Y1",              2            },
        {"NewFormString",   "new"        }
    });
    EXPECT_EQ(Forms(settings(both, 1)), FormSave("new") + merge);
    EXPECT_EQ(Forms(settings({}, 9)), FormSave("job &amp; co"));
    EXPECT_EQ(Forms(settings({}, 1)), "");
    EXPECT_EQ(Forms(settings(Dictionary({
                                 {"NewFormString",   ""},
                                 {"MergeWithString", 1 }
    }),
                             3)),
              "");
    EXPECT_EQ(Forms({}), "");
    const std::string longest(251, 'f');
    EXPECT_EQ(Forms(settings(Dictionary({
                                 {"NewFormString", longest + "&x"}
    }),
                             1)),
              FormSave(longest));
}

TEST(BackgroundForms, SayWhatTheyFound)
{
    const auto lines = [](const CFDictionary& settings) {
        return Diagnostics(
            [&](TPIFChannel& channel) { WriteTPIFBackgroundForms(channel, settings); });
    };
    const std::string always = "DEBUG: ******* WriteTPIFBackgroundForms\n"
                               "DEBUG: ******* WriteTPIFBackgroundForms: valid ticket\n";
    const std::string options =
        "DEBUG: ******* WriteTPIFBackgroundForms: valid bg options ticket\n";
    CFDictionary settings = Dictionary({
        {"com.tarvo.print.JobType", CFDictionary()}
    });
    EXPECT_EQ(lines(settings), always);
    settings.set("com.tarvo.print.BackgroundFormsOptions", CFDictionary());
    EXPECT_EQ(lines(settings), always + options + "DEBUG: ******** jobType = 0\n");
    settings.remove("com.tarvo.print.JobType");
    EXPECT_EQ(lines(settings), always + options);
}

} // namespace
} // namespace tarvo
