#include "tpif/TPIFImport.h"

#include "TPIFTestSupport.h"
#include "platform/files/FileContents.h"
#include "printer/FeatureDatabase.h"
#include "settings/TicketKeys.h"
#include "support/TicketText.h"
#include "tpif/DeviceProfile.h"
#include "tpif/TPIFWriter.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <map>

namespace tarvo {
namespace {

const TPIFImportFeatures& Features()
{
    static const TPIFImportFeatures features = TPIFImportFeatures(FeatureDatabase(DeviceProfile()));
    return features;
}

std::string Job(const std::string& members)
{
    return "<tpif><job-template-attributes>" + members + "</job-template-attributes></tpif>";
}

CFDictionary Imported(const TPIFImportFeatures& features, const std::string& document)
{
    CFDictionary result;
    ParseError error;
    EXPECT_EQ(TPIFImportDocument(features, XmlSourceOf(document), result, error), StatusOk)
        << error.reason;
    return result;
}

class ImportedFiles : public testing::Test {
protected:
    ImportedFiles() : folder_(testing::TempDir() + "tarvo-import-" + std::to_string(getpid()) + "/")
    {
        std::filesystem::create_directories(folder_);
    }
    ~ImportedFiles() override { std::filesystem::remove_all(folder_); }

    std::string file(const std::string& name, const std::string& contents)
    {
        std::string reason;
        EXPECT_TRUE(ReplaceFileContents(folder_ + name, contents, reason)) << reason;
        return folder_ + name;
    }

