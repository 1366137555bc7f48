// Documents that somebody made to hurt, or that were broken on their way: each is refused for a
// reason or read, soon and in little memory, and never a crash. What each costs is printed.

#include "printer/FeatureDatabase.h"
#include "tpif/DeviceProfile.h"
#include "tpif/TPIFImport.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <chrono>
#include <fstream>

namespace tarvo {
namespace {

using std::string_literals::operator""s;

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

std::string Doubling(int levels)
{
    std::string entities = "<!ENTITY a0 'ha'>";
    for (int level = 1; level < levels; ++level) {
        const std::string before = "&a" + std::to_string(level - 1) + ";";
        entities += "<!ENTITY a" + std::to_string(level) + " '" + before + before + "'>";
    }
    return entities;
}

std::string Utf16(const std::string& text)
{
    std::string wide;
    for (const char letter : text) {
        wide += letter;
        wide += '\0';
    }
    return wide;
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

std::string Name(const std::string& text)
{
    return Job("<job-save-disposition><save-disposition syntax='keyword'>save-only"
               "</save-disposition><save-info><value><save-name syntax='name'>" +
               text + "</save-name><save-location syntax='uri'>" + text +
               "</save-location></value></save-info></job-save-disposition>");
}

struct HostileDocument {
    const char* name;
    std::string xml;
    const char* reason; // part of it; Read when it is read
};

// clang-format off
std::vector<HostileDocument> DocumentTypes()
{
    const std::string quadratic = "[<!ENTITY a '" + std::string(50'000, 'x') + "'>]";
    return {
        {"external document type", Type("SYSTEM 'http://198.51.100.1/tpif.dtd'"), Read},
        {"document type of a local file", Type("SYSTEM 'file:///etc/passwd'"), Read},
        {"document type of a device", Type("SYSTEM '/dev/random'"), Read},
        {"public document type", Type("PUBLIC '-//X' '//198.51.100.1/share/x.dtd'"), Read},
        {"external entity", Type("[<!ENTITY a SYSTEM 'file:///etc/passwd'>]"), "entities"},
        {"parameter entity", Type("[<!ENTITY % a SYSTEM 'http://198.51.100.1/'>%a;]"), "entities"},
        {"parameter entity's use alone", Type("[%a;]"), "not found"},
        {"doubling entities", Type("[" + Doubling(64) + "]"), "entities"},
        {"entity that holds itself", Type("[<!ENTITY a '&a;'>]"), "entities"},
        {"quadratic entity", Type(quadratic), "entities"},
        {"entity behind a comment", Type("[<!-- ]> --><!ENTITY a 'b'>]"), "entities"},
        {"entity behind a literal", Type("SYSTEM ']>' [<!ENTITY a 'b'>]"), "entities"},
        {"default attribute of all", Type("[<!ATTLIST value syntax CDATA 'enum'>]"), "declarations"},
        {"notation", Type("[<!NOTATION a SYSTEM 'b'>]"), "declarations"},
        {"document type without an end", "<!DOCTYPE tpif [" + std::string(1 << 20, ' '), "Subset"},
        {"a million comments in it", Type("[" + Times(200'000, "<!---->") + "]"), Read},
        {"undeclared entity", Job("<sides>&a;</sides>"), "not defined"},
        {"undeclared entity of an external type",
         "<!DOCTYPE tpif SYSTEM 'x'><tpif>" + Times(100'000, "&a;") + "</tpif>", "not defined"},
        {"two document types", "<!DOCTYPE a><!DOCTYPE a><a/>", "startTag"},
        {"document type inside the root", "<tpif><!DOCTYPE a></tpif>", "startTag"},
    };
}

std::vector<HostileDocument> Shapes()
{
    return {
        {"deepest", Times(64, "<a>") + Times(64, "</a>"), Read},
        {"one deeper", Times(65, "<a>") + Times(65, "</a>"), "deeper than 64"},
        {"a million levels", Times(1'000'000, "<a>"), "deeper than 64"},
        {"levels that close others", "<a>" + Times(100'000, "</b>") + Times(70, "<a>"), "mismatch"},
        {"most attributes", "<a" + Numbered(64, " b#=''") + "/>", Read},
        {"200,000 attributes", "<a" + Numbered(200'000, " b#=''") + "/>", "more than 64 attributes"},
        {"attributes of one name", "<a" + Times(64, " b=''") + "/>", "redefined"},
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
        {"instructions", Times(257, "<?a b?>") + "<a/>", "processing instructions"},
        {"character data in pieces", Job(Times(100'000, "<![CDATA[<]]>")), Read},
        {"character data without an end", "<a><![CDATA[" + std::string(1 << 20, ']'), "CData"},
        {"a comment without an end", "<a><!--", "omment"},
        {"a tag without an end", "<a b='" + std::string(1 << 20, '>'), "attValue"},
        {"blanks in a tag", "<a" + std::string(2 << 20, ' ') + "/>", Read},
        {"blanks before the root", std::string(2 << 20, ' ') + "<a/>", Read},
        {"blanks behind the root", "<a/>" + std::string(2 << 20, ' '), Read},
        {"two roots", Job("") + Job(""), "ocument"},
        {"text behind the root", Job("") + "x", "ocument"},
        {"half a document", Job("").substr(0, 20), "Start Tag"},
        {"end tags alone", Times(100'000, "</a>"), "startTag"},
        {"tags that cross", "<tpif><a><b></a></b></tpif>", "mismatch"},
        {"exceptions without anything", Pages(50'000, ""), Read},
        {"more exceptions than a job has", Pages(100'002, ""), "exception pages"},
        {"as many finishings",
         Job("<finishings>" + Times(100'000, "<value syntax='enum'>20</value>") + "</finishings>"), Read},
        {"as many sets of them", Job(Times(100'000, "<finishings><value/></finishings>")), Read},
        {"a page inside a page",
         Pages(1, Times(20, "<page-overrides><value>") + Times(20, "</value></page-overrides>")), Read},
        {"groups inside groups",
         "<tpif>" + Times(30, "<tpif><job-template-attributes>") + Times(30, "</job-template-attributes></tpif>") + "</tpif>",
         Read},
        {"covers by the thousand", Job(Times(50'000, "<cover-front/><cover-back/>")), Read},
    };
}

std::vector<HostileDocument> Bytes()
{
    return {
        {"empty", "", "empty"},
        {"a blank", " ", "not an XML document"},
        {"a byte order mark alone", "\xEF\xBB\xBF", "not an XML document"},
        {"a byte order mark", "\xEF\xBB\xBF" + Job(""), Read},
        {"UTF-16 with a mark", "\xFF\xFE" + Utf16(Job("")), "encoding"},
        {"UTF-16 without one", Utf16(Job("")), "NUL"},
        {"another encoding", "<?xml version='1.0' encoding='UTF-7'?>" + Job(""), "encoding"},
        {"an unknown version", "<?xml version='9.9'?>" + Job(""), "version"},
        {"gzip", "\x1F\x8B\x08\0\0\0\0\0\0\3"s, "N"},
        {"a picture", "\x89PNG\r\n\x1A\n\0\0\0\rIHDR"s, "N"},
        {"a binary property list", "bplist00\xD1\1\2"s, "binary property list"},
        {"NUL in a name", Name("a\0b"s), "NUL"},
        {"NUL at the end", Job("") + '\0', "NUL"},
        {"overlong", Name("\xC0\xAF"), "not UTF-8"},
        {"a surrogate", Name("\xED\xA0\x80"), "not UTF-8"},
        {"beyond Unicode", Name("\xF4\x90\x80\x80"), "not UTF-8"},
        {"half a character at the end", Job("") + "\xE2\x82", "not UTF-8"},
        {"half a character before the tag", Name("\xE2\x82"), "not UTF-8"},
        {"a control character", Name("\x01"), "Char"},
        {"a control character by number", Name("&#1;"), "har"},
        {"a surrogate by number", Name("&#xD800;"), "har"},
        {"no character", Name("\xEF\xBF\xBF"), "har"},
        {"a number beyond all characters", Name("&#99999999999999;"), "har"},
        {"another root", "<html><body>" + Job("") + "</body></html>", Read},
        {"a property list", "<plist><dict><key>a</key><true/></dict></plist>", Read},
        {"65 MiB", "<a>" + std::string(std::size_t{65} << 20, 'x'), "larger than 64 MiB"},
    };
}

std::vector<HostileDocument> Values()
{
    const std::string long255(255, 'x');
    return {
        {"the highest number", Number("2147483647"), Read},
        {"one above", Number("2147483648"), Read},
        {"the lowest number", Number("-2147483648"), Read},
        {"one below", Number("-2147483649"), Read},
        {"a number of a megabyte", Number(std::string(1 << 20, '9')), Read},
        {"zeros of a megabyte", Number(std::string(1 << 20, '0') + "5"), Read},
        {"a hexadecimal number", Number("0x10"), Read},
        {"an exponent", Number("1e3"), Read},
        {"digits of another script", Number("\xD9\xA3"), Read},
        {"not a number", Number("nan"), Read},
        {"a path upwards", Name("../../etc/passwd"), Read},
        {"lines in a name", Name("a\nb\r\nc"), Read},
        {"what a terminal obeys", Name("\xC2\x9B[2J"), Read},
        {"a format", Name("%s%n%n"), Read},
        {"the longest name", Name(long255), Read},
        {"one longer", Name(long255 + "x"), Read},
        {"markup in a name", Name("&lt;/save-name&gt;&amp;amp;"), Read},
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

// Memory that the process has held at most since the last reset, in kilobytes.
std::size_t PeakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            return static_cast<std::size_t>(std::stoul(line.substr(6)));
        }
    }
    return 0;
}

void ResetPeakMemory()
{
    std::ofstream("/proc/self/clear_refs") << "5";
}

class HostileDocuments : public testing::Test {
protected:
    void run(const std::vector<HostileDocument>& documents)
    {
        for (const HostileDocument& document : documents) {
            SCOPED_TRACE(document.name);
            ResetPeakMemory();
            const std::size_t memory = PeakMemory();
            const auto begin = std::chrono::steady_clock::now();
            import(document);
            const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
            const std::size_t kilobytes = PeakMemory() - memory;
            std::printf("%-40s %6.0f ms %6zu kB\n", document.name, seconds.count() * 1000,
                        kilobytes);
            // A hundred times what any takes; a document that grows out of proportion takes more.
            EXPECT_LT(seconds.count(), 20);
            EXPECT_LT(kilobytes, 256U * 1024);
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

TEST_F(HostileDocuments, OfDocumentTypes)
{
    run(DocumentTypes());
}

TEST_F(HostileDocuments, OfShape)
{
    run(Shapes());
}

TEST_F(HostileDocuments, OfBytes)
{
    run(Bytes());
}

TEST_F(HostileDocuments, OfValues)
{
    run(Values());
}

} // namespace
} // namespace tarvo
