// Documents that somebody made to hurt, or that were broken on their way: each is refused for a
// reason or read, in little memory, and never a crash. What each costs is printed.

#include "platform/files/FileContents.h"
#include "printer/FeatureDatabase.h"
#include "support/PeakMemory.h"
#include "tpif/DeviceProfile.h"
#include "tpif/TPIFImport.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <iterator>

namespace tarvo {
namespace {

constexpr const char* Folder = TARVO_SOURCE_DIR "/tests/tpif/hostile";
constexpr const char* Read = "";

std::string Times(std::size_t count, const std::string& text)
{
    std::string all;
    all.reserve(count * text.size());
    for (; count > 0; --count) {
        all += text;
    }
    return all;
}

// The text with # as 0, 1, 2 ...
std::string Numbered(std::size_t count, const std::string& text)
{
    const std::size_t at = text.find('#');
    std::string all;
    for (std::size_t number = 0; number < count; ++number) {
        all += text.substr(0, at) + std::to_string(number) + text.substr(at + 1);
    }
    return all;
}

std::string Job(const std::string& members)
{
    return "<tpif><job-template-attributes>" + members + "</job-template-attributes></tpif>";
}

std::string Type(const std::string& documentType)
{
    return "<!DOCTYPE tpif " + documentType + ">" + Job("");
}

std::string Pages(std::size_t count, const std::string& page)
{
    return Job("<page-overrides>" + Times(count, "<value>" + page + "</value>") +
               "</page-overrides>");
}

std::string Number(const std::string& text)
{
    return Job("<adjust-bw-darkness-value syntax='integer'>" + text +
               "</adjust-bw-darkness-value><media-col><media-size><x-dimension syntax='integer'>" +
               text + "</x-dimension><y-dimension syntax='integer'>" + text +
               "</y-dimension></media-size></media-col><x-side1-image-shift syntax='integer'>" +
               text + "</x-side1-image-shift>");
}

struct HostileDocument {
    std::string name;
    std::string xml;
    const char* reason; // part of it; Read when it is read
};

// The small ones are files beside this test, by their names without ".xml". Those that are not
// named here are read.
struct RefusedFile {
    const char* name;
    const char* reason; // part of it
};

// clang-format off
constexpr RefusedFile RefusedFiles[] = {
    {"external-entity", "entities"},
    {"parameter-entity", "entities"},
    {"parameter-entitys-use-alone", "not found"},
    {"doubling-entities", "entities"},
    {"entity-that-holds-itself", "entities"},
    {"entity-behind-a-comment", "entities"},
    {"entity-behind-a-literal", "entities"},
    {"default-attribute-of-all", "declarations"},
    {"notation", "declarations"},
    {"undeclared-entity", "not defined"},
    {"two-document-types", "startTag"},
    {"document-type-inside-the-root", "startTag"},
    {"one-deeper", "deeper than 64"},
    {"attributes-of-one-name", "redefined"},
    {"instructions", "processing instructions"},
    {"a-comment-without-an-end", "omment"},
    {"two-roots", "ocument"},
    {"text-behind-the-root", "ocument"},
    {"half-a-document", "Start Tag"},
    {"tags-that-cross", "mismatch"},
    {"empty", "empty"},
    {"a-blank", "not an XML document"},
    {"a-byte-order-mark-alone", "not an XML document"},
    {"utf-16-with-a-mark", "encoding"},
    {"utf-16-without-one", "NUL"},
    {"another-encoding", "encoding"},
    {"an-unknown-version", "version"},
    {"gzip", "N"},
    {"a-picture", "N"},
    {"a-binary-property-list", "binary property list"},
    {"nul-in-a-name", "NUL"},
    {"nul-at-the-end", "NUL"},
    {"overlong", "not UTF-8"},
    {"a-surrogate", "not UTF-8"},
    {"beyond-unicode", "not UTF-8"},
    {"half-a-character-at-the-end", "not UTF-8"},
    {"half-a-character-before-the-tag", "not UTF-8"},
    {"a-control-character", "Char"},
    {"a-control-character-by-number", "har"},
    {"a-surrogate-by-number", "har"},
    {"no-character", "har"},
    {"a-number-beyond-all-characters", "har"},
};
// clang-format on

std::vector<HostileDocument> FilesOfTheFolder()
{
    std::vector<HostileDocument> documents;
    for (const auto& entry : std::filesystem::directory_iterator(Folder)) {
        const std::string name = entry.path().stem();
        const auto* row = std::find_if(std::begin(RefusedFiles), std::end(RefusedFiles),
                                       [&name](const auto& each) { return each.name == name; });
        std::string reason;
        const auto xml = ReadFileContents(entry.path(), TPIFImportLimits.bytes, reason);
        EXPECT_TRUE(xml) << name << ": " << reason;
        documents.push_back(
            {name, xml.value_or(""), row == std::end(RefusedFiles) ? Read : row->reason});
    }
    return documents;
}

// clang-format off
std::vector<HostileDocument> DocumentTypes()
{
    const std::string quadratic = "[<!ENTITY a '" + std::string(50'000, 'x') + "'>]";
    return {
        {"quadratic entity", Type(quadratic), "entities"},
        {"document type without an end", "<!DOCTYPE tpif [" + std::string(1 << 20, ' '), "Subset"},
        {"a million comments in it", Type("[" + Times(200'000, "<!---->") + "]"), Read},
        {"undeclared entity of an external type",
         "<!DOCTYPE tpif SYSTEM 'x'><tpif>" + Times(100'000, "&a;") + "</tpif>", "not defined"},
    };
}

std::vector<HostileDocument> Shapes()
{
    return {
        {"a million levels", Times(1'000'000, "<a>"), "deeper than 64"},
        {"levels that close others", "<a>" + Times(100'000, "</b>") + Times(70, "<a>"), "mismatch"},
        {"200,000 attributes", "<a" + Numbered(200'000, " b#=''") + "/>", "more than 64 attributes"},
        {"attributes on many elements", "<a>" + Times(50'000, "<b c='' d=''/>") + "</a>", Read},
        {"a million siblings", "<a>" + Times(1'000'000, "<b/>") + "</a>", Read},
        {"siblings of many names", "<a>" + Numbered(100'000, "<b#/>") + "</a>", "different names"},
        {"attributes of many names", "<a>" + Numbered(100'000, "<b c#=''/>") + "</a>", "different names"},
        {"namespaces of many names", "<a>" + Numbered(9'999, "<b xmlns='u#'/>") + "</a>", "different names"},
        {"namespaces around one place",
         Times(60, "<a" + Numbered(60, " xmlns:p#='u'") + ">") + Times(10'000, "<p0:b/>"),
         "namespaces in one place"},
        {"prefixes that are not declared", "<a>" + Times(20'000, "<p:b/>") + "</a>", Read},
        {"a name of a megabyte", "<" + std::string(1 << 20, 'a') + "/>", Read},
        {"an attribute of a megabyte", "<a b='" + std::string(1 << 20, 'c') + "'/>", Read},
        {"a comment of two megabytes", "<a><!--" + std::string(2 << 20, '-') + "--></a>", "omment"},
        {"character data in pieces", Job(Times(100'000, "<![CDATA[<]]>")), Read},
        {"character data without an end", "<a><![CDATA[" + std::string(1 << 20, ']'), "CData"},
        {"a tag without an end", "<a b='" + std::string(1 << 20, '>'), "attValue"},
        {"blanks in a tag", "<a" + std::string(2 << 20, ' ') + "/>", Read},
        {"blanks before the root", std::string(2 << 20, ' ') + "<a/>", Read},
        {"blanks behind the root", "<a/>" + std::string(2 << 20, ' '), Read},
        {"end tags alone", Times(100'000, "</a>"), "startTag"},
        {"exceptions without anything", Pages(50'000, ""), Read},
        {"exceptions without anything, too many", Pages(100'000, ""), "exception pages"},
        {"as many that say something",
         Pages(100'000, "<pages syntax='1setOf'><value><lower-bound syntax='integer'>1</lower-bound></value></pages>"), Read},
        {"as many finishings",
         Job("<finishings>" + Times(100'000, "<value syntax='enum'>20</value>") + "</finishings>"), Read},
        {"as many sets of them", Job(Times(100'000, "<finishings><value/></finishings>")), Read},
        {"65 MiB", "<a>" + std::string(std::size_t{65} << 20, 'x'), "larger than 64 MiB"},
        {"covers by the thousand", Job(Times(50'000, "<cover-front/><cover-back/>")), Read},
    };
}

std::vector<HostileDocument> Values()
{
    return {
        {"a number of a megabyte", Number(std::string(1 << 20, '9')), Read},
        {"zeros of a megabyte", Number(std::string(1 << 20, '0') + "5"), Read},
        {"a job name of two megabytes",
         "<tpif><tpif-operation-attributes><job-name syntax='name'>" + std::string(2 << 20, 'x') + "</job-name></tpif-operation-attributes></tpif>",
         Read},
        {"a syntax of a megabyte",
         Job("<sides syntax='" + std::string(1 << 20, 'k') + "'>one-sided</sides>"), Read},
        {"ranges upside down",
         Pages(10'000, "<pages><value><lower-bound syntax='integer'>9</lower-bound></value></pages>"), Read},
    };
}
// clang-format on

double ProcessorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

constexpr std::size_t MostKilobytes = 64 * 1024;

class HostileDocuments : public testing::Test {
protected:
    void run(const std::vector<HostileDocument>& documents)
    {
        for (const HostileDocument& document : documents) {
            SCOPED_TRACE(document.name);
            ResetPeakMemory();
            const std::size_t memory = PeakMemory();
            const double begin = ProcessorSeconds();
            import(document);
            const double seconds = ProcessorSeconds() - begin;
            const std::size_t kilobytes = PeakMemory() - memory;
            std::printf("%-40s %6.0f ms %6zu kB\n", document.name.c_str(), seconds * 1000,
                        kilobytes);
            if (!IsSanitized) {
                EXPECT_LT(kilobytes, MostKilobytes);
            }
        }
    }

private:
    void import(const HostileDocument& document) const
    {
        CFDictionary result;
        ParseError error;
        const OSStatus status =
            TPIFImportDocument(features_, XmlSourceOf(document.xml), result, error);
        EXPECT_EQ(status, *document.reason == '\0' ? StatusOk : StatusUnreadableDocument);
        EXPECT_THAT(error.reason, testing::HasSubstr(document.reason));
        EXPECT_EQ(error.reason.find('\n'), std::string::npos);
    }

    TPIFImportFeatures features_ = TPIFImportFeatures(FeatureDatabase(DeviceProfile()));
};

TEST_F(HostileDocuments, OfFiles)
{
    const auto documents = FilesOfTheFolder();
    run(documents);
    EXPECT_EQ(std::count_if(documents.begin(), documents.end(),
                            [](const auto& each) { return *each.reason != '\0'; }),
              std::ssize(RefusedFiles))
        << "a row without a file";
}

TEST_F(HostileDocuments, OfDocumentTypes)
{
    run(DocumentTypes());
}

TEST_F(HostileDocuments, OfShape)
{
    run(Shapes());
}

TEST_F(HostileDocuments, OfValues)
{
    run(Values());
}

} // namespace
} // namespace tarvo
