#include "printer/FeatureDatabase.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

CFDictionary Dict()
{
    return {};
}

// A dictionary of each key with the value that follows it.
template <typename... Rest>
CFDictionary Dict(const char* key, const CFPropertyList& value, const Rest&... rest)
{
    CFDictionary dictionary = Dict(rest...);
    std::vector<CFDictionary::Entry> entries = {
        {key, value}
    };
    entries.insert(entries.end(), dictionary.begin(), dictionary.end());
    return CFDictionary(entries);
}

// A feature or a keyword with one property.
CFDictionary Item(const char* id, const char* property, const CFPropertyList& value)
{
    return Dict("ID", id, "Properties", Dict(property, value));
}

std::string IDs(const FeatureDictionaries& dictionaries)
{
    std::string ids;
    for (const CFDictionary* dictionary : dictionaries) {
        const auto* id = dictionary->get<std::string>("ID");
        ids += (id != nullptr ? *id : "?") + " ";
    }
    return ids;
}

CFDictionary BandProfile()
{
    CFDictionary features;
    features.set("Band", Item("Band", "TPIF", true));
    features.set("Number", Item("Number", "TPIF", 1));
    features.set("Gap", Item("Gap", "Since", 1.0));
    features.set("Bare", Dict("ID", "Bare"));
    features.set("Text", "TPIF");
    features.set("List", Dict("ID", "List", "Properties", CFArray{"TPIF"}));
    features.set("Nameless", Dict("Properties", Dict("TPIF", true)));
    return Dict("Features", features);
}

TEST(FeatureDatabase, FindsFeaturesByNameAndProperty)
{
    const FeatureDatabase database(BandProfile());
    ASSERT_NE(database.feature("Band"), nullptr);
    EXPECT_EQ(*database.feature("Band"), Item("Band", "TPIF", true));
    EXPECT_EQ(database.feature("band"), nullptr);
    EXPECT_EQ(database.feature("Text"), nullptr) << "no dictionary";
    EXPECT_EQ(IDs(database.featuresWithProperty("TPIF")), "Band Number ? ");
    EXPECT_EQ(IDs(database.featuresWithPropertyAndValue("TPIF", true)), "Band ? ");
    EXPECT_EQ(IDs(database.featuresWithPropertyAndValue("Since", 1)), "Gap ");
    EXPECT_EQ(IDs(database.featuresWithPropertyAndValue("TPIF", "true")), "");
}

TEST(FeatureDatabase, WithoutFeaturesIsEmpty)
{
    for (const auto& profile : {CFDictionary(), Dict("Features", "Band")}) {
        const FeatureDatabase database(profile);
        EXPECT_EQ(database.feature("Band"), nullptr);
        EXPECT_TRUE(database.featuresWithProperty("TPIF").empty());
        EXPECT_TRUE(database.featuresWithPropertyAndValue("TPIF", true).empty());
    }
}

TEST(Feature, GivesItsPartsAndKeywords)
{
    const auto keywords =
        Dict("Head", Item("Head", "TPIFValue", "head"), "Foot", Item("Foot", "TPIFValue", "foot"),
             "Text", "foot", "Bare", Dict("ID", "Bare"), "Low", Item("Low", "TPIFValue", "foot"));
    CFDictionary band = Item("Band", "TPIF", false);
    band.set("Syntax", Dict("Keyword", keywords, "Name", "Length"));
    ASSERT_NE(TDPGetFeatureProperty(&band, "TPIF"), nullptr);
    EXPECT_EQ(*TDPGetFeatureProperty(&band, "TPIF"), CFPropertyList(false));
    EXPECT_EQ(TDPGetFeatureProperty(&band, "ID"), nullptr);
    ASSERT_NE(TDPGetFeatureSyntax(&band, "Keyword"), nullptr);
    EXPECT_EQ(*TDPGetFeatureSyntax(&band, "Keyword"), keywords);
    EXPECT_EQ(TDPGetFeatureSyntax(&band, "Name"), nullptr) << "no dictionary";
    EXPECT_EQ(IDs(TDPGetKeywordsWithPropertyAndValue(&band, "TPIFValue", "foot")), "Foot Low ");
    EXPECT_EQ(IDs(TDPGetKeywordsWithPropertyAndValue(&band, "TPIFValue", true)), "");
}

TEST(Feature, OfAnotherShapeHasNoParts)
{
    const CFDictionary wrong = Dict("Properties", "TPIF", "Syntax", CFArray{"Keyword"});
    const CFDictionary inside = Dict("Syntax", Dict("Keyword", "Head", "Name", 1));
    const CFDictionary* const features[] = {nullptr, &wrong, &inside};
    for (const CFDictionary* feature : features) {
        EXPECT_EQ(TDPGetFeatureProperty(feature, "TPIF"), nullptr);
        EXPECT_EQ(TDPGetFeatureSyntax(feature, "Keyword"), nullptr);
        EXPECT_TRUE(TDPGetKeywordsWithPropertyAndValue(feature, "TPIFValue", "head").empty());
        EXPECT_EQ(TDPGetFeatureDefaultValue(feature), std::nullopt);
    }
}

struct DefaultCase {
    const char* name;
    CFDictionary syntaxes;
    const char* syntax; // "" for no default
    CFPropertyList value;
};

TEST(Feature, HasTheDefaultOfTheFirstSyntaxThatHasOne)
{
    const auto isDefault = Dict("Default", true);
    const auto number = Dict("Default", 3);
    const auto name = Dict("Default", "Foot");
    const auto noKeyword = Dict("A", Dict("Default", 1), "B", true);
    const auto keywords = Dict("A", Dict("Default", false), "B", isDefault, "C", isDefault);
    const auto all = Dict("Number", number, "Name", name, "Keyword", keywords);
    const auto rest = Dict("Number", number, "Name", name, "Keyword", noKeyword);
    const auto noName = Dict("Number", number, "Name", Dict());
    const auto none = Dict("Number", Dict(), "Name", "Foot");
    const DefaultCase cases[] = {
        {"keyword, the first of two", all,    "Keyword", "B"   },
        {"no keyword, so the name",   rest,   "Name",    "Foot"},
        {"no name, so the number",    noName, "Number",  3     },
        {"nothing",                   none,   "",        ""    },
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const CFDictionary feature = Dict("Syntax", row.syntaxes);
        const auto found = TDPGetFeatureDefaultValue(&feature);
        EXPECT_EQ(found ? found->syntax : "", row.syntax);
        EXPECT_EQ(found ? found->value : "", row.value);
    }
}

} // namespace
} // namespace tarvo
