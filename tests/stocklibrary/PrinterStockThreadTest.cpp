#include "stocklibrary/PrinterStockThread.h"

#include "DemoPrinter.h"
#include "platform/ports/MessagePort.h"
#include "platform/ports/RunLoop.h"
#include "platform/ports/Task.h"
#include "stocklibrary/PrinterStocks.h"
#include "stocklibrary/StockLibraryList.h"
#include "support/PeakMemory.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <thread>

namespace tarvo {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using Clock = std::chrono::steady_clock;
using testing::ElementsAre;

constexpr const char* Identifier = "com.tarvo.test";

// Machines are noisy: whoever misses this one hangs.
constexpr seconds Hang{20};
constexpr milliseconds LongestTurn{500};

ExchangeLimits DeadlineOf(milliseconds deadline)
{
    ExchangeLimits limits;
    limits.connect = deadline / 2;
    limits.whole = deadline;
    return limits;
}

std::size_t ThreadCount()
{
    const std::filesystem::directory_iterator threads("/proc/self/task");
    return static_cast<std::size_t>(std::distance(threads, {}));
}

class StockThread : public testing::Test {
protected:
    StockThread()
    {
        std::thread([] {}).join(); // a sanitizer starts one of its own with the first
        threadsBefore_ = ThreadCount();
    }
    ~StockThread() override
    {
        MyRemoveThread(window_.window());
        EXPECT_TRUE(turnUntil([this] { return ThreadCount() == threadsBefore_; }));
    }

    // Turns the main thread's loop; what is done in it never takes long.
    bool turnUntil(const std::function<bool()>& isReached)
    {
        const auto end = Clock::now() + Hang;
        while (!isReached() && Clock::now() < end) {
            const auto before = Clock::now();
            if (!loop_.turn()) {
                std::this_thread::sleep_for(milliseconds(1));
            }
            EXPECT_LT(Clock::now() - before, LongestTurn);
        }
        return isReached();
    }

    void spawn(const std::string& host, milliseconds deadline)
    {
        ASSERT_EQ(MySpawnThread(Identifier, host, window_.window(), DeadlineOf(deadline)),
                  StatusOk);
    }

    // The next event of the window; 0 when none comes.
    std::uint32_t nextEvent()
    {
        turnUntil([this] { return !events_.empty(); });
        return events_.empty() ? 0 : std::exchange(events_, {}).front();
    }

    static std::vector<std::string> names()
    {
        std::vector<std::string> names;
        if (const auto stocks = PrinterStocks()) {
            for (const Stock& stock : *stocks) {
                names.push_back(stock.customName());
            }
        }
        return names;
    }

