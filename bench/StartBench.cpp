#include <benchmark/benchmark.h>
#include <sys/wait.h>

#include <spawn.h>

#include <cstdlib>

namespace {

// Starts a program with one argument, its output thrown away, and waits for its end.
bool RunProgram(const char* path, const char* argument)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", 1 /* O_WRONLY */, 0);
    char* const arguments[] = {const_cast<char*>(path), const_cast<char*>(argument), nullptr};
    pid_t child = 0;
    const int failed = posix_spawn(&child, path, &actions, nullptr, arguments, nullptr);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    return failed == 0 && waitpid(child, &status, 0) == child && status == 0;
}

void StartProgram(benchmark::State& state, const char* path)
{
    for (auto step : state) {
        if (!RunProgram(path, "--version")) {
            state.SkipWithError("the program did not run");
            return;
        }
    }
}
BENCHMARK_CAPTURE(StartProgram, true, "/bin/true")
    ->Name("start/true --version")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StartProgram, ticket, TARVO_TICKET_PROGRAM)
    ->Name("start/tarvo-ticket --version")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
