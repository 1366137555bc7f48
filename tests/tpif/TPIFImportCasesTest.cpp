// Shows what an import makes of a document: runs the files of import/, which look like this.
//
//   # a comment
//   == long edge                                     a case with its name
//   <sides k>two-sided-long-edge</sides>             the document, or members of its job attributes
//   --
//   .FinishingDuplex: 2                              the result, as TPIFCasesTest.cpp writes
//   tickets
//
// A single letter stands for the syntax attribute: k keyword, i integer, n name, t text, u uri,
// e enum, m mimeMediaType, s 1setOf, c collection.

#include "ImportSteps.h"
#include "TPIFTestSupport.h"
#include "platform/bundle/CFBundle.h"
#include "platform/cf/PropertyListWriter.h"
#include "printer/FeatureDatabase.h"
#include "support/TicketText.h"
#include "tpif/TPIFImport.h"

#include <filesystem>
#include <fstream>

namespace tarvo {
namespace {

constexpr std::pair<std::string_view, std::string_view> Syntaxes[] = {
    {" k>", " syntax=\"keyword\">"      },
    {" i>", " syntax=\"integer\">"      },
    {" n>", " syntax=\"name\">"         },
    {" t>", " syntax=\"text\">"         },
    {" u>", " syntax=\"uri\">"          },
    {" e>", " syntax=\"enum\">"         },
    {" m>", " syntax=\"mimeMediaType\">"},
    {" s>", " syntax=\"1setOf\">"       },
    {" c>", " syntax=\"collection\">"   },
};

std::string Document(std::string text)
{
    for (const auto& [letter, attribute] : Syntaxes) {
        for (std::size_t at = 0; (at = text.find(letter, at)) != std::string::npos;) {
            text.replace(at, letter.size(), attribute);
        }
    }
    if (text.starts_with("<tpif") || text.starts_with("<?xml")) {
        return text;
    }
    return "<tpif><job-template-attributes>" + text + "</job-template-attributes></tpif>";
}

const std::string ImportFolder = TARVO_SOURCE_DIR "/tests/tpif/import/";

std::vector<std::string> ImportFiles()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(ImportFolder)) {
        names.push_back(entry.path().stem().string());
    }
    return names;
}

class ImportCases : public testing::TestWithParam<std::string> {
protected:
    ImportCases()
        : features_(FeatureDatabase(CFBundle(TARVO_BINARY_DIR "/TarvoFeatures.plugin", {})
                                        .propertyList(DeviceProfileName)
                                        .value_or(CFDictionary())))
    {
    }

    void expect(const std::string& document, const std::string& expected)
    {
        CFDictionary result;
        ParseError error;
        EXPECT_EQ(TPIFImportDocument(features_, XmlSourceOf(Document(document)), result, error),
                  StatusOk)
            << error.line << ": " << error.reason;
        EXPECT_TRUE(result == TicketFromText(expected))
            << WritePropertyList(result, error).value_or("");
        EXPECT_EQ(FaultOfSteps(features_, Document(document)), "");
    }

private:
    TPIFImportFeatures features_;
};

TEST_P(ImportCases, GiveExactlyTheEntries)
{
    const std::string path = ImportFolder + GetParam() + ".txt";
    std::ifstream file(path);
    std::string name;
    std::string parts[2]; // document, result
    int part = 0;
    int begin = 0;
    int cases = 0;
    const auto run = [&] {
        const testing::ScopedTrace trace(path.c_str(), begin, name);
        EXPECT_NO_THROW(expect(parts[0], parts[1]));
        ++cases;
    };
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        if (line.starts_with("== ")) {
            if (begin != 0) {
                run();
            }
            name = line.substr(3);
            parts[0] = parts[1] = "";
            part = 0;
            begin = number;
        } else if (line == "--") {
            part = 1;
        } else if (!line.starts_with("#")) {
            parts[part] += line + "\n";
        }
    }
    run();
    EXPECT_GT(cases, 1);
}

INSTANTIATE_TEST_SUITE_P(TPIF, ImportCases, testing::ValuesIn(ImportFiles()),
                         [](const auto& file) { return file.param; });

} // namespace
} // namespace tarvo
