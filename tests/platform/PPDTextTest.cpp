#include "platform/printing/PPDText.h"

#include "platform/printing/PPDStatements.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(PPDDecode, EndsARunAtTheFirstCharacterThatIsNoDigit)
{
    EXPECT_EQ(ppd_decode("a<4142>b"), "aABb");
    EXPECT_EQ(ppd_decode("a<b"), "a<b");
    EXPECT_EQ(ppd_decode("a<x>"), "a<x>");
    EXPECT_EQ(ppd_decode("<4142"), "AB");
    EXPECT_EQ(ppd_decode("a<41 42>b"), "aAb");
    EXPECT_EQ(ppd_decode("<4>"), "");
    EXPECT_EQ(ppd_decode("<41>>b"), "Ab");
    EXPECT_EQ(ppd_decode("<4g41>b"), "b");
    EXPECT_EQ(ppd_decode("<00>a"), std::string_view("\0a", 2));
    EXPECT_EQ(ppd_decode(std::string(600, 'x')).size(), 511U);
}

TEST(PPDText, IsMacRomanUnlessUtf8)
{
    EXPECT_EQ(Utf8OfPPDText("caf\x8E"), "café");
    EXPECT_EQ(Utf8OfPPDText("café"), "café");
    EXPECT_EQ(Utf8OfPPDText(std::string("ab\0c", 4)), "ab");
}

// Each statement as line [keyword|option|text|value].
std::string StatementsOf(std::string_view contents)
{
    std::string found;
    PPDStatements statements(contents);
    while (const auto statement = statements.next()) {
        found.append(std::to_string(statement->line)).append("[").append(statement->keyword);
        found.append("|").append(statement->option).append("|").append(statement->text);
        found.append("|").append(statement->value);
        found += statement->isQuoteOpen ? "|open] " : "] ";
    }
    return found;
}

struct StatementCase {
    const char* name;
    std::string_view contents;
    const char* statements;
};

// clang-format off
constexpr StatementCase StatementCases[] = {
    {"empty",               "",                              ""},
    {"no end of line",      "*A: b",                         "1[A|||b] "},
    {"all parts, blanks",   "*A  B c /D: d :  e \n",         "1[A|B c|D|d :  e] "},
    {"value with a colon",  "*A B/C: \"d:e\"\n",             "1[A|B|C|\"d:e\"] "},
    {"nothing but a word",  "*End\n*",                       "1[End|||] 2[|||] "},
    {"comment, other line", "*% *A: b\nx *A: b\n\n*A: b",    "4[A|||b] "},
    {"ends of lines",       "*A: b\r*B: c\r\n*C: d\n\r*D: e", "1[A|||b] 2[B|||c] 3[C|||d] 5[D|||e] "},
    {"several lines",       "*A: \"b\n*C: d\r\n\" e\n*F: g", "1[A|||\"b\n*C: d\r\n\" e] 4[F|||g] "},
    {"quoted twice",        "*A: \"b\" \"c\nd\"\n*E: f",     "1[A|||\"b\" \"c\nd\"] 3[E|||f] "},
    {"open quote",          "*A: \"b\n*C: d\n",              "1[A|||\"b\n*C: d\n|open] "},
    {"open in the end",     "*A: b\n*C: \"",                 "1[A|||b] 2[C|||\"|open] "},
};
// clang-format on

TEST(PPDStatements, AreFoundWithTheirLines)
{
    for (const auto& row : StatementCases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(StatementsOf(row.contents), row.statements);
    }
}

} // namespace
} // namespace tarvo
