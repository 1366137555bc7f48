#include "platform/printing/PPDFile.h"
#include "printer/PPDKeywordMaps.h"
#include "printer/PrinterDescription.h"

#include <benchmark/benchmark.h>
#include <cups/ppd.h>

// The printing system calls its reader deprecated; here it is what ours is measured against.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace tarvo {
namespace {

void OpenWithLibrary(benchmark::State& state, const char* path)
{
    for (auto step : state) {
        ppd_file_t* file = ppdOpenFile(path);
        if (file == nullptr) {
            state.SkipWithError("the file is refused");
            return;
        }
        ppdClose(file);
    }
}

void OpenAndDescribe(benchmark::State& state, const char* path)
{
    const CFBundle bundle("", {}); // without a device profile: it does not depend on the printer
    for (auto step : state) {
        ParseError error;
        auto ppd = PPDFile::Open(path, error);
        if (!ppd) {
            state.SkipWithError("the file is refused");
            return;
        }
        const PrinterDescription printer(std::move(ppd), nullptr, InstalledFeatures, bundle);
        for (const auto* main = MainKeywordMap; main->keyword != nullptr; ++main) {
            benchmark::DoNotOptimize(printer.uiDictionary()->copyOptions(main->keyword));
        }
    }
}

BENCHMARK_CAPTURE(OpenWithLibrary, QL900, TARVO_PPD_FOLDER "/TarvoQL900.ppd")
    ->Name("ppdOpenFile/QL900")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(OpenAndDescribe, QL900, TARVO_PPD_FOLDER "/TarvoQL900.ppd")
    ->Name("describe/QL900")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(OpenWithLibrary, Large, TARVO_LARGE_PPD)
    ->Name("ppdOpenFile/1,000 options of 20 choices")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(OpenAndDescribe, Large, TARVO_LARGE_PPD)
    ->Name("describe/1,000 options of 20 choices")
    ->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace tarvo
