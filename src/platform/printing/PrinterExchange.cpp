#include "platform/printing/PrinterExchange.h"

#include "platform/ports/Task.h"
#include "platform/printing/CupsLibrary.h"

#include <cups/cups.h>
#include <sys/socket.h>

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
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

using Clock = std::chrono::steady_clock;

struct Library {
    decltype(&httpConnect2) connect = nullptr;
    decltype(&httpClose) close = nullptr;
    decltype(&httpGetFd) descriptor = nullptr;
    decltype(&httpClearFields) clearFields = nullptr;
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
                               FindCupsFunction("httpClearFields", library.clearFields) &&
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
    std::optional<Exchange> await(std::chrono::milliseconds time, const std::stop_token& stop,
                                  const std::function<void(int seconds)>& waiting)
    {
        const auto start = Clock::now();
        const auto deadline = start + time;
        std::unique_lock lock(mutex_);
        for (int second = 1; !stop.stop_requested() && Clock::now() < deadline; ++second) {
            const auto next = std::min(deadline, start + std::chrono::seconds(second));
            if (finished_.wait_until(lock, stop, next, [this] { return outcome_.has_value(); })) {
                break;
            }
            if (waiting && next < deadline && !stop.stop_requested()) {
                lock.unlock(); // a terminal may be slow
                waiting(second);
                lock.lock();
            }
        }
        if (outcome_) {
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

// The system's reason why a socket cannot be connected; 0 while it has none.
int ConnectError(const addrinfo& address)
{
    constexpr int Patience = 500; // ms; a refusal comes at once
    const int type = address.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC;
    const int descriptor = socket(address.ai_family, type, address.ai_protocol);
    int error = 0;
    if (descriptor < 0 || connect(descriptor, address.ai_addr, address.ai_addrlen) != 0) {
        error = errno;
    }
    pollfd wait = {descriptor, POLLOUT, 0};
    if (error == EINPROGRESS) {
        socklen_t length = sizeof error;
        if (poll(&wait, 1, Patience) != 1 ||
            getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &length) != 0) {
            error = ETIMEDOUT;
        }
    }
    if (descriptor >= 0) {
        close(descriptor);
    }
    return error;
}

// The same for the last address of a host; 0 when it has none or can be connected.
int ConnectError(const std::string& host, int port)
{
    addrinfo hints = {};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0) {
        return 0;
    }
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> addresses(found, freeaddrinfo);
    int error = 0;
    for (const addrinfo* each = found; each != nullptr; each = each->ai_next) {
        error = ConnectError(*each);
    }
    return error;
}

std::string OversizeText(const ExchangeLimits& limits)
{
    return "the answer is larger than " + std::to_string(limits.bodyBytes / 1024) + " KiB";
}

// The talk itself, in its own task; each step returns nothing when the next may follow.
class Talk {
public:
    Talk(const Library& library, Conversation& conversation, const ExchangeLimits& limits,
         bool isEncrypted)
        : library_(library),
          conversation_(conversation),
          limits_(limits),
          isEncrypted_(isEncrypted),
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
        const int port = address.port.value_or(library_.port());
        errno = 0;
        http_.reset(library_.connect(address.host.c_str(), port, nullptr, AF_UNSPEC,
                                     isEncrypted_ ? HTTP_ENCRYPTION_ALWAYS : library_.encryption(),
                                     1, // blocking
                                     static_cast<int>(limits_.connect.count()),
                                     conversation_.cancelWord()));
        if (!http_) {
            return notConnected(address.host, port, errno);
        }
        if (!conversation_.connected(library_.descriptor(http_.get()))) {
            return NoAnswer("called off");
        }
        return std::nullopt;
    }

    // What the library leaves behind of a refused connection is the number of its last socket's
    // end. It says what it means when it could not even look up the name.
    Exchange notConnected(const std::string& host, int port, int error) const
    {
        if (error != 0 && error != EBADF) {
            return NotConnected(error, library_.lastError());
        }
        error = conversation_.isCalledOff() ? 0 : ConnectError(host, port);
        return error == 0 ? NotConnected(EHOSTDOWN, library_.lastError())
                          : NotConnected(error, std::generic_category().message(error));
    }

    std::optional<Exchange> post(const std::string& request)
    {
        library_.clearFields(http_.get()); // which names the host
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
    bool isEncrypted_;
    Http http_;
};

Exchange Hold(Conversation& conversation, const PrinterAddress& address, const std::string& request,
              const ExchangeLimits& limits, bool isEncrypted)
{
    const Library* library = LoadLibrary();
    if (library == nullptr) {
        return NotConnected(ENOSYS, CupsLibraryMissing);
    }
    try {
        return Talk(*library, conversation, limits, isEncrypted).hold(address, request);
    } catch (const std::bad_alloc&) {
        return NoAnswer("no memory for the answer");
    }
}

} // namespace

Exchange PostToPrinter(const PrinterAddress& address, std::string request,
                       const ExchangeLimits& limits, const std::stop_token& stop,
                       const ExchangeManner& manner)
{
    const auto conversation = std::make_shared<Conversation>();
    const OSStatus started = StartTask([conversation, address, request = std::move(request), limits,
                                        isEncrypted = manner.isEncrypted] {
        conversation->finish(Hold(*conversation, address, request, limits, isEncrypted));
    });
    if (started != StatusOk) {
        return NotConnected(EAGAIN, std::generic_category().message(EAGAIN));
    }
    if (std::optional<Exchange> exchange =
            conversation->await(limits.whole, stop, manner.waiting)) {
        return std::move(*exchange);
    }
    if (stop.stop_requested()) {
        return NoAnswer("called off");
    }
    constexpr const char* TooLong = "the printer took too long";
    return conversation->wasConnected() ? NoAnswer(TooLong) : NotConnected(ETIMEDOUT, TooLong);
}

std::string IppStatusName(std::uint16_t status)
{
    decltype(&ippErrorString) name = nullptr;
    return FindCupsFunction("ippErrorString", name) ? name(static_cast<ipp_status_t>(status))
                                                    : std::to_string(status);
}

} // namespace tarvo