    std::string folder_;
};

TEST_F(ImportedFiles, ReplaceOneAnothersEntriesAndLeaveTheRest)
{
    const std::string saved = "<job-save-disposition><save-disposition syntax='keyword'>save-only"
                              "</save-disposition><save-info><value><save-name syntax='name'>A"
                              "</save-name></value></save-info></job-save-disposition>";
    const std::string bin = "<output-bin syntax='keyword'>stacker</output-bin>";
    const std::vector<std::string> paths = {
        file("a", Job(saved + bin)),
        file("broken", Job(bin + "</sides>")),
        folder_ + "absent",
        file("b", Job("<job-hold-until syntax='keyword'>indefinite</job-hold-until>"
                      "<sides syntax='keyword'>two-sided-short-edge</sides>")),
    };
    PMPrintSession session;
    PMTicket& ticket = session.addTicket(JobTicketName);
    ticket.setItem("Other", JobTypeKey, TicketFromText("SecurePrintPassword: \"1234\""));
    ticket.setItem("Other", ResolutionKey, 2);
    std::vector<TPIFUnreadableFile> unreadable;
    EXPECT_EQ(TPIFImportFiles(Features(), paths, &session, &unreadable), StatusOk);
    EXPECT_EQ(ticket.item(JobTypeKey)->value, CFPropertyList(TicketFromText("JobType: 2")));
    EXPECT_EQ(ticket.item(JobTypeKey)->client, "TARVO");
    EXPECT_EQ(ticket.item(OutputDestinationKey)->value, CFPropertyList(4));
    EXPECT_EQ(ticket.item(ResolutionKey)->client, "Other");
    // The print dialog's own two-sided mode goes along.
    EXPECT_EQ(ticket.item(SystemDuplexKey)->value, CFPropertyList(3));
    EXPECT_EQ(ticket.item(SystemDuplexKey)->client, "com.tarvo.printingmanager");
    EXPECT_EQ(ticket.ppdDictionary(), TicketFromText("Duplex: \"DuplexTumble\""));
    ASSERT_EQ(unreadable.size(), 2U);
    EXPECT_EQ(unreadable[0].path, paths[1]);
    EXPECT_THAT(unreadable[0].error.reason, testing::HasSubstr("tag mismatch"));
    EXPECT_EQ(unreadable[1].error.reason, "cannot read: No such file or directory");
}

TEST_F(ImportedFiles, MustBeRegularAndReadable)
{
    CFDictionary result = TicketFromText("kept: 1");
    ParseError error;
    ASSERT_EQ(mkfifo((folder_ + "pipe").c_str(), 0600), 0);
    for (const std::string& path : {folder_ + "pipe", folder_, file("empty", "")}) {
        EXPECT_EQ(TPIFImportFileAtPath(Features(), path, result, error), -208) << path;
        EXPECT_FALSE(error.reason.empty());
    }
    EXPECT_EQ(result.size(), 1U);
}

TEST(ImportMerge, DoesNothingWithoutSessionTicketOrEntries)
{
    PMPrintSession session;
    const CFDictionary result = TicketFromText(".FinishingDuplex: 2");
    const CFDictionary empty;
    EXPECT_EQ(TPIFImportMergeIntoJobTicket(nullptr, &result), StatusOk);
    EXPECT_EQ(TPIFImportMergeIntoJobTicket(&session, &result), StatusOk);
    PMTicket& ticket = session.addTicket(JobTicketName);
    EXPECT_EQ(TPIFImportMergeIntoJobTicket(&session, nullptr), StatusOk);
    EXPECT_EQ(TPIFImportMergeIntoJobTicket(&session, &empty), StatusOk);
    EXPECT_EQ(ticket.count(), 0U);
    // An entry that another client has locked stays, and the others are written.
    ticket.setItem("Other", DuplexKey, 1, true);
    EXPECT_EQ(TPIFImportMergeIntoJobTicket(&session, &result), StatusItemLocked);
    EXPECT_TRUE(ticket.containsItem(SystemDuplexKey));
}

// An export with accounting closes an element by another name; nobody can read it.
TEST(ImportDocument, OfAnExportWithAccountingIsUnreadable)
{
    const CFDictionary settings = TicketFromText(
        ".TPIFOptions: {TPIFOptionAll: true}, com.tarvo.Act.tpif.On: 3, .FinishingDuplex: 2");
    const std::string document =
        Written([&](TPIFChannel& channel) { WriteTPIF(channel, settings, nullptr); });
    CFDictionary result;
    ParseError error;
    EXPECT_EQ(TPIFImportDocument(Features(), XmlSourceOf(document), result, error), -208);
    EXPECT_TRUE(result.empty()); // although the elements before were good
    EXPECT_THAT(error.reason, testing::HasSubstr("job-account"));
}

// What a profile of that one feature gives of a document.
CFDictionary ImportedWith(const std::string& feature, const std::string& properties,
                          const std::string& syntax, const std::string& document)
{
    const CFDictionary profile =
        TicketFromText("Features: {" + feature + ": {ID: \"" + feature + "\", Properties: {" +
                       properties + "}, Syntax: {" + syntax + "}}}");
    return Imported(TPIFImportFeatures(FeatureDatabase(profile)), document);
}

std::string Rgb(const std::string& syntax, const std::string& text)
{
    return Job("<undefined-source-rgb-text syntax='" + syntax + "'>" + text +
               "</undefined-source-rgb-text>");
}

constexpr const char* RgbSyntax = R"(Keyword: {
    sRGB: {ID: "sRGB", Properties: {TPIFValue: "x", NameSyntax: true}},
    Other: {ID: "Smpte240m", Properties: {TPIFValue: "y", NameSyntax: true}},
    AdobeRGB: {ID: "AdobeRGB", Properties: {TPIFValue: "z", NameSyntax: false}},
    Twice: {ID: "sRGB", Properties: {TPIFValue: "x", NameSyntax: true}}
    }, Name: {Length: 3, CharacterSet: "xyzä"})";

TEST(ImportFeatures, AreThoseOfTheDatabase)
{
    constexpr const char* Asked = "TPIF: true";
    constexpr const char* ByName = "TPIF: true, KeywordsUseNameSyntax: true";
    // name, properties, document, value of the profile
    const std::tuple<const char*, const char*, std::string, const char*> rows[] = {
        {"a word of its own",            ByName, Rgb("keyword", "z"),    "6"       },
        {"a name that is a keyword's",   ByName, Rgb("name",    "y"),    "3"       },
        {"a name that is two keywords'", ByName, Rgb("name",    "x"),    "\"x\""   },
        {"a name that is no keyword's",  ByName, Rgb("name",    "z"),    "\"z\""   },
        {"names are names",              Asked,  Rgb("name",    "y"),    "\"y\""   },
        {"the longest name",             ByName, Rgb("uri",     "xäx"), "\"xäx\""},
        {"too long",                     ByName, Rgb("name",    "xyzx"), ""        },
        {"a character too many",         ByName, Rgb("name",    "xa"),   ""        },
        {"a syntax that is not there",   ByName, Rgb("integer", "1"),    ""        },
        {"not asked",                    "",     Rgb("keyword", "z"),    ""        },
    };
    for (const auto& [name, properties, document, value] : rows) {
        const std::string given = value;
        const std::string expected =
            given.empty() ? "" : ".FullColorOptions: {RGBTextAndGraphicsProfile: " + given + "}";
        EXPECT_EQ(ImportedWith("RGBSourceText", properties, RgbSyntax, document),
                  TicketFromText(expected))
            << name;
    }
    EXPECT_TRUE(Imported(TPIFImportFeatures(FeatureDatabase()), Rgb("name", "y")).empty());
}

