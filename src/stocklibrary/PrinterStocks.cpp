#include "stocklibrary/PrinterStocks.h"

#include "stocklibrary/PrinterMedia.h"

#include <cerrno>
#include <cstdio>
#include <new>
#include <utility>

namespace tarvo {
namespace {

constexpr const char* NoMemoryCause = "no memory";

MediaReply Failure(OSStatus status, std::string cause, const char* diagnostic, int error)
{
    return {status, std::nullopt, std::move(cause), diagnostic, error};
}

} // namespace

MediaReply RetrievePrinterMedia(const std::string& host, const ExchangeLimits& limits,
                                const std::stop_token& stop, const ExchangeManner& manner)
{
    PrinterAddress address;
    std::string request;
    const char* step = "Unable to allocate memory for IP address";
    try {
        address = AddressOfAuthority(host);
        step = "Unable to allocate memory for HTTP address";
        request = MediaRequest("http://" + host);
    } catch (const std::bad_alloc&) {
        return Failure(StatusNoMemory, NoMemoryCause, step, ENOMEM);
    }
    Exchange exchange = PostToPrinter(address, std::move(request), limits, stop, manner);
    MediaReply reply;
    switch (exchange.result) {
    case ExchangeResult::Answered:
        reply.bytes = std::move(exchange.body);
        return reply;
    case ExchangeResult::NoAnswer:
        reply.cause = std::move(exchange.cause);
        return reply;
    case ExchangeResult::NotConnected:
        break;
    }
    return Failure(StatusNotConnected, std::move(exchange.cause), "Unable to connect to server",
                   exchange.error);
}

StockRetrieval RetrievePrinterStockLibrary(const std::string& host, const ExchangeLimits& limits,
                                           const std::stop_token& stop)
{
    MediaReply reply = RetrievePrinterMedia(host, limits, stop);
    if (reply.status != StatusOk) {
        errno = reply.error;
        std::perror(reply.diagnostic);
    }
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
