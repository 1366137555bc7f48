#pragma once

#include "platform/cf/OrderedMap.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// The texts that a PPD file has in further languages, each a statement such as
/// *de.PageSize A4/A4 (210 x 297 mm): "". The printing system's reader keeps those of the process's
/// locale only, which need not be the user's language.
class PPDTranslations {
public:
    /// @param languages  most wanted first
    PPDTranslations(std::string_view contents, const std::vector<std::string>& languages);

    /// @return the text of a main keyword or a group, owned by this; null when there is none
    const std::string* text(std::string_view keyword) const;

    /// @return the text of a main keyword's choice, owned by this; null when there is none
    const std::string* choiceText(std::string_view keyword, std::string_view choice) const;

private:
    struct Text {
        std::string text; // UTF-8
        std::size_t rank; // of its language, 0 for the most wanted
    };
    void add(std::string_view keyword, std::string_view option, Text text);

    OrderedMap<Text> texts_; // by keyword and option with a blank between, which neither can hold
};

} // namespace tarvo
