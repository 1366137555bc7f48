#include "print/Arguments.h"
#include "print/Dialog.h"

#include <gtk/gtk.h>

#include <dlfcn.h>

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace tarvo {
namespace {

// The module that all programs load has no need to be in the toolkit's list for this one. In the
// list too, it does its work once.
void LoadModule()
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
    for (const char* place : {"../module/libtarvo-print-module.so", TARVO_MODULE_FROM_PROGRAM}) {
        const fs::path path = folder / place;
        if (!fs::exists(path, error)) {
            continue;
        }
        void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
        void* start = module == nullptr ? nullptr : dlsym(module, "gtk_module_init");
        if (start != nullptr) {
            reinterpret_cast<void (*)(int*, char***)>(start)(nullptr, nullptr);
            return;
        }
    }
    PrintProgramMessage("", "the features of Tarvo printers are not installed");
}

bool PrintFile(Dialog& dialog, const std::string& file)
{
    std::string reason;
    auto document = Document::Open(file, reason);
    const PrintOutcome outcome = document ? dialog.print(*document, reason) : PrintOutcome::Failed;
    if (outcome == PrintOutcome::Cancelled) {
        reason = "not printed: the dialog was cancelled";
    }
    if (outcome != PrintOutcome::Sent) {
        PrintProgramMessage(file == "-" ? "standard input" : file, reason);
    }
    return outcome == PrintOutcome::Sent;
}

PrintExit PrintFiles(const PrintArguments& arguments)
{
    if (gtk_init_check(nullptr, nullptr) == FALSE) {
        PrintProgramMessage("", "cannot open the display; the print dialog needs a desktop");
        return PrintExit::Failed;
    }
    LoadModule();
    Dialog dialog(arguments.printer);
    std::size_t printed = 0;
    for (const std::string& file : arguments.files) {
        printed += PrintFile(dialog, file) ? 1U : 0U;
    }
    return printed == arguments.files.size() ? PrintExit::Done
           : printed == 0                    ? PrintExit::Failed
                                             : PrintExit::LeftOut;
}

PrintExit PrintResult(const std::string& text)
{
    const bool isWritten = std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
    return isWritten ? PrintExit::Done : PrintExit::Failed;
}

PrintExit Run(std::span<char* const> words)
{
    std::string reason;
    const auto arguments = ParsePrintArguments(words, reason);
    if (!arguments) {
        PrintProgramMessage("", reason);
        static_cast<void>(std::fputs("Try '--help'.\n", stderr));
        return PrintExit::WrongUse;
    }
    if (arguments->wantsHelp) {
        return PrintResult(PrintHelp());
    }
    if (arguments->wantsVersion) {
        return PrintResult(std::string(PrintProgramName) + " " TARVO_VERSION "\n");
    }
    return PrintFiles(*arguments);
}

PrintExit RunCatching(std::span<char* const> words)
{
    try {
        return Run(words);
    } catch (const std::exception& error) {
        PrintProgramMessage("", error.what());
        return PrintExit::Failed;
    }
}

} // namespace
} // namespace tarvo

int main(int count, char** words)
{
    const std::size_t own = count > 0 ? 1 : 0; // an exec without arguments has no name either
    const std::span<char* const> all(words, static_cast<std::size_t>(count));
    return static_cast<int>(tarvo::RunCatching(all.subspan(own)));
}
