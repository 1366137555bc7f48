#include "tpif/TPIFImport.h"

#include "TPIFTestSupport.h"
#include "platform/files/FileContents.h"
#include "printer/FeatureDatabase.h"
#include "settings/TicketKeys.h"
#include "tpif/DeviceProfile.h"
#include "tpif/TPIFWriter.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace tarvo {
namespace {

using testing::ElementsAre;

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
    ticket.setItem("Other", JobTypeKey,
                   Dictionary({
                       {"SecurePrintPassword", "1234"}
    }));
    ticket.setItem("Other", ResolutionKey, 2);
    std::vector<TPIFUnreadableFile> unreadable;
    EXPECT_EQ(TPIFImportFiles(Features(), paths, &session, &unreadable), StatusOk);
    EXPECT_EQ(ticket.item(JobTypeKey)->value, CFPropertyList(Dictionary({
                                                  {"JobType", 2}
    })));
    EXPECT_EQ(ticket.item(JobTypeKey)->client, "TARVO");
    EXPECT_EQ(ticket.item(OutputDestinationKey)->value, CFPropertyList(4));
    EXPECT_EQ(ticket.item(ResolutionKey)->client, "Other");
    // The print dialog's own two-sided mode goes along.
    EXPECT_EQ(ticket.item(SystemDuplexKey)->value, CFPropertyList(3));
    EXPECT_EQ(ticket.item(SystemDuplexKey)->client, "com.tarvo.printingmanager");
    EXPECT_EQ(ticket.ppdDictionary(), Dictionary({
                                          {"Duplex", "DuplexTumble"}
    }));
    ASSERT_EQ(unreadable.size(), 2U);
    EXPECT_EQ(unreadable[0].path, paths[1]);
    EXPECT_THAT(unreadable[0].error.reason, testing::HasSubstr("tag mismatch"));
    EXPECT_EQ(unreadable[1].error.reason, "cannot read: No such file or directory");
}

TEST_F(ImportedFiles, MustBeRegularAndReadable)
{
    CFDictionary result = Dictionary({
        {"kept", 1}
    });
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
    const CFDictionary result = Dictionary({
        {DuplexKey, 2}
    });
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
    CFDictionary settings = Dictionary({
        {ExportOptionsKey, Dictionary({{ExportAllKey, true}})},
        {AccountingOnKey,  3                                 },
        {DuplexKey,        2                                 }
    });
    const std::string document =
        Written([&](TPIFChannel& channel) { WriteTPIF(channel, settings, nullptr); });
    CFDictionary result;
    ParseError error;
    EXPECT_EQ(TPIFImportDocument(Features(), XmlSourceOf(document), result, error), -208);
    EXPECT_TRUE(result.empty()); // although the elements before were good
    EXPECT_THAT(error.reason, testing::HasSubstr("job-account"));
}

// A profile with features of its own making.
CFDictionary Profile(const char* feature, const CFDictionary& properties,
                     const CFDictionary& syntax)
{
    return Dictionary({
        {"Features", Dictionary({{feature, Dictionary({{"ID", feature},
                                                       {"Properties", properties},
                                                       {"Syntax", syntax}})}})}
    });
}

CFDictionary Word(const char* id, const char* word, bool isName)
{
    return Dictionary({
        {"ID",         id                                                       },
        {"Properties", Dictionary({{"TPIFValue", word}, {"NameSyntax", isName}})}
    });
}

