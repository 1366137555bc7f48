#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvo {

/// A menu as a value; who has a screen shows it.
struct MenuItem {
    std::string text;          // "-" without a command is a separator
    std::int32_t value = 0;    // reference constant: what the panels store when it is chosen
    std::uint32_t command = 0; // four-character code; 0 for none
    bool isEnabled = true;
    std::vector<MenuItem> submenu;
    bool isChecked = false;
    std::string reference = {}; // what the value cannot say: the identity of a named paper

    bool isSeparator() const { return text == "-" && command == 0; }
};

using Menu = std::vector<MenuItem>;

} // namespace tarvo
