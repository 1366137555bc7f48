#include "AllSettingMaps.h"
#include "platform/bundle/CFBundle.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tarvo {
namespace {

// The English texts are every other language's last resort: a key that they lack would show as
// "STRING NOT FOUND", and two choices of one text could not be told apart.
template <typename Row>
void ExpectATextForEachRow(const CFBundle& bundle, const Row* map)
{
    std::set<std::string> texts;
    for (const Row* row = map; row->key != nullptr; ++row) {
        const std::string& text = bundle.localizedString(row->key);
        EXPECT_NE(text, "STRING NOT FOUND") << row->key;
        EXPECT_FALSE(text.empty()) << row->key;
        EXPECT_TRUE(texts.insert(text).second) << row->key << " reads " << text;
    }
}

TEST(EnglishTexts, AreThereForEveryChoice)
{
    const CFBundle bundle(TARVO_BINARY_DIR "/TarvoFeatures.plugin", {});
    for (const auto& table : AllSettingMaps) {
        SCOPED_TRACE(table.name);
        ExpectATextForEachRow(bundle, table.map);
    }
    SCOPED_TRACE("CompleteStockSizeMap");
    ExpectATextForEachRow(bundle, CompleteStockSizeMap);
}

} // namespace
} // namespace tarvo
