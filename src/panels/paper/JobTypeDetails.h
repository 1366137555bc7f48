#pragma once

#include "platform/cf/CFPropertyList.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarvo {

struct PaperOutputSettings;

inline constexpr std::size_t LongestSavedJobName = 255; // characters
inline constexpr std::size_t LongestSavedJobLocation = 255;
inline constexpr std::size_t ShortestPasscode = 4; // digits
inline constexpr std::size_t LongestPasscode = 10;

/// What the dialog of a job type shows, as its user has left it. Only what belongs to the type
/// counts.
struct JobTypeDetails {
    std::int32_t type = 1; // a JobType

    // A saved job.
    bool usesJobName = false;
    std::string savedName = {};
    std::string savedLocation = {}; // "" stands for the usual one
    std::int32_t saveFormat = 1;    // a value of JobFormatMap

    // A secure one.
    std::string passcode = {};
    std::string passcodeAgain = {};

    // A delayed one.
    CFDate printTime = {};

    bool operator==(const JobTypeDetails&) const = default;
};

/// What the dialog shows first.
JobTypeDetails DetailsOfJobType(const PaperOutputSettings& settings);

/// Whether OK may be pressed: a saved job has a name of its own, which blanks are not, or uses the
/// job's.
bool IsComplete(const JobTypeDetails& details);

/// Why OK does not end the dialog.
enum class JobTypeFault { None, Passcode, TimeInThePast };
/// A passcode is twice the same digits, ShortestPasscode to LongestPasscode of them.
/// @param now  a delayed job is not printed before
JobTypeFault FaultOf(const JobTypeDetails& details, CFDate now);

/// Takes over what belongs to the job type; its dictionary keeps everything else. The passcode
/// stays in the dictionary: nothing that leaves the dialog holds it.
void AcceptJobTypeDetails(PaperOutputSettings& settings, const JobTypeDetails& details);

} // namespace tarvo
