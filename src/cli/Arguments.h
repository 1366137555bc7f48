#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// What a command line says: for each option that it names, the values in their order.
class Arguments {
public:
    void add(std::string_view name, std::vector<std::string> values)
    {
        values_.insert_or_assign(std::string(name), std::move(values));
    }

    /// @param name  of OptionMap, the long one
    bool has(std::string_view name) const { return values_.contains(name); }
    const std::vector<std::string>& values(std::string_view name) const
    {
        static const std::vector<std::string> None;
        const auto found = values_.find(name);
        return found == values_.end() ? None : found->second;
    }

private:
    std::map<std::string, std::vector<std::string>, std::less<>> values_;
};

} // namespace tarvo
