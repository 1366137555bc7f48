#include "Tickets.h"
#include "platform/cf/PropertyListReader.h"
#include "platform/cf/PropertyListWriter.h"

#include <benchmark/benchmark.h>

namespace tarvo {
namespace {

constexpr int TenMegabytesOfInserts = 18'000;

void ReadTenMegabytes(benchmark::State& state)
{
    ParseError error;
    const std::string text =
        WritePropertyList(TicketWithInserts(TenMegabytesOfInserts), error).value_or("");
    for (auto step : state) {
        benchmark::DoNotOptimize(ReadPropertyList(text, error));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ReadTenMegabytes)->Name("property list/read 10 MB")->Unit(benchmark::kMillisecond);

void WriteTenMegabytes(benchmark::State& state)
{
    ParseError error;
    const CFPropertyList ticket = TicketWithInserts(TenMegabytesOfInserts);
    std::size_t size = 0;
    for (auto step : state) {
        const auto text = WritePropertyList(ticket, error);
        size = text ? text->size() : 0;
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}
BENCHMARK(WriteTenMegabytes)->Name("property list/write 10 MB")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tarvo
