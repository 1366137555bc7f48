#include "tpif/TPIFDocument.h"

#include "TPIFTestSupport.h"
#include "tpif/TPIFWriter.h"

namespace tarvo {
namespace {

std::string Export(const CFDictionary& settings)
{
    return Written([&](TPIFChannel& channel) { WriteTPIF(channel, settings, nullptr); });
}

CFDictionary Flags(std::initializer_list<std::string_view> parts)
{
    CFDictionary flags;
    for (const auto part : parts) {
        flags.set("TPIFOption" + std::string(part), true);
    }
    return flags;
}

const std::string Header = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<!DOCTYPE tpif SYSTEM \"tpif-v02025.dtd\">\n"
                           "<tpif version=\"1.0\" xml:lang=\"en-US\" cpss-version=\"2.01\">\n";
const std::string GroupStart = "\t<job-template-attributes>\n";
const std::string GroupEnd = "\t</job-template-attributes>\n</tpif>";

// What stands first on each line at two tabs: the attributes and their order.
std::vector<std::string> Attributes(const std::string& document)
{
    std::vector<std::string> names;
    for (std::size_t at = 0; (at = document.find("\n\t\t<", at)) != std::string::npos; ++at) {
        const std::size_t begin = at + 4;
        const std::string name =
            document.substr(begin, document.find_first_of(" >", begin) - begin);
        if (!name.starts_with("/")) {
            names.push_back(name);
        }
    }
    return names;
}

TEST(Document, HeaderNamesTheDocumentTypeOfItsVersion)
{
    const auto header = [](int version) {
        return Written([&](TPIFChannel& channel) { WriteTPifHeader(channel, version); });
    };
    EXPECT_EQ(header(ExportedDtdVersion), Header);
    EXPECT_NE(header(0).find("\"tpif-v02020.dtd\""), std::string::npos);
    const std::string without = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<tpif version=\"1.0\" xml:lang=\"en-US\" cpss-version=\"2.01\">\n";
    EXPECT_EQ(header(-1), without);
    EXPECT_EQ(header(6), without);
}

TEST(Document, RecipientCanStandAlone)
{
    EXPECT_EQ(Written([](TPIFChannel& channel) { WriteTPifOpAttrib(channel, true, "job", "me"); }),
              "\t\t<job-recipient-name syntax=\"name\" xml:space=\"preserve\">me"
              "</job-recipient-name>\n");
}

TEST(Document, OfAnEmptyJobIsWhole)
{
    const std::string empty = Header + GroupStart +
                              "\t\t<media-col syntax=\"collection\">\n"
                              "\t\t</media-col>\n"
                              "\t\t<job-save-disposition syntax=\"collection\">\n"
                              "\t\t\t<save-disposition syntax=\"keyword\">none</save-disposition>\n"
                              "\t\t</job-save-disposition>\n"
                              "\t\t<sides syntax=\"keyword\">one-sided</sides>\n" +
                              GroupEnd;
    CFDictionary settings = Dictionary({
        {"com.tarvo.print.TPIFOptions", Flags({"All"})}
    });
    EXPECT_EQ(Export(settings), empty);
    settings.set("com.tarvo.print.TPIFOptions", Dictionary({
                                                    {"TPIFOptionAll", false}
    }));
    EXPECT_EQ(Export(settings), empty); // the flag's presence counts
}

struct OptionsCase {
    const char* name;
    CFPropertyList options;
    const char* key; // of the one special page that the settings hold
    CFPropertyList page;
    bool hasDocument;
    std::vector<std::string> attributes;
};

TEST(Document, HoldsThePartsThatTheOptionsName)
{
    constexpr auto Front = "com.tarvo.print.SpecialPages.FrontCover";
    constexpr auto Back = "com.tarvo.print.SpecialPages.BackCover";
    constexpr auto Inserts = "com.tarvo.print.SpecialPages.InsertList";
    constexpr auto Exceptions = "com.tarvo.print.SpecialPages.ExceptionList";
    const CFArray one = {CFDictionary()};
    const std::vector<std::string> none;
    const OptionsCase cases[] = {
        {"no such options",           CFDictionary(),                  Front,   CFDictionary(), false, none                           },
        {"options are no dictionary", true,                            Front,   CFDictionary(), false, none                           },
        {"front cover",
         Flags({"Covers"}),
         Front,                                                                 CFDictionary(),
         true,                                                                                         {"cover-front", "media-col"}   },
        {"back cover",                Flags({"Covers"}),               Back,    CFDictionary(), true,  {"cover-back", "media-col"}    },
        {"covers absent",             Flags({"Covers"}),               Inserts, one,            false, none                           },
        {"cover is no dictionary",    Flags({"Covers"}),               Front,   "cover",        false, none                           },
        {"inserts",                   Flags({"Inserts"}),              Inserts, one,            true,  {"insert-sheet", "media-col"}  },
        {"no inserts in the list",    Flags({"Inserts"}),              Inserts, CFArray{},      true,  none                           },
        {"inserts not named",         Flags({"Covers", "Exceptions"}), Inserts, one,            false, none                           },
        {"exceptions",
         Flags({"Exceptions", "Inserts"}),
         Exceptions,                                                            one,
         true,                                                                                         {"page-overrides", "media-col"}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const std::string document = Export(Dictionary({
            {"com.tarvo.print.TPIFOptions",        row.options},
            {row.key,                              row.page   },
            {"com.tarvo.print.JobNotesJobName",    "job"      },
            {"com.tarvo.print.JobNotesSenderName", "me"       },
            {"com.tarvo.print.Antialiasing",       1          },
        }));
        EXPECT_EQ(document.starts_with(Header + GroupStart), row.hasDocument);
        EXPECT_EQ(document.ends_with(GroupEnd), row.hasDocument);
        EXPECT_EQ(document.empty(), !row.hasDocument);
        EXPECT_EQ(Attributes(document), row.attributes);
    }
}

// A job that has every attribute once; in no order.
CFDictionary FullSettings()
{
    const CFDictionary highlight = Dictionary({
        {"HiglightPrintingColor", 1}
    });
    CFDictionary settings = Dictionary({
        {"com.tarvo.Act.tpif.On",                      3                                        },
        {"com.tarvo.print.BackgroundFormsOptions",     Dictionary({{"MergeWithString", "form"}})},
        {"com.tarvo.print.FinishingOutputColor",       2                                        },
        {"com.tarvo.print.AdvancedRotateImage180",     2                                        },
        {"com.tarvo.print.QuillonEmulation",           2                                        },
        {"com.tarvo.print.OutputOrder",                2                                        },
        {"com.tarvo.print.TonerSaver",                 true                                     },
        {"com.tarvo.print.LightenDarken",              5                                        },
        {"com.tarvo.print.HalftoneScreen",             16                                       },
        {"com.tarvo.print.Antialiasing",               1                                        },
        {"com.tarvo.print.OPIPrescan",                 4                                        },
        {"com.tarvo.print.OPISubsitution",             2                                        },
        {"com.tarvo.print.FullColorOptions",           Dictionary({{"FCLightness", 1}})         },
        {"com.tarvo.print.HighlightColorOptionsJob",   highlight                                },
        {"com.tarvo.print.ImageShiftOptionsJob",       CFDictionary()                           },
        {"HighlightMismatchAction",                    2                                        },
        {"com.tarvo.print.Resolution",                 2                                        },
        {"com.tarvo.print.FinishingOutputDestination", 1                                        },
        {"com.tarvo.print.JobNotesMessage",            "message"                                },
        {"com.tarvo.print.FinishingOptions",           1                                        },
        {"com.tarvo.print.SpecialPages.ExceptionList", CFArray{CFDictionary()}                  },
        {"com.tarvo.print.SpecialPages.InsertList",    CFArray{CFDictionary()}                  },
        {"com.tarvo.print.SpecialPages.BackCover",     CFDictionary()                           },
        {"com.tarvo.print.SpecialPages.FrontCover",    CFDictionary()                           },
        {"com.tarvo.print.JobNotesSenderName",         "me"                                     },
        {"com.tarvo.print.JobNotesJobName",            "job"                                    },
        {"com.tarvo.print.TPIFOptions",                Flags({"All"})                           },
    });
    return settings;
}

TEST(Document, KeepsTheOrderOfItsAttributes)
{
    const std::vector<std::string> expected = {
        "job-name",
        "requesting-user-name",
        "media-col",
        "cover-front",
        "media-col",
        "cover-back",
        "media-col",
        "insert-sheet",
        "media-col",
        "page-overrides",
        "media-col",
        "finishings",
        "job-message-to-operator",
        "job-save-disposition",
        "sides",
        "output-bin",
        "printer-resolution",
        "highlight-colorant-mismatch", // from the settings themselves
        "x-side1-image-shift",
        "x-side2-image-shift",
        "y-side1-image-shift",
        "y-side2-image-shift",
        "highlight-colorant", // from the options' dictionary
        "adjust-lightness",
        "opi-image-insertion",
        "opi-image-pre-scan",
        "anti-aliasing",
        "halftone-graphics",
        "halftone-images",
        "halftone-text",
        "adjust-bw-darkness-value",
        "toner-saver",
        "page-delivery",
        "adjust-bw-darkness-mode",
        "page-rotation",
        "color-effects-type",
        "forms-col",
        "job-accounting-user-id",
        "job-account-id",
    };
    EXPECT_EQ(Attributes(Export(FullSettings())), expected);
}

TEST(Document, TranslatesTheNumbersOfSomeEntries)
{
    struct {
        const char* key;
        CFPropertyList value;
        const char* line; // "" when the entry writes nothing
    } const cases[] = {
        {"OPISubsitution",         2,          "<opi-image-insertion syntax=\"keyword\">insert<"            },
        {"OPISubsitution",         3,          "<opi-image-insertion syntax=\"keyword\">do-not-insert<"     },
        {"OPISubsitution",         1,          ""                                                           },
        {"OPISubsitution",         UnsetValue, ""                                                           },
        {"OPISubstitution",        2,          ""                                                           },
        {"OPIPrescan",             4,          "<opi-image-pre-scan syntax=\"keyword\">pre-scan-and-gather<"},
        {"OPIPrescan",             5,          ""                                                           },
        {"TonerSaver",             true,       "<toner-saver syntax=\"keyword\">standard<"                  },
        {"TonerSaver",             false,      "<toner-saver syntax=\"keyword\">none<"                      },
        {"TonerSaver",             1,          "<toner-saver syntax=\"keyword\">none<"                      },
        {"AdvancedRotateImage180", 1,          "<page-rotation syntax=\"keyword\">rotate-0<"                },
        {"AdvancedRotateImage180", 2,          "<page-rotation syntax=\"keyword\">rotate-180<"              },
        {"AdvancedRotateImage180", 0,          ""                                                           },
        {"LightenDarken",          UnsetValue, "<adjust-bw-darkness-value syntax=\"integer\">-2147483648<"  },
        {"QuillonEmulation",       1,          ""                                                           },
        {"HalftoneScreen",         48,         ""                                                           },
    };
    const CFDictionary all = Dictionary({
        {"com.tarvo.print.TPIFOptions", Flags({"All"})}
    });
    for (const auto& row : cases) {
        SCOPED_TRACE(testing::Message() << row.key << " " << row.value.kindName());
        CFDictionary settings = all;
        settings.set("com.tarvo.print." + std::string(row.key), row.value);
        const std::string document = Export(settings);
        EXPECT_NE(document.find(row.line), std::string::npos) << document;
        EXPECT_EQ(document == Export(all), *row.line == '\0') << document;
    }
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
        EXPECT_EQ(pieces, 1U);
        DevWriteTpif(channel, "end");
    }
    EXPECT_EQ(pieces, 2U);
    EXPECT_EQ(text, "before" + std::string(200000, 'x') + "end");
}

} // namespace
} // namespace tarvo
