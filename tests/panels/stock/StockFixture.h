#pragma once

#include "panels/PanelFixture.h"
#include "prefs/PreferenceFiles.h"
#include "prefs/PreferenceTasks.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryTestSupport.h"
#include "support/StockText.h"

#include <chrono>
#include <filesystem>

namespace tarvo {

/// A panel's surroundings with preference folders of this program's own, empty at first.
class StockFixture : public PanelFixture {
protected:
    StockFixture()
    {
        awaitChanges(); // of the test before
        std::filesystem::remove_all(UserPreferenceFolders().user);
    }

    /// What was left to a task.
    static void awaitChanges() { EXPECT_TRUE(AwaitPreferenceChanges(std::chrono::seconds(20))); }
    static std::string libraryPath()
    {
        return UserPreferenceFolders().user + "/com.tarvo.print.stocklibrary";
    }
    /// Saves a paper of that name in the user's library.
    /// @return its uuid
    static std::string save(const std::string& name, std::int32_t color)
    {
        StockLibraryList list(UserPreferenceFolders());
        StockLibrary paper = Paper(name, color);
        return list.add(paper);
    }
    /// "name:color" of each saved paper, in order.
    static std::vector<std::string> saved()
    {
        std::vector<std::string> words;
        const auto list = ReadUserStockList(UserPreferenceFolders());
        for (const auto& each : list->stockList()) {
            const StockLibrary paper(*each.value.get<CFDictionary>());
            words.push_back(paper.name() + ":" + std::to_string(paper.stock().color()));
        }
        return words;
    }
};

} // namespace tarvo
