#include "settings/SettingMenu.h"

#include "platform/bundle/CFBundle.h"
#include "platform/cf/CFPropertyList.h"

#include <algorithm>
#include <string_view>

namespace tarvo {
namespace {

constexpr std::string_view Separator = "-"; // a key and a text at once

MenuItem ItemWithText(std::string text, std::int32_t value, std::uint32_t command)
{
    MenuItem item;
    item.text = std::move(text);
    item.value = value;
    item.command = command;
    return item;
}

std::string TextForRow(const CFBundle& bundle, const SettingMap& row, JobContext context)
{
    return bundle.localizedString(row.value == UnsetValue ? DefaultSettingKey(context) : row.key);
}

// What stands for the papers of an empty library.
MenuItem EmptyItem(const CFBundle& bundle)
{
    MenuItem item = ItemWithText(bundle.localizedString("Empty"), 0, 0);
    item.isEnabled = false;
    return item;
}

Menu ItemsForPapers(const CFBundle& bundle, std::span<const NamedPaper> papers)
{
    Menu items;
    for (const NamedPaper& paper : papers) {
        items.push_back(ItemWithText(paper.name, 0, NamedPaperCommand));
        items.back().reference = paper.uuid;
    }
    if (items.empty()) {
        items.push_back(EmptyItem(bundle));
    }
    return items;
}

} // namespace

std::int16_t PopulateMenuFromMap(const CFBundle& bundle, Menu& menu, const SettingMap* map,
                                 JobContext context, std::uint32_t command)
{
    for (const SettingMap* row = map; row->key != nullptr; ++row) {
        menu.push_back(ItemWithText(TextForRow(bundle, *row, context), row->value,
                                    command != 0 ? command : row->command));
    }
    return static_cast<std::int16_t>(CountMaps(map));
}

void CheckMenuItemWithValue(Menu& menu, std::int32_t value)
{
    for (MenuItem& item : menu) {
        item.isChecked = false;
    }
    const auto item = std::find_if(menu.begin(), menu.end(),
                                   [value](const MenuItem& each) { return each.value == value; });
    if (item != menu.end()) {
        item->isChecked = true;
    }
}

std::int32_t CheckedValue(const Menu& menu)
{
    const auto checked =
        std::find_if(menu.begin(), menu.end(), [](const MenuItem& item) { return item.isChecked; });
    return checked == menu.end() ? 0 : checked->value;
}

std::int16_t PopulateMenuFromMapAndFile(const CFBundle& bundle, Menu& menu, const SettingMap* map,
                                        std::span<const NamedPaper> papers)
{
    menu.clear();
    for (const SettingMap* row = map; row->key != nullptr; ++row) {
        std::string text =
            row->key == Separator ? std::string(Separator) : bundle.localizedString(row->key);
        menu.push_back(ItemWithText(std::move(text), row->value, row->command));
    }
    const Menu items = ItemsForPapers(bundle, papers);
    menu.insert(menu.begin() + (menu.empty() ? 0 : 1), items.begin(), items.end());
    return static_cast<std::int16_t>(CountMaps(map));
}

} // namespace tarvo
