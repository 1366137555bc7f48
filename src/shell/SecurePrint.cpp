#include "shell/SecurePrint.h"

#include "records/JobTypeKeys.h"

namespace tarvo {
namespace {

constexpr std::int32_t SecurePrintJobType = 6;

} // namespace

bool LacksPasscode(const CFDictionary* jobType)
{
    if (jobType == nullptr || jobType->int32(JobTypeNumberKey) != SecurePrintJobType) {
        return false;
    }
    const auto* passcode = jobType->get<std::string>(SecurePrintPasswordKey);
    return passcode == nullptr || passcode->empty();
}

} // namespace tarvo
