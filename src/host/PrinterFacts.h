#pragma once

#include "platform/files/Descriptor.h"
#include "platform/printing/PPDFile.h"

#include <ctime>
#include <memory>
#include <optional>
#include <string>

namespace tarvo {

/// The description of a queue's printer as the print server had it at a moment.
struct PrinterPPD {
    std::time_t changed = 0;    // on the server
    std::optional<PPDFile> ppd; // nullopt: the printer is not one of ours
    Descriptor file;            // has no name any more; valid with `ppd`

    /// The file by a name that holds as long as this does, in this process.
    std::string path() const;
};

/// What the print server tells of a queue.
struct PrinterFacts {
    std::shared_ptr<const PrinterPPD> description;
    std::string deviceUri;    // "" when unknown, as of a class
    std::string makeAndModel; // for people

    bool isOurs() const { return description->ppd.has_value(); }
};

/// Asks the user's print server for a queue, over a connection of its own and for a few seconds at
/// most. Blocks meanwhile: for a task.
/// @param known  what was told before; null when nothing was
/// @return nullopt when there is no such queue, none with a description, or no answer
std::optional<PrinterFacts> AskForPrinter(const std::string& queue,
                                          std::shared_ptr<const PrinterPPD> known);

} // namespace tarvo
