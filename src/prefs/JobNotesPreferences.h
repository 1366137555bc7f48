#pragma once

#include "platform/printing/PMStatus.h"

#include <cstdint>
#include <string_view>

namespace tarvo {

struct PreferenceFailure;
struct PreferenceFolders;

inline constexpr std::string_view JobNotesFile = "com.tarvo.print.jobnotes.plist";

/// What the job notes fill in by themselves; 0 for no.
struct JobNotesPreferencesOptions {
    std::int32_t useDocumentNameAsJobName = 0;
    std::int32_t useLoginNameAsSenderName = 0;
    std::int32_t useLoginNameAsRecipientName = 0;
    bool operator==(const JobNotesPreferencesOptions&) const = default;
};

/// Reads the user's choices: all on when there is no readable file; an option that the file does
/// not name, or not as a number, keeps the value that it has.
void RetrieveJobNotesPreferences(const PreferenceFolders& folders,
                                 JobNotesPreferencesOptions& options);

/// Replaces the user's file.
/// @return StatusOk even when it could not be written; `failure` says so, if it is given
OSStatus StoreJobNotesPreferences(const PreferenceFolders& folders,
                                  const JobNotesPreferencesOptions& options,
                                  PreferenceFailure* failure = nullptr);

} // namespace tarvo
