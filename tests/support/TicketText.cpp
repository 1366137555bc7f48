#include "support/TicketText.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace tarvo {
namespace {

// Reads values; the whole input of a case is the inside of a dictionary.
class ValueReader {
public:
    explicit ValueReader(std::string_view text) : rest_(text) {}

    CFDictionary entries()
    {
        CFDictionary dictionary;
        while (!takes('}')) {
            const std::string written = word();
            const std::string key = (written.starts_with('.') ? "com.tarvo.print" : "") + written;
            Require(takes(':') && !dictionary.contains(key), "a new key and ':', not " + key);
            dictionary.set(key, value());
            Require(takes(',') || rest_.starts_with('}'), "',' before " + std::string(rest_));
        }
        return dictionary;
    }

    bool isAtEnd() const { return rest_.empty(); }

private:
    bool takes(char next)
    {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \n"), rest_.size()));
        const bool isThere = rest_.starts_with(next);
        rest_.remove_prefix(isThere ? 1 : 0);
        return isThere;
    }

    std::string word()
    {
        const std::string taken(rest_.substr(0, rest_.find_first_of(" \n,:]}")));
        rest_.remove_prefix(taken.size());
        return taken;
    }

    CFPropertyList value()
    {
        if (takes('{')) {
            return entries();
        }
        if (takes('[')) {
            return array();
        }
        return takes('"') ? text() : plain(word());
    }

    CFArray array()
    {
        CFArray values;
        while (!takes(']')) {
            values.push_back(value());
            Require(takes(',') || rest_.starts_with(']'), "',' before " + std::string(rest_));
        }
        return values;
    }

    std::string text()
    {
        std::string once;
        while (!rest_.starts_with('"')) {
            Require(rest_.size() > 1, "an end of the text " + once);
            const bool isEscaped = rest_.starts_with('\\');
            const auto escape = std::string_view("n0\"\\").find(rest_[1]);
            Require(!isEscaped || escape < 4, "another escape after " + once);
            once += isEscaped ? "\n\0\"\\"[escape] : rest_.front();
            rest_.remove_prefix(isEscaped ? 2 : 1);
        }
        rest_.remove_prefix(1);
        std::string all = once;
        for (int count = takes('*') ? std::stoi(word()) : 1; count > 1; --count) {
            all += once;
        }
        return all;
    }

    static CFPropertyList plain(const std::string& word)
    {
        if (word == "true" || word == "false" || word == "unset") {
            return word == "unset" ? CFPropertyList(UnsetValue) : CFPropertyList(word == "true");
        }
        const bool isReal = word.find('.') != std::string::npos;
        std::size_t end = 0;
        const CFPropertyList number =
            isReal ? CFPropertyList(std::stod(word, &end)) : CFPropertyList(std::stoll(word, &end));
        Require(end == word.size(), "a value in place of " + word);
        return number;
    }

    std::string_view rest_;
};

} // namespace

void Require(bool isMet, const std::string& wanted)
{
    if (!isMet) {
        throw std::runtime_error("wanted: " + wanted);
    }
}

CFDictionary TicketFromText(const std::string& text)
{
    const std::string input = text + "}";
    ValueReader reader(input);
    CFDictionary dictionary = reader.entries();
    Require(reader.isAtEnd(), "no '}' without its '{'");
    return dictionary;
}

} // namespace tarvo
