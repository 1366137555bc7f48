#include "RunProgram.h"
#include "Tickets.h"
#include "platform/files/FileContents.h"
#include "printer/FeatureDatabase.h"
#include "tpif/DeviceProfile.h"
#include "tpif/TPIFImport.h"
#include "tpif/TPIFWriter.h"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <utility>

namespace tarvo {
namespace {

std::string DocumentOf(int exceptions)
{
    std::string document;
    TPIFChannel channel([&document](std::string_view piece) { document += piece; }, true);
    WriteTPIF(channel, TicketWithPlainExceptions(exceptions), nullptr);
    channel.flush();
    return document;
}

// A document in a file that goes with this program.
class DocumentFile {
public:
    DocumentFile(int number, const std::string& document)
        : path_(
              (std::filesystem::temp_directory_path() /
               ("tarvo-bench-" + std::to_string(getpid()) + "-" + std::to_string(number) + ".xml"))
                  .string())
    {
        std::string reason;
        isWritten_ = ReplaceFileContents(path_, document, reason);
    }
    DocumentFile(const DocumentFile&) = delete;
    DocumentFile& operator=(const DocumentFile&) = delete;
    ~DocumentFile() { std::filesystem::remove(path_); }

    const std::string& path() const { return path_; }
    bool isWritten() const { return isWritten_; }

private:
    std::string path_;
    bool isWritten_ = false;
};

const DocumentFile& FileWith(int exceptions)
{
    static std::map<int, DocumentFile> files;
    const auto found = files.find(exceptions);
    return found != files.end()
               ? found->second
               : files.try_emplace(exceptions, exceptions, DocumentOf(exceptions)).first->second;
}

void ImportInMemory(benchmark::State& state)
{
    const std::string document = DocumentOf(static_cast<int>(state.range(0)));
    const TPIFImportFeatures features = TPIFImportFeatures(FeatureDatabase(DeviceProfile()));
    for (auto step : state) {
        CFDictionary result;
        ParseError error;
        if (TPIFImportDocument(features, XmlSourceOf(document), result, error) != StatusOk) {
            state.SkipWithError("the document is refused");
            return;
        }
        benchmark::DoNotOptimize(result);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.size()));
}

void Run(benchmark::State& state, std::vector<std::string> words, const DocumentFile& file)
{
    words.push_back(file.path());
    long peak = 0;
    double seconds = 0;
    for (auto step : state) {
        const RunResult result = RunProgram(words);
        if (!file.isWritten() || !result.isDone) {
            state.SkipWithError("the program did not run");
            return;
        }
        peak = std::max(peak, result.peakMemoryBytes);
        seconds += result.cpuSeconds;
    }
    state.counters["peak"] = static_cast<double>(peak);
    state.counters["cpu"] = benchmark::Counter(seconds, benchmark::Counter::kAvgIterations);
}

void RunOnFile(benchmark::State& state, const std::vector<std::string>& words)
{
    Run(state, words, FileWith(static_cast<int>(state.range(0))));
}

const DocumentFile& MillionElements()
{
    constexpr int Elements = 1'000'000;
    static const DocumentFile file = [] {
        std::string document = "<a>";
        for (int element = 0; element < Elements; ++element) {
            document += "<b/>";
        }
        return DocumentFile(0, document + "</a>");
    }();
    return file;
}

void RunOnMillionElements(benchmark::State& state, const std::vector<std::string>& words)
{
    Run(state, words, MillionElements());
}

// Of 1, 10 and 47 MB.
void Register(const std::string& name, const std::vector<std::string>& words)
{
    benchmark::RegisterBenchmark((name + "/exceptions").c_str(), RunOnFile, words)
        ->Arg(1500)
        ->Arg(15000)
        ->Arg(70000)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
}

BENCHMARK(ImportInMemory)
    ->Name("import/exceptions")
    ->Arg(1500)
    ->Arg(15000)
    ->Unit(benchmark::kMillisecond);

const bool registered = [] {
    Register("xmllint --noout", {XMLLINT_PROGRAM, "--noout"});
    Register("import alone", {TARVO_IMPORT_PROGRAM});
    Register("tarvo-ticket import", {TARVO_TICKET_PROGRAM, "import", "-o", "/dev/null"});
    const std::pair<const char*, std::vector<std::string>> programs[] = {
        {"import alone",               {TARVO_IMPORT_PROGRAM}                             },
        {"tarvo-ticket import",        {TARVO_TICKET_PROGRAM, "import", "-o", "/dev/null"}},
        {"tarvo-ticket import --json", {TARVO_TICKET_PROGRAM, "import", "--json"}         },
        {"xmllint --noout --stream",   {XMLLINT_PROGRAM, "--noout", "--stream"}           },
    };
    for (const auto& [name, words] : programs) {
        benchmark::RegisterBenchmark((std::string(name) + "/a million elements").c_str(),
                                     RunOnMillionElements, words)
            ->UseRealTime()
            ->Unit(benchmark::kMillisecond);
    }
    return true;
}();

} // namespace
} // namespace tarvo
