#pragma once

#include "platform/cf/CFPropertyList.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// Names of forms as they were used, newest first, none twice. Names that are empty or too long to
/// be typed are not taken.
class FormHistory {
public:
    static constexpr std::size_t MostNames = 25;

    FormHistory() = default;
    /// Takes the strings of the array, which may be null.
    explicit FormHistory(const CFArray* names);

    const std::vector<std::string>& names() const { return names_; }

    /// Puts a name first; the oldest goes when there are too many.
    void remember(std::string_view name);

    /// The names that others have stored meanwhile, with what was remembered here in front of them.
    FormHistory onTopOf(const CFArray* stored) const;

    CFArray asArray() const;

    bool operator==(const FormHistory&) const = default;

private:
    std::vector<std::string> names_;
    std::vector<std::string> remembered_; // since the array was taken, oldest first
};

} // namespace tarvo