TEST(ImportFeatures, OfNumbersMayHaveAKeywordForNone)
{
    constexpr const char* Syntax = R"(Keyword: {PrinterDefault:
        {ID: "PrinterDefault", Properties: {TPIFValue: "any", NameSyntax: false}}})";
    EXPECT_EQ(ImportedWith("StockWeight", "TPIF: true", Syntax,
                           Job("<media-col><media-weight-metric syntax='keyword'>any"
                               "</media-weight-metric></media-col>")),
              TicketFromText(".JobLevelStock: {Weight: unset}"));
    EXPECT_EQ(ImportedWith("LightenDarken", "TPIF: true", Syntax,
                           Job("<adjust-bw-darkness-value syntax='keyword'>any"
                               "</adjust-bw-darkness-value>")),
              TicketFromText(".LightenDarken: unset"));
}

std::string Line(const TPIFImportStep& step)
{
    static constexpr const char* Outcomes[] = {"taken", "ignored", "refused", "lost"};
    const auto last = step.path.substr(step.path.rfind('.') + 1);
    std::string line = std::to_string(step.line) + " " + std::string(last) + "=" +
                       std::string(step.text) + " " +
                       Outcomes[static_cast<std::size_t>(step.outcome)];
    if (step.value != nullptr) {
        const auto* text = step.value->get<std::string>();
        line += " " + std::string(step.key) + "=" +
                (text != nullptr ? *text : std::to_string(*step.value->get<std::int64_t>()));
    }
    return line + (step.reason.empty() ? "" : " (" + std::string(step.reason) + ")");
}

TEST(ImportObserver, HearsOfEveryElementOnce)
{
    const std::string document = Job("<sides syntax='keyword'> one-sided</sides>\n"
                                     "<sides syntax='keyword'>duplex</sides>\n"
                                     "<copies syntax='integer'>2</copies>"
                                     "<output-bin syntax='keyword'>top-1</output-bin>\n"
                                     "<media-col><media-type syntax='name'>Film</media-type>\n"
                                     "<media-recycled syntax='keyword'>standard</media-recycled>"
                                     "<media-weight-metric syntax='integer'>0</media-weight-metric>"
                                     "</media-col>"
                                     "<page-overrides><value><pages/></value>\n<value>"
                                     "<trc><trc-name syntax='name'></trc-name></trc>"
                                     "<adjust-cyan-red syntax='integer'>1</adjust-cyan-red>"
                                     "</value></page-overrides>\n"
                                     "<page-overrides><value><sides/></value></page-overrides>");
    std::vector<std::string> lines;
    const TPIFImportObserver observer = [&lines](const TPIFImportStep& step) {
        lines.push_back(Line(step));
    };
    CFDictionary result;
    ParseError error;
    ASSERT_EQ(TPIFImportDocument(Features(), XmlSourceOf(document), result, error, &observer),
              StatusOk);
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ(
        lines,
        (std::vector<std::string>{
            "1 sides= one-sided taken com.tarvo.print.FinishingDuplex=1",
            "2 sides=duplex ignored (an earlier one counts)",
            "3 copies=2 ignored (nothing asks for it)",
            "3 output-bin=top-1 lost (no ticket value stands for it)",
            "4 media-type=Film taken com.tarvo.print.JobLevelStock/CustomType=Film",
            "4 media-type=Film taken com.tarvo.print.JobLevelStock/Type=7",
            "5 media-recycled=standard ignored (another one decides on the type)",
            "5 media-weight-metric=0 refused (below 1)", "5 pages= ignored (it holds nothing)",
            "6 adjust-cyan-red=1 taken com.tarvo.print.SpecialPages.ExceptionList[1]/"
            "FullColorOptionsPage/FCColorCast/FCCyanRed=1",
            "6 trc-name= ignored (empty)", "7 sides= ignored (an earlier one counts)"}));
}

