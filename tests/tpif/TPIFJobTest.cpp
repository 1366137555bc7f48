#include "tpif/TPIFJob.h"

#include "TPIFTestSupport.h"

namespace tarvo {
namespace {

using SettingsWriter = void (*)(TPIFChannel&, const CFDictionary&);

std::string Output(SettingsWriter writer, const CFDictionary& settings)
{
    return Written([&](TPIFChannel& channel) { writer(channel, settings); });
}

struct JobCase {
    const char* name;
    CFDictionary settings;
    std::string xml;
};

void ExpectWritten(SettingsWriter writer, const std::vector<JobCase>& cases)
{
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Output(writer, row.settings), row.xml);
    }
}

TEST(OperationAttributes, NeedJobNameAndSender)
{
    const auto group = [](const std::string& job, const std::string& user) {
        return "\t<tpif-operation-attributes>\n"
               "\t\t<job-name syntax=\"name\" xml:space=\"preserve\">" +
               job +
               "</job-name>\n"
               "\t\t<requesting-user-name syntax=\"name\" xml:space=\"preserve\">" +
               user +
               "</requesting-user-name>\n"
               "\t</tpif-operation-attributes>\n";
    };
    const auto names = [](CFPropertyList job, CFPropertyList sender) {
        return Dictionary({
            {"com.tarvo.print.JobNotesJobName",    job   },
            {"com.tarvo.print.JobNotesSenderName", sender}
        });
    };
    CFDictionary system = names("notes", "me");
    system.set("UseJobName", true);
    CFDictionary systemNamed = system;
    systemNamed.set("com.apple.print.JobInfo.PMJobName", "system's");
    CFDictionary notBoolean = systemNamed;
    notBoolean.set("UseJobName", 1);
    ExpectWritten(
        WriteTPIFJobNameAndUser,
        {
            {"both",                            names("&<\">",         "O'Neil"),                                     group("&amp;&lt;&quot;&gt;",                   "O&apos;Neil")},
            {"no sender",                                 Dictionary({{"com.tarvo.print.JobNotesJobName", "job"}}),                                            ""},
            {"empty job name",                  names("",              "me"),                                         ""},
            {"sender is no text",               names("job",           1),                                            ""                                           },
            {"system's name wanted and absent", system,                ""                                           },
            {"system's name",                      systemNamed, group("system&apos;s",                                         "me")                                           },
            {"a number does not want it",                       notBoolean,         group("notes",                                         "me")                                             },
    });
}

TEST(JobNotes, AreWrittenInOrderAndWhole)
{
    const std::string message(5000, 'x');
    const CFDictionary settings = Dictionary({
        {"com.tarvo.print.JobNotesSheetMessage", "sheet"                 },
        {"com.tarvo.print.JobNotesRecipient",    "R & D"                 },
        {"com.tarvo.print.JobNotesMessage",      "two\nlines <" + message},
    });
    EXPECT_EQ(
        Output(WriteTPIFJobNotes, settings),
        "\t\t<job-message-to-operator syntax=\"text\" xml:space=\"preserve\">two\nlines &lt;" +
            message +
            "</job-message-to-operator>\n"
            "\t\t<job-recipient-name syntax=\"name\" xml:space=\"preserve\">R &amp; D"
            "</job-recipient-name>\n"
            "\t\t<job-sheet-message syntax=\"text\" xml:space=\"preserve\">sheet"
            "</job-sheet-message>\n");
    EXPECT_EQ(Output(WriteTPIFJobNotes, Dictionary({
                                            {"com.tarvo.print.JobNotesMessage", ""}
    })),
              "");
}

std::string Disposition(const std::string& word, const std::string& info)
{
    return "\t\t<job-save-disposition syntax=\"collection\">\n"
           "\t\t\t<save-disposition syntax=\"keyword\">" +
           word + "</save-disposition>\n" + info + "\t\t</job-save-disposition>\n";
}

