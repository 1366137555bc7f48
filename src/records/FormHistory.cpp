#include "records/FormHistory.h"

#include "platform/text/Utf8.h"
#include "records/BackgroundFormsKeys.h"

#include <algorithm>

namespace tarvo {
namespace {

bool IsFormName(std::string_view name)
{
    return !name.empty() && Utf8Length(name) <= LongestFormNameInput;
}

} // namespace

FormHistory::FormHistory(const CFArray* names)
{
    if (names == nullptr) {
        return;
    }
    for (const CFPropertyList& value : *names) {
        const auto* name = value.get<std::string>();
        if (names_.size() < MostNames && name != nullptr && IsFormName(*name) &&
            std::find(names_.begin(), names_.end(), *name) == names_.end()) {
            names_.push_back(*name);
        }
    }
}

void FormHistory::remember(std::string_view name)
{
    if (!IsFormName(name)) {
        return;
    }
    const std::string kept(name); // it may be one of the names
    std::erase(names_, kept);
    names_.insert(names_.begin(), kept);
    names_.resize(std::min(names_.size(), MostNames));
    std::erase(remembered_, kept);
    remembered_.push_back(kept);
}

FormHistory FormHistory::onTopOf(const CFArray* stored) const
{
    FormHistory result(stored);
    for (const std::string& name : remembered_) {
        result.remember(name);
    }
    result.remembered_.clear();
    return result;
}

CFArray FormHistory::asArray() const
{
    return {names_.begin(), names_.end()};
}

} // namespace tarvo
