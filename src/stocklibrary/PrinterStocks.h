#pragma once

#include "platform/printing/PMStatus.h"
#include "platform/printing/PrinterExchange.h"
#include "records/Stock.h"

#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

inline constexpr OSStatus StatusNoMemory = -108;
inline constexpr OSStatus StatusNotConnected = -3264;

/// A printer's answer when it was asked for its media.
struct MediaReply {
    OSStatus status = StatusOk;
    std::optional<std::string> bytes; // nullopt when there is none that counts
    std::string cause;                // why there is none, for people
    const char* diagnostic = nullptr; // of a status that is a failure: the step
    int error = 0;                    // and why, of errno
};

/// What became of asking a printer for its stocks.
struct StockRetrieval {
    OSStatus status = StatusOk;               // or StatusNoMemory, StatusNotConnected
    std::optional<std::vector<Stock>> stocks; // nullopt: no answer, so a former list still holds
    std::string cause;                        // why there are none, for people
};

/// Asks a printer for its media. A printer that cannot be reached is a failure; one that gives no
/// usable answer is not. Returns within the limits, or at once when it is called off.
/// @param host  the authority of its device URI: "press.local", "user@10.0.0.7:8631"
MediaReply RetrievePrinterMedia(const std::string& host, const ExchangeLimits& limits,
                                const std::stop_token& stop, const ExchangeManner& manner = {});

/// The same, as stocks in the printer's order. A failure is told on standard error.
StockRetrieval RetrievePrinterStockLibrary(const std::string& host, const ExchangeLimits& limits,
                                           const std::stop_token& stop);

} // namespace tarvo
