#include "FakePlugIn.h"
#include "host/PlugIn.h"
#include "platform/files/FileContents.h"
#include "platform/printing/BuildText.h"
#include "support/BuiltBundle.h"

#include <dlfcn.h>

namespace tarvo {
namespace {

TEST(LoadPlugIn, RefusesAnotherBuild)
{
    constexpr std::size_t MaximumBytes = std::size_t{256} * 1024 * 1024;
    const BundleCopy other(TARVO_FAKE_BUNDLE);
    const std::string module = other.folder() + "/Contents/Linux/FakePlugIn.so";
    std::string reason;
    auto bytes = ReadFileContents(module, MaximumBytes, reason);
    ASSERT_TRUE(bytes) << reason;
    const std::string build = BuildText();
    const std::size_t place = bytes->find(build);
    ASSERT_NE(place, std::string::npos);
    bytes->at(place + build.size() - 1) ^= 1;
    ASSERT_TRUE(ReplaceFileContents(module, *bytes, reason)) << reason;
    EXPECT_EQ(LoadPlugIn(other.folder(), reason), nullptr);
    EXPECT_EQ(reason, module + " is of another build");
}

// name, version, status, whether it is taken
constexpr std::tuple<const char*, std::uint32_t, std::int32_t, bool> VersionCases[] = {
    {"the same",      0x00010000, 0,   true },
    {"another minor", 0x00010001, 0,   false},
    {"another major", 0x00020000, 0,   false},
    {"it can't say",  0x00010000, -50, false},
};

TEST(PlugIn, IsTakenWithTheHostsInterfaceOnly)
{
    std::string reason;
    const TarvoPlugInFactory factory = LoadPlugIn(TARVO_FAKE_BUNDLE, reason);
    ASSERT_NE(factory, nullptr) << reason;
    void* module = dlopen(TARVO_FAKE_BUNDLE "/Contents/Linux/FakePlugIn.so", RTLD_NOW | RTLD_LOCAL);
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