TEST(ImportFeatures, AreThoseOfTheDatabase)
{
    const CFDictionary asked = Dictionary({
        {"TPIF", true}
    });
    const CFDictionary byName = Dictionary({
        {"TPIF",                  true},
        {"KeywordsUseNameSyntax", true}
    });
    const auto rgb = [](const char* syntax, const char* text) {
        return Job("<undefined-source-rgb-text syntax='" + std::string(syntax) + "'>" + text +
                   "</undefined-source-rgb-text>");
    };
    const CFDictionary two = Dictionary({
        {"Keyword", Dictionary({{"sRGB", Word("sRGB", "x", true)},
                                {"Other", Word("Smpte240m", "y", true)},
                                {"AdobeRGB", Word("AdobeRGB", "z", false)},
                                {"Twice", Word("sRGB", "x", true)}})},
        {"Name",    Dictionary({{"Length", 3}, {"CharacterSet", "xyz\xC3\xA4"}})       }
    });
    const auto profile = [](const CFPropertyList& value) {
        return Dictionary({
            {FullColorOptionsKey, Dictionary({{"RGBTextAndGraphicsProfile", value}})}
        });
    };
    // name, properties, document, result
    const std::tuple<const char*, CFDictionary, std::string, CFDictionary> rows[] = {
        {"a word of its own",            byName, rgb("keyword", "z"),          profile(6)           },
        {"a name that is a keyword's",   byName, rgb("name",    "y"),          profile(3)           },
        {"a name that is two keywords'", byName, rgb("name",    "x"),          profile("x")         },
        {"a name that is no keyword's",  byName, rgb("name",    "z"),          profile("z")         },
        {"names are names",              asked,  rgb("name",    "y"),          profile("y")         },
        {"the longest name",             byName, rgb("uri",     "x\xC3\xA4x"), profile("x\xC3\xA4x")},
        {"too long",                     byName, rgb("name",    "xyzx"),       CFDictionary()       },
        {"a character too many",         byName, rgb("name",    "xa"),         CFDictionary()       },
        {"a syntax that is not there",   byName, rgb("integer", "1"),          CFDictionary()       },
        {"not asked",                    {},     rgb("keyword", "z"),          CFDictionary()       },
    };
    for (const auto& [name, properties, document, result] : rows) {
        SCOPED_TRACE(name);
        const FeatureDatabase database(Profile("RGBSourceText", properties, two));
        EXPECT_EQ(Imported(TPIFImportFeatures(database), document), result);
    }
    EXPECT_TRUE(Imported(TPIFImportFeatures(FeatureDatabase()), rgb("name", "y")).empty());
}

TEST(ImportFeatures, OfNumbersMayHaveAKeywordForNone)
{
    const CFDictionary asked = Dictionary({
        {"TPIF", true}
    });
    const CFDictionary keywords = Dictionary({
        {"Keyword", Dictionary({{"PrinterDefault", Word("PrinterDefault", "any", false)}})}
    });
    const CFDictionary stock = Dictionary({
        {"Weight", UnsetValue}
    });
    // feature, members of the job, result
    const std::tuple<const char*, const char*, CFDictionary> rows[] = {
        {"StockWeight",
         "<media-col><media-weight-metric syntax='keyword'>any</media-weight-metric></media-col>", Dictionary({{JobLevelStockKey, stock}})     },
        {"LightenDarken",
         "<adjust-bw-darkness-value syntax='keyword'>any</adjust-bw-darkness-value>",              Dictionary({{LightenDarkenKey, UnsetValue}})},
    };
    for (const auto& [feature, members, result] : rows) {
        SCOPED_TRACE(feature);
        const FeatureDatabase database(Profile(feature, asked, keywords));
        EXPECT_EQ(Imported(TPIFImportFeatures(database), Job(members)), result);
    }
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
    EXPECT_THAT(
        lines,
        ElementsAre("1 sides= one-sided taken com.tarvo.print.FinishingDuplex=1",
                    "2 sides=duplex ignored (an earlier one counts)",
                    "3 copies=2 ignored (nothing asks for it)",
                    "3 output-bin=top-1 lost (no ticket value stands for it)",
                    "4 media-type=Film taken com.tarvo.print.JobLevelStock/CustomType=Film",
                    "4 media-type=Film taken com.tarvo.print.JobLevelStock/Type=7",
                    "5 media-recycled=standard ignored (decides nothing beside the others)",
                    "5 media-weight-metric=0 refused (below 1)",
                    "5 pages= ignored (it holds nothing)",
                    "6 adjust-cyan-red=1 taken com.tarvo.print.SpecialPages.ExceptionList[1]/"
                    "FullColorOptionsPage/FCColorCast/FCCyanRed=1",
                    "6 trc-name= ignored (empty)", "7 sides= ignored (an earlier one counts)"));
}

} // namespace
} // namespace tarvo
