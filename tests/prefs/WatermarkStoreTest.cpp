#include "prefs/WatermarkStore.h"

#include "PreferenceFolderFixture.h"
#include "platform/bundle/CFBundle.h"

namespace tarvo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view File = WatermarksFile;

class WatermarkStore : public PreferenceFolderFixture {
protected:
    CFDictionary stored(std::string_view name) const
    {
        const auto root = CopyXMLData(folders_, File);
        const auto* entries = root ? root->get<CFDictionary>(name) : nullptr;
        return entries == nullptr ? CFDictionary() : *entries;
    }
    std::string path() const { return sitePath(std::string(File)); }
};

// What watermark.plist tells; every field has a value of its own.
Watermark Sample()
{
    return {
        .text = "Entwürfe",
        .imageFileName = "a.png",
        .imageFilePath = "/tmp/a.png",
        .fontName = "ArialMT",
        .xOffset = 0.1F,
        .yOffset = -2,
        .fontColor = {0.125F, 0.25F, 0.375F, 0.5F},
        .wellColor = {0.625F, 0.75F, 0.875F, 1   },
        .angle = 45,
        .density = 25,
        .scale = 100,
        .units = 1,
        .fontSize = 72,
        .isText = true,
        .xPosition = 280.627441,
        .yPosition = 1.0 / 3,
    };
}

TEST_F(WatermarkStore, GivesBackWhatItTookButTheFlag)
{
    const std::string file = TARVO_SOURCE_DIR "/tests/prefs/watermark.plist";
    Watermark watermark = Sample();
    ASSERT_TRUE(saveWatermarkData(folders_, File, watermark));
    fs::create_directories(folders_.user);
    fs::copy_file(file, userPath("watermark.plist"));
    EXPECT_EQ(CopyXMLData(folders_, File), CopyUserPreferences(folders_, "watermark.plist"));
    Watermark loaded;
    EXPECT_TRUE(loadWatermarkData(folders_, File, "Entwürfe", loaded));
    watermark.isText = false;
    EXPECT_EQ(loaded, watermark);
    ASSERT_TRUE(saveWatermarkData(folders_, File, watermark)); // a picture now
    EXPECT_EQ(stored("a.png"), stored("Entwürfe"));
    EXPECT_FALSE(loadWatermarkData(folders_, File, "unknown", loaded));
    EXPECT_EQ(loaded, Watermark());
}

TEST_F(WatermarkStore, LeavesFieldsWhoseEntryIsAbsentOrOfAnotherKind)
{
    put(path(), R"(<plist version="1.0"><dict><key>w</key><dict>
        <key>textString</key><integer>1</integer><key>angle</key><real>45.5</real>
        <key>xOffset</key><integer>3</integer><key>yOffset</key><real>1e300</real>
        <key>xPos</key><real>nan</real><key>yPos</key><true/>
        <key>fontColorRed</key><real>0.5</real></dict></dict></plist>)");
    Watermark loaded = Sample();
    ASSERT_TRUE(loadWatermarkData(folders_, File, "w", loaded));
    Watermark expected = Sample();
    expected.xOffset = 3;
    expected.fontColor.red = 0.5F;
    expected.isText = false;
    EXPECT_EQ(loaded, expected);
}

TEST_F(WatermarkStore, CutsTextsBetweenCharactersAndRefusesNamesThatAreNone)
{
    Watermark watermark = Sample();
    watermark.text = std::string(510, 'x') + "ä";
    watermark.imageFilePath = std::string(9000, 'p');
    ASSERT_TRUE(saveWatermarkData(folders_, File, watermark));
    const CFDictionary entries = stored(std::string(510, 'x'));
    EXPECT_EQ(*entries.get<std::string>("textString"), std::string(510, 'x'));
    EXPECT_EQ(entries.get<std::string>("filePath")->size(), 8191U);
    for (const char* name : {"", "WatermarkListEntries"}) {
        watermark.text = name;
        EXPECT_FALSE(saveWatermarkData(folders_, File, watermark, &failure_));
        EXPECT_EQ(failure_.error, EINVAL);
    }
}

