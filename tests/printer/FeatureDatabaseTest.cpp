#include "printer/FeatureDatabase.h"

#include "support/TicketText.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

std::string IDs(const FeatureDictionaries& dictionaries)
{
    std::string ids;
    for (const CFDictionary* dictionary : dictionaries) {
        const auto* id = dictionary->get<std::string>("ID");
        ids += (id != nullptr ? *id : "?") + " ";
    }
    return ids;
}

constexpr const char* BandProfile = R"(Features: {
    Band: {ID: "Band", Properties: {TPIF: true}},
    Number: {ID: "Number", Properties: {TPIF: 1}},
    Gap: {ID: "Gap", Properties: {Since: 1.0}},
    Bare: {ID: "Bare"},
    Text: "TPIF",
    List: {ID: "List", Properties: ["TPIF"]},
    Nameless: {Properties: {TPIF: true}}})";

TEST(FeatureDatabase, FindsFeaturesByNameAndProperty)
{
    const FeatureDatabase database(TicketFromText(BandProfile));
    ASSERT_NE(database.feature("Band"), nullptr);
    EXPECT_EQ(*database.feature("Band"), TicketFromText("ID: \"Band\", Properties: {TPIF: true}"));
    EXPECT_EQ(database.feature("band"), nullptr);
    EXPECT_EQ(database.feature("Text"), nullptr) << "no dictionary";
    EXPECT_EQ(IDs(database.featuresWithProperty("TPIF")), "Band Number ? ");
    EXPECT_EQ(IDs(database.featuresWithPropertyAndValue("TPIF", true)), "Band ? ");
    EXPECT_EQ(IDs(database.featuresWithPropertyAndValue("Since", 1)), "Gap ");
    EXPECT_EQ(IDs(database.featuresWithPropertyAndValue("TPIF", "true")), "");
}

TEST(FeatureDatabase, WithoutFeaturesIsEmpty)
{
    for (const char* profile : {"", "Features: \"Band\""}) {
        const FeatureDatabase database(TicketFromText(profile));
        EXPECT_EQ(database.feature("Band"), nullptr);
        EXPECT_TRUE(database.featuresWithProperty("TPIF").empty());
        EXPECT_TRUE(database.featuresWithPropertyAndValue("TPIF", true).empty());
    }
}

TEST(Feature, GivesItsPartsAndKeywords)
{
    const CFDictionary band = TicketFromText(R"(ID: "Band", Properties: {TPIF: false},
        Syntax: {Name: "Length", Keyword: {
            Head: {ID: "Head", Properties: {TPIFValue: "head"}},
            Foot: {ID: "Foot", Properties: {TPIFValue: "foot"}},
            Text: "foot",
            Bare: {ID: "Bare"},
            Low: {ID: "Low", Properties: {TPIFValue: "foot"}}}})");
    ASSERT_NE(TDPGetFeatureProperty(&band, "TPIF"), nullptr);
    EXPECT_EQ(*TDPGetFeatureProperty(&band, "TPIF"), CFPropertyList(false));
    EXPECT_EQ(TDPGetFeatureProperty(&band, "ID"), nullptr);
    ASSERT_NE(TDPGetFeatureSyntax(&band, "Keyword"), nullptr);
    EXPECT_EQ(TDPGetFeatureSyntax(&band, "Keyword")->size(), 5U);
    EXPECT_EQ(TDPGetFeatureSyntax(&band, "Name"), nullptr) << "no dictionary";
    EXPECT_EQ(IDs(TDPGetKeywordsWithPropertyAndValue(&band, "TPIFValue", "foot")), "Foot Low ");
    EXPECT_EQ(IDs(TDPGetKeywordsWithPropertyAndValue(&band, "TPIFValue", true)), "");
}

TEST(Feature, OfAnotherShapeHasNoParts)
{
    const CFDictionary wrong = TicketFromText(R"(Properties: "TPIF", Syntax: ["Keyword"])");
    const CFDictionary inside = TicketFromText(R"(Syntax: {Keyword: "Head", Name: 1})");
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
    const char* syntaxes;
    const char* syntax; // "" for no default
    CFPropertyList value;
};

// clang-format off
const DefaultCase DefaultCases[] = {
    {"keyword, the first of two",
        R"(Number: {Default: 3}, Name: {Default: "Foot"},
           Keyword: {A: {Default: false}, B: {Default: true}, C: {Default: true}})",
        "Keyword", "B"},
    {"no keyword, so the name",
        R"(Number: {Default: 3}, Name: {Default: "Foot"}, Keyword: {A: {Default: 1}, B: true})",
        "Name", "Foot"},
    {"no name, so the number", "Number: {Default: 3}, Name: {}", "Number", 3},
    {"nothing", R"(Number: {}, Name: "Foot")", "", ""},
};
// clang-format on

TEST(Feature, HasTheDefaultOfTheFirstSyntaxThatHasOne)
{
    for (const auto& row : DefaultCases) {
        const CFDictionary feature = TicketFromText("Syntax: {" + std::string(row.syntaxes) + "}");
        const auto found = TDPGetFeatureDefaultValue(&feature);
        EXPECT_EQ(found ? found->syntax : "", row.syntax) << row.name;
        EXPECT_EQ(found ? found->value : "", row.value) << row.name;
    }
}

} // namespace
} // namespace tarvo