std::string SaveInfo(const std::string& location, const std::string& name,
                     const std::string& format)
{
    std::string text = "\t\t\t<save-info syntax=\"1setOf\">\n"
                       "\t\t\t\t<value syntax=\"collection\">\n"
                       "\t\t\t\t\t<save-location syntax=\"uri\">" +
                       location +
                       "</save-location>\n"
                       "\t\t\t\t\t<save-name syntax=\"name\" xml:space=\"preserve\">" +
                       name + "</save-name>\n";
    if (!format.empty()) {
        text += "\t\t\t\t\t<save-document-format syntax=\"mimeMediaType\">" + format +
                "</save-document-format>\n";
    }
    return text + "\t\t\t\t</value>\n"
                  "\t\t\t</save-info>\n";
}

TEST(JobTypes, HoldAndSaveAreWrittenAndOthersSaveNothing)
{
    const auto type = [](CFDictionary jobType) {
        return Dictionary({
            {"com.tarvo.print.JobType", std::move(jobType)}
        });
    };
    const std::string none = Disposition("none", "");
    const std::string repository = "file:///job-repository/";
    ExpectWritten(
        WriteTPIFJobType,
        {
            {"absent",                             {},                                           none},
            {"normal",                             type(Dictionary({{"JobType", 1}})),           none},
            {"no dictionary",                      Dictionary({{"com.tarvo.print.JobType", 3}}), none},
            {"hold stands alone",                  type(Dictionary({{"JobType", 2}})),
             "\t\t\t<job-hold-until syntax=\"keyword\">indefinite</job-hold-until>\n"                },
            {"save, all absent",                   type(Dictionary({{"JobType", 3}})),
             Disposition("save-only",                                                                  SaveInfo(repository, "", "application/X-single-page-tiff"))},
            {"save and print",
             type(Dictionary({{"JobType", 4},
                              {"SavedJobName", "A & B"},
                              {"SavedJobLocation", "file:///x?a&b"},
                              {"MediaType", 3}})),
             Disposition("print-save",
             SaveInfo("file:///x?a&amp;b", "A &amp; B", "application/pdf"))},
            {"last format, empty location",
             type(Dictionary({{"JobType", 3}, {"SavedJobLocation", ""}, {"MediaType", 5}})),
             Disposition("save-only",
             SaveInfo(repository, "", "application/X-fast-reprint-and-dri"))},
            {"unknown format",                 type(Dictionary({{"JobType", 3}, {"MediaType", 6}})),
             Disposition("save-only",                                     SaveInfo(repository, "", ""))},
            {"background forms",              type(Dictionary({{"JobType", 9}})),                                                                ""                                                                 },
            {"beyond",                                    type(Dictionary({{"JobType", 10}})),                                                                 none},
    });
}

TEST(Duplex, IsAlwaysWritten)
{
    const auto sides = [](const std::string& word) {
        return "\t\t<sides syntax=\"keyword\">" + word + "</sides>\n";
    };
    constexpr const char* Duplex = "com.tarvo.print.FinishingDuplex";
    constexpr const char* System = "com.apple.print.PrintSettings.PMDuplexing";
    ExpectWritten(
        WriteTPIFDuplex,
        {
            {"absent",              {},                                        sides("one-sided")           },
            {"long",                Dictionary({{Duplex, 2}}),                 sides("two-sided-long-edge") },
            {"short",               Dictionary({{Duplex, 3}}),                 sides("two-sided-short-edge")},
            {"unset",               Dictionary({{Duplex, UnsetValue}}),        sides("one-sided")           },
            {"system's",            Dictionary({{System, 2}}),                 sides("two-sided-long-edge") },
            {"own before system's", Dictionary({{System, 2}, {Duplex, 1}}),    sides("one-sided")           },
            {"own is no number",    Dictionary({{Duplex, true}, {System, 3}}),
             sides("two-sided-short-edge")                                                                  },
    });
}

