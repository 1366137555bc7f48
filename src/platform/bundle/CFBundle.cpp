#include "platform/bundle/CFBundle.h"

#include "platform/cf/PropertyListReader.h"
#include "platform/files/FileContents.h"

#include <glib.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

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
    : contents_(directory + "/Contents/"),
      resources_(contents_ + "Resources/"),
      languages_(WithLastLanguage(languages))
{
    std::erase_if(languages_, [](const std::string& language) { return !IsFolderName(language); });
    for (const std::string& language : languages_) {
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

CFDictionary CFBundle::infoDictionary() const
{
    ParseError unread;
    return ReadResource(contents_ + "Info.plist", unread).value_or(CFDictionary());
}

std::optional<std::string> CFBundle::resourcePath(const std::string& name) const
{
    std::error_code error; // unread: what cannot be looked at is not there
    for (const std::string& language : languages_) {
        std::string path = resources_ + language;
        path.append(".lproj/").append(name);
        if (std::filesystem::exists(path, error)) {
            return path;
        }
    }
    std::string path = resources_ + name;
    return std::filesystem::exists(path, error) ? std::optional(path) : std::nullopt;
}

std::string BundleFolderFrom(const std::string& folder, std::initializer_list<const char*> places)
{
    namespace fs = std::filesystem;
    for (const char* place : places) {
        std::error_code error;
        const fs::path bundle = fs::weakly_canonical(fs::path(folder) / place, error);
        if (!error && fs::is_directory(bundle, error)) {
            return bundle.string();
        }
    }
    return "";
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
