#include "RunProgram.h"
#include "platform/ports/RunLoop.h"
#include "stocklibrary/DemoPrinter.h"
#include "stocklibrary/PrinterMedia.h"
#include "stocklibrary/PrinterStockThread.h"
#include "stocklibrary/PrinterStocks.h"

#include <benchmark/benchmark.h>
#include <cups/cups.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace tarvo {
namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Of all threads.
double ProcessorSeconds()
{
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// A printer with that many media, which has been asked once.
std::unique_ptr<DemoPrinter> PrinterWith(std::int64_t media)
{
    const std::size_t repeat = static_cast<std::size_t>(media) / DemoPrinter::MediaCount;
    auto printer =
        std::make_unique<DemoPrinter>(std::vector<std::string>{"--repeat", std::to_string(repeat)});
    RetrievePrinterMedia(printer->authority(), {}, {});
    return printer;
}

void FetchWithLibrary(benchmark::State& state)
{
    const auto printer = PrinterWith(state.range(0));
    const std::string uri = "http://" + printer->authority();
    for (auto step : state) {
        http_t* http = httpConnect2("127.0.0.1", std::stoi(printer->port()), nullptr, AF_UNSPEC,
                                    cupsEncryption(), 1, 5'000, nullptr);
        ipp_t* request = ippNewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES);
        ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.c_str());
        ipp_t* reply = cupsDoFileRequest(http, request, "/", nullptr);
        const ipp_attribute_t* media =
            ippFindAttribute(reply, "media-col-database", IPP_TAG_BEGIN_COLLECTION);
        if (ippGetCount(const_cast<ipp_attribute_t*>(media)) != state.range(0)) {
            state.SkipWithError("the library did not get the media");
        }
        ippDelete(reply);
        httpClose(http);
    }
}
BENCHMARK(FetchWithLibrary)
    ->Name("cupsDoFileRequest")
    ->Arg(500)
    ->Arg(5'000)
    ->Arg(20'000)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

void FetchStocks(benchmark::State& state)
{
    const auto printer = PrinterWith(state.range(0));
    const double before = ProcessorSeconds();
    for (auto step : state) {
        const StockRetrieval retrieval = RetrievePrinterStockLibrary(printer->authority(), {}, {});
        if (!retrieval.stocks ||
            retrieval.stocks->size() != static_cast<std::size_t>(state.range(0))) {
            state.SkipWithError(retrieval.cause.c_str());
        }
    }
    state.counters["cpu"] =
        benchmark::Counter(ProcessorSeconds() - before, benchmark::Counter::kAvgIterations);
}
BENCHMARK(FetchStocks)
    ->Name("fetch stocks")
    ->Arg(500)
    ->Arg(5'000)
    ->Arg(20'000)
    ->Arg(50'000)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

// A whole program that asks the printer; its words, "" for the printer.
void FetchWithProgram(benchmark::State& state, std::vector<std::string> words)
{
    const auto printer = PrinterWith(state.range(0));
    std::replace(words.begin(), words.end(), std::string(), "ipp://" + printer->authority() + "/");
    MeasureProgram(state, words);
}

void Register(const char* name, const std::vector<std::string>& words)
{
    benchmark::RegisterBenchmark(name, FetchWithProgram, words)
        ->Arg(5'000)
        ->Arg(20'000)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
}

const bool registered = [] {
    Register("ipptool", {IPPTOOL_PROGRAM, "", TARVO_SOURCE_DIR "/bench/media.test"});
    Register("tarvo-ticket stocks fetch", {TARVO_TICKET_PROGRAM, "stocks", "fetch", ""});
    return true;
}();

// Turns the main context until another list has come. @return the longest turn, in seconds
double LongestTurnUntilListOtherThan(const std::vector<Stock>* former)
{
    RunLoop loop = RunLoop::Current();
    double longest = 0;
    const auto start = Clock::now();
    while (PrinterStocks().get() == former && SecondsSince(start) < 20) {
        const auto before = Clock::now();
        const bool hasWorked = loop.turn();
        longest = std::max(longest, SecondsSince(before));
        if (!hasWorked) {
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        }
    }
    return longest;
}

// Each list takes the place of one that is as long.
void PauseMainContext(benchmark::State& state)
{
    const auto printer = PrinterWith(state.range(0));
    MySpawnThread("com.tarvo.bench", printer->authority(), 0);
    LongestTurnUntilListOtherThan(nullptr);
    for (auto step : state) {
        const auto* former = PrinterStocks().get();
        SendMessageToThread(RetrieveStocksMessage, "");
        state.SetIterationTime(LongestTurnUntilListOtherThan(former));
        if (PrinterStocks().get() == former) {
            state.SkipWithError("no stocks came");
        }
    }
    MyRemoveThread(0);
}
BENCHMARK(PauseMainContext)
    ->Name("longest turn of the main context")
    ->Arg(5'000)
    ->Arg(50'000)
    ->Iterations(20)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

std::ptrdiff_t ThreadCount()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

// Closes while a printer keeps the worker waiting.
void Close(benchmark::State& state, const char* misbehaviour, bool untilGone)
{
    const DemoPrinter printer({"--misbehave", misbehaviour});
    const std::ptrdiff_t threads = ThreadCount();
    for (auto step : state) {
        MySpawnThread("com.tarvo.bench", "127.0.0.1:" + printer.port(), 0);
        RunLoop loop = RunLoop::Current();
        for (const auto start = Clock::now(); SecondsSince(start) < 0.05;) {
            loop.turn();
        }
        const auto start = Clock::now();
        MyRemoveThread(0);
        while (untilGone && ThreadCount() > threads && SecondsSince(start) < 20) {
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        }
        state.SetIterationTime(SecondsSince(start));
    }
}
BENCHMARK_CAPTURE(Close, silent, "silent", false)
    ->Name("close/silent")
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Close, drip, "drip", false)
    ->Name("close/drip")
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Close, silentGone, "silent", true)
    ->Name("worker gone/silent")
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Close, dripGone, "drip", true)
    ->Name("worker gone/drip")
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace tarvo
