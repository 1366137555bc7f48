#include "prefs/JobNotesPreferences.h"

#include "prefs/PreferenceFiles.h"

namespace tarvo {
namespace {

struct OptionField {
    std::string_view key;
    std::int32_t JobNotesPreferencesOptions::*option;
};

constexpr OptionField OptionFields[] = {
    {"useDocumentNameAsJobName",    &JobNotesPreferencesOptions::useDocumentNameAsJobName   },
    {"useLoginNameAsSenderName",    &JobNotesPreferencesOptions::useLoginNameAsSenderName   },
    {"useLoginNameAsRecipientName", &JobNotesPreferencesOptions::useLoginNameAsRecipientName},
};

} // namespace

void RetrieveJobNotesPreferences(const PreferenceFolders& folders,
                                 JobNotesPreferencesOptions& options)
{
    const auto root = CopyUserPreferences(folders, JobNotesFile);
    if (!root) {
        options = {1, 1, 1};
        return;
    }
    for (const OptionField& field : OptionFields) {
        options.*field.option = root->int32(field.key).value_or(options.*field.option);
    }
}

OSStatus StoreJobNotesPreferences(const PreferenceFolders& folders,
                                  const JobNotesPreferencesOptions& options,
                                  PreferenceFailure* failure)
{
    CFDictionary root;
    for (const OptionField& field : OptionFields) {
        root.set(field.key, options.*field.option);
    }
    WriteUserPreferences(folders, JobNotesFile, root, failure);
    return StatusOk;
}

} // namespace tarvo
