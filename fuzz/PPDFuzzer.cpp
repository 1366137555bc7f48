// Any bytes as a PPD file: they are refused or read, and what was read can be described.
#include "platform/files/FileContents.h"
#include "platform/printing/PPDFile.h"
#include "platform/text/Utf8.h"
#include "printer/FinishingOffers.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

// The library's reader forgets a value where a file repeats it (libcups 2.4.2); what we forget is
// still told.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:_ppdOpen\n";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tarvo;
    static const std::string path = (std::filesystem::temp_directory_path() /
                                     ("tarvo-fuzz-" + std::to_string(getpid()) + ".ppd"))
                                        .string();
    std::string reason;
    if (!ReplaceFileContents(path, {reinterpret_cast<const char*>(bytes), size}, reason)) {
        std::abort();
    }
    ParseError error;
    auto ppd = PPDFile::Open(path, error);
    std::filesystem::remove(path);
    if (!ppd) {
        return error.reason.empty() ? (std::abort(), 0) : 0;
    }
    const InstallableOptions installed(*ppd, nullptr, InstalledFeatures);
    for (const PPDOption* option : ppd->options()) {
        if (!IsUtf8(option->text) || ppd->option(option->keyword) == nullptr) {
            std::abort();
        }
        const auto infos = PPDCopyOptionsForMainKeyword(*ppd, option->keyword);
        FinishingOffers(installed, infos.value_or(PPDKeywordInfos()));
    }
    return 0;
}
