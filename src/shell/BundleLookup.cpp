#include "shell/BundleLookup.h"

#include "platform/bundle/CFBundle.h"

#include <dlfcn.h>

#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

namespace tarvo {
namespace {

// <bundle>/Contents/Linux/<module>
std::string BundleFolderOfModule()
{
    static const int Here = 0;
    Dl_info module{};
    if (dladdr(&Here, &module) == 0 || module.dli_fname == nullptr) {
        return "";
    }
    std::error_code error; // unread: a path that cannot be followed leads to no bundle
    const auto path = std::filesystem::weakly_canonical(module.dli_fname, error);
    return path.parent_path().parent_path().parent_path().string();
}

std::unique_ptr<const CFBundle> OpenBundle()
{
    auto bundle = std::make_unique<const CFBundle>(BundleFolderOfModule(), UserLanguages());
    const CFDictionary information = bundle->infoDictionary();
    const auto* identifier = information.get<std::string>("CFBundleIdentifier");
    const bool isOurs = identifier != nullptr && *identifier == BundleIdentifier;
    return isOurs ? std::move(bundle) : nullptr;
}

} // namespace

const CFBundle* FindBundle()
{
    // Once: neither place nor language changes, and reading the texts takes its time.
    static const std::unique_ptr<const CFBundle> bundle = OpenBundle();
    return bundle.get();
}

} // namespace tarvo
