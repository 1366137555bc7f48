#include "panels/paper/JobTypeDetails.h"

#include "panels/paper/PaperOutputSettings.h"
#include "support/Entries.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

constexpr CFDate Now = {1'800'000'000};
constexpr CFDate Before = {Now.secondsSinceEpoch - 1};

struct DetailsCase {
    const char* name;
    JobTypeDetails details;
    bool isComplete;
    JobTypeFault fault;
    CFDictionary accepted; // beside the former entries; those of another type stay away
};

TEST(JobTypeDetails, AreCheckedAndStoredByTheirType)
{
    const auto details = [](std::int32_t type, auto change) {
        JobTypeDetails it = {.type = type,
                             .savedName = "Menu",
                             .passcode = "0042",
                             .passcodeAgain = "0042",
                             .printTime = Now};
        change(it);
        return it;
    };
    const auto asItIs = [](JobTypeDetails&) {};
    const auto saved = [](const char* name) {
        return Entries("UseJobName", false, "SavedJobName", name, "SavedJobLocation",
                       "file:///job-repository/", "MediaType", 1);
    };
    const CFDictionary jobsName =
        Entries("UseJobName", true, "SavedJobLocation", "smb://x/", "MediaType", 3);
    const CFDictionary passcode = Entries("SecurePrintPassword", "0042");
    // clang-format off
    const DetailsCase cases[] = {
        {"saved, in the usual place", details(3, asItIs), true, JobTypeFault::None, saved("Menu")},
        {"saved without a name", details(3, [](auto& it) { it.savedName = ""; }), false, JobTypeFault::None, saved("")},
        {"saved under blanks", details(3, [](auto& it) { it.savedName = " \t"; }), false, JobTypeFault::None, saved(" \t")},
        {"saved by the job's name, elsewhere", details(4, [](auto& it) {
             it = {.type = 4, .usesJobName = true, .savedLocation = "smb://x/", .saveFormat = 3};
         }), true, JobTypeFault::None, jobsName},
        {"secure", details(6, asItIs), true, JobTypeFault::None, passcode},
        {"passcodes that differ", details(6, [](auto& it) { it.passcodeAgain = "0043"; }), true, JobTypeFault::Passcode, passcode},
        {"delayed until now", details(7, asItIs), true, JobTypeFault::None, Entries("DelayedPrintTime", Now)},
        {"delayed into the past", details(7, [](auto& it) { it.printTime = Before; }), true, JobTypeFault::TimeInThePast,
         Entries("DelayedPrintTime", Before)},
        {"fax: nothing counts", details(5, [](auto& it) { it = {.type = 5, .passcode = "1", .printTime = Before}; }), true,
         JobTypeFault::None, CFDictionary()},
    };
    // clang-format on
    for (const DetailsCase& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(IsComplete(row.details), row.isComplete);
        EXPECT_EQ(FaultOf(row.details, Now), row.fault);
        PaperOutputSettings settings;
        settings.jobType = Entries("JobType", row.details.type, "Site", 4);
        CFDictionary expected = settings.jobType;
        for (const auto& entry : row.accepted) {
            expected.set(entry.key, entry.value);
        }
        AcceptJobTypeDetails(settings, row.details);
        EXPECT_EQ(settings.jobType, expected);
    }
}

TEST(JobTypeDetails, APasscodeIsFourToTenDigits)
{
    const std::pair<const char*, bool> passcodes[] = {
        {"",             false},
        {"123",          false},
        {"1234",         true },
        {"1234567890",   true },
        {"12345678901",  false},
        {"12345a",       false},
        {" 1234",        false},
        {"１２３４", false},
    };
    for (const auto& [passcode, isOne] : passcodes) {
        const JobTypeDetails details = {.type = 6, .passcode = passcode, .passcodeAgain = passcode};
        EXPECT_EQ(FaultOf(details, Now) == JobTypeFault::None, isOne) << passcode;
    }
}

TEST(JobTypeDetails, ShowWhatTheTicketSays)
{
    PaperOutputSettings settings = FreshPaperOutputSettings(Now);
    EXPECT_EQ(DetailsOfJobType(settings).savedLocation, "file:///job-repository/");
    EXPECT_EQ(DetailsOfJobType(settings).saveFormat, 1);
    settings.jobType = Entries("JobType", 6, "UseJobName", 1, "SavedJobName", "Menu",
                               "SecurePrintPassword", "1234", "MediaType", 5);
    const JobTypeDetails details = DetailsOfJobType(settings);
    EXPECT_FALSE(details.usesJobName) << "a number is no boolean";
    AcceptJobTypeDetails(settings, details);
    EXPECT_EQ(DetailsOfJobType(settings), details);
    EXPECT_EQ(FaultOf(details, Now), JobTypeFault::None) << "the passcode need not be typed again";
}

} // namespace
} // namespace tarvo
