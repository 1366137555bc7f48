#include "panels/paper/PaperOutputSettings.h"

#include "support/Entries.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarvo {
namespace {

constexpr CFDate Now = {1'800'000'000};

// Every entry with a value of its own, so that no two can change places unseen.
CFDictionary FullTicket()
{
    // clang-format off
    const std::pair<const char*, CFPropertyList> rows[] = {
        {"JobLevelStock",                 Entries("Size", 1)                },
        {"FinishingOptions",              50                                },
        {"FinishingOffset",               5                                 },
        {"FinishingOffsetEnableSubset",   1                                 },
        {"FinishingOffsetPagesPerSubset", 25                                },
        {"FinishingSlipSheet",            2                                 },
        {"FinishingCustom",               "Trim"                            },
        {"FinishingDuplex",               3                                 },
        {"FinishingOutputDestination",    4                                 },
        {"FinishingOutputColor",          6                                 },
        {"JobType",                       Entries("JobType", 3, "Site", "x")},
        {"BackgroundFormsOptions",        Entries("CyclePages", 12)         },
        {"BookletLayout",                 true                              },
        {"BookletFoldStaple",             8                                 },
        {"BookletDrawOutlines",           7                                 },
        {"BookletForceNewSize",           true                              },
        {"FinishingStaple1Value",         9                                 },
        {"FinishingStaple2Value",         10                                },
        {"FinishingStapleCenterValue",    26                                },
        {"FinishingFoldValue",            19                                },
        {"FinishingBindValue",            15                                },
        {"FinishingHolePunchValue",       32                                },
        {"FinishingHolePunchOptions",     13                                },
        {"FinishingZFoldValue",           38                                },
    };
    // clang-format on
    CFDictionary entries;
    for (const auto& [key, value] : rows) {
        entries.set(std::string("com.tarvo.print.") + key, value);
        if (std::string_view(key) == "FinishingDuplex") { // the system's goes with it
            entries.set("com.apple.print.PrintSettings.PMDuplexing", value);
        }
    }
    return entries;
}

TEST(PaperOutputSettings, EveryEntryComesBackInTheOrderOfWriting)
{
    const PMTicket ticket(FullTicket(), "x");
    PaperOutputSettings settings = FreshPaperOutputSettings(Now);
    ReadPaperOutputSettings(ticket, settings);
    PMTicket written;
    WritePaperOutputSettings(settings, written);
    EXPECT_EQ(written.keys(), ticket.keys());
    for (const std::string& key : ticket.keys()) {
        EXPECT_EQ(written.item(key)->value, ticket.item(key)->value) << key;
        EXPECT_EQ(written.item(key)->client, "com.tarvo.printingmanager") << key;
    }
    EXPECT_EQ(*written.ppdDictionary().get<std::string>("Duplex"), "DuplexTumble");
}

TEST(PaperOutputSettings, AFreshTicketGetsTheDefaults)
{
    PaperOutputSettings settings = FreshPaperOutputSettings(Now);
    const PaperOutputSettings fresh = settings;
    ReadPaperOutputSettings(PMTicket(), settings);
    EXPECT_EQ(settings, fresh);
    PMTicket ticket;
    WritePaperOutputSettings(settings, ticket);
    const auto number = [&ticket](const std::string& key) {
        return *ticket.item("com.tarvo.print." + key)->value.get<std::int64_t>();
    };
    EXPECT_EQ(number("FinishingHolePunchOptions"), 4) << "0 would lose the number of holes";
    EXPECT_EQ(number("BookletFoldStaple"), 1);
    EXPECT_EQ(number("FinishingDuplex"), 1);
    EXPECT_EQ(number("FinishingOutputColor"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ticket.item("com.tarvo.print.FinishingCustom")->value, CFPropertyList(""));
    EXPECT_EQ(ticket.item("com.tarvo.print.JobType")->value, CFPropertyList(CFDictionary()));
    EXPECT_EQ(JobTypeOf(settings), 1);
}

TEST(PaperOutputSettings, WhatIsAbsentOrOfAnotherTypeStays)
{
    PaperOutputSettings settings;
    ReadPaperOutputSettings(PMTicket(FullTicket(), "x"), settings);
    const PaperOutputSettings before = settings;
    PMTicket ticket;
    for (const auto& entry : FullTicket()) {
        ticket.setItem("x", entry.key, CFData{"?"});
    }
    ReadPaperOutputSettings(ticket, settings);
    EXPECT_FALSE(settings.finishing.bookletLayout) << "on only for true";
    EXPECT_FALSE(settings.bookletForcesNewSize);
    settings.finishing.bookletLayout = settings.bookletForcesNewSize = true;
    EXPECT_EQ(settings, before);
}

struct SidesCase {
    const char* name;
    std::int32_t panel; // 0: not in the ticket
    std::int32_t system;
    const char* dialog; // the PPD dictionary's, "" for none
    std::int32_t read;
    const char* changedTo;   // in the dialog's own tab, before printing
    std::int32_t chosenThen; // in the panel; 0: nothing
    std::int32_t written;
    const char* writtenToDialog;
};

constexpr SidesCase SidesCases[] = {
    {"nothing said",                0, 0, "",               1, "",               0, 1, "None"          },
    {"the panel's first",           2, 3, "None",           2, "None",           0, 2, "DuplexNoTumble"},
    {"then the system's",           0, 3, "None",           3, "None",           0, 3, "DuplexTumble"  },
    {"then the dialog's",           0, 0, "DuplexNoTumble", 2, "DuplexNoTumble", 0, 2, "DuplexNoTumble"},
    {"changed in the dialog's tab", 2, 2, "None",           2, "DuplexTumble",   0, 3, "DuplexTumble"  },
    {"there, then in the panel",    1, 1, "None",           1, "DuplexNoTumble", 3, 3, "DuplexTumble"  },
    {"there, then back",            1, 1, "None",           1, "DuplexNoTumble", 1, 1, "None"          },
    {"to what has no number",       2, 2, "None",           2, "Fancy",          0, 2, "DuplexNoTumble"},
    {"a number without a choice",   9, 9, "None",           9, "None",           0, 9, "None"          },
};

PMTicket TicketOf(const SidesCase& row)
{
    PMTicket ticket;
    if (row.panel != 0) {
        ticket.setItem("x", "com.tarvo.print.FinishingDuplex", row.panel);
    }
    if (row.system != 0) {
        ticket.setItem("x", "com.apple.print.PrintSettings.PMDuplexing", row.system);
    }
    if (*row.dialog != '\0') {
        ticket.ppdDictionary().set("Duplex", row.dialog);
    }
    return ticket;
}

// The panel may be shown after a change in the dialog's tab or not; to be chosen from, it is.
void ChangeSides(const SidesCase& row, bool isShown, PaperOutputSettings& settings,
                 PMTicket& ticket)
{
    if (*row.changedTo != '\0') {
        ticket.ppdDictionary().set("Duplex", row.changedTo);
    }
    if (isShown || row.chosenThen != 0) {
        ReadPaperOutputSettings(ticket, settings);
    }
    if (row.chosenThen != 0) {
        settings.sides = row.chosenThen;
    }
}

TEST(PaperOutputSettings, SidesAreThoseThatTheUserChoseLast)
{
    for (const SidesCase& row : SidesCases) {
        for (const bool isShown : {false, true}) {
            SCOPED_TRACE(testing::Message() << row.name << (isShown ? ", shown" : ""));
            PMTicket ticket = TicketOf(row);
            PaperOutputSettings settings;
            ReadPaperOutputSettings(ticket, settings);
            EXPECT_EQ(settings.sides, row.read);
            ChangeSides(row, isShown, settings, ticket);
            for (const char* time : {"first", "again"}) {
                SCOPED_TRACE(time);
                WritePaperOutputSettings(settings, ticket);
                EXPECT_EQ(ticket.item("com.tarvo.print.FinishingDuplex")->value,
                          CFPropertyList(row.written));
                EXPECT_EQ(*ticket.ppdDictionary().get<std::string>("Duplex"), row.writtenToDialog);
            }
        }
    }
}

TEST(PaperOutputSettings, ASavedJobTakesTheJobsNameAndADelayedOneHasATime)
{
    PMTicket ticket;
    ticket.setItem("x", "com.apple.print.JobInfo.PMJobName", "spring.pdf");
    PaperOutputSettings settings = FreshPaperOutputSettings(Now);
    settings.jobType = Entries("UseJobName", true, "SavedJobName", "old", "Site", 4);
    WritePaperOutputSettings(settings, ticket);
    EXPECT_EQ(settings.jobType,
              Entries("UseJobName", true, "SavedJobName", "spring.pdf", "Site", 4));

    ticket.removeItem("x", "com.apple.print.JobInfo.PMJobName");
    settings.jobType = Entries("UseJobName", true, "SavedJobName", "old");
    WritePaperOutputSettings(settings, ticket);
    EXPECT_EQ(*settings.jobType.get<std::string>("SavedJobName"), "old") << "the job has no name";

    settings.jobType = Entries("JobType", 7);
    WritePaperOutputSettings(settings, ticket);
    EXPECT_EQ(*settings.jobType.get<CFDate>("DelayedPrintTime"),
              CFDate{Now.secondsSinceEpoch + 86'400});
    settings = PaperOutputSettings();
    ReadPaperOutputSettings(ticket, settings);
    EXPECT_EQ(settings.delayedPrintTime.secondsSinceEpoch, Now.secondsSinceEpoch + 86'400);
}

TEST(PaperOutputSettings, WhatBelongsToAnotherJobTypeLeavesTheTicket)
{
    const std::tuple<std::int32_t, bool, bool> rows[] = {
  // job type, has passcode, has time
        {1, false, false},
        {6, true,  false},
        {7, false, true },
    };
    for (const auto& [type, hasPasscode, hasTime] : rows) {
        SCOPED_TRACE(type);
        PMTicket ticket;
        ticket.setItem(
            "x", "com.tarvo.print.JobType",
            Entries("JobType", type, "SecurePrintPassword", "4711", "DelayedPrintTime", Now));
        PaperOutputSettings settings;
        ReadPaperOutputSettings(ticket, settings);
        WritePaperOutputSettings(settings, ticket);
        const auto& jobType = *ticket.item("com.tarvo.print.JobType")->value.get<CFDictionary>();
        EXPECT_EQ(jobType.contains("SecurePrintPassword"), hasPasscode);
        EXPECT_EQ(jobType.contains("DelayedPrintTime"), hasTime);
        EXPECT_EQ(settings.delayedPrintTime, Now) << "for whoever chooses a delayed job again";
    }
}

} // namespace
} // namespace tarvo
