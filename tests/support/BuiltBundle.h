#pragma once

#include "platform/bundle/CFBundle.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace tarvo {

/// The bundle of the build folder.
inline const std::string BuiltBundleFolder = TARVO_BINARY_DIR "/TarvoFeatures.plugin";

inline CFBundle BuiltBundle(const std::string& language = "en")
{
    return {BuiltBundleFolder, {language}};
}

/// A copy of a bundle, to break, that goes with this.
class BundleCopy {
public:
    explicit BundleCopy(const std::string& original = BuiltBundleFolder)
    {
        EXPECT_NE(mkdtemp(root_.data()), nullptr);
        std::filesystem::copy(original, folder(), std::filesystem::copy_options::recursive);
    }
    BundleCopy(const BundleCopy&) = delete;
    BundleCopy& operator=(const BundleCopy&) = delete;
    ~BundleCopy() { std::filesystem::remove_all(root_); }

    std::string folder() const { return root_ + "/TarvoFeatures.plugin"; }
    std::filesystem::path resource(const std::string& name) const
    {
        return std::filesystem::path(folder()) / "Contents/Resources" / name;
    }
    CFBundle bundle() const { return {folder(), {}}; }

private:
    std::string root_ = testing::TempDir() + "tarvo-bundle-XXXXXX";
};

} // namespace tarvo
