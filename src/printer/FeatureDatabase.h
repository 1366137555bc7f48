#pragma once

#include "platform/cf/CFPropertyList.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvo {

/// The bundle's resource that holds the features.
inline constexpr const char* DeviceProfileName = "Device Profile";

// What is in it. A feature is {ID: its name, Properties: {property: value}, Syntax: {Keyword, Name
// and Number, each only where the feature takes such a value}}. Keyword holds a dictionary for each
// keyword: {ID: the keyword, Default: true or absent, Properties}. Name has the entries Length,
// CharacterSet and Default, Number has Minimum, Maximum and Default, each of which may be absent.
inline constexpr std::string_view FeaturesKey = "Features"; // feature's name to feature
inline constexpr std::string_view FeatureIDKey = "ID";
inline constexpr std::string_view FeaturePropertiesKey = "Properties";
inline constexpr std::string_view FeatureSyntaxKey = "Syntax";
inline constexpr std::string_view KeywordSyntax = "Keyword";
inline constexpr std::string_view NameSyntax = "Name";
inline constexpr std::string_view NumberSyntax = "Number";
inline constexpr std::string_view SyntaxDefaultKey = "Default";
inline constexpr std::string_view NumberMinimumKey = "Minimum";
inline constexpr std::string_view NumberMaximumKey = "Maximum";
inline constexpr std::string_view NameLengthKey = "Length";             // characters
inline constexpr std::string_view NameCharacterSetKey = "CharacterSet"; // string of all allowed

// Features that the code asks for by name. TPIFFeatures.cpp has the table of all.
inline constexpr const char* JobTypeFeature = "JobType";

// Properties of features. True is the boolean, not a number.
inline constexpr std::string_view TPIFProperty = "TPIF"; // true: takes part in TPIF documents
inline constexpr std::string_view KeywordsUseNameSyntaxProperty = "KeywordsUseNameSyntax"; // true

// Properties of keywords.
inline constexpr std::string_view TPIFValueProperty = "TPIFValue";   // string: the document's word
inline constexpr std::string_view NameSyntaxProperty = "NameSyntax"; // true: the word is a name
inline constexpr std::string_view OfferedProperty = "Offered"; // boolean: menus show the keyword

/// Feature or keyword dictionaries in the profile's order, borrowed from it.
using FeatureDictionaries = std::vector<const CFDictionary*>;

/// The features of a printer. What is of another shape than above is as if it were absent.
class FeatureDatabase {
public:
    FeatureDatabase() = default;
    explicit FeatureDatabase(CFDictionary profile) : profile_(std::move(profile)) {}

    /// @return the feature, borrowed for as long as the database lives; null when there is none
    const CFDictionary* feature(std::string_view name) const;

    /// The features that have the property, whatever its value.
    FeatureDictionaries featuresWithProperty(std::string_view property) const;

    /// The features whose property equals the value; true does not equal 1.
    FeatureDictionaries featuresWithPropertyAndValue(std::string_view property,
                                                     const CFPropertyList& value) const;

private:
    CFDictionary profile_;
};

// The same of the process's printer, see PrinterDescription. What the functions return is borrowed
// from it.

const CFDictionary* TDPGetFeature(std::string_view name);
FeatureDictionaries TDPGetFeaturesWithProperty(std::string_view property);
FeatureDictionaries TDPGetFeaturesWithPropertyAndValue(std::string_view property,
                                                       const CFPropertyList& value);

// Parts of a feature. A null feature has none.

/// @return null when the feature has no such property
const CFPropertyList* TDPGetFeatureProperty(const CFDictionary* feature, std::string_view property);

/// @param syntax  KeywordSyntax, NameSyntax or NumberSyntax
/// @return null when the feature takes no such value
const CFDictionary* TDPGetFeatureSyntax(const CFDictionary* feature, std::string_view syntax);

/// The keywords whose property equals the value.
FeatureDictionaries TDPGetKeywordsWithPropertyAndValue(const CFDictionary* feature,
                                                       std::string_view property,
                                                       const CFPropertyList& value);

/// The value that a feature has when nobody chose one.
struct FeatureDefault {
    std::string_view syntax;
    CFPropertyList value; // of KeywordSyntax the keyword
    bool operator==(const FeatureDefault&) const = default;
};

/// @return the default keyword, else the default name, else the default number; nullopt when the
/// feature has none
std::optional<FeatureDefault> TDPGetFeatureDefaultValue(const CFDictionary* feature);

} // namespace tarvo
