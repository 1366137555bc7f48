#include "platform/printing/PPDTranslations.h"

#include "platform/printing/PPDStatements.h"
#include "platform/printing/PPDText.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr std::string_view TextKeyword = "Translation"; // of main keywords and groups

std::string KeyOf(std::string_view keyword, std::string_view option)
{
    return std::string(keyword).append(" ").append(option);
}

} // namespace

PPDTranslations::PPDTranslations(std::string_view contents,
                                 const std::vector<std::string>& languages)
{
    PPDStatements statements(contents);
    while (const auto statement = statements.next()) {
        const std::size_t dot = statement->keyword.find('.');
        if (dot == std::string_view::npos || statement->text.empty()) {
            continue;
        }
        const auto language =
            std::find(languages.begin(), languages.end(), statement->keyword.substr(0, dot));
        if (language != languages.end()) {
            add(statement->keyword.substr(dot + 1), statement->option,
                {Utf8OfPPDText(ppd_decode(statement->text)),
                 static_cast<std::size_t>(language - languages.begin())});
        }
    }
}

// The first text of the most wanted language stays.
void PPDTranslations::add(std::string_view keyword, std::string_view option, Text text)
{
    const std::string key = KeyOf(keyword, option);
    Text* present = texts_.find(key);
    if (present == nullptr) {
        texts_.insert(key, std::move(text));
    } else if (text.rank < present->rank) {
        *present = std::move(text);
    }
}

const std::string* PPDTranslations::text(std::string_view keyword) const
{
    return choiceText(TextKeyword, keyword);
}

const std::string* PPDTranslations::choiceText(std::string_view keyword,
                                               std::string_view choice) const
{
    const Text* found = texts_.find(KeyOf(keyword, choice));
    return found == nullptr ? nullptr : &found->text;
}

} // namespace tarvo
