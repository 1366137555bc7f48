#include "platform/bundle/CFBundle.h"
#include "platform/cf/PropertyListReader.h"
#include "platform/cf/PropertyListWriter.h"
#include "platform/files/FileContents.h"
#include "settings/StockMaps.h"
#include "stocklibrary/RecentPapers.h"
#include "stocklibrary/StockLibraryKeys.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryOrderList.h"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <filesystem>

namespace tarvo {
namespace {

StockLibrary NumberedPaper(std::int64_t number)
{
    const std::string name = "Customer paper " + std::to_string(number);
    StockLibrary paper;
    paper.setName(name);
    Stock& stock = paper.stock();
    stock.setCustomName(name);
    stock.setComment("Ordered with the mill's number " + std::to_string(number * 7919));
    stock.setSize(CustomStockSize);
    stock.setWidth(21000 + static_cast<std::int32_t>(number % 1000));
    stock.setLength(29700);
    stock.setColor(2);
    stock.setType(1);
    stock.setWeight(75);
    stock.setPunched(1);
    return paper;
}

// A user's library of so many papers, 25 of them recently used, in a folder of its own.
class LibraryFolder {
public:
    explicit LibraryFolder(std::int64_t papers)
    {
        const std::string root = std::filesystem::temp_directory_path() /
                                 ("tarvo-bench-library-" + std::to_string(getpid()));
        folders_ = {root + "/config", {root + "/data"}};
        PreferenceFailure failure;
        const auto fill = [papers](StockLibraryList& list, CFArray& order) {
            for (std::int64_t number = 0; number < papers; ++number) {
                StockLibrary paper = NumberedPaper(number);
                MoveToFront(order, list.add(paper));
            }
            return true;
        };
        isMade_ = ChangeStockLibrary(folders_, fill, failure);
    }
    LibraryFolder(const LibraryFolder&) = delete;
    LibraryFolder& operator=(const LibraryFolder&) = delete;
    ~LibraryFolder()
    {
        std::filesystem::remove_all(std::filesystem::path(folders_.user).parent_path());
    }

    const PreferenceFolders& folders() const { return folders_; }
    std::string path() const { return folders_.user + "/" + std::string(StockLibraryFile); }
    bool isMade() const { return isMade_; }

private:
    PreferenceFolders folders_;
    bool isMade_ = false;
};

// What no reader of the library can do without.
void ParseFile(benchmark::State& state)
{
    const LibraryFolder library(state.range(0));
    for (auto step : state) {
        FileFailure unread;
        ParseError wrong;
        const auto xml = ReadOwnFile(library.path(), PropertyListLimits.bytes, unread);
        if (!xml || !ReadPropertyListDictionary(*xml, wrong)) {
            state.SkipWithError("the library is not read");
            return;
        }
    }
}

void Load(benchmark::State& state)
{
    const LibraryFolder library(state.range(0));
    for (auto step : state) {
        const StockLibraryList list(library.folders());
        benchmark::DoNotOptimize(list.stockList().size());
    }
}

void FindMatch(benchmark::State& state)
{
    const LibraryFolder library(state.range(0));
    const StockLibraryList list(library.folders());
    std::vector<Stock> stocks;
    for (std::int64_t number = 0; number < state.range(0); number += state.range(0) / 100) {
        stocks.push_back(NumberedPaper(number).stock());
    }
    std::size_t next = 0;
    for (auto step : state) {
        if (list.findMatch(stocks[next]) == nullptr) {
            state.SkipWithError("a paper is not found");
            return;
        }
        next = (next + 1) % stocks.size();
    }
}

void Add(benchmark::State& state)
{
    const LibraryFolder library(state.range(0));
    StockLibraryList list(library.folders());
    StockLibrary paper = NumberedPaper(-1);
    for (auto step : state) {
        list.add(paper);
    }
}

void MakeMenu(benchmark::State& state)
{
    const LibraryFolder library(state.range(0));
    const CFBundle bundle("", {});
    for (auto step : state) {
        Menu menu;
        const auto papers = RecentPapers(library.folders(), nullptr);
        PopulateMenuFromMapAndFile(bundle, menu, StockLibraryMap, papers);
        if (menu.size() != 29) {
            state.SkipWithError("papers are missing");
            return;
        }
    }
}

void MakePrinterList(benchmark::State& state)
{
    std::vector<Stock> stocks;
    for (std::int64_t number = 0; number < state.range(0); ++number) {
        stocks.push_back(NumberedPaper(number).stock());
    }
    for (auto step : state) {
        benchmark::DoNotOptimize(MakePrinterStockLibraryList(stocks));
    }
}

#define TARVO_LIBRARY_BENCH(function, name)                                                        \
    BENCHMARK(function)->Name("stock library/" name)->Arg(100)->Arg(1'000)->Arg(10'000)

TARVO_LIBRARY_BENCH(ParseFile, "parse")->Unit(benchmark::kMicrosecond);
TARVO_LIBRARY_BENCH(Load, "load")->Unit(benchmark::kMicrosecond);
TARVO_LIBRARY_BENCH(FindMatch, "match")->Unit(benchmark::kNanosecond);
TARVO_LIBRARY_BENCH(Add, "add")->Unit(benchmark::kMicrosecond)->UseRealTime();
TARVO_LIBRARY_BENCH(MakeMenu, "menu")->Unit(benchmark::kMicrosecond);
TARVO_LIBRARY_BENCH(MakePrinterList, "printer's list")->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace tarvo
