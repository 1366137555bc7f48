#include "platform/printing/PPDFile.h"

#include "PPDTexts.h"
#include "platform/printing/PMPrintSession.h"

namespace tarvo {
namespace {

TEST(PPDFile, RefusesWithLineAndReason)
{
    const auto refusal = [](const std::string& text) {
        ParseError error;
        EXPECT_FALSE(PPDFile::Read(text, {}, error));
        return std::to_string(error.line) + ": " + error.reason;
    };
    const std::string longLine = "*X: \"" + std::string(300, 'x') + "\"\n";
    EXPECT_EQ(refusal(""), "0: missing PPD-Adobe-4.x header");
    EXPECT_EQ(refusal("hello\n"), "1: missing asterisk in column 1");
    EXPECT_EQ(refusal(PPDHeader + longLine),
              "5: line longer than the maximum allowed (255 characters)");
    EXPECT_EQ(refusal("\x1F\x8B\x08"), "0: compressed; unpack it first");
    EXPECT_EQ(refusal(std::string(PPDMaximumBytes + 1, '*')), "0: larger than 8 MiB");
    EXPECT_EQ(refusal(std::string(100'001, '\n')), "0: more than 100000 lines");
    std::string many = PPDHeader;
    for (int number = 0; number <= 10'000; ++number) {
        many += "*OpenUI *A: Boolean\n";
    }
    EXPECT_EQ(refusal(many), "0: more than 10000 options");
    ParseError error;
    EXPECT_FALSE(PPDFile::Open("/nonexistent.ppd", error));
    EXPECT_EQ(error.reason, "No such file or directory");
    EXPECT_FALSE(PPDFile::Open("/dev/null", error));
    EXPECT_EQ(error.reason, "not a regular file");
    PMTicket information;
    EXPECT_FALSE(ppdOpenCompiledPPDFromTicket(&information, error));
    EXPECT_EQ(error.reason, "the printer information names no PPD file");
    information.setItem(PanelClient, PPDPathKey, TARVO_SOURCE_DIR "/resources/ppd/TarvoQL900.ppd");
    const auto ppd = ppdOpenCompiledPPDFromTicket(&information, error);
    ASSERT_TRUE(ppd);
    EXPECT_EQ(ppd->manufacturer(), "Tarvo");
}

TEST(PPDFile, MarksDefaultsExactlyAndLeavesTheLibrarysCustomOut)
{
    PPDFile ppd = PrinterOf(
        "*Manufacturer: \"Tarvo\"\n" + PickOne("Jog", "none", {"EndOfSet", "None"}) +
        PickOne("MediaType", "Bond", {"Bond", "Bond", "Other/<4142> caf\x8E"}) +
        PickOne("PageSize", "Letter", {"Letter"}) + PickOne("PageRegion", "Letter", {"Letter"}) +
        "*CustomPageSize True: \"pop\"\n"
        "*ParamCustomPageSize Width: 1 points 432 936\n"
        "*ParamCustomPageSize Height: 2 points 500 1368\n"
        "*MaxMediaWidth: \"936\"\n*MaxMediaHeight: \"1368\"\n"
        "*VariablePaperSize: True\n");
    EXPECT_EQ(ppd.markedChoice("Jog"), nullptr); // "none" is not "None"
    EXPECT_EQ(ppd.option("jog"), nullptr);
    EXPECT_TRUE(ppd.mark("Jog", "EndOfSet"));
    EXPECT_FALSE(ppd.mark("Jog", "endofset"));
    EXPECT_EQ(*ppd.markedChoice("Jog"), "EndOfSet");
    const auto& types = ppd.option("MediaType")->choices;
    EXPECT_TRUE(types[0].isMarked && !types[1].isMarked);
    EXPECT_EQ(types[2].text, "AB café"); // Mac Roman where it is no UTF-8
    EXPECT_EQ(ppd.option("PageSize")->choices.size(), 1U);
    EXPECT_EQ(ppd.option("PageRegion")->choices.size(), 1U);
    EXPECT_TRUE(ppd.option("PageSize")->takesCustom);
    EXPECT_FALSE(ppd.option("MediaType")->takesCustom);
    ASSERT_TRUE(ppd.customSizes());
    EXPECT_EQ(ppd.customSizes()->minimumWidth, 432);
    EXPECT_EQ(ppd.customSizes()->minimumLength, 500);
    EXPECT_EQ(ppd.customSizes()->maximumWidth, 936);
    EXPECT_EQ(ppd.customSizes()->maximumLength, 1368);
}

struct CutCase {
    const char* name;
    std::string written;
    std::string read;
};

// The library keeps 80 bytes of a choice's text and 39 of a group's.
TEST(PPDFile, EndsTextsThatTheLibraryCutsAtAWholeCharacter)
{
    const std::string bytes79(79, 'x');
    const std::string bytes38(38, 'x');
    const CutCase choices[] = {
        {"whole",              bytes79 + "y",    bytes79 + "y" },
        {"after a character",  bytes79 + "yé",  bytes79 + "y" },
        {"inside a character", bytes79 + "é",   bytes79       },
        {"two bytes missing",  bytes79 + "€",  bytes79       },
        {"short, no UTF-8",    "caf\x8E",        "café"       },
        {"long, no UTF-8",     "\x8E" + bytes79, "é" + bytes79},
    };
    for (const auto& row : choices) {
        SCOPED_TRACE(row.name);
        const PPDFile ppd = PrinterOf(PickOne("Jog", "A", {"A/" + row.written}));
        EXPECT_EQ(ppd.option("Jog")->choices[0].text, row.read);
    }
    const PPDFile ppd = PrinterOf("*OpenGroup: Paper/" + bytes38 + "é\n" +
                                  PickOne("Jog", "A", {"A"}) + "*CloseGroup: Paper\n");
    EXPECT_EQ(ppd.groups()[0].text, bytes38);
}

TEST(PPDFile, HasConstraintsOfBothKinds)
{
    const PPDFile ppd =
        PrinterOf(PickOne("A", "On", {"On", "Off"}) + PickOne("B", "On", {"On", "Off"}) +
                  "*UIConstraints: *A On *B Off\n"
                  "*NonUIConstraints: *B *A Off\n"
                  "*cupsUIResolver r: \"*A Off\"\n"
                  "*cupsUIConstraints r: \"*B  On *A\"\n"
                  "*cupsUIConstraints: \"*A *B *C On\"\n"
                  "*cupsUIConstraints: \"*A On Off *B\"\n"
                  "*cupsUIConstraints: \"On *B\"\n");
    std::string constraints;
    for (const PPDConstraint& pair : ppd.constraints()) {
        constraints += pair.option1 + "." + pair.choice1 + " " + pair.option2 + "." + pair.choice2;
        constraints += "; ";
    }
    EXPECT_EQ(constraints, "A.On B.Off; B. A.Off; B.On A.; ");
}

// "Group/Option: choice, choice" of the description's first group.
std::string TextsOf(const PPDFile& ppd)
{
    const PPDGroup& group = ppd.groups().front();
    std::string texts = group.text + "/" + group.options.front().text + ":";
    for (const PPDChoice& choice : group.options.front().choices) {
        texts += " " + choice.text;
    }
    return texts;
}

struct LanguageCase {
    const char* name;
    const char* own; // of the file; null when it says nothing
    std::vector<std::string> languages;
    const char* texts;
};

TEST(PPDFile, HasTheTextsOfTheUsersLanguage)
{
    const std::string contents = PPDHeader +
                                 "*cupsLanguages: \"de de_AT fr\"\n"
                                 "*OpenGroup: Sheets/Paper\n" +
                                 PickOne("Bin", "A", {"A/Top", "B/Side"}) +
                                 "*CloseGroup: Sheets\n"
                                 "*de.Translation Sheets/Papier: \"\"\n"
                                 "*de.Translation Bin/Fach: \"\"\n"
                                 "*de.Bin A/Oben: \"\"\n"
                                 "*de.Bin A/Zweites: \"\"\n"
                                 "*de.Bin B/<53C3A974650A>: \"\"\n"
                                 "*de.Other B/Anderes: \"\"\n"
                                 "*de_AT.Bin A/Heroben: \"\"\n"
                                 "*fr.Bin B/C\x99t\x8E: \"\"\n"
                                 "*nl.Bin B/Zijde: \"\"\n";
    const LanguageCase cases[] = {
        {"none",                      "English", {},                    "Paper/Bin: Top Side"      },
        {"the file's own",            "English", {"en_US", "en", "de"}, "Paper/Bin: Top Side"      },
        {"own without saying",        nullptr,   {"en", "de"},          "Paper/Bin: Top Side"      },
        {"another is its own",        "German",  {"nl", "de", "fr"},    "Paper/Bin: Top Side"      },
        {"English is not its own",    "French",  {"en", "de", "fr"},    "Papier/Fach: Oben Séte\n"},
        {"not offered",               "English", {"nl", "C"},           "Paper/Bin: Top Side"      },
        {"another",                   "English", {"de"},                "Papier/Fach: Oben Séte\n"},
        {"a country's, then general",
         "English",                              {"de_AT", "de", "C"},
         "Papier/Fach: Heroben Séte\n"                                                            },
        {"Mac Roman, half of it",     "English", {"fr", "en", "de"},    "Paper/Bin: Top Côté"    },
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        ParseError error;
        const std::string own =
            row.own == nullptr ? "" : "*LanguageVersion: " + std::string(row.own) + "\n";
        const auto ppd = PPDFile::Read(contents + own, row.languages, error);
        ASSERT_TRUE(ppd) << error.reason;
        EXPECT_EQ(TextsOf(*ppd), row.texts);
    }
}

} // namespace
} // namespace tarvo
