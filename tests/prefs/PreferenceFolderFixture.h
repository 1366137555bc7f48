#pragma once

#include "prefs/PreferenceFiles.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tarvo {

/// Preference folders of a test's own; none of them is there at first.
class PreferenceFolderFixture : public testing::Test {
protected:
    PreferenceFolderFixture()
    {
        EXPECT_NE(mkdtemp(root_.data()), nullptr);
        umask(0); // what is private must not depend on the user's mask
        folders_ = {
            root_ + "/config/tarvo", {root_ + "/data/Tarvo", root_ + "/machine/Tarvo"}
        };
    }
    ~PreferenceFolderFixture() override { std::filesystem::remove_all(root_); }

    std::string userPath(const std::string& name) const { return folders_.user + "/" + name; }
    std::string sitePath(const std::string& name, std::size_t folder = 0) const
    {
        return folders_.site.at(folder) + "/" + name;
    }

    /// Writes a file as anybody may, with its folder.
    static void put(const std::filesystem::path& path, std::string_view bytes)
    {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << bytes;
    }
    static void putNumber(const std::filesystem::path& path, const std::string& key, int number)
    {
        put(path, "<plist version=\"1.0\"><dict><key>" + key + "</key><integer>" +
                      std::to_string(number) + "</integer></dict></plist>");
    }

    /// Names of what is in a folder, sorted.
    static std::vector<std::string> names(const std::string& folder)
    {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            found.push_back(entry.path().filename());
        }
        std::sort(found.begin(), found.end());
        return found;
    }

    /// Changes a user's file by one number.
    bool change(std::string_view name, std::string_view key, int number)
    {
        return ChangeUserPreferences(
            folders_, name,
            [key, number](CFDictionary& root, bool) {
                root.set(key, number);
                return true;
            },
            failure_);
    }

    std::string root_ = testing::TempDir() + "tarvo-prefs-XXXXXX";
    PreferenceFolders folders_;
    PreferenceFailure failure_;
};

} // namespace tarvo
