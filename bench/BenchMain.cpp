#include "RunProgram.h"

#include <benchmark/benchmark.h>

#include <cstdio>

int main(int argc, char** argv)
{
    // The writer's diagnostics are part of its work, reading them is not part of anybody's.
    if (std::freopen("/dev/null", "w", stderr) == nullptr || !tarvo::StartLauncher()) {
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
