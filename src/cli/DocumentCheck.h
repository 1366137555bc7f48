#pragma once

#include "cli/TicketPlace.h"
#include "platform/xml/XmlLimits.h"
#include "tpif/TPIFImport.h"

#include <optional>
#include <string>

namespace tarvo {

/// Looks for what an import refuses, or what a new export would not contain, for attributes out of
/// the order that the printer's front end wants, and for what does not go together in the ticket
/// that the document makes.
/// @return why the document cannot be read; nullopt when it can
std::optional<ParseError> CheckDocument(const TPIFImportFeatures& features, const std::string& xml,
                                        Findings& findings);

} // namespace tarvo
