#include "cli/BundleLocation.h"

#include <filesystem>
#include <system_error>

namespace tarvo {

std::string BundleLocation()
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    if (error) {
        return "";
    }
    // From the program's folder: in the build folder, and as installed.
    for (const char* place : {"../../TarvoFeatures.plugin", TARVO_BUNDLE_FROM_PROGRAM}) {
        const fs::path bundle = fs::weakly_canonical(program.parent_path() / place, error);
        if (!error && fs::is_directory(bundle, error)) {
            return bundle.string();
        }
    }
    return "";
}

} // namespace tarvo