// Of the members of a job, on one line, in the order of the document.
std::string LinesOf(const std::string& members)
{
    std::map<std::size_t, std::string> lines;
    const TPIFImportObserver observer = [&lines](const TPIFImportStep& step) {
        std::string line = Line(step).substr(2);
        constexpr std::string_view Prefix = "com.tarvo.print.";
        if (const std::size_t found = line.find(Prefix); found != std::string::npos) {
            line.erase(found, Prefix.size());
        }
        lines[step.element] += line + "\n";
    };
    CFDictionary result;
    ParseError error;
    TPIFImportDocument(Features(), XmlSourceOf(Job(members)), result, error, &observer);
    std::string text;
    for (const auto& [element, line] : lines) {
        text += line;
    }
    return text;
}

std::string Set(const std::string& name, std::initializer_list<const char*> values)
{
    const std::string syntax = name == "finishings" ? "enum" : "keyword";
    std::string members;
    for (const char* value : values) {
        members += "<value syntax='" + syntax + "'>" + value + "</value>";
    }
    return "<" + name + ">" + members + "</" + name + ">";
}

std::string Word(const std::string& name, const std::string& text)
{
    return "<" + name + " syntax='keyword'>" + text + "</" + name + ">";
}

// clang-format off
TEST(ImportObserver, HearsWhatIsStoredWhenThatIsDecided)
{
    const std::string printedOnBack = Word("cover-type", "print-back");
    const std::string page = "<insert-after-page-number syntax='integer'>x</insert-after-page-number>";
    // name, members of the job, lines
    const std::tuple<const char*, std::string, const char*> rows[] = {
        {"none beside a staple", Set("finishings", {"3", "20"}),
         "value=3 ignored (the values beside it decide)\n"
         "value=20 taken FinishingStaple1Value=5\n"},
        {"two positions of one family", Set("finishings", {"28", "30"}),
         "value=28 ignored (a later one of its kind counts)\n"
         "value=30 taken FinishingStaple2Value=13\n"},
        {"repeated, the driver's punch position", Set("finishings", {"20", "20", "94"}),
         "value=20 taken FinishingStaple1Value=5\n"
         "value=20 taken FinishingHolePunchValue=49\n"
         "value=94 ignored (the values beside it decide)\n"},
        {"repeated without a staple", Set("finishings", {"50", "50"}),
         "value=50 taken FinishingBindValue=15\n"
         "value=50 ignored (it is said before)\n"},
        {"holes beside a staple", Set("finishings", {"20", "90"}),
         "value=20 taken FinishingStaple1Value=5\n"
         "value=90 taken FinishingHolePunchOptions=3\n"
         "value=90 taken FinishingHolePunchValue=49\n"},
        {"two offsets", Set("job-offset", {"offset-set", "offset-subset", "offset-set"}),
         "value=offset-set taken FinishingOffset=5\n"
         "value=offset-subset taken FinishingOffset=5\n"
         "value=offset-set ignored (it is said before)\n"},
        {"none beside an offset", Set("job-offset", {"none", "offset-set"}),
         "value=none lost (no ticket value stands for all of the set)\n"
         "value=offset-set lost (no ticket value stands for all of the set)\n"},
        {"back before front", "<cover-back>" + printedOnBack + "</cover-back><cover-front>" + printedOnBack + "</cover-front>",
         "cover-type=print-back taken SpecialPages.BackCover/SidesImaged=3\n"
         "cover-type=print-back taken SpecialPages.FrontCover/SidesImaged=3\n"},
        {"an insert that is left out", "<insert-sheet><value>" + page + "<insert-count syntax='integer'>2</insert-count></value></insert-sheet>",
         "insert-after-page-number=x refused (not a whole number of 32 bits)\n"
         "insert-count=2 ignored (its insert is left out)\n"},
        {"an empty page", "<page-overrides><value> </value></page-overrides>",
         "value=  taken SpecialPages.ExceptionList[0]/StartPage=1\n"},
        {"half a size", "<media-col><media-size><x-dimension syntax='integer'>9</x-dimension></media-size></media-col>",
         "x-dimension=9 ignored (the other measure is missing or no use)\n"},
        {"an unknown coating beside a known one",
         "<media-col>" + Word("media-front-coating", "glossy") + Word("media-back-coating", "?") + "</media-col>",
         "media-front-coating=glossy taken JobLevelStock/kCoatingType=1\n"
         "media-back-coating=? refused (an unknown word)\n"},
        {"a name of a job that is not saved",
         "<job-save-disposition><save-info><value><save-name syntax='name'>A</save-name></value></save-info></job-save-disposition>",
         "save-name=A ignored (there is no job type to go with)\n"},
    };
    for (const auto& [name, members, lines] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(LinesOf(members), lines);
    }
}
// clang-format on

} // namespace
} // namespace tarvo
