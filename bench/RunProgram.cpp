#include "RunProgram.h"

#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace tarvo {
namespace {

// To and from the launcher.
int requests = -1;
int results = -1;

double Seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

RunResult Run(const char* program, char* const* arguments)
{
    const pid_t child = fork();
    if (child == 0) {
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, STDOUT_FILENO);
        execv(program, arguments);
        std::_Exit(EXIT_FAILURE);
    }
    int status = 0;
    rusage usage = {};
    constexpr long Kibibyte = 1024;
    const bool isDone = child > 0 && wait4(child, &status, 0, &usage) == child && status == 0;
    return {isDone, usage.ru_maxrss * Kibibyte, Seconds(usage.ru_utime) + Seconds(usage.ru_stime)};
}

// Reads words that end with a NUL each, an empty one behind the last, and runs them; until the
// requests end.
void Serve(std::FILE* input, int output)
{
    std::vector<std::string> words;
    std::string word;
    for (int letter = 0; (letter = std::fgetc(input)) != EOF;) {
        if (letter != '\0') {
            word += static_cast<char>(letter);
            continue;
        }
        if (!word.empty()) {
            words.push_back(std::move(word));
            word.clear();
            continue;
        }
        std::vector<char*> arguments;
        for (std::string& each : words) {
            arguments.push_back(each.data());
        }
        arguments.push_back(nullptr);
        const RunResult result = Run(arguments[0], arguments.data());
        if (write(output, &result, sizeof result) != sizeof result) {
            return;
        }
        words.clear();
    }
}

} // namespace

bool StartLauncher()
{
    int request[2] = {};
    int result[2] = {};
    if (pipe2(request, O_CLOEXEC) != 0 || pipe2(result, O_CLOEXEC) != 0) {
        return false;
    }
    const pid_t launcher = fork();
    if (launcher == 0) {
        close(request[1]);
        Serve(fdopen(request[0], "r"), result[1]);
        std::_Exit(EXIT_SUCCESS);
    }
    close(request[0]);
    close(result[1]);
    requests = request[1];
    results = result[0];
    return launcher > 0;
}

RunResult RunProgram(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words) {
        (text += word) += '\0';
    }
    text += '\0';
    RunResult result;
    const auto size = static_cast<ssize_t>(text.size());
    if (write(requests, text.data(), text.size()) != size ||
        read(results, &result, sizeof result) != sizeof result) {
        return {};
    }
    return result;
}

void MeasureProgram(benchmark::State& state, const std::vector<std::string>& words)
{
    double seconds = 0;
    for (auto step : state) {
        const RunResult result = RunProgram(words);
        if (!result.isDone) {
            state.SkipWithError("the program did not run");
            return;
        }
        seconds += result.cpuSeconds;
    }
    state.counters["cpu"] = benchmark::Counter(seconds, benchmark::Counter::kAvgIterations);
}

} // namespace tarvo
