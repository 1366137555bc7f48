#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvo {

/// A menu as a value; who has a screen shows it.
struct MenuItem {
    std::string text;
    std::int32_t value = 0;    // reference constant: what the panels store when it is chosen
    std::uint32_t command = 0; // four-character code; 0 for none
    bool isEnabled = true;
    std::vector<MenuItem> submenu;
};

using Menu = std::vector<MenuItem>;

} // namespace tarvo
