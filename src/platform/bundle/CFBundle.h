#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/xml/XmlLimits.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace tarvo {

/// A bundle folder: <directory>/Contents/ with an Info.plist, and Resources/ in it with a
/// <language>.lproj for each language. The texts that people read are in Localizable.plist there, a
/// dictionary of key to text.
class CFBundle {
public:
    /// Reads the texts. A table that is absent or cannot be read is an empty one.
    /// @param languages  most wanted first, such as {"de_AT", "de"}; "en" follows by itself
    CFBundle(const std::string& directory, const std::vector<std::string>& languages);

    /// @return the text of the first language that has the key, for as long as the bundle lives;
    /// "STRING NOT FOUND" when none has, and for a null key
    const std::string& localizedString(const char* key) const;

    /// Whether there is any text; otherwise the folder is no bundle.
    bool hasTexts() const { return !tables_.empty(); }

    /// Reads the resource <name>.plist, which does not depend on the language.
    /// @return nullopt when it is absent, cannot be read or is no dictionary
    std::optional<CFDictionary> propertyList(const std::string& name) const;

    /// The same for who can tell somebody.
    /// @return nullopt with `error` filled: why, and the line where it is about one
    std::optional<CFDictionary> propertyList(const std::string& name, ParseError& error) const;

    /// The file of that resource, be it there or not.
    std::string propertyListPath(const std::string& name) const;

    /// What the bundle says of itself: Info.plist, read at each call.
    /// @return an empty dictionary when it is absent or cannot be read
    CFDictionary infoDictionary() const;

    /// Finds a resource of any kind: that of the most wanted language, else the one for all.
    /// @param name  relative to the folder of resources, such as "help/index.html"
    /// @return nullopt when there is no such file or folder
    std::optional<std::string> resourcePath(const std::string& name) const;

private:
    std::string contents_;  // the folder, with a slash
    std::string resources_; // likewise
    std::vector<std::string> languages_;
    std::vector<CFDictionary> tables_; // one for each language that has texts, most wanted first
};

/// Finds the folder of a bundle from that of the program or module which it belongs to.
/// @param places  from there; the first that is a folder counts
/// @return "" when none is
std::string BundleFolderFrom(const std::string& folder, std::initializer_list<const char*> places);

/// The languages of the process's user, most wanted first, each followed by its general form
/// ("de_AT", "de"); the names of <language>.lproj folders are looked for among them.
std::vector<std::string> UserLanguages();

} // namespace tarvo
