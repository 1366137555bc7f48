// Shows what the writers make of a ticket: runs the files of cases/, which look like this.
//
//   # a comment
//   writer WriteTPIFDuplex                           a row of Writers below; for all that follow
//   == long edge                                     a case with its name
//   .FinishingDuplex: 2                              what the writer is given
//   --
//   ..<sides syntax="keyword">two-sided-long-edge</sides>      what it must put out
//   ~~
//   DEBUG: ...                                       optional: on standard error
//
// The input is the inside of a dictionary, over one or more lines; "." before a key stands for
// "com.tarvo.print.". Values: 1, -2.5, true, false, unset, "text" with \n, \0, \" and \\, "x"*31
// (31 times), [1, 2], {key: value}. A line `page 595,842,0` gives the page to a writer that takes
// one: width, length, orientation. The output is exact, its tabs (dots above) included; blank lines
// at its end do not count, and a "\" there says that no line feed follows.

#include "TPIFTestSupport.h"
#include "support/TicketText.h"
#include "tpif/TPIFBackgroundForms.h"
#include "tpif/TPIFColor.h"
#include "tpif/TPIFCommands.h"
#include "tpif/TPIFElement.h"
#include "tpif/TPIFFinishing.h"
#include "tpif/TPIFImageShift.h"
#include "tpif/TPIFJob.h"
#include "tpif/TPIFMedia.h"
#include "tpif/TPIFSpecialPages.h"
#include "tpif/TPIFWriter.h"

#include <filesystem>
#include <fstream>

