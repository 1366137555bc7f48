#include "TPIFTestSupport.h"
#include "platform/cf/PropertyListReader.h"
#include "platform/files/FileContents.h"
#include "tpif/TPIFWriter.h"

#include <filesystem>

namespace tarvo {
namespace {

constexpr std::size_t LargestExample = 1 << 20;

std::string Contents(const std::filesystem::path& path)
{
    std::string reason;
    const auto contents = ReadFileContents(path.string(), LargestExample, reason);
    EXPECT_TRUE(contents) << path << ": " << reason;
    return contents.value_or("");
}

TEST(Examples, GiveTheDocumentsBesideThem)
{
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TARVO_SOURCE_DIR "/examples")) {
        if (entry.path().extension() != ".plist") {
            continue;
        }
        SCOPED_TRACE(entry.path());
        ParseError error;
        auto settings = ReadPropertyListDictionary(Contents(entry.path()), error);
        ASSERT_TRUE(settings) << error.line << ": " << error.reason;
        settings->removeKeys([](std::string_view key) { return !IsExportedKey(key); });
        auto document = entry.path();
        EXPECT_EQ(Written([&](TPIFChannel& channel) { WriteTPIF(channel, *settings, nullptr); }),
                  Contents(document.replace_extension(".xml")));
        ++count;
    }
    EXPECT_GE(count, 8);
}

} // namespace
} // namespace tarvo
