#include "platform/printing/PPDStatements.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr bool IsBlank(char letter)
{
    return letter == ' ' || letter == '\t';
}

std::string_view WithoutBlanksAround(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// Splits off what stands before the first blank.
std::string_view TakeWord(std::string_view& text)
{
    const auto length = std::find_if(text.begin(), text.end(), IsBlank) - text.begin();
    const std::string_view word = text.substr(0, static_cast<std::size_t>(length));
    text.remove_prefix(word.size());
    return word;
}

} // namespace

std::optional<PPDStatement> PPDStatements::next()
{
    while (at_ < contents_.size()) {
        if (contents_[at_] == '*' && contents_.substr(at_, 2) != "*%") {
            return statementHere();
        }
        goBehind(endOfLine());
    }
    return std::nullopt;
}

std::size_t PPDStatements::endOfLine()
{
    if (lineFeed_ < at_ || at_ == 0) {
        lineFeed_ = contents_.find('\n', at_);
    }
    if (carriageReturn_ < at_ || at_ == 0) {
        carriageReturn_ = contents_.find('\r', at_);
    }
    return std::min({lineFeed_, carriageReturn_, contents_.size()});
}

// Both characters together end one line.
void PPDStatements::goBehind(std::size_t end)
{
    at_ = end + (contents_.substr(end, 2) == "\r\n" ? 2 : 1);
    ++line_;
}

PPDStatement PPDStatements::statementHere()
{
    PPDStatement statement;
    statement.line = line_;
    const std::size_t start = at_ + 1;
    const std::size_t end = endOfLine();
    const std::string_view line = contents_.substr(start, end - start);
    const std::size_t colon = std::min(line.find(':'), line.size());
    std::string_view option = line.substr(0, colon);
    statement.keyword = TakeWord(option);
    const std::size_t slash = std::min(option.find('/'), option.size());
    statement.option = WithoutBlanksAround(option.substr(0, slash));
    statement.text = option.substr(std::min(slash + 1, option.size()));
    readValue(statement, std::min(start + colon + 1, end));
    return statement;
}

// A line that ends between quotes is not the value's last.
void PPDStatements::readValue(PPDStatement& statement, std::size_t start)
{
    at_ = start;
    std::size_t end = endOfLine();
    for (std::size_t quote = 0;
         (quote = contents_.substr(at_, end - at_).find('"')) != std::string_view::npos;) {
        const std::size_t closing = contents_.find('"', at_ + quote + 1);
        statement.isQuoteOpen = closing == std::string_view::npos;
        const std::size_t behind = statement.isQuoteOpen ? contents_.size() : closing + 1;
        while (end < behind) {
            goBehind(end);
            end = endOfLine();
        }
        at_ = behind;
    }
    statement.value = WithoutBlanksAround(contents_.substr(start, end - start));
    goBehind(end);
}

} // namespace tarvo