    RunLoop loop_ = RunLoop::Current();
    std::vector<std::uint32_t> events_;
    WindowEventHandler window_{[this](const Event& event) {
        EXPECT_EQ(event.eventClass, FourCharCode("TPDE"));
        events_.push_back(event.kind);
        return StatusOk;
    }};
    std::size_t threadsBefore_ = 0;
};

TEST_F(StockThread, BringsThePrintersStocksAndKeepsThemForTheSamePrinter)
{
    const DemoPrinter printer({});
    spawn("user@" + printer.authority(), Hang);
    EXPECT_TRUE(
        turnUntil([] { return CurrentPrinterStockStatus() == PrinterStockStatus::InProgress; }));
    EXPECT_EQ(nextEvent(), FourCharCode("TbdC"));
    EXPECT_EQ(CurrentPrinterStockStatus(), PrinterStockStatus::Complete);
    EXPECT_THAT(names(), ElementsAre("Plain A4", "Gloss brochure", "Blue tabs", "Letterhead",
                                     "Recycled, punched", "Overhead", "Window envelope", "Labels",
                                     "Heavy cover", "Sequence of carbonless sets"));
    const Stock tabs = PrinterStocks()->at(2);
    EXPECT_EQ(tabs.size(), 5); // A3 is the first that is 297 mm wide
    EXPECT_EQ(tabs.type(), 4);
    EXPECT_EQ(tabs.modulus(), 5);
    EXPECT_EQ(tabs.weight(), 160);
    const Stock letterhead = PrinterStocks()->at(3);
    EXPECT_EQ(letterhead.type(), 14);
    EXPECT_EQ(letterhead.customColor(), "custom cream");
    EXPECT_EQ(letterhead.comment(), "second drawer, face down");

    const auto library = PrinterStockList();
    EXPECT_EQ(library->entry(library->stockList().begin()->key)->stock(), PrinterStocks()->front());
    EXPECT_EQ(library->stockList().size(), PrinterStocks()->size());

    const auto former = PrinterStocks();
    MyRemoveThread(window_.window());
    spawn("user@" + printer.authority(), Hang);
    EXPECT_EQ(PrinterStocks(), former);
    EXPECT_EQ(CurrentPrinterStockStatus(), PrinterStockStatus::Complete);
    EXPECT_EQ(nextEvent(), FourCharCode("TbdC"));
    EXPECT_NE(PrinterStocks(), former);

    spawn("127.0.0.1:1", Hang); // another printer, in place of a worker that still runs
    EXPECT_EQ(PrinterStocks(), nullptr);
    EXPECT_EQ(PrinterStockList(), nullptr);
    EXPECT_EQ(CurrentPrinterStockStatus(), PrinterStockStatus::NoThread);
    testing::internal::CaptureStderr();
    EXPECT_EQ(nextEvent(), FourCharCode("TbdC"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Unable to connect to server: Connection refused\n");
    EXPECT_EQ(CurrentPrinterStockStatus(), PrinterStockStatus::Failed);
    EXPECT_NE(PrinterStocksCause(), "");
}

TEST_F(StockThread, AnswersEveryMessageInItsWindow)
{
    const DemoPrinter printer({});
    spawn(printer.authority(), Hang);
    EXPECT_EQ(nextEvent(), FourCharCode("TbdC"));

    std::vector<std::uint32_t> others;
    auto dialog = std::make_unique<WindowEventHandler>([&](const Event& event) {
        others.push_back(event.kind);
        return StatusOk;
    });
    const std::string data = WindowData(dialog->window());
    SendMessageToThread(206, data); // asks for the status first
    turnUntil([&] { return others.size() == 2; });
    EXPECT_THAT(others, ElementsAre(FourCharCode("TBpC"), FourCharCode("TbdC")));
    const auto before = Clock::now();
    SendMessageToThread(208, data);
    turnUntil([&] { return others.size() == 3; });
    EXPECT_GE(Clock::now() - before, seconds(1));
    SendMessageToThread(205, data);
    turnUntil([&] { return others.size() == 4; });
    EXPECT_GE(Clock::now() - before, seconds(3));
    EXPECT_THAT(others, ElementsAre(FourCharCode("TBpC"), FourCharCode("TbdC"),
                                    FourCharCode("TBpC"), FourCharCode("TbdC")));
    EXPECT_THAT(events_, ElementsAre());

    RetrievePrinterStocksFor(dialog->window());
    EXPECT_EQ(CurrentPrinterStockStatus(), PrinterStockStatus::InProgress);
    RetrievePrinterStocksFor(dialog->window()); // once is enough
    turnUntil([&] { return others.size() == 5; });
    EXPECT_EQ(others.back(), FourCharCode("TbdC"));
    EXPECT_EQ(CurrentPrinterStockStatus(), PrinterStockStatus::Complete);

    dialog.reset(); // what still comes for it goes nowhere
    SendMessageToThread(200, data);
    SendMessageToThread(99, "");
    SendMessageToThread(206, "");
    EXPECT_EQ(nextEvent(), FourCharCode("TBpC"));
}

// What the main thread leaves unsaid is not waited for in vain.
TEST_F(StockThread, SaysNothingWhenTheMainThreadIsBusy)
{
    const DemoPrinter printer({});
    spawn(printer.authority(), Hang);
    turnUntil([] { return CurrentPrinterStockStatus() == PrinterStockStatus::InProgress; });
    std::this_thread::sleep_for(milliseconds(2500)); // longer than the worker asks for the host
    turnUntil([end = Clock::now() + milliseconds(300)] { return Clock::now() > end; });
    EXPECT_TRUE(events_.empty());
    EXPECT_EQ(CurrentPrinterStockStatus(), PrinterStockStatus::InProgress);
    SendMessageToThread(200, "");
    EXPECT_EQ(nextEvent(), FourCharCode("TbdC"));
}

TEST_F(StockThread, EndsSilentlyWhenItsPortsNameIsTaken)
{
    // A task's number comes back only when it has ended, so the next one's is a guess.
    std::vector<std::unique_ptr<MessagePort>> taken;
    for (int number = CurrentTaskID(); number < CurrentTaskID() + 2'000; ++number) {
        taken.push_back(MessagePort::CreateLocal(
            "com.tarvo.print.pde.Thread-" + std::to_string(number), nullptr));
    }
    spawn("127.0.0.1:2", Hang);
    EXPECT_TRUE(turnUntil([this] { return ThreadCount() == threadsBefore_; }));
    EXPECT_EQ(CurrentPrinterStockStatus(), PrinterStockStatus::NoThread);
}

enum class Outcome {
    Kept,     // the former list stays
    Failed,   // so it does, and the status tells
    Replaced, // by one medium or none
};

struct MisbehaviourCase {
    const char* name;
    Outcome outcome;
    const char* cause;
};

constexpr const char* TooLong = "the printer took too long";

constexpr MisbehaviourCase Misbehaviours[] = {
    {"refuse",       Outcome::Failed,   "Connection refused"                                  },
    {"silent",       Outcome::Kept,     TooLong                                               },
    {"stall",        Outcome::Kept,     TooLong                                               },
    {"drip",         Outcome::Kept,     TooLong                                               },
    {"drip-head",    Outcome::Kept,     TooLong                                               },
    {"continue",     Outcome::Kept,     TooLong                                               },
    {"long-length",  Outcome::Kept,     TooLong                                               },
    {"short-length", Outcome::Kept,     "the answer is cut short"                             },
    {"huge-length",  Outcome::Kept,     "the answer is larger than 32768 KiB"                 },
    {"cut",          Outcome::Kept,     "the answer is cut short"                             },
    {"endless",      Outcome::Kept,     "the answer is larger than 32768 KiB"                 },
    {"garbage",      Outcome::Kept,     "the printer hung up, or what it answered is not HTTP"},
    {"html",         Outcome::Kept,     "what the printer answered is not IPP"                },
    {"401",          Outcome::Kept,     "the printer answered 401 Unauthorized"               },
    {"404",          Outcome::Kept,     "the printer answered 404 Not Found"                  },
    {"417",          Outcome::Kept,     "the printer answered 417 Expectation Failed"         },
    {"500",          Outcome::Kept,     "the printer answered 500 Internal Server Error"      },
    {"wrong-id",     Outcome::Kept,     "the printer answered another request"                },
    {"not-found",    Outcome::Replaced, ""                                                    },
    {"nested",       Outcome::Kept,     "collections are nested too deep"                     },
    {"million",      Outcome::Kept,     "the printer reports more than 50000 media"           },
    {"long-texts",   Outcome::Kept,     "a text is longer than 32,767 bytes"                  },
    {"negative",     Outcome::Replaced, ""                                                    },
    {"control",      Outcome::Replaced, ""                                                    },
};

// The printer behaved once; then it is asked again.
TEST_F(StockThread, SurvivesEveryMisbehaviour)
{
    constexpr milliseconds Deadline{1'000};
    constexpr std::size_t MostGrowth = 64 * 1024; // KiB
    for (const auto& row : Misbehaviours) {
        SCOPED_TRACE(row.name);
        auto printer = std::make_unique<DemoPrinter>(std::vector<std::string>{});
        const std::string authority = printer->authority();
        const std::string port = printer->port();
        spawn(authority, Hang);
        ASSERT_EQ(nextEvent(), FourCharCode("TbdC"));
        MyRemoveThread(window_.window());
        const auto former = PrinterStocks();
        ASSERT_NE(former, nullptr);
        EXPECT_EQ(former->size(), DemoPrinter::MediaCount);

        printer.reset();
        printer = std::make_unique<DemoPrinter>(
            std::vector<std::string>{"--port", port, "--misbehave", row.name});
        ASSERT_EQ(printer->authority(), authority);
        ResetPeakMemory();
        const std::size_t before = PeakMemory();
        testing::internal::CaptureStderr();
        spawn(authority, row.cause == TooLong ? Deadline : milliseconds(Hang));
        EXPECT_EQ(nextEvent(), FourCharCode("TbdC"));
        EXPECT_EQ(testing::internal::GetCapturedStderr().empty(), row.outcome != Outcome::Failed);
        EXPECT_EQ(CurrentPrinterStockStatus(), row.outcome == Outcome::Failed
                                                   ? PrinterStockStatus::Failed
                                                   : PrinterStockStatus::Complete);
        EXPECT_EQ(PrinterStocksCause(), row.cause);
        EXPECT_EQ(PrinterStocks() == former, row.outcome != Outcome::Replaced);
        if (!IsSanitized) {
            EXPECT_LE(PeakMemory(), before + MostGrowth);
        }
        MyRemoveThread(window_.window());
        EXPECT_TRUE(turnUntil([this] { return ThreadCount() == threadsBefore_; }));
    }
}

TEST_F(StockThread, TakesTextsThatAProgramCanShow)
{
    const DemoPrinter printer({"--misbehave", "control"});
    spawn(printer.authority(), Hang);
    nextEvent();
    EXPECT_THAT(names(), ElementsAre("a [31m  b\uFFFD"));
}

// Closing never waits for a printer, nor does a worker outlive it for long.
TEST_F(StockThread, EndsWhereverTheRetrievalIs)
{
    for (const char* misbehaviour : {"silent", "stall", "drip", "drip-head", "continue"}) {
        for (const int delay : {0, 5, 100}) { // before it has announced itself, and within
            SCOPED_TRACE(misbehaviour);
            const DemoPrinter printer({"--misbehave", misbehaviour});
            spawn(printer.authority(), Hang * 100);
            turnUntil([end = Clock::now() + milliseconds(delay)] { return Clock::now() > end; });
            const std::size_t threads = ThreadCount();
            MyRemoveThread(window_.window() + 1); // another dialog ends
            EXPECT_EQ(ThreadCount(), threads);
            const auto before = Clock::now();
            MyRemoveThread(window_.window());
            EXPECT_LT(Clock::now() - before, LongestTurn);
            while (ThreadCount() != threadsBefore_ && Clock::now() - before < Hang) {
                std::this_thread::sleep_for(milliseconds(1)); // the main thread's loop stands still
            }
            EXPECT_EQ(ThreadCount(), threadsBefore_);
            EXPECT_TRUE(events_.empty());
        }
    }
}

// A dialog that opens and closes at once leaves no retrieval that seems to go on.
TEST_F(StockThread, IsNotInProgressWhenItWasCalledOffBeforeItWasReady)
{
    const DemoPrinter printer({"--misbehave", "silent"});
    spawn(printer.authority(), Hang * 100);
    MyRemoveThread(window_.window());
    EXPECT_TRUE(turnUntil([this] { return ThreadCount() == threadsBefore_; }));
    turnUntil([this] { return !loop_.turn(); }); // what it announced
    EXPECT_EQ(CurrentPrinterStockStatus(), PrinterStockStatus::NoThread);
}

// Another dialog of the process may still show the status.
TEST_F(StockThread, IsNotInProgressAfterItsDialogHasClosed)
{
    const DemoPrinter printer({"--misbehave", "silent"});
    spawn(printer.authority(), Hang * 100);
    turnUntil([] { return CurrentPrinterStockStatus() == PrinterStockStatus::InProgress; });
    EXPECT_TRUE(HasPrinterStockThread(window_.window()));
    MyRemoveThread(window_.window());
    EXPECT_FALSE(HasPrinterStockThread(window_.window()));
    RetrievePrinterStocksFor(window_.window());
    EXPECT_EQ(CurrentPrinterStockStatus(), PrinterStockStatus::NoThread);
}

// An application that quits does not ask its dialogs to close.
TEST(StockThreadDeathTest, LetsTheProcessEndWhileAPrinterIsSilent)
{
    const DemoPrinter printer({"--misbehave", "silent"});
    const auto before = Clock::now();
    const auto quit = [&printer] {
        MySpawnThread(Identifier, printer.authority(), 0);
        const RunLoop loop = RunLoop::Current();
        for (const auto start = Clock::now(); Clock::now() - start < milliseconds(200);) {
            loop.turn();
        }
        std::exit(CurrentPrinterStockStatus() == PrinterStockStatus::InProgress ? 0 : 1);
    };
    EXPECT_EXIT(quit(), testing::ExitedWithCode(0), "");
    EXPECT_LT(Clock::now() - before, Hang);
}

TEST(RetrievePrinterStocks, FailsWithoutAHost)
{
    testing::internal::CaptureStderr();
    const StockRetrieval retrieval = RetrievePrinterStockLibrary("", {}, {});
    EXPECT_EQ(retrieval.status, -3264);
    EXPECT_FALSE(retrieval.stocks);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Unable to connect to server: Invalid argument\n");
}

TEST(RetrievePrinterStocks, TellsWhoWaitsHowLong)
{
    const DemoPrinter printer({"--misbehave", "silent"});
    std::vector<int> told;
    const ExchangeManner manner = {false, [&told](int second) { told.push_back(second); }};
    const auto reply =
        RetrievePrinterMedia(printer.authority(), DeadlineOf(milliseconds(2'500)), {}, manner);
    EXPECT_EQ(reply.cause, TooLong);
    EXPECT_THAT(told, ElementsAre(1, 2));
}

TEST(RetrievePrinterStocks, GivesAnEmptyListForAPrinterWithoutMedia)
{
    const DemoPrinter printer({"--repeat", "0"});
    const StockRetrieval retrieval = RetrievePrinterStockLibrary(printer.authority(), {}, {});
    EXPECT_EQ(retrieval.status, StatusOk);
    EXPECT_EQ(retrieval.stocks, std::vector<Stock>());
    EXPECT_EQ(retrieval.cause, "");
}

} // namespace
} // namespace tarvo