TEST_F(WatermarkStore, KeepsFontsOnlyWhereAFileIs)
{
    const CFData font = {std::string("\0font\xff", 6)};
    EXPECT_TRUE(storeFontData(folders_, File, "font", font));
    EXPECT_TRUE(removeWatermarkData(folders_, File, "font"));
    EXPECT_FALSE(fs::exists(path()));
    putNumber(sitePath(std::string(File), 1), "other", 1); // the site's counts too
    EXPECT_TRUE(storeFontData(folders_, File, "font", font));
    std::string bytes = "before";
    loadFontData(folders_, File, "font", bytes);
    loadFontData(folders_, File, "other", bytes);
    EXPECT_EQ(bytes, "before" + font.bytes);
    EXPECT_TRUE(removeWatermarkData(folders_, File, "font"));
    EXPECT_EQ(CopyXMLData(folders_, File)->size(), 1U);
    EXPECT_TRUE(fs::exists(path()));
}

TEST_F(WatermarkStore, StartsWithThoseOfTheProduct)
{
    const CFBundle bundle(TARVO_BINARY_DIR "/TarvoFeatures.plugin", {"en"});
    CreateDefaultWatermarks(folders_, bundle);
    const auto names = loadWatermarkList(folders_, File);
    ASSERT_TRUE(names.has_value());
    EXPECT_EQ(*names, (std::vector<std::string>{bundle.localizedString("DraftWatermark"),
                                                bundle.localizedString("ConfidentialWatermark"),
                                                bundle.localizedString("CopyWatermark")}));
    Watermark watermark;
    ASSERT_TRUE(loadWatermarkData(folders_, File, names->back(), watermark));
    EXPECT_EQ(watermark.text, names->back());
    EXPECT_EQ(watermark.fontName, "ArialMT");
    EXPECT_EQ(watermark.fontColor, (WatermarkColor{0.75F, 0.75F, 1, 1}));
    EXPECT_EQ(watermark.wellColor, (WatermarkColor{0, 0, 1, 1}));
    EXPECT_EQ(watermark.xPosition, 276.36319);
    EXPECT_EQ(watermark.yPosition, 306.785675);
}

TEST_F(WatermarkStore, ListsThoseThatAreThereAndThoseThatAreGone)
{
    EXPECT_EQ(loadWatermarkList(folders_, File), std::nullopt);
    EXPECT_EQ(loadWatermarks(folders_, File, &failure_), std::nullopt);
    EXPECT_EQ(failure_.error, ENOENT);
    ASSERT_TRUE(saveWatermarkData(folders_, File, Sample()));
    EXPECT_TRUE(loadWatermarks(folders_, File)->empty()); // stored, but in no list
    const std::vector<std::string> names = {"gone", Sample().text};
    ASSERT_TRUE(saveWatermarkList(folders_, File, names));
    EXPECT_EQ(*CopyXMLData(folders_, File)->get<CFArray>("WatermarkListEntries"),
              CFArray(names.begin(), names.end()));
    EXPECT_EQ(loadWatermarkList(folders_, File), names);
    const auto watermarks = loadWatermarks(folders_, File);
    ASSERT_EQ(watermarks->size(), 2U);
    EXPECT_EQ((*watermarks)[0].watermark, std::nullopt);
    EXPECT_EQ((*watermarks)[1].name, names[1]);
    EXPECT_EQ((*watermarks)[1].watermark->yPosition, Sample().yPosition);
    put(path(), "<plist version=\"1.0\"><dict><key>WatermarkListEntries</key>"
                "<array><true/><string>a</string></array></dict></plist>");
    EXPECT_EQ(loadWatermarkList(folders_, File), std::vector<std::string>{"a"});
}

} // namespace
} // namespace tarvo
