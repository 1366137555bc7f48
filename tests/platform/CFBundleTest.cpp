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

TEST(UserLanguages, GoFromTheMostWantedToTheGeneral)
{
    setenv("LANGUAGE", "de_AT:fr", 1);
    auto languages = UserLanguages();
    languages.resize(3);
    EXPECT_EQ(languages, (std::vector<std::string>{"de_AT", "de", "fr"}));
}

} // namespace
} // namespace tarvo
