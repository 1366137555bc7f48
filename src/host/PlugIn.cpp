#include "host/PlugIn.h"

#include "platform/bundle/CFBundle.h"
#include "platform/cf/PropertyListReader.h"
#include "platform/files/FileContents.h"
#include "platform/printing/BuildText.h"

#include <dlfcn.h>

#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

namespace tarvo {
namespace {

constexpr std::size_t InfoMaximumBytes = std::size_t{1024} * 1024;

// What Info.plist says of the plug-in.
struct PlugInInfo {
    std::string executable;
    std::string factory;
};

std::optional<PlugInInfo> ReadInfo(const std::string& bundle, std::string& reason)
{
    const std::string path = bundle + "/Contents/Info.plist";
    const auto xml = ReadFileContents(path, InfoMaximumBytes, reason);
    if (!xml) {
        reason = path + ": " + reason;
        return std::nullopt;
    }
    ParseError error;
    const auto info = ReadPropertyListDictionary(*xml, error);
    if (!info) {
        reason = path + ':' + std::to_string(error.line) + ": " + error.reason;
        return std::nullopt;
    }
    const auto* executable = info->get<std::string>("CFBundleExecutable");
    const auto* factories = info->get<CFDictionary>("CFPlugInFactories");
    const auto* factory =
        factories == nullptr ? nullptr : factories->get<std::string>(TARVO_FACTORY_ID);
    if (executable == nullptr || factory == nullptr) {
        reason = path + ": no executable, or no factory " TARVO_FACTORY_ID;
        return std::nullopt;
    }
    return PlugInInfo{*executable, *factory};
}

// The executable is named with or without the ending of a module.
std::string ModuleOf(const std::string& bundle, const std::string& executable)
{
    const std::string path = bundle + "/Contents/Linux/" + executable;
    std::error_code error;
    return std::filesystem::exists(path, error) ? path : path + ".so";
}

bool IsOfThisBuild(void* module)
{
    const auto build = reinterpret_cast<TarvoBuildFunction>(dlsym(module, TARVO_BUILD_NAME));
    return build != nullptr && std::string_view(build()) == BuildText();
}

} // namespace

TarvoPlugInFactory LoadPlugIn(const std::string& bundle, std::string& reason)
{
    const auto info = ReadInfo(bundle, reason);
    if (!info) {
        return nullptr;
    }
    // It leaves tasks behind and types with the toolkit, so it can never be unloaded.
    const std::string path = ModuleOf(bundle, info->executable);
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    void* factory = module == nullptr ? nullptr : dlsym(module, info->factory.c_str());
    if (factory == nullptr) {
        const char* why = dlerror(); // names the file
        reason = why == nullptr ? path + ": the factory is null" : why;
    } else if (!IsOfThisBuild(module)) {
        reason = path + " is of another build";
        factory = nullptr;
    }
    return reinterpret_cast<TarvoPlugInFactory>(factory);
}

std::string BundleOfThisModule()
{
    Dl_info self = {};
    if (dladdr(reinterpret_cast<const void*>(&BundleOfThisModule), &self) == 0) {
        return "";
    }
    return BundleFolderFrom(std::filesystem::path(self.dli_fname).parent_path(),
                            {"TarvoFeatures.plugin", "../../TarvoFeatures.plugin"});
}

std::unique_ptr<PlugIn> PlugIn::Make(TarvoPlugInFactory factory)
{
    TarvoUnknown* instance = factory == nullptr ? nullptr : factory(nullptr, TARVO_PDE_TYPE_ID);
    if (instance == nullptr) {
        return nullptr;
    }
    void* dialog = nullptr;
    instance->table->QueryInterface(instance, TARVO_PDE_INTERFACE_ID, &dialog);
    if (dialog == nullptr) {
        instance->table->Release(instance);
        return nullptr;
    }
    std::unique_ptr<PlugIn> plugIn(new PlugIn(instance, static_cast<TarvoPDE*>(dialog)));
    TarvoVersion version = {};
    const TarvoStatus status =
        plugIn->operations().GetAPIVersion(static_cast<TarvoPDE*>(dialog), &version);
    return status == 0 && version.base == TARVO_PDE_VERSION ? std::move(plugIn) : nullptr;
}

PlugIn::~PlugIn()
{
    operations().Release(&dialog_);
    instance_->table->Release(instance_);
}

} // namespace tarvo
