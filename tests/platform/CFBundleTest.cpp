#include "platform/bundle/CFBundle.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace tarvo {
namespace {

namespace fs = std::filesystem;

class CFBundleTest : public ::testing::Test {
protected:
    CFBundleTest()
    {
        std::string name = ::testing::TempDir() + "tarvo-bundle-XXXXXX";
        root_ = mkdtemp(name.data());
        write("en", Table("Both", "both") + Table("Plain", "plain"));
        write("de", Table("Both", "beide"));
        write("fr", "<key>Both</key><integer>2</integer>");
        write("nl", "<key>Both</key>"); // a key without a value breaks the whole table
    }
    ~CFBundleTest() override { fs::remove_all(root_); }

    static std::string Table(const std::string& key, const std::string& text)
    {
        return "<key>" + key + "</key><string>" + text + "</string>";
    }
    void write(const std::string& language, const std::string& entries) const
    {
        const fs::path folder = root_ / "Contents/Resources" / (language + ".lproj");
        fs::create_directories(folder);
        std::ofstream(folder / "Localizable.plist")
            << "<plist version=\"1.0\"><dict>" << entries << "</dict></plist>";
    }

    fs::path root_;
};

struct TextCase {
    const char* name;
    std::vector<std::string> languages;
    const char* key;
    const char* text;
};

TEST_F(CFBundleTest, FindsEachTextInTheMostWantedLanguage)
{
    const TextCase cases[] = {
        {"no language",                          {},                   "Both",  "both"            },
        {"wanted language",                      {"de_AT", "de", "C"}, "Both",  "beide"           },
        {"key that it lacks",                    {"de"},               "Plain", "plain"           },
        {"the order is the user's",              {"en", "de"},         "Both",  "both"            },
        {"value that is no text",                {"fr"},               "Both",  "both"            },
        {"value that is no text, next language", {"fr", "de"},         "Both",  "beide"           },
        {"broken table",                         {"nl"},               "Both",  "both"            },
        {"folder outside",                       {"../Resources/de"},  "Both",  "both"            },
        {"unknown key",                          {"de"},               "both",  "STRING NOT FOUND"},
        {"null key",                             {"de"},               nullptr, "STRING NOT FOUND"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(CFBundle(root_.string(), row.languages).localizedString(row.key), row.text);
    }
}

TEST_F(CFBundleTest, WithoutAFolderHasNoTexts)
{
    const CFBundle bundle((root_ / "absent").string(), {"en"});
    EXPECT_EQ(bundle.localizedString("Both"), "STRING NOT FOUND");
}

TEST(UserLanguages, GoFromTheMostWantedToTheGeneral)
{
    setenv("LANGUAGE", "de_AT:fr", 1);
    const auto languages = UserLanguages();
    ASSERT_GE(languages.size(), 3U);
    EXPECT_EQ(languages[0], "de_AT");
    EXPECT_EQ(languages[1], "de");
    EXPECT_EQ(languages[2], "fr");
}

} // namespace
} // namespace tarvo
