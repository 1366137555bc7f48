#include "platform/printing/PrinterExchange.h"

#include "platform/ports/Task.h"
#include "platform/printing/CupsLibrary.h"

#include <cups/cups.h>
#include <sys/socket.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <limits>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

namespace tarvo {
namespace {

struct Library {
    decltype(&httpConnect2) connect = nullptr;
    decltype(&httpClose) close = nullptr;
    decltype(&httpGetFd) descriptor = nullptr;
    decltype(&httpSetField) setField = nullptr;
    decltype(&httpSetLength) setLength = nullptr;
    decltype(&httpPost) post = nullptr;
    decltype(&httpWrite2) write = nullptr;
    decltype(&httpUpdate) update = nullptr;
    decltype(&httpGetLength2) length = nullptr;
    decltype(&httpRead2) read = nullptr;
    decltype(&httpStatus) statusText = nullptr;
    decltype(&ippPort) port = nullptr;
    decltype(&cupsEncryption) encryption = nullptr;
    decltype(&cupsLastErrorString) lastError = nullptr;
};

// Null when one of the functions is missing.
const Library* LoadLibrary()
{
    static Library library;
    static const bool loaded = FindCupsFunction("httpConnect2", library.connect) &&
                               FindCupsFunction("httpClose", library.close) &&
                               FindCupsFunction("httpGetFd", library.descriptor) &&
                               FindCupsFunction("httpSetField", library.setField) &&
                               FindCupsFunction("httpSetLength", library.setLength) &&
                               FindCupsFunction("httpPost", library.post) &&
                               FindCupsFunction("httpWrite2", library.write) &&
                               FindCupsFunction("httpUpdate", library.update) &&
                               FindCupsFunction("httpGetLength2", library.length) &&
                               FindCupsFunction("httpRead2", library.read) &&
                               FindCupsFunction("httpStatus", library.statusText) &&
                               FindCupsFunction("ippPort", library.port) &&
                               FindCupsFunction("cupsEncryption", library.encryption) &&
                               FindCupsFunction("cupsLastErrorString", library.lastError);
    return loaded ? &library : nullptr;
}

struct HttpDeleter {
    const Library* library;
    void operator()(http_t* http) const { library->close(http); }
};
using Http = std::unique_ptr<http_t, HttpDeleter>;

// What the task that talks to the printer shares with the one that waits for it.
class Conversation {
public:
    // The library looks at it while it connects.
    int* cancelWord()
    {
        static_assert(sizeof(isCalledOff_) == sizeof(int));
        return reinterpret_cast<int*>(&isCalledOff_);
    }
    bool isCalledOff() const { return isCalledOff_ != 0; }

    /// @return false when the talk was called off meanwhile
    bool connected(int descriptor)
    {
        const std::lock_guard lock(mutex_);
        // One of our own: the library may close its and the system give the number to others.
        socket_ = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
        return !isCalledOff();
    }

    void finish(Exchange outcome)
    {
        const std::lock_guard lock(mutex_);
        if (socket_ >= 0) {
            close(socket_);
            socket_ = -1;
        }
        outcome_ = std::move(outcome);
        finished_.notify_all();
    }

    /// @return nullopt, with the talk called off, when the time is over or the wait is stopped
    std::optional<Exchange> await(std::chrono::milliseconds time, const std::stop_token& stop)
    {
        std::unique_lock lock(mutex_);
        const auto deadline = std::chrono::steady_clock::now() + time;
        if (finished_.wait_until(lock, stop, deadline, [this] { return outcome_.has_value(); })) {
            return std::move(outcome_);
        }
        isCalledOff_ = 1;
        wasConnected_ = socket_ >= 0;
        if (socket_ >= 0) {
            shutdown(socket_, SHUT_RDWR); // ends whatever the other task waits for
        }
        return std::nullopt;
    }

    bool wasConnected() const { return wasConnected_; }

private:
    std::mutex mutex_;
    std::condition_variable_any finished_;
    std::optional<Exchange> outcome_;
    std::atomic<int> isCalledOff_ = 0;
    int socket_ = -1;
    bool wasConnected_ = false; // of the waiting side
};

Exchange NotConnected(int error, std::string cause)
{
    return {ExchangeResult::NotConnected, "", std::move(cause), error};
}

Exchange NoAnswer(std::string cause)
{
    return {ExchangeResult::NoAnswer, "", std::move(cause), 0};
}

std::string OversizeText(const ExchangeLimits& limits)
{
    return "the answer is larger than " + std::to_string(limits.bodyBytes / 1024) + " KiB";
}

// The talk itself, in its own task; each step returns nothing when the next may follow.
class Talk {
public:
    Talk(const Library& library, Conversation& conversation, const ExchangeLimits& limits)
        : library_(library),
          conversation_(conversation),
          limits_(limits),
          http_(nullptr, HttpDeleter{&library})
    {
    }

