#pragma once

#include "platform/printing/PrinterAddress.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>

namespace tarvo {

/// How much of our time and memory a printer may take.
struct ExchangeLimits {
    std::chrono::milliseconds connect{5'000};
    std::chrono::milliseconds whole{10'000}; // from looking up the name to the last byte
    std::size_t bodyBytes = std::size_t{32} * 1024 * 1024;
};

/// How a printer is asked.
struct ExchangeManner {
    bool isEncrypted = false; // from the first byte on; else as the printing system is set up
    /// Called after each second of waiting, with their number, in the thread that waits.
    std::function<void(int seconds)> waiting;
};

enum class ExchangeResult {
    Answered,
    NotConnected,
    NoAnswer, // nothing, too late, not whole, too long, or an HTTP error
};

struct Exchange {
    ExchangeResult result = ExchangeResult::NoAnswer;
    std::string body;  // when answered
    std::string cause; // when not: for people
    int error = 0;     // of errno, when not connected
};

/// Posts an IPP request to "/" of a printer and waits for the answer. Whatever the printer or the
/// network does, this returns within the limits, or at once when it is called off; what cannot be
/// interrupted is left to a task of its own, which ends by itself. Asks nobody for a password.
Exchange PostToPrinter(const PrinterAddress& address, std::string request,
                       const ExchangeLimits& limits, const std::stop_token& stop,
                       const ExchangeManner& manner = {});

/// The printing system's name of a status in an IPP answer, "client-error-not-found".
std::string IppStatusName(std::uint16_t status);

} // namespace tarvo
