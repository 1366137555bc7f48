#include "FakePlugIn.h"
#include "host/PlugIn.h"
#include "platform/files/FileContents.h"
#include "platform/printing/BuildText.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <filesystem>

namespace tarvo {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t ModuleMaximumBytes = std::size_t{256} * 1024 * 1024;

// A copy of the tests' bundle, gone with this object.
class FakeBundle {
public:
    FakeBundle()
    {
        EXPECT_NE(mkdtemp(folder_.data()), nullptr);
        fs::copy(TARVO_FAKE_BUNDLE, folder_, fs::copy_options::recursive);
    }
    FakeBundle(const FakeBundle&) = delete;
    FakeBundle& operator=(const FakeBundle&) = delete;
    ~FakeBundle() { fs::remove_all(folder_); }

    const std::string& folder() const { return folder_; }
    std::string module() const { return folder_ + "/Contents/Linux/FakePlugIn.so"; }

    /// Makes the module one of another build.
    void changeBuild() const
    {
        std::string reason;
        auto bytes = ReadFileContents(module(), ModuleMaximumBytes, reason);
        ASSERT_TRUE(bytes) << reason;
        const std::string build = BuildText();
        const std::size_t place = bytes->find(build);
        ASSERT_NE(place, std::string::npos);
        bytes->at(place + build.size() - 1) ^= 1;
        ASSERT_TRUE(ReplaceFileContents(module(), *bytes, reason)) << reason;
    }

private:
    std::string folder_ = testing::TempDir() + "tarvo-bundle-XXXXXX";
};

TEST(LoadPlugIn, RefusesAnotherBuild)
{
    std::string reason;
    const FakeBundle same;
    EXPECT_NE(LoadPlugIn(same.folder(), reason), nullptr) << reason;
    const FakeBundle other;
    other.changeBuild();
    EXPECT_EQ(LoadPlugIn(other.folder(), reason), nullptr);
    EXPECT_EQ(reason, other.module() + " is of another build");
}

struct VersionCase {
    const char* name;
    std::uint32_t version;
    std::int32_t status;
    bool isTaken;
};

constexpr VersionCase VersionCases[] = {
    {"the same",      0x00010000, 0,   true },
    {"another minor", 0x00010001, 0,   false},
    {"another major", 0x00020000, 0,   false},
    {"it can't say",  0x00010000, -50, false},
};

TEST(PlugIn, IsTakenWithTheHostsInterfaceOnly)
{
    const FakeBundle bundle;
    std::string reason;
    const TarvoPlugInFactory factory = LoadPlugIn(bundle.folder(), reason);
    ASSERT_NE(factory, nullptr) << reason;
    void* module = dlopen(bundle.module().c_str(), RTLD_NOW | RTLD_LOCAL);
    FakePlugInState& state =
        *reinterpret_cast<FakePlugInStateFunction>(dlsym(module, FakePlugInStateName))();
    for (const auto& [name, version, status, isTaken] : VersionCases) {
        state.version = version;
        state.versionStatus = status;
        EXPECT_EQ(PlugIn::Make(factory) != nullptr, isTaken) << name;
        EXPECT_EQ(state.interfaces, 0) << name;
        EXPECT_EQ(state.instances, 0) << name;
    }
    EXPECT_EQ(PlugIn::Make(nullptr), nullptr);
}

} // namespace
} // namespace tarvo