    Exchange hold(const PrinterAddress& address, const std::string& request)
    {
        if (auto failure = connect(address)) {
            return std::move(*failure);
        }
        if (auto failure = post(request)) {
            return std::move(*failure);
        }
        return readBody();
    }

private:
    std::optional<Exchange> connect(const PrinterAddress& address)
    {
        if (address.host.empty()) {
            return NotConnected(EINVAL, "no host is named");
        }
        errno = 0;
        http_.reset(library_.connect(address.host.c_str(), address.port.value_or(library_.port()),
                                     nullptr, AF_UNSPEC, library_.encryption(), 1,
                                     static_cast<int>(limits_.connect.count()),
                                     conversation_.cancelWord()));
        if (!http_) {
            // The library leaves the number of its last socket's end behind, and says which it
            // means.
            const bool isTold = errno != 0 && errno != EBADF;
            return NotConnected(isTold ? errno : EHOSTDOWN, library_.lastError());
        }
        if (!conversation_.connected(library_.descriptor(http_.get()))) {
            return NoAnswer("called off");
        }
        return std::nullopt;
    }

    std::optional<Exchange> post(const std::string& request)
    {
        library_.setField(http_.get(), HTTP_FIELD_CONTENT_TYPE, "application/ipp");
        library_.setField(http_.get(), HTTP_FIELD_ACCEPT_ENCODING, "identity");
        library_.setLength(http_.get(), request.size());
        if (library_.post(http_.get(), "/") != 0 ||
            library_.write(http_.get(), request.data(), request.size()) < 0) {
            return NoAnswer("the printer hung up before the request");
        }
        http_status_t status = HTTP_STATUS_CONTINUE;
        while (status == HTTP_STATUS_CONTINUE && !conversation_.isCalledOff()) {
            status = library_.update(http_.get());
        }
        if (status == HTTP_STATUS_ERROR) {
            return NoAnswer("the printer hung up, or what it answered is not HTTP");
        }
        if (status != HTTP_STATUS_OK) {
            return NoAnswer("the printer answered " + std::to_string(status) + " " +
                            library_.statusText(status));
        }
        return std::nullopt;
    }

    Exchange readBody()
    {
        constexpr off_t NoLength = std::numeric_limits<int>::max(); // the library's mark
        const off_t length = std::max<off_t>(library_.length(http_.get()), 0);
        const bool isKnown = length != NoLength;
        if (isKnown && length > static_cast<off_t>(limits_.bodyBytes)) {
            return NoAnswer(OversizeText(limits_));
        }
        Exchange exchange;
        exchange.body.reserve(isKnown ? static_cast<std::size_t>(length) : 0);
        std::array<char, 65536> piece;
        ssize_t count = 0;
        while ((count = library_.read(http_.get(), piece.data(), piece.size())) > 0) {
            exchange.body.append(piece.data(), static_cast<std::size_t>(count));
            if (exchange.body.size() > limits_.bodyBytes) {
                return NoAnswer(OversizeText(limits_));
            }
        }
        if (count < 0 || (isKnown && exchange.body.size() < static_cast<std::size_t>(length))) {
            return NoAnswer("the answer is cut short");
        }
        exchange.result = ExchangeResult::Answered;
        return exchange;
    }

    const Library& library_;
    Conversation& conversation_;
    const ExchangeLimits& limits_;
    Http http_;
};

Exchange Hold(Conversation& conversation, const PrinterAddress& address, const std::string& request,
              const ExchangeLimits& limits)
{
    const Library* library = LoadLibrary();
    if (library == nullptr) {
        return NotConnected(ENOSYS, CupsLibraryMissing);
    }
    try {
        return Talk(*library, conversation, limits).hold(address, request);
    } catch (const std::bad_alloc&) {
        return NoAnswer("no memory for the answer");
    }
}

} // namespace

Exchange PostToPrinter(const PrinterAddress& address, std::string request,
                       const ExchangeLimits& limits, const std::stop_token& stop)
{
    const auto conversation = std::make_shared<Conversation>();
    const OSStatus started =
        StartTask([conversation, address, request = std::move(request), limits] {
            conversation->finish(Hold(*conversation, address, request, limits));
        });
    if (started != StatusOk) {
        return NotConnected(EAGAIN, std::generic_category().message(EAGAIN));
    }
    if (std::optional<Exchange> exchange = conversation->await(limits.whole, stop)) {
        return std::move(*exchange);
    }
    if (stop.stop_requested()) {
        return NoAnswer("called off");
    }
    return conversation->wasConnected() ? NoAnswer("the printer took too long")
                                        : NotConnected(ETIMEDOUT, "the printer cannot be reached");
}

} // namespace tarvo
