#pragma once

#include "shell/PlugInInterface.h"

#include <memory>
#include <string>

namespace tarvo {

/// Loads the plug-in of a bundle and finds its factory: the function that Contents/Info.plist names
/// for TARVO_FACTORY_ID, in the module that it names as the executable, of Contents/Linux. The
/// module stays loaded. One of another build is refused.
/// @return null with `reason` filled
[[nodiscard]] TarvoPlugInFactory LoadPlugIn(const std::string& bundle, std::string& reason);

/// The bundle that belongs to this program or module: beside it, or in the build folder.
/// @return "" when there is none
std::string BundleOfThisModule();

/// An instance of the plug-in with the interface of its dialog.
class PlugIn {
public:
    /// @param factory  may be null
    /// @return null when the factory makes none, or it lacks the interface in this host's version
    static std::unique_ptr<PlugIn> Make(TarvoPlugInFactory factory);
    PlugIn(const PlugIn&) = delete;
    PlugIn& operator=(const PlugIn&) = delete;
    ~PlugIn();

    const TarvoPDETable& operations() const { return *dialog_->table; }

private:
    PlugIn(TarvoUnknown* instance, TarvoPDE* dialog) : instance_(instance), dialog_(dialog) {}

    TarvoUnknown* instance_;
    TarvoPDE* dialog_;
};

} // namespace tarvo
