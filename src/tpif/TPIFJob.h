#pragma once

#include "platform/cf/CFPropertyList.h"
#include "tpif/TPIFChannel.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

// Writers of the job's own attributes. Each reads its entries of the settings and leaves out what
// they do not give, except where said otherwise. No text is cut unless said so.

/// The operation attributes, when both job name and sender are known. The system's job name counts
/// only when the settings say so and hold it.
void WriteTPIFJobNameAndUser(TPIFChannel& writeData, const CFDictionary& settings);

/// What the operator, the recipient and the banner sheet are told.
void WriteTPIFJobNotes(TPIFChannel& writeData, const CFDictionary& settings);

/// Hold or save disposition; a job that does neither has the disposition "none".
void WriteTPIFJobType(TPIFChannel& writeData, const CFDictionary& settings);

/// One-sided or two-sided, always.
void WriteTPIFDuplex(TPIFChannel& writeData, const CFDictionary& settings);

void WriteTPIFOutputDestination(TPIFChannel& writeData, const CFDictionary& settings);

void WriteTPIFResolution(TPIFChannel& writeData, const CFDictionary& settings);

/// The ticket's number for a resolution in dots per inch: the unset one for 0 x 0, as an unset one
/// is written; nullopt for a resolution that the ticket has no number for.
std::optional<std::int32_t> ResolutionOf(std::int32_t crossFeed, std::int32_t feedDirection);

/// User and account, each cut to 79 bytes, when accounting is on; says on standard error what it
/// found.
void WriteTPIFAccounting(TPIFChannel& writeData, const CFDictionary& settings);

/// The two accounting elements. The texts are written as they are; the front end wants the second
/// element opened as job-account-id and closed as job-accounting-id.
void WriteTPifAccounting(TPIFChannel& writeData, std::string_view userId,
                         std::string_view accountId);

} // namespace tarvo
