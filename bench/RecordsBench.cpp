#include "platform/bundle/CFBundle.h"
#include "records/ExceptionPageList.h"
#include "records/InsertList.h"
#include "records/PageRanges.h"
#include "records/SpecialPageTexts.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <random>

namespace tarvo {
namespace {

using Borrowed = std::vector<const SpecialPage*>;

// Anywhere among four pages for each range, so that about half of them overlap others.
std::vector<ExceptionPage> AnyRanges(std::int64_t count)
{
    std::mt19937 random(4);
    std::vector<ExceptionPage> pages(static_cast<std::size_t>(count));
    for (ExceptionPage& page : pages) {
        const auto first =
            static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(4 * count));
        page.setStartPage(first + 1);
        page.setEndPage(first + 1 + static_cast<std::int32_t>(random() % 5));
        page.stock().setColor(static_cast<std::int32_t>(1 + random() % 9));
        page.stock().setDescription("Shelf 3, tray 4, heavy");
    }
    return pages;
}

template <typename Page>
Borrowed Borrow(const std::vector<Page>& pages)
{
    Borrowed borrowed;
    for (const Page& page : pages) {
        borrowed.push_back(&page);
    }
    return borrowed;
}

void MergeAtOnce(benchmark::State& state)
{
    const auto pages = AnyRanges(state.range(0));
    const Borrowed borrowed = Borrow(pages);
    for (auto step : state) {
        ExceptionPageList list;
        benchmark::DoNotOptimize(list.add(borrowed));
    }
}

void MergeOneByOne(benchmark::State& state)
{
    const auto pages = AnyRanges(state.range(0));
    for (auto step : state) {
        ExceptionPageList list;
        for (const ExceptionPage& page : pages) {
            benchmark::DoNotOptimize(list.add(std::array<const SpecialPage*, 1>{&page}));
        }
    }
}

void AddInserts(benchmark::State& state)
{
    std::mt19937 random(4);
    std::vector<Insert> inserts(static_cast<std::size_t>(state.range(0)));
    for (Insert& insert : inserts) {
        insert.setStartPage(static_cast<std::int32_t>(random() % 10'000));
    }
    const Borrowed borrowed = Borrow(inserts);
    for (auto step : state) {
        InsertList list;
        benchmark::DoNotOptimize(list.add(borrowed));
    }
}

void DescribePages(benchmark::State& state)
{
    const CFBundle bundle(TARVO_BUNDLE_FOLDER, {"en"});
    const auto pages = AnyRanges(state.range(0));
    for (auto step : state) {
        for (const ExceptionPage& page : pages) {
            benchmark::DoNotOptimize(ExceptionPageTexts(bundle, page));
        }
    }
}

void ReadSinglePages(benchmark::State& state)
{
    const std::string text = "1-" + std::to_string(state.range(0));
    std::vector<PageRange> pages;
    for (auto step : state) {
        benchmark::DoNotOptimize(CreatePageRangesBySeparatingString(text, false, &pages));
    }
}

// What else the machine does only adds to a time, and these are short.
double Least(const std::vector<double>& times)
{
    return *std::min_element(times.begin(), times.end());
}

BENCHMARK(MergeAtOnce)
    ->Name("merge ranges at once")
    ->Arg(1'000)
    ->Arg(10'000)
    ->ComputeStatistics("least", Least)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(MergeOneByOne)
    ->Name("merge ranges one by one")
    ->Arg(1'000)
    ->Arg(10'000)
    ->ComputeStatistics("least", Least)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(AddInserts)
    ->Name("add inserts")
    ->Arg(10'000)
    ->Arg(100'000)
    ->ComputeStatistics("least", Least)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(DescribePages)
    ->Name("describe exception pages")
    ->Arg(1'000)
    ->Arg(10'000)
    ->ComputeStatistics("least", Least)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadSinglePages)
    ->Name("page list as single pages")
    ->Arg(1'000'000)
    ->Arg(LargestPageNumber)
    ->ComputeStatistics("least", Least)
    ->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace tarvo
