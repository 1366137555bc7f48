#include "platform/bundle/CFBundle.h"

#include "platform/cf/PropertyListReader.h"
#include "platform/files/FileContents.h"

#include <glib.h>

#include <algorithm>

namespace tarvo {
namespace {

constexpr const char* LastLanguage = "en"; // its table has every key

std::optional<CFDictionary> ReadResource(const std::string& path, ParseError& error)
{
    std::string reason;
    const auto xml = ReadFileContents(path, PropertyListLimits.bytes, reason);
    if (!xml) {
        error = ParseError{0, "cannot read: " + reason};
        return std::nullopt;
    }
    return ReadPropertyListDictionary(*xml, error);
}

// Languages come from the environment and must not lead out of the bundle.
bool IsFolderName(const std::string& language)
{
    return !language.empty() && language.find('/') == std::string::npos;
}

std::vector<std::string> WithLastLanguage(std::vector<std::string> languages)
{
    if (std::find(languages.begin(), languages.end(), LastLanguage) == languages.end()) {
        languages.emplace_back(LastLanguage);
    }
    return languages;
}

} // namespace

CFBundle::CFBundle(const std::string& directory, const std::vector<std::string>& languages)
    : resources_(directory + "/Contents/Resources/")
{
    for (const std::string& language : WithLastLanguage(languages)) {
        if (!IsFolderName(language)) {
            continue;
        }
        ParseError unread; // who sees a menu can do nothing about a broken resource
        if (auto table = ReadResource(resources_ + language + ".lproj/Localizable.plist", unread)) {
            tables_.push_back(std::move(*table));
        }
    }
}

const std::string& CFBundle::localizedString(const char* key) const
{
    static const std::string NotFound = "STRING NOT FOUND";
    if (key == nullptr) {
        return NotFound;
    }
    for (const CFDictionary& table : tables_) {
        if (const auto* text = table.get<std::string>(key)) {
            return *text;
        }
    }
    return NotFound;
}

std::optional<CFDictionary> CFBundle::propertyList(const std::string& name) const
{
    ParseError unread;
    return propertyList(name, unread);
}

std::optional<CFDictionary> CFBundle::propertyList(const std::string& name, ParseError& error) const
{
    error = ParseError();
    return ReadResource(propertyListPath(name), error);
}

std::string CFBundle::propertyListPath(const std::string& name) const
{
    return resources_ + name + ".plist";
}

std::vector<std::string> UserLanguages()
{
    std::vector<std::string> languages;
    for (const gchar* const* name = g_get_language_names(); *name != nullptr; ++name) {
        languages.emplace_back(*name);
    }
    return languages;
}

} // namespace tarvo
