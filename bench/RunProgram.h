#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace tarvo {

/// How a program ended.
struct RunResult {
    bool isDone = false;      // with status 0
    long peakMemoryBytes = 0; // that it had at most
    double cpuSeconds = 0;    // of the processor, the system's part with it
};

/// Starts the process that starts the programs. A program's peak counts what its parent had when it
/// was started, so this one is to be small: call it first.
bool StartLauncher();

/// Starts a program, its output thrown away, and waits for its end.
RunResult RunProgram(const std::vector<std::string>& words);

/// Runs a program for each round of the benchmark; "cpu" counts its seconds of the processor.
void MeasureProgram(benchmark::State& state, const std::vector<std::string>& words);

} // namespace tarvo
