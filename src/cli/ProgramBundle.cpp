#include "cli/ProgramBundle.h"

#include "cli/Messages.h"

#include <filesystem>
#include <system_error>

namespace tarvo {
namespace {

// "" when there is no such folder.
std::string BundleLocation()
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    if (error) {
        return "";
    }
    // In the build folder, and as installed.
    return BundleFolderFrom(program.parent_path(),
                            {"../../TarvoFeatures.plugin", TARVO_BUNDLE_FROM_PROGRAM});
}

} // namespace

std::optional<CFBundle> OpenProgramBundle(const std::vector<std::string>& languages)
{
    const std::string location = BundleLocation();
    if (!location.empty()) {
        CFBundle bundle(location, languages);
        if (bundle.hasTexts()) {
            return bundle;
        }
    }
    PrintMessage("cannot find the program's texts beside it");
    return std::nullopt;
}

std::optional<FeatureDatabase> ReadFeatureDatabase(const CFBundle& bundle)
{
    ParseError error;
    auto profile = bundle.propertyList(DeviceProfileName, error);
    if (profile && profile->get<CFDictionary>(FeaturesKey) == nullptr) {
        error.reason = "no dictionary \"" + std::string(FeaturesKey) + '"';
        profile.reset();
    }
    if (!profile) {
        PrintFileMessage(bundle.propertyListPath(DeviceProfileName), error.line, error.reason);
        return std::nullopt;
    }
    return FeatureDatabase(std::move(*profile));
}

} // namespace tarvo
