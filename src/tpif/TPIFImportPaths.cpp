#include "tpif/TPIFImportPaths.h"

namespace tarvo {

std::size_t TPIFImportPaths::addText(TPIFImportScope scope, std::string_view path)
{
    Place& place = add(scope, path);
    place.wantsText = true;
    return *place.slot;
}

std::size_t TPIFImportPaths::addPresence(TPIFImportScope scope, std::string_view path)
{
    return *add(scope, path).slot;
}

std::size_t TPIFImportPaths::addRepeatedText(TPIFImportScope scope, std::string_view path)
{
    Place& place = add(scope, path);
    place.wantsText = place.repeats = true;
    return *place.slot;
}

std::size_t TPIFImportPaths::addGroup(TPIFImportScope scope, std::string_view path,
                                      TPIFImportScope group, bool repeats)
{
    Place& place = add(scope, path);
    place.opens = group;
    place.repeats = repeats;
    return *place.slot;
}

std::optional<std::size_t> TPIFImportPaths::find(std::size_t around, std::string_view name) const
{
    for (const std::size_t index : places_[around].inside) {
        if (places_[index].name == name) {
            return index;
        }
    }
    return std::nullopt;
}

TPIFImportPaths::Place& TPIFImportPaths::add(TPIFImportScope scope, std::string_view path)
{
    std::size_t around = root(scope);
    for (std::size_t dot = 0; dot != std::string_view::npos;) {
        const std::size_t next = path.find('.', dot + 1);
        const std::string_view name = path.substr(dot + 1, next - dot - 1);
        auto index = find(around, name);
        if (!index) {
            index = places_.size();
            places_.push_back(Place{std::string(name), {}, {}, false, false, {}});
            places_[around].inside.push_back(*index);
        }
        around = *index;
        dot = next;
    }
    const auto slot = slots_.try_emplace(std::string(path), slots_.size()).first->second;
    places_[around].slot = slot;
    return places_[around];
}

} // namespace tarvo
