#pragma once

#include "records/Stock.h"

#include <charconv>
#include <sstream>
#include <string>

namespace tarvo {

/// A stock's ticket from words such as "Color=2 Size=unset CustomNameOnly=true Description=thick".
inline CFDictionary StockTicket(const std::string& text)
{
    CFDictionary ticket;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const std::string key = word.substr(0, word.find('='));
        const std::string value = word.substr(key.size() + 1);
        std::int32_t number = UnsetValue;
        const auto [end, error] =
            std::from_chars(value.data(), value.data() + value.size(), number);
        if (value == "true" || value == "false") {
            ticket.set(key, value == "true");
        } else if (value == "unset" || (error == std::errc() && *end == '\0')) {
            ticket.set(key, number);
        } else {
            ticket.set(key, value);
        }
    }
    return ticket;
}

inline Stock StockOf(const std::string& text)
{
    return Stock(StockTicket(text));
}

/// What the stock writes, in the same words and in the order of writing.
inline std::string StockText(const Stock& stock)
{
    std::string text;
    for (const auto& [key, value] : stock.asTicket()) {
        text += (text.empty() ? "" : " ") + key + "=";
        if (const auto* string = value.get<std::string>()) {
            text += *string;
        } else if (const auto number = Int32Value(&value)) {
            text += number == UnsetValue ? "unset" : std::to_string(*number);
        } else {
            text += "true";
        }
    }
    return text;
}

} // namespace tarvo
