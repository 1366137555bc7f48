#include "platform/bundle/CFBundle.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace tarvo {
namespace {

namespace fs = std::filesystem;

void WriteTable(const fs::path& bundle, const std::string& language, const std::string& entries)
{
    const fs::path folder = bundle / "Contents/Resources" / (language + ".lproj");
    fs::create_directories(folder);
    std::ofstream(folder / "Localizable.plist") << "<plist><dict>" << entries << "</dict></plist>";
}

TEST(CFBundle, FindsEachTextInTheMostWantedLanguage)
{
    std::string root = ::testing::TempDir() + "tarvo-bundle-XXXXXX";
    ASSERT_NE(mkdtemp(root.data()), nullptr);
    EXPECT_EQ(CFBundle(root, {"en"}).localizedString("Both"), "STRING NOT FOUND");
    WriteTable(root, "en",
               "<key>Both</key><string>both</string><key>Plain</key><string>plain</string>");
    WriteTable(root, "de", "<key>Both</key><string>beide</string>");
    WriteTable(root, "fr", "<key>Both</key><integer>2</integer>");
    WriteTable(root, "nl", "<key>Both</key>"); // a key without a value breaks the whole table
    using Languages = std::vector<std::string>;
    // name, languages, key, text
    const std::tuple<const char*, Languages, const char*, const char*> cases[] = {
        {"no language",             {},                   "Both",  "both"            },
        {"wanted language",         {"de_AT", "de", "C"}, "Both",  "beide"           },
        {"key that it lacks",       {"de"},               "Plain", "plain"           },
        {"the order is the user's", {"en", "de"},         "Both",  "both"            },
        {"value that is no text",   {"fr", "de"},         "Both",  "beide"           },
        {"broken table",            {"nl"},               "Both",  "both"            },
        {"folder outside",          {"../Resources/de"},  "Both",  "both"            },
        {"unknown key",             {"de"},               "both",  "STRING NOT FOUND"},
        {"null key",                {"de"},               nullptr, "STRING NOT FOUND"},
    };
    for (const auto& [name, languages, key, text] : cases) {
        EXPECT_EQ(CFBundle(root, languages).localizedString(key), text) << name;
    }
    fs::remove_all(root);
}

TEST(CFBundle, IsFoundAtTheFirstPlaceThatIsAFolder)
{
    std::string root = ::testing::TempDir() + "tarvo-bundle-XXXXXX";
    ASSERT_NE(mkdtemp(root.data()), nullptr);
    fs::create_directories(root + "/bin");
    fs::create_directories(root + "/Second.plugin");
    fs::create_directories(root + "/Third.plugin");
    std::ofstream(root + "/First.plugin") << "a file";
    EXPECT_EQ(
        BundleFolderFrom(root + "/bin", {"../First.plugin", "../Second.plugin", "../Third.plugin"}),
        fs::canonical(root).string() + "/Second.plugin");
    EXPECT_EQ(BundleFolderFrom(root + "/bin", {"../First.plugin"}), "");
    fs::remove_all(root);
}

TEST(CFBundle, FindsEachResourceInTheMostWantedLanguage)
{
    std::string root = ::testing::TempDir() + "tarvo-bundle-XXXXXX";
    ASSERT_NE(mkdtemp(root.data()), nullptr);
    const fs::path resources = fs::path(root) / "Contents/Resources";
    for (const char* name : {"en.lproj/help.html", "de.lproj/help.html", "Up.png"}) {
        fs::create_directories((resources / name).parent_path());
        std::ofstream(resources / name) << name;
    }
    const CFBundle bundle(root, {"de"});
    EXPECT_EQ(bundle.resourcePath("help.html"), resources / "de.lproj/help.html");
    EXPECT_EQ(bundle.resourcePath("Up.png"), resources / "Up.png");
    EXPECT_EQ(bundle.resourcePath("Down.png"), std::nullopt);
    EXPECT_EQ(CFBundle(root, {"fr"}).resourcePath("help.html"), resources / "en.lproj/help.html");

    EXPECT_TRUE(bundle.infoDictionary().empty());
    std::ofstream(fs::path(root) / "Contents/Info.plist")
        << "<plist><dict><key>CFBundleName</key><string>Bander</string></dict></plist>";
    EXPECT_EQ(*bundle.infoDictionary().get<std::string>("CFBundleName"), "Bander");
    fs::remove_all(root);
}

TEST(UserLanguages, GoFromTheMostWantedToTheGeneral)
{
    setenv("LANGUAGE", "de_AT:fr", 1);
    auto languages = UserLanguages();
    languages.resize(3);
    EXPECT_EQ(languages, (std::vector<std::string>{"de_AT", "de", "fr"}));
}

} // namespace
} // namespace tarvo
