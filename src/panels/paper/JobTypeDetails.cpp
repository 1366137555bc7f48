#include "panels/paper/JobTypeDetails.h"

#include "panels/paper/PaperOutputSettings.h"
#include "platform/text/WhiteSpace.h"
#include "records/JobTypeKeys.h"
#include "settings/TicketKeys.h"

#include <algorithm>

namespace tarvo {
namespace {

bool IsType(const JobTypeDetails& details, JobType type)
{
    return details.type == static_cast<std::int32_t>(type);
}

bool IsSaved(const JobTypeDetails& details)
{
    return IsType(details, JobType::Save) || IsType(details, JobType::SaveAndPrint);
}

std::string TextOf(const CFDictionary& jobType, std::string_view key, std::string_view otherwise)
{
    const auto* text = jobType.get<std::string>(key);
    return text == nullptr ? std::string(otherwise) : *text;
}

bool IsPasscode(const std::string& text)
{
    return text.size() >= ShortestPasscode && text.size() <= LongestPasscode &&
           std::all_of(text.begin(), text.end(), [](char letter) {
               return letter >= '0' && letter <= '9'; // those of the printer's keypad
           });
}

void AcceptSavedJob(CFDictionary& jobType, const JobTypeDetails& details)
{
    jobType.set(UseJobNameKey, details.usesJobName);
    if (!details.usesJobName) {
        jobType.set(SavedJobNameKey, details.savedName);
    }
    jobType.set(SavedJobLocationKey, details.savedLocation.empty()
                                         ? std::string(DefaultSavedJobLocation)
                                         : details.savedLocation);
    jobType.set(SaveFormatKey, details.saveFormat);
}

} // namespace

JobTypeDetails DetailsOfJobType(const PaperOutputSettings& settings)
{
    const CFDictionary& jobType = settings.jobType;
    JobTypeDetails details;
    details.type = JobTypeOf(settings);
    details.usesJobName = jobType.isTrue(UseJobNameKey);
    details.savedName = TextOf(jobType, SavedJobNameKey, "");
    details.savedLocation = TextOf(jobType, SavedJobLocationKey, DefaultSavedJobLocation);
    details.saveFormat = jobType.int32(SaveFormatKey).value_or(details.saveFormat);
    details.passcode = TextOf(jobType, SecurePrintPasswordKey, "");
    details.passcodeAgain = details.passcode;
    details.printTime = settings.delayedPrintTime;
    return details;
}

bool IsComplete(const JobTypeDetails& details)
{
    return !IsSaved(details) || details.usesJobName || !Trimmed(details.savedName).empty();
}

JobTypeFault FaultOf(const JobTypeDetails& details, CFDate now)
{
    if (IsType(details, JobType::SecurePrint) &&
        (details.passcode != details.passcodeAgain || !IsPasscode(details.passcode))) {
        return JobTypeFault::Passcode;
    }
    if (IsType(details, JobType::DelayedPrint) &&
        details.printTime.secondsSinceEpoch < now.secondsSinceEpoch) {
        return JobTypeFault::TimeInThePast;
    }
    return JobTypeFault::None;
}

void AcceptJobTypeDetails(PaperOutputSettings& settings, const JobTypeDetails& details)
{
    if (IsSaved(details)) {
        AcceptSavedJob(settings.jobType, details);
    }
    if (IsType(details, JobType::SecurePrint)) {
        settings.jobType.set(SecurePrintPasswordKey, details.passcode);
    }
    if (IsType(details, JobType::DelayedPrint)) {
        settings.delayedPrintTime = details.printTime;
        settings.jobType.set(DelayedPrintTimeKey, details.printTime);
    }
}

} // namespace tarvo
