#include "tpif/TPIFImportPaths.h"

namespace tarvo {

TPIFImportPaths::TPIFImportPaths() : places_(TPIFImportScopeCount)
{
    for (std::size_t index = 0; index < places_.size(); ++index) {
        places_[index].index = index;
    }
}

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

const TPIFImportPaths::Place* TPIFImportPaths::find(const Place& around,
                                                    std::string_view name) const
{
    const std::size_t* index = around.inside.find(name);
    return index == nullptr ? nullptr : &places_[*index];
}

// The index of the place of that name inside another; a new one when there was none.
std::size_t TPIFImportPaths::enter(std::size_t around, std::string_view name)
{
    if (const Place* place = find(places_[around], name)) {
        return place->index;
    }
    const std::size_t index = places_.size();
    places_[around].inside.set(name, index);
    places_.push_back(Place{std::string(name), index, {}, {}, false, false, {}});
    return index;
}

TPIFImportPaths::Place& TPIFImportPaths::add(TPIFImportScope scope, std::string_view path)
{
    std::size_t around = root(scope).index;
    for (std::size_t dot = 0; dot != std::string_view::npos;) {
        const std::size_t next = path.find('.', dot + 1);
        around = enter(around, path.substr(dot + 1, next - dot - 1));
        dot = next;
    }
    const auto slot = slots_.try_emplace(std::string(path), slots_.size()).first->second;
    places_[around].slot = slot;
    return places_[around];
}

} // namespace tarvo