namespace tarvo {
namespace {

using Writer = void (*)(TPIFChannel&, const CFDictionary&, const PageFormat*);

template <auto Write>
void WithoutPage(TPIFChannel& channel, const CFDictionary& settings, const PageFormat* /*page*/)
{
    Write(channel, settings);
}

void Command(TPIFChannel& channel, const CFDictionary& row)
{
    WriteTPifCommands(channel, row.int32("Command").value(), row.int32("Value").value());
}

void FullColor(TPIFChannel& channel, const CFDictionary& options)
{
    WriteTPifFullColor(channel, FillFullColorOptions(options));
}

void Halftone(TPIFChannel& channel, const CFDictionary& settings)
{
    WriteTPifHalfTone(channel, settings.int32("HalftoneScreen").value_or(UnsetValue));
}

void ImageShift(TPIFChannel& channel, const CFDictionary& shift)
{
    WriteTPifImageShift(channel, AttributeIndent, FillImageShift(shift));
}

void Media(TPIFChannel& channel, const CFDictionary& stock, const PageFormat* page)
{
    WriteTPifMedia(channel, FillMediaData(stock, page));
}

// Those with a small "pif" write one part: what they are given is not a ticket but that part.
constexpr std::pair<std::string_view, Writer> Writers[] = {
    {"WriteTPIF",                  WriteTPIF                              },
    {"WriteTPIFAccounting",        WithoutPage<WriteTPIFAccounting>       },
    {"WriteTPIFBackCover",         WriteTPIFBackCover                     },
    {"WriteTPIFBackgroundForms",   WithoutPage<WriteTPIFBackgroundForms>  },
    {"WriteTPIFDuplex",            WithoutPage<WriteTPIFDuplex>           },
    {"WriteTPIFExceptions",        WriteTPIFExceptions                    },
    {"WriteTPIFFinishing",         WithoutPage<WriteTPIFFinishing>        },
    {"WriteTPIFFrontCover",        WriteTPIFFrontCover                    },
    {"WriteTPIFHighlightColor",    WithoutPage<WriteTPIFHighlightColor>   },
    {"WriteTPIFInserts",           WriteTPIFInserts                       },
    {"WriteTPIFJobLevelStock",     WriteTPIFJobLevelStock                 },
    {"WriteTPIFJobNameAndUser",    WithoutPage<WriteTPIFJobNameAndUser>   },
    {"WriteTPIFJobNotes",          WithoutPage<WriteTPIFJobNotes>         },
    {"WriteTPIFJobType",           WithoutPage<WriteTPIFJobType>          },
    {"WriteTPIFOutputDestination", WithoutPage<WriteTPIFOutputDestination>},
    {"WriteTPIFResolution",        WithoutPage<WriteTPIFResolution>       },
    {"WriteTPifCommands",          WithoutPage<Command>                   },
    {"WriteTPifFullColor",         WithoutPage<FullColor>                 },
    {"WriteTPifHalfTone",          WithoutPage<Halftone>                  },
    {"WriteTPifImageShift",        WithoutPage<ImageShift>                },
    {"WriteTPifMedia",             Media                                  },
};

struct Case {
    int line;
    std::string name;
    std::string writer;
    std::string settings;
    std::string page; // the line; "" without a page
    std::optional<std::string> output;
    std::optional<std::string> diagnostics;
};

PageFormat ReadPage(const std::string& line)
{
    PageFormat page;
    int orientation = -1;
    const int read =
        std::sscanf(line.c_str(), "page %f,%f,%d", &page.width, &page.length, &orientation);
    Require(read == 3 && orientation >= 0 && orientation <= 3, "page width,length,orientation");
    page.orientation = static_cast<PageOrientation>(orientation);
    return page;
}

std::vector<Case> ReadCases(const std::string& path)
{
    std::vector<Case> cases;
    std::string writer;
    std::string* part = nullptr; // which the next lines belong to
    std::ifstream file(path);
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        const bool isInput = part != nullptr && part == &cases.back().settings;
        if (line.starts_with("#") || line.starts_with("writer ")) {
            writer = line.starts_with("#") ? writer : line.substr(7);
            part = nullptr;
        } else if (line.starts_with("== ")) {
            cases.push_back({number, line.substr(3), writer, {}, {}, {}, {}});
            part = &cases.back().settings;
        } else if (line == "--" && isInput) {
            part = &cases.back().output.emplace();
        } else if (line == "~~" && part != nullptr && !isInput) {
            part = &cases.back().diagnostics.emplace();
        } else if (line.starts_with("page ") && isInput) {
            cases.back().page = line;
        } else if (part != nullptr) {
            *part += line + "\n";
        } else if (!line.empty()) {
            ADD_FAILURE_AT(path.c_str(), number) << "in no case: " << line;
        }
    }
    return cases;
}

// What the lines say, without the blank ones at their end.
std::string Exact(std::string text)
{
    text.resize(text.find_last_not_of('\n') + 1);
    if (text.ends_with('\\')) {
        text.pop_back();
        return text;
    }
    return text.empty() ? text : text + "\n";
}

void ExpectWritten(const Case& each)
{
    const auto* row = std::find_if(std::begin(Writers), std::end(Writers),
                                   [&](const auto& writer) { return writer.first == each.writer; });
    Require(row != std::end(Writers), "a writer in place of " + each.writer);
    Require(each.output.has_value(), "\"--\" and the output");
    const CFDictionary settings = TicketFromText(each.settings);
    const PageFormat page = each.page.empty() ? PageFormat() : ReadPage(each.page);
    const PageFormat* pageFormat = each.page.empty() ? nullptr : &page;
    const auto write = [&](auto& channel) { row->second(channel, settings, pageFormat); };
    std::string diagnostics;
    EXPECT_EQ(Written(write, &diagnostics), Exact(*each.output));
    EXPECT_EQ(diagnostics, each.diagnostics ? Exact(*each.diagnostics) : diagnostics);
}

const std::string CasesFolder = TARVO_SOURCE_DIR "/tests/tpif/cases/";

std::vector<std::string> CaseFiles()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(CasesFolder)) {
        names.push_back(entry.path().stem().string());
    }
    return names;
}

class Cases : public testing::TestWithParam<std::string> {};

TEST_P(Cases, AreWrittenExactly)
{
    const std::string path = CasesFolder + GetParam() + ".txt";
    const std::vector<Case> cases = ReadCases(path);
    EXPECT_FALSE(cases.empty()) << path;
    for (const Case& each : cases) {
        const testing::ScopedTrace trace(path.c_str(), each.line, each.name);
        EXPECT_NO_THROW(ExpectWritten(each));
    }
}

INSTANTIATE_TEST_SUITE_P(TPIF, Cases, testing::ValuesIn(CaseFiles()),
                         [](const auto& file) { return file.param; });

} // namespace
} // namespace tarvo
