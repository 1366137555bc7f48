#include "DemoPrinter.h"

#include <sys/wait.h>

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <memory>

namespace tarvo {

DemoPrinter::DemoPrinter(const std::vector<std::string>& arguments)
{
    std::vector<std::string> words{TARVO_DEMO_PRINTER, "--media",
                                   TARVO_SOURCE_DIR "/examples/press.media"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    const int failed =
        posix_spawn(&process_, pointers[0], &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    const std::unique_ptr<FILE, decltype(&fclose)> output(fdopen(ends[0], "r"), fclose);
    char line[64] = "";
    if (failed == 0 && std::fgets(line, sizeof line, output.get()) != nullptr) {
        authority_ = line;
        authority_.pop_back(); // the line's end
    }
}

DemoPrinter::~DemoPrinter()
{
    if (process_ > 0) {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
}

} // namespace tarvo
