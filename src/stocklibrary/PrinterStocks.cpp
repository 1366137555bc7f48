#include "stocklibrary/PrinterStocks.h"

#include "stocklibrary/PrinterMedia.h"

#include <cerrno>
#include <cstdio>
#include <new>
#include <utility>

namespace tarvo {
namespace {

// Runs one step that takes memory; the step's line of diagnostics is its own.
template <typename Step>
bool HasMemory(const char* diagnostic, Step step)
{
    try {
        step();
        return true;
    } catch (const std::bad_alloc&) {
        errno = ENOMEM;
        std::perror(diagnostic);
        return false;
    }
}

constexpr const char* NoMemoryCause = "no memory";

} // namespace

MediaReply RetrievePrinterMedia(const std::string& host, const ExchangeLimits& limits,
                                const std::stop_token& stop)
{
    PrinterAddress address;
    std::string request;
    if (!HasMemory("Unable to allocate memory for IP address",
                   [&] { address = AddressOfAuthority(host); }) ||
        !HasMemory("Unable to allocate memory for HTTP address",
                   [&] { request = MediaRequest("http://" + host); })) {
        return {StatusNoMemory, std::nullopt, NoMemoryCause};
    }
    Exchange exchange = PostToPrinter(address, std::move(request), limits, stop);
    switch (exchange.result) {
    case ExchangeResult::Answered:
        return {StatusOk, std::move(exchange.body), ""};
    case ExchangeResult::NoAnswer:
        return {StatusOk, std::nullopt, std::move(exchange.cause)};
    case ExchangeResult::NotConnected:
        break;
    }
    errno = exchange.error;
    std::perror("Unable to connect to server");
    return {StatusNotConnected, std::nullopt, std::move(exchange.cause)};
}

StockRetrieval RetrievePrinterStockLibrary(const std::string& host, const ExchangeLimits& limits,
                                           const std::stop_token& stop)
{
    MediaReply reply = RetrievePrinterMedia(host, limits, stop);
    StockRetrieval retrieval{reply.status, std::nullopt, std::move(reply.cause)};
    if (reply.bytes) {
        try {
            retrieval.stocks = StocksOfReply(*reply.bytes, retrieval.cause);
        } catch (const std::bad_alloc&) {
            retrieval.cause = NoMemoryCause;
        }
    }
    return retrieval;
}

} // namespace tarvo