TEST(OutputDestination, HasABinForMostDestinations)
{
    constexpr std::pair<int, const char*> Bins[] = {
        {0,  ""         },
        {1,  "automatic"},
        {2,  "top"      },
        {3,  "top"      },
        {4,  "stacker"  },
        {5,  "stacker-1"},
        {6,  "stacker-2"},
        {7,  ""         },
        {8,  "top-1"    },
        {9,  "top-2"    },
        {10, ""         },
    };
    for (const auto& [destination, bin] : Bins) {
        SCOPED_TRACE(destination);
        const std::string line =
            "\t\t<output-bin syntax=\"keyword\">" + std::string(bin) + "</output-bin>\n";
        EXPECT_EQ(Output(WriteTPIFOutputDestination,
                         Dictionary({
                             {"com.tarvo.print.FinishingOutputDestination", destination}
        })),
                  *bin == '\0' ? "" : line);
    }
}

TEST(Resolution, IsZeroForANumberWithoutARow)
{
    const auto block = [](const std::string& cross, const std::string& feed) {
        return "\t\t<printer-resolution syntax=\"resolution\">\n"
               "\t\t\t<cross-feed syntax=\"integer\">" +
               cross +
               "</cross-feed>\n"
               "\t\t\t<feed-direction syntax=\"integer\">" +
               feed +
               "</feed-direction>\n"
               "\t\t\t<units syntax=\"integer\">3</units>\n"
               "\t\t</printer-resolution>\n";
    };
    constexpr const char* Key = "com.tarvo.print.Resolution";
    ExpectWritten(WriteTPIFResolution,
                  {
                      {"absent",                {},                     ""           },
                      {"first",                 Dictionary({{Key, 1}}), block("300",   "300")},
                      {"uneven",                       Dictionary({{Key, 3}}),                                      block("1200",       "600")},
                      {"last",                 Dictionary({{Key, 4}}),                                       block("1200",                                         "1200")},
                      {"no row",           Dictionary({{Key, 7}}),block("0","0")},
                      {"unset",Dictionary({{Key, UnsetValue}}),                 block("0",                                                                  "0")},
                      {"text",                 Dictionary({{Key, "2"}}),                  ""     },
    });
}

CFDictionary Accounting(CFPropertyList on, const std::string& user, const std::string& account)
{
    return Dictionary({
        {"com.tarvo.Act.tpif.On",  std::move(on)},
        {"com.tarvo.Act.tpif.UID", user         },
        {"com.tarvo.Act.tpif.AID", account      }
    });
}

TEST(Accounting, IsWrittenRawWithAnEndTagOfAnotherName)
{
    EXPECT_EQ(Output(WriteTPIFAccounting, Accounting(3, "me & <you>", "4711")),
              "\t\t<job-accounting-user-id syntax=\"name\" xml:space=\"preserve\">me & <you>"
              "</job-accounting-user-id>\n"
              "\t\t<job-account-id syntax=\"name\" xml:space=\"preserve\">4711"
              "</job-accounting-id>\n");
    const std::string cut =
        Output(WriteTPIFAccounting, Accounting(3, std::string(78, 'u') + "ü", ""));
    EXPECT_NE(cut.find(">" + std::string(78, 'u') + "<"), std::string::npos) << cut;
    EXPECT_NE(cut.find("preserve\"></job-accounting-id>"), std::string::npos) << cut;
    EXPECT_EQ(Output(WriteTPIFAccounting, Accounting(2, "me", "4711")), "");
}

TEST(Accounting, SaysWhatItFound)
{
    const auto lines = [](const CFDictionary& settings) {
        return Diagnostics([&](TPIFChannel& channel) { WriteTPIFAccounting(channel, settings); });
    };
    EXPECT_EQ(lines({}), "DEBUG: Ticket is valid\nDEBUG: No accounting ticket present\n");
    EXPECT_EQ(lines(Accounting(true, "", "")),
              "DEBUG: Ticket is valid\nDEBUG: No accounting ticket present\n");
    EXPECT_EQ(lines(Accounting(2, "", "")),
              "DEBUG: Ticket is valid\nDEBUG: Found accounting key: 2\n");
    EXPECT_EQ(lines(Accounting(3, "me", "47")),
              "DEBUG: Ticket is valid\nDEBUG: Found accounting key: 3\n"
              "DEBUG: Accounting is enabled\nDEBUG: user id me, acct id 47\n");
}

} // namespace
} // namespace tarvo
