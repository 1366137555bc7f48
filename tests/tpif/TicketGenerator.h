#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/printing/PMPrintSession.h"

#include <cstdint>
#include <optional>

namespace tarvo {

/// A job ticket, and what an import of its export must give.
struct GeneratedTicket {
    CFDictionary ticket;
    std::optional<PageFormat> page;
    CFDictionary expected;
    /// The document has elements that do not come back; so that of no even seed.
    bool isLossy = false;
    /// The finishing has parts that its family does not use, or none that documents know: what
    /// comes back of it is left open.
    bool isWildFinishing = false;
};

/// The same ticket for the same seed on every machine: an export of the whole job, with values that
/// panels or a driver store, the ones without a word and the ones that are lost among them.
GeneratedTicket GenerateTicket(std::uint64_t seed);

/// Whether the entry belongs to the finishing.
bool IsFinishingKey(std::string_view key);

} // namespace tarvo
