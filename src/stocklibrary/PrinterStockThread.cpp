#include "stocklibrary/PrinterStockThread.h"

#include "platform/ports/MessagePort.h"
#include "platform/ports/RunLoop.h"
#include "platform/ports/Task.h"
#include "platform/text/Utf8.h"
#include "stocklibrary/PrinterStocks.h"
#include "stocklibrary/StockLibraryList.h"

#include <chrono>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <optional>
#include <stop_token>
#include <utility>

namespace tarvo {
namespace {

using std::chrono::milliseconds;

// What the worker tells the main thread. The two requests are answered with the host's name and
// with the status as 32 bits in the machine's order.
constexpr std::int32_t ThreadReadyMessage = 100; // the data are the name of the worker's port
constexpr std::int32_t WhichHostMessage = 202;
constexpr std::int32_t RetrievalFailedMessage = 203;
constexpr std::int32_t RetrievalCompleteMessage = 204;
constexpr std::int32_t WhichStatusMessage = 207;
constexpr std::int32_t WakeUpMessage = 209;

constexpr milliseconds AnswerTimeout{2'000};
constexpr milliseconds LaterDelay{2'000};
constexpr milliseconds WakeUpDelay{1'000};
constexpr milliseconds EndOfProcessTimeout{1'000};
constexpr std::size_t LongestHost = 1023; // bytes

// What a retrieval brings.
struct Papers {
    std::vector<Stock> stocks;
    std::unique_ptr<StockLibraryList> library; // of the same
};
using StockList = std::shared_ptr<const Papers>;

template <typename Value>
std::string BytesOf(const Value& value)
{
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

template <typename Value>
std::optional<Value> ValueOf(std::string_view bytes)
{
    Value value;
    if (bytes.size() != sizeof value) {
        return std::nullopt;
    }
    std::memcpy(&value, bytes.data(), sizeof value);
    return value;
}

// Leaves the end of the list to a task, whoever has it last: of 50,000 stocks it would be felt in
// the main thread.
void EndInTask(const Papers* papers)
{
    try {
        std::shared_ptr<const Papers> last(papers); // goes here when no task can be had
        static_cast<void>(StartTask([last = std::move(last)] {}));
    } catch (const std::exception&) { // it has ended all the same
    }
}

// For the worker: making a library of so many takes its time, too.
StockList MakeStockList(std::vector<Stock> stocks)
{
    auto library = MakePrinterStockLibraryList(stocks);
    auto papers = std::make_unique<Papers>(Papers{std::move(stocks), std::move(library)});
    return {papers.release(), EndInTask};
}

// What the worker and the main thread share; the worker keeps it alive for itself.
class SharedState {
public:
    void setList(StockList list, std::string cause)
    {
        const std::lock_guard lock(mutex_);
        if (list) {
            list_ = std::move(list);
        }
        cause_ = std::move(cause);
    }
    /// The newest list, null when there is none, and why the last retrieval brought none.
    std::pair<StockList, std::string> list() const
    {
        const std::lock_guard lock(mutex_);
        return {list_, cause_};
    }

    void setEnded()
    {
        const std::lock_guard lock(mutex_);
        hasEnded_ = true;
        changed_.notify_all();
    }
    void awaitEnd(milliseconds timeout)
    {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, timeout, [this] { return hasEnded_; });
    }

    /// @return false when the worker was asked to end meanwhile
    bool sleep(milliseconds time)
    {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, stop.get_token(), time, [] { return false; });
        return !stop.stop_requested();
    }

    std::stop_source stop; // asks the worker to end

private:
    mutable std::mutex mutex_;
    std::condition_variable_any changed_;
    StockList list_;
    std::string cause_;
    bool hasEnded_ = false;
};

// Goes when the worker does, however it ends.
class EndOfWorker {
public:
    explicit EndOfWorker(std::shared_ptr<SharedState> state) : state_(std::move(state)) {}
    EndOfWorker(const EndOfWorker&) = delete;
    EndOfWorker& operator=(const EndOfWorker&) = delete;
    ~EndOfWorker() { state_->setEnded(); }

    const std::shared_ptr<SharedState>& state() const { return state_; }

private:
    std::shared_ptr<SharedState> state_;
};

// The worker: its port, and what it does with each message.
class Worker {
public:
    Worker(std::shared_ptr<SharedState> state, const RemoteMessagePort& mainPort,
           const ExchangeLimits& limits)
        : state_(std::move(state)), mainPort_(mainPort), limits_(limits)
    {
    }

    void run()
    {
        const std::string name = "com.tarvo.print.pde.Thread-" + std::to_string(CurrentTaskID());
        const auto port =
            MessagePort::CreateLocal(name, [this](std::int32_t message, const std::string& data) {
                processClientRequest(message, data);
                return std::nullopt;
            });
        if (!port) {
            return;
        }
        port->addToRunLoop(loop_);
        const std::stop_callback stopLoop(state_->stop.get_token(), [this] { loop_.stop(); });
        mainPort_.send(ThreadReadyMessage, name);
        loop_.run();
    }

private:
    void processClientRequest(std::int32_t message, const std::string& data)
    {
        switch (message) {
        case RetrieveStocksMessage:
            retrieve(data);
            break;
        case EndThreadMessage:
            loop_.stop();
            break;
        case AnswerLaterMessage:
            state_->sleep(LaterDelay);
            answer(RetrievalCompleteMessage, data);
            break;
        case PollStatusMessage:
            poll(data);
            break;
        case WakeUpLaterMessage:
            state_->sleep(WakeUpDelay);
            answer(WakeUpMessage, data);
            break;
        default:
            break; // newer than this worker
        }
    }

    // A main thread that does not tell its host in time gets no answer either.
    void retrieve(const std::string& data)
    {
        const std::optional<std::string> host = ask(WhichHostMessage, "");
        if (!host) {
            return;
        }
        StockRetrieval retrieval =
            RetrievePrinterStockLibrary(*host, limits_, state_->stop.get_token());
        StockList list;
        if (retrieval.stocks) {
            list = tryToMakeList(retrieval);
        }
        state_->setList(std::move(list), std::move(retrieval.cause));
        answer(retrieval.status == StatusOk ? RetrievalCompleteMessage : RetrievalFailedMessage,
               data);
    }

    // Not to be made for want of memory, say: the dialog must hear of it.
    static StockList tryToMakeList(StockRetrieval& retrieval)
    {
        try {
            return MakeStockList(std::move(*retrieval.stocks));
        } catch (const std::exception& error) {
            retrieval.status = StatusNoTask;
            retrieval.cause = error.what();
            return nullptr;
        }
    }

    void poll(const std::string& data)
    {
        const std::optional<std::string> reply = ask(WhichStatusMessage, data);
        const auto status = reply ? ValueOf<PrinterStockStatus>(*reply) : std::nullopt;
        if (status) {
            answer(*status == PrinterStockStatus::Failed ? RetrievalFailedMessage
                                                         : RetrievalCompleteMessage,
                   data);
        }
    }

    std::optional<std::string> ask(std::int32_t message, const std::string& data) const
    {
        std::string reply;
        const MessagePortStatus status =
            mainPort_.request(message, data, AnswerTimeout, state_->stop.get_token(), reply);
        return status == MessagePortStatus::Success ? std::optional(reply) : std::nullopt;
    }

    void answer(std::int32_t message, const std::string& data) const
    {
        if (!state_->stop.stop_requested()) {
            mainPort_.send(message, data);
        }
    }

    RunLoop loop_;
    std::shared_ptr<SharedState> state_;
    RemoteMessagePort mainPort_;
    ExchangeLimits limits_;
};

void ServerThreadEntryPoint(const std::shared_ptr<SharedState>& state,
                            const std::string& mainPortName, const ExchangeLimits& limits)
{
    if (const auto mainPort = RemoteMessagePort::Create(mainPortName)) {
        Worker(state, *mainPort, limits).run();
    }
}

// The main thread's side. One for the process, and for the dialog that was opened last.
class MainSide {
public:
    MainSide() = default;
    MainSide(const MainSide&) = delete;
    MainSide& operator=(const MainSide&) = delete;
    /// At the end of the process: what the worker uses must not go from under it.
    ~MainSide()
    {
        if (state_) {
            state_->stop.request_stop();
            state_->awaitEnd(EndOfProcessTimeout);
        }
    }

    OSStatus spawn(std::string_view bundleIdentifier, std::string host, WindowID window,
                   const ExchangeLimits& limits)
    {
        remove();
        if (host != host_) {
            list_.reset();
            cause_.clear();
            status_ = PrinterStockStatus::NoThread;
        }
        host_ = std::move(host);
        window_ = window;
        if (!port_) {
            portName_ =
                std::string(bundleIdentifier) + ".MainThread-" + std::to_string(CurrentTaskID());
            port_ = MessagePort::CreateLocal(portName_,
                                             [this](std::int32_t message, const std::string& data) {
                                                 return respond(message, data);
                                             });
            if (!port_) {
                return StatusNoTask;
            }
            port_->addToRunLoop(RunLoop::Current());
        }
        const auto state = std::make_shared<SharedState>();
        state_ = state;
        return StartTask([end = std::make_shared<EndOfWorker>(state), name = portName_, limits] {
            ServerThreadEntryPoint(end->state(), name, limits);
        });
    }

    void remove(WindowID window)
    {
        if (window == window_) {
            remove();
        }
    }

    void send(std::int32_t message, std::string_view data) const
    {
        if (workerPort_) {
            workerPort_->send(message, data);
        }
    }

    void retrieveFor(WindowID window)
    {
        if (!isAlive() || status_ == PrinterStockStatus::InProgress) {
            return;
        }
        status_ = PrinterStockStatus::InProgress;
        if (workerPort_) {
            send(RetrieveStocksMessage, WindowData(window));
        } else {
            firstFor_ = WindowData(window);
        }
    }

    bool isOf(WindowID window) const { return isAlive() && window == window_; }
    const std::string& host() const { return host_; }
    PrinterStockStatus status() const { return status_; }
    const StockList& list() const { return list_; }
    const std::string& cause() const { return cause_; }

private:
    bool isAlive() const { return state_ && !state_->stop.stop_requested(); }

    void remove()
    {
        if (!state_) {
            return;
        }
        state_->stop.request_stop(); // the worker may be busy, or not have announced itself yet
        send(EndThreadMessage, "");
        workerPort_.reset();
        firstFor_.clear();
        if (status_ == PrinterStockStatus::InProgress) { // nobody would ever end it
            status_ = list_ ? PrinterStockStatus::Complete : PrinterStockStatus::NoThread;
        }
    }

    // MainThreadResponseHandler of the print dialog's protocol.
    std::optional<std::string> respond(std::int32_t message, const std::string& data)
    {
        switch (message) {
        case ThreadReadyMessage:
            if (!isAlive()) { // it was called off before it was ready, and ends by itself
                return std::nullopt;
            }
            workerPort_ = RemoteMessagePort::Create(data);
            if (workerPort_) {
                send(RetrieveStocksMessage, std::exchange(firstFor_, {}));
                status_ = PrinterStockStatus::InProgress;
            }
            return std::nullopt;
        case WhichHostMessage:
            return std::string(Utf8Prefix(host_, LongestHost));
        case RetrievalFailedMessage:
            finished(PrinterStockStatus::Failed, data);
            return std::nullopt;
        case RetrievalCompleteMessage:
            finished(PrinterStockStatus::Complete, data);
            return std::nullopt;
        case WhichStatusMessage: {
            const std::string status = BytesOf(status_);
            sendEvent(StatusPolledEvent, data);
            return status;
        }
        case WakeUpMessage:
            sendEvent(StatusPolledEvent, data);
            return std::nullopt;
        default:
            return std::nullopt; // newer than this handler
        }
    }

    void finished(PrinterStockStatus status, const std::string& data)
    {
        status_ = status;
        auto [list, cause] = state_->list();
        if (list) {
            list_ = std::move(list);
        }
        cause_ = std::move(cause);
        sendEvent(RetrievalFinishedEvent, data);
    }

    void sendEvent(std::uint32_t kind, const std::string& data) const
    {
        SendEventToWindow(ValueOf<WindowID>(data).value_or(window_),
                          {PrinterStockEventClass, kind});
    }

    std::string host_;
    WindowID window_ = 0;
    std::string portName_;
    std::unique_ptr<MessagePort> port_;
    std::optional<RemoteMessagePort> workerPort_; // from when the worker has announced itself
    std::shared_ptr<SharedState> state_;          // of the newest worker
    std::string firstFor_; // the window of its first retrieval; empty: window_
    PrinterStockStatus status_ = PrinterStockStatus::NoThread;
    StockList list_;
    std::string cause_;
};

MainSide& TheMainSide()
{
    static MainSide side;
    return side;
}

} // namespace

OSStatus MySpawnThread(std::string_view bundleIdentifier, std::string host, WindowID window,
                       const ExchangeLimits& limits)
{
    return TheMainSide().spawn(bundleIdentifier, std::move(host), window, limits);
}

OSStatus MyRemoveThread(WindowID window)
{
    TheMainSide().remove(window);
    return StatusOk;
}

OSStatus SendMessageToThread(std::int32_t message, std::string_view data)
{
    TheMainSide().send(message, data);
    return StatusOk;
}

bool HasPrinterStockThread(WindowID window)
{
    return TheMainSide().isOf(window);
}

const std::string& PrinterStockHost()
{
    return TheMainSide().host();
}

void RetrievePrinterStocksFor(WindowID window)
{
    TheMainSide().retrieveFor(window);
}

std::string WindowData(WindowID window)
{
    return BytesOf(window);
}

PrinterStockStatus CurrentPrinterStockStatus()
{
    return TheMainSide().status();
}

std::shared_ptr<const std::vector<Stock>> PrinterStocks()
{
    const StockList& list = TheMainSide().list();
    return list ? std::shared_ptr<const std::vector<Stock>>(list, &list->stocks) : nullptr;
}

std::shared_ptr<StockLibraryList> PrinterStockList()
{
    const StockList& list = TheMainSide().list();
    return {list, list ? list->library.get() : nullptr};
}

const std::string& PrinterStocksCause()
{
    return TheMainSide().cause();
}

} // namespace tarvo
