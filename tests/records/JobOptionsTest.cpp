#include "records/JobOptions.h"

#include "platform/printing/CupsLibrary.h"
#include "platform/printing/PMTicket.h"
#include "support/TicketText.h"

#include <cups/cups.h>
#include <gtest/gtest.h>

#include <random>

namespace tarvo {
namespace {

PMTicket TicketWith(CFDictionary entries)
{
    return PMTicket(std::move(entries), PanelClient);
}

JobOptions OptionsOf(const PMTicket& ticket)
{
    JobOptionsFault fault = JobOptionsFault::None;
    return JobOptionsOf(ticket, fault).value_or(JobOptions());
}

JobOptionsFault FaultOf(const PMTicket& ticket)
{
    JobOptionsFault fault = JobOptionsFault::None;
    const bool isNone = !JobOptionsOf(ticket, fault);
    EXPECT_EQ(isNone, fault != JobOptionsFault::None);
    return fault;
}

// As a filter is given them: the print server escapes what separates options.
std::string TextOf(const JobOptions& options)
{
    std::string text;
    for (const auto& [key, option] : options) {
        text += (text.empty() ? "" : " ") + option.name + '=' + option.value;
    }
    return text;
}

CFDictionary OddEntries()
{
    CFDictionary entries = TicketFromText(
        R"(.One: [{Name: "Käse, \"50 %\" {a\\b} <&>'=	", Unset: unset}, true, 2.5, ""])");
    entries.set("When", CFDate{1});
    entries.set("Data", CFData{std::string("\0\xFF\xFB", 3)});
    return entries;
}

PMTicket TicketWithNote(const std::string& note)
{
    CFDictionary entries;
    entries.set("com.tarvo.print.JobNotesMessage", note);
    return TicketWith(std::move(entries));
}

TEST(JobOptions, BringTheTicketToAFilterUnchanged)
{
    const JobOptions options = OptionsOf(TicketWith(OddEntries()));
    std::string reason;
    EXPECT_EQ(TicketOfJobOptions(JobOptionsFromText(TextOf(options)), reason), OddEntries());
    EXPECT_EQ(reason, "");
}

TEST(JobOptions, ComeInPiecesThatAPrintServerTakes)
{
    const JobOptions options = OptionsOf(TicketWithNote(std::string(2'000, '?')));
    const std::string text = *options.find("com.tarvo.print.Ticket");
    EXPECT_EQ(text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                     "0123456789-_=,"),
              std::string::npos);
    std::size_t start = 0;
    for (std::size_t end = 0; end != std::string::npos; start = end + 1) {
        end = text.find(',', start);
        const std::size_t length = std::min(end, text.size()) - start;
        EXPECT_TRUE(length == 250 || (end == std::string::npos && length > 0 && length < 250));
    }
}

TEST(JobOptions, NeverHoldAPasscode)
{
    const PMTicket job = TicketWith(TicketFromText(
        R"(.JobType: {JobType: 6, SecurePrintPassword: "canary"},
           Former: [[{SecurePrintPassword: "canary"}]], SecurePrintPassword: "canary")"));
    std::string reason;
    EXPECT_EQ(TicketOfJobOptions(OptionsOf(job), reason),
              TicketFromText(".JobType: {JobType: 6}, Former: [[{}]]"));
}

TEST(JobOptions, HoldThePrintersOwnChoicesAsTheyAre)
{
    PMTicket ticket;
    ticket.ppdDictionary().set("Duplex", "DuplexNoTumble");
    ticket.ppdDictionary().set("Option2", "True");
    for (const char* unfit : {"two words", "a,b", "a{", "\"", "a\\b", "a\n", "", "\xC3\xA4"}) {
        ticket.ppdDictionary().set("Odd", unfit);
        EXPECT_EQ(OptionsOf(ticket).find("Odd"), nullptr) << unfit;
    }
    ticket.ppdDictionary().set("a=b", "Odd");
    ticket.ppdDictionary().set("Number", 1);
    const JobOptions options = OptionsOf(ticket);
    EXPECT_EQ(options.size(), 3U); // with the ticket
    EXPECT_EQ(*options.find("duplex"), "DuplexNoTumble");
    EXPECT_EQ(*options.find("Option2"), "True");
}

TEST(JobOptions, AreRefusedWhenAFilterCouldNotBeStarted)
{
    EXPECT_EQ(FaultOf(TicketWithNote(std::string(73'000, 'x'))), JobOptionsFault::None);
    EXPECT_EQ(FaultOf(TicketWithNote(std::string(74'000, 'x'))), JobOptionsFault::TooLarge);
    EXPECT_EQ(FaultOf(TicketWithNote("\x01")), JobOptionsFault::NotWritable);
    PMTicket choices = TicketWithNote(std::string(20'000, 'x'));
    for (int number = 0; number < 4'000; ++number) {
        choices.ppdDictionary().set("Keyword" + std::to_string(number), "ChoiceOfThePrinter");
    }
    EXPECT_EQ(FaultOf(choices), JobOptionsFault::TooLarge); // together
}

struct DamageCase {
    const char* name;
    std::string text;
    const char* reason;
};

TEST(JobOptions, TellWhyThereIsNoTicket)
{
    const std::string tooLarge = "com.tarvo.print.Ticket=" + std::string(98'308, 'A');
    const DamageCase cases[] = {
        {"none",        "copies=1 Ticket=PD8",         "the job carries no ticket"                  },
        {"cut digits",  "com.tarvo.print.Ticket=PD8",  "the job's ticket is no base64"              },
        {"other digit", "com.tarvo.print.Ticket=PD+/", "the job's ticket is no base64"              },
        {"a switch",    "com.tarvo.print.Ticket",      "the job's ticket, line 1: "                 },
        {"too large",   tooLarge,                      "the job's ticket is larger than 98304 bytes"},
    };
    for (const DamageCase& row : cases) {
        SCOPED_TRACE(row.name);
        std::string reason;
        EXPECT_FALSE(TicketOfJobOptions(JobOptionsFromText(row.text), reason));
        EXPECT_EQ(reason.substr(0, std::string(row.reason).size()), row.reason);
    }
}

// Texts of the letters that mean something, against the printing system's own reader.
TEST(JobOptionsText, IsReadAsThePrintingSystemReadsIt)
{
    decltype(&cupsParseOptions) parse = nullptr;
    decltype(&cupsFreeOptions) release = nullptr;
    ASSERT_TRUE(FindCupsFunction("cupsParseOptions", parse));
    ASSERT_TRUE(FindCupsFunction("cupsFreeOptions", release));
    constexpr std::string_view Letters = "aAbno= =,{}'\"\\\\ \t\v=";
    std::mt19937 random(7); // NOLINT(bugprone-random-generator-seed): the same texts every time
    for (int round = 0; round < 100'000; ++round) {
        std::string text(random() % 24, ' ');
        for (char& letter : text) {
            letter = Letters[random() % Letters.size()];
        }
        SCOPED_TRACE(text);
        cups_option_t* theirs = nullptr;
        const int count = parse(text.c_str(), 0, &theirs);
        const JobOptions ours = JobOptionsFromText(text);
        ASSERT_EQ(ours.size(), static_cast<std::size_t>(count));
        for (int index = 0; index < count; ++index) {
            const std::string* value = ours.find(theirs[index].name);
            ASSERT_NE(value, nullptr) << theirs[index].name;
            ASSERT_EQ(*value, theirs[index].value);
        }
        release(count, theirs);
    }
}

} // namespace
} // namespace tarvo
