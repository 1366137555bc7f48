#include "prefs/JobNotesPreferences.h"

#include "PreferenceFolderFixture.h"

namespace tarvo {
namespace {

using JobNotesPreferences = PreferenceFolderFixture;

TEST_F(JobNotesPreferences, AreAllOnAtFirstAndThreeKeysAfterwards)
{
    JobNotesPreferencesOptions options;
    RetrieveJobNotesPreferences(folders_, options);
    EXPECT_EQ(options, (JobNotesPreferencesOptions{1, 1, 1}));
    putNumber(userPath("com.tarvo.print.jobnotes.plist"), "other", 1);
    EXPECT_EQ(StoreJobNotesPreferences(folders_, {1, 0, 2}), 0);
    CFDictionary expected;
    expected.set("useDocumentNameAsJobName", 1);
    expected.set("useLoginNameAsSenderName", 0);
    expected.set("useLoginNameAsRecipientName", 2);
    EXPECT_EQ(CopyUserPreferences(folders_, "com.tarvo.print.jobnotes.plist"), expected);
    RetrieveJobNotesPreferences(folders_, options);
    EXPECT_EQ(options, (JobNotesPreferencesOptions{1, 0, 2}));
}

TEST_F(JobNotesPreferences, KeepWhatTheFileDoesNotSay)
{
    put(userPath("com.tarvo.print.jobnotes.plist"),
        "<plist version=\"1.0\"><dict><key>useDocumentNameAsJobName</key><true/>"
        "<key>useLoginNameAsSenderName</key><real>0</real></dict></plist>");
    JobNotesPreferencesOptions options = {7, 8, 9};
    RetrieveJobNotesPreferences(folders_, options);
    EXPECT_EQ(options, (JobNotesPreferencesOptions{7, 0, 9}));
}

} // namespace
} // namespace tarvo
