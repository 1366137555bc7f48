#pragma once

#include "host/PrinterFacts.h"
#include "platform/cf/OrderedMap.h"

#include <functional>
#include <vector>

namespace tarvo {

/// Asks the print server for queues without keeping the main thread waiting. What was told of a
/// queue is kept, so that the server sends its description again only when that has changed.
class PrinterInquiries {
public:
    using Answer = std::function<void(const PrinterFacts& facts)>;

    /// Those of the process.
    static PrinterInquiries& Shared();

    /// @param answer  called in the main loop, inside modal dialogs too, unless there is nothing to
    ///                tell; of several that wait for one queue each is called
    void ask(const std::string& queue, Answer answer);

private:
    void take(const std::string& queue, const std::optional<PrinterFacts>& facts);

    struct Queue {
        std::shared_ptr<const PrinterPPD> description;
        std::vector<Answer> waiting; // a task is at work while there are any
    };
    OrderedMap<Queue> queues_;
};

} // namespace tarvo
