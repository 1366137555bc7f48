#include "RunProgram.h"
#include "platform/files/FileContents.h"

#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tarvo {
namespace {

void Start(benchmark::State& state, const char* program)
{
    MeasureProgram(state, {program, "--version"});
}
BENCHMARK_CAPTURE(Start, true, "/bin/true")
    ->Name("start/true --version")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Start, ticket, TARVO_TICKET_PROGRAM)
    ->Name("start/tarvo-ticket --version")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

// The same description by the printing system's own program, from a queue, and by ours, from the
// file. bench/run makes the queues.
void ListOptions(benchmark::State& state, const char* queue)
{
    MeasureProgram(state, {"/usr/bin/lpoptions", "-p", queue, "-l"});
}
void TellPrinter(benchmark::State& state, const char* file)
{
    MeasureProgram(state, {TARVO_TICKET_PROGRAM, "printer", file});
}
BENCHMARK_CAPTURE(ListOptions, QL900, "ql900")
    ->Name("lpoptions -l/QL900")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TellPrinter, QL900, TARVO_PPD_FOLDER "/TarvoQL900.ppd")
    ->Name("tarvo-ticket printer/QL900")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ListOptions, large, "large")
    ->Name("lpoptions -l/1,000 options of 20 choices")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TellPrinter, large, TARVO_LARGE_PPD)
    ->Name("tarvo-ticket printer/1,000 options of 20 choices")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

std::string MillionKeys()
{
    std::string keys;
    for (int number = 0; number < 1'000'000; ++number) {
        keys += "<key>com.tarvo.key" + std::to_string(number) + "</key><true/>";
    }
    return keys;
}

std::string LongText()
{
    return "<key>com.tarvo.print.JobNotesMessage</key><string>" + std::string(50'000'000, 'x') +
           "</string>";
}

void ExportHostile(benchmark::State& state, std::string (*entries)())
{
    const auto file = std::filesystem::temp_directory_path() /
                      ("tarvo-bench-" + std::to_string(getpid()) + ".plist");
    std::string reason;
    if (!ReplaceFileContents(file.string(), "<plist><dict>" + entries() + "</dict></plist>",
                             reason)) {
        state.SkipWithError(reason.c_str());
        return;
    }
    MeasureProgram(state, {TARVO_TICKET_PROGRAM, "export", "--all", file.string()});
    std::filesystem::remove(file);
}
BENCHMARK_CAPTURE(ExportHostile, keys, MillionKeys)
    ->Name("hostile ticket/a million keys")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ExportHostile, text, LongText)
    ->Name("hostile ticket/a text of 50 MB")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tarvo
