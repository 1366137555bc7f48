#include "shell/SecurePrint.h"

#include "records/JobTypeKeys.h"

namespace tarvo {
bool LacksPasscode(const CFDictionary* jobType)
{
    constexpr auto SecurePrint = static_cast<std::int32_t>(JobType::SecurePrint);
    if (jobType == nullptr || jobType->int32(JobTypeNumberKey) != SecurePrint) {
        return false;
    }
    const auto* passcode = jobType->get<std::string>(SecurePrintPasswordKey);
    return passcode == nullptr || passcode->empty();
}

} // namespace tarvo
