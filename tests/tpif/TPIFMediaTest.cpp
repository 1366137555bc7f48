#include "tpif/TPIFMedia.h"

#include "TPIFTestSupport.h"
#include "settings/StockMaps.h"

namespace tarvo {
namespace {

constexpr PageFormat LetterPage = {PageOrientation::Portrait, 612, 792};

// The members of the media-col, one a line without their three tabs.
std::string Members(const CFDictionary& stock, const PageFormat* page = nullptr)
{
    std::string text =
        Written([&](TPIFChannel& channel) { WriteTPifMedia(channel, FillMediaData(stock, page)); });
    const std::string start = "\t\t<media-col syntax=\"collection\">\n";
    const std::string end = "\t\t</media-col>\n";
    EXPECT_TRUE(text.starts_with(start) && text.ends_with(end)) << text;
    text = text.substr(start.size(), text.size() - start.size() - end.size());
    for (std::size_t tabs = 0; (tabs = text.find("\t\t\t", tabs)) != std::string::npos;) {
        text.erase(tabs, 3);
    }
    return text;
}

std::string Size(std::uint32_t x, std::uint32_t y)
{
    return "<media-size syntax=\"collection\">\n\t<x-dimension syntax=\"integer\">" +
           std::to_string(x) + "</x-dimension>\n\t<y-dimension syntax=\"integer\">" +
           std::to_string(y) + "</y-dimension>\n</media-size>\n";
}

std::string Keyword(const std::string& name, const std::string& word)
{
    return "<" + name + " syntax=\"keyword\">" + word + "</" + name + ">\n";
}

std::string Name(const std::string& name, const std::string& text)
{
    return "<" + name + " syntax=\"name\" xml:space=\"preserve\">" + text + "</" + name + ">\n";
}

std::string Integer(const std::string& name, int number)
{
    return "<" + name + " syntax=\"integer\">" + std::to_string(number) + "</" + name + ">\n";
}

struct MediaCase {
    const char* name;
    CFDictionary stock;
    std::string members;
};

void ExpectMembers(const std::vector<MediaCase>& cases)
{
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Members(row.stock), row.members);
    }
}

TEST(Media, HasAllMembersInTheirOrder)
{
    const CFDictionary stock = Dictionary({
        {"kGrain",       2                  },
        {"Finish",       3                  },
        {"SidesCoated",  3                  },
        {"kCoatingType", 2                  },
        {"Size",         4                  },
        {"Color",        10                 },
        {"CustomColor",  "salmon & \"rose\""},
        {"Punched",      2                  },
        {"Description",  "<heavy>"          },
        {"Weight",       120                },
        {"Modulus",      5                  },
        {"Type",         6                  },
        {"CustomType",   "A's"              },
        {"CustomName",   "not alone"        },
    });
    EXPECT_EQ(Members(stock),
              Name("media-type", "A&apos;s") + Integer("media-order-count", 5) +
                  Integer("media-weight-metric", 120) + Name("media-description", "&lt;heavy&gt;") +
                  Integer("media-hole-count", 3) +
                  Name("media-color", "salmon &amp; &quot;rose&quot;") + Size(21000, 29700) +
                  Keyword("media-front-coating", "high-gloss") +
                  Keyword("media-back-coating", "high-gloss") + Keyword("media-tooth", "coarse") +
                  Keyword("media-grain", "x-grain"));
}

TEST(Media, KnownByNameHasItsKeyAlone)
{
    ExpectMembers({
        {"name", Dictionary({{"CustomNameOnly", true}, {"CustomName", "A & B"}, {"Weight", 90}}),
         Name("media-key",                                                                           "A &amp; B")},
        {"true without a name",      Dictionary({{"CustomNameOnly", true}, {"Weight", 90}}),                                                                 ""      },
        {"false",      Dictionary({{"CustomNameOnly", false}, {"CustomName", "A"}, {"Size", 1}}),                                                                               ""},
        {"a name that is no text",      Dictionary({{"CustomNameOnly", true}, {"CustomName", 1}}),                                                              ""     },
    });
    const CFDictionary unnamed = Dictionary({
        {"CustomNameOnly", false}
    });
    EXPECT_EQ(Members(unnamed, &LetterPage), "");
}

TEST(Media, TypeWinsOverTheStocksOwn)
{
    const auto type = [](int number) {
        return Dictionary({
            {"Type",         number},
            {"Weight",       90    },
            {"Punched",      1     },
            {"SidesCoated",  3     },
            {"kCoatingType", 5     },
            {"Modulus",      3     },
            {"CustomType",   "own" }
        });
    };
    const std::string own = Integer("media-weight-metric", 90);
    const std::string unpunched = Integer("media-hole-count", 0);
    const std::string ordered = Integer("media-order-count", 3);
    const std::string matte =
        Keyword("media-front-coating", "matte") + Keyword("media-back-coating", "matte");
    const std::string glossyFront =
        Keyword("media-front-coating", "glossy") + Keyword("media-back-coating", "none");
    const std::string rest = own + unpunched + matte;
    ExpectMembers({
        {"plain",                                                    type(1),                       Keyword("media-type",                                           "stationery") + rest},
        {"pre-printed",                                                          type(3),                                                                           Keyword("media-pre-printed",                                                                         "pre-printed") + rest},
        {"tabs",                                     type(4),                                                                  Keyword("media-type",                                                   "pre-cut-tabs") + ordered + rest},
        {"full-cut tabs have no count",                                      type(5),Keyword("media-type","full-cut-tabs") + rest},
        {"custom",              type(7),                                                      Name("media-type",                                                                                                                "own") + ordered + rest},
        {"recycled",                                                   type(10),                                                            Keyword("media-recycled",                                                    "standard") + rest},
        {"punched",                                                          type(11),
         Keyword("media-type",                                                                                  "stationery") + own + Integer("media-hole-count", 3) + matte},
        {"card",                                        type(12),
         Keyword("media-type",                                                                        "stationery") + Integer("media-weight-metric", 141) + unpunched +
             matte},
        {"letterhead",                                       type(14),                    Keyword("media-pre-printed","letter-head") + rest},
        {"driver's first",                                                     type(15),                                   Name("media-type",                                                                                                                                      "Custom1") + ordered + rest},
        {"driver's last",                                         type(21),                                                                      Name("media-type",                                                                                                                         "Custom7") + ordered + rest},
        {"driver's own default",                               type(23),                    Name("media-type",                                                                                            "") + ordered + rest},
        {"glossy",type(30),
         Name("media-type","stationery2") + ordered + own + unpunched + glossyFront},
        {"heavy glossy",                                            type(31),
         Keyword("media-type", "stationery") + Integer("media-weight-metric", 219) + unpunched +
             glossyFront},
        {"heavy tabs",                                                          type(33),
         Keyword("media-type",                                                                                          "pre-cut-tabs") + ordered + Integer("media-weight-metric", 229) +
             unpunched + matte},
        {"no such type",                                      type(34),                                                                   rest                              },
        {"last",                                          type(39),
         Keyword("media-type",                                                                                                                                                                                                        "labels") + Integer("media-weight-metric", 229) + unpunched + matte},
        {"beyond",       type(40),                                                                      rest                                                                                      },
        {"none",                                                          type(0),                                                                            rest                                                                        },
        {"a text", Dictionary({{"Type", "1"}}), ""},
    });
}

TEST(Media, CustomNamesAreCutToThirtyBytes)
{
    const std::string thirty(30, 'x');
    const auto type = [](const std::string& name) {
        return Members(Dictionary({
            {"Type",       7   },
            {"CustomType", name}
        }));
    };
    const auto color = [](const std::string& name) {
        return Members(Dictionary({
            {"Color",       10  },
            {"CustomColor", name}
        }));
    };
    EXPECT_EQ(type(thirty + "y"), Name("media-type", thirty));
    EXPECT_EQ(type(std::string("a\0b", 3)), Name("media-type", "a"));
    EXPECT_EQ(type(""), Name("media-type", ""));
    EXPECT_EQ(color(thirty.substr(1) + "&"), Name("media-color", thirty.substr(1)));
    EXPECT_EQ(color(""), Name("media-color", ""));
}

TEST(Media, ColorIsAKeywordOrAName)
{
    ExpectMembers({
        {"first",                      Dictionary({{"Color", 1}}), Keyword("media-color", "white")},
        {"clear",                            Dictionary({{"Color", 6}}),                                                Keyword("media-color",                "no-color")},
        {"last keyword",                 Dictionary({{"Color", 13}}),                                           Keyword("media-color",                                    "orange")},
        {"other",       Dictionary({{"Color", 14}}),Name("media-color","other")},
        {"last name",Dictionary({{"Color", 21}}),                      Name("media-color",                                                                    "custom7")},
        {"beyond",                  Dictionary({{"Color", 22}}),                       ""    },
        {"a truth value",                            Dictionary({{"Color", true}}),                                               ""                       },
        {"a whole real",                            Dictionary({{"Color", 2.0}}),                                        Keyword("media-color", "blue")},
        {"a fraction",                            Dictionary({{"Color", 2.5}}),                                         ""},
    });
}

TEST(Media, SizeIsTheRowsOrTheStocksOwn)
{
    const auto size = [](CFPropertyList number, CFPropertyList width, CFPropertyList length) {
        return Dictionary({
            {"Size",   number},
            {"Width",  width },
            {"Length", length}
        });
    };
    ExpectMembers({
        {"first row",    size(1,   5,         6),                   Size(21600,                 27900)},
        {"last size",              size(51,            5, 6),         Size(16200,                                 26200)},
        {"custom",        size(75,                20000,                  30000),                        Size(20000,30000)},
        {"without a row",    size(6,      17600,               25000),Size(17600,                  25000)},
        {"unset",        size(UnsetValue,      20000,30000),                  Size(20000,                     30000)},
        {"zero",         size(0,      20000,           30000),        Size(20000,              30000)},
        {"length unset",size(75,20000,UnsetValue),""},
        {"width 0", size(75,   0,          30000),                             ""                                                           },
        {"negative",      size(75,       -1,             1),                  Size(4294967295U,              1)},
        {"no numbers",     size("1", "2",  true),        ""},
    });
}

struct PageCase {
    const char* name;
    PageOrientation orientation;
    float width;
    float length;
    std::string size;
};

TEST(Media, WithoutASizeTakesThePages)
{
    const PageCase cases[] = {
        {"portrait",                 PageOrientation::Portrait, 595,                      842,                                  Size(21000,                                 29700)},
        {"reverse portrait",                          PageOrientation::ReversePortrait,                                  595, 842, Size(21000,                                        29700)},
        {"landscape",                    PageOrientation::Landscape,                                             842,                                                           595,                                                  Size(29700,      21000)},
        {"reverse landscape",                PageOrientation::ReverseLandscape,                                   842,                                                           595,                            Size(29700,                 21000)},
        {"landscape not turned",                       PageOrientation::Landscape,                                      595,842,       ""           },
        {"not whole points",                       PageOrientation::Portrait,        595.2756F,                                 841.8898F,                                                               ""                                                                            },
        {"postcard, not envelope",                 PageOrientation::Portrait,                          432,                648,Size(15200,22900)},
        {"13 x 18 in has no row",                       PageOrientation::Portrait,                    936,                   1296,                                                            ""                                                                                                                                                                         },
        {"nothing",PageOrientation::Portrait,0,0,""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const PageFormat page = {row.orientation, row.width, row.length};
        EXPECT_EQ(Members(CFDictionary(), &page), row.size);
    }
    EXPECT_EQ(Members(Dictionary({
                          {"Size", 4}
    }),
                      &LetterPage),
              Size(21000, 29700));
    EXPECT_EQ(Members(Dictionary({
                          {"Size", 75}
    }),
                      &LetterPage),
              Size(21600, 27900));
    EXPECT_EQ(Members(Dictionary({
                          {"Size",   75},
                          {"Width",  0 },
                          {"Length", 9 }
    }),
                      &LetterPage),
              "");
    EXPECT_EQ(Members(CFDictionary()), "");
}

TEST(Media, CoatingLeavesOutASideWithoutAWord)
{
    const auto coating = [](CFPropertyList sides, CFPropertyList type) {
        return Dictionary({
            {"SidesCoated",  sides},
            {"kCoatingType", type }
        });
    };
    const auto both = [](const std::string& front, const std::string& back) {
        return Keyword("media-front-coating", front) + Keyword("media-back-coating", back);
    };
    ExpectMembers({
        {"uncoated",     coating(1, 3),                 both("none",                    "none")},
        {"uncoated, unknown",              coating(1,     9), both("none",                         "none")},
        {"front",       coating(2,                1),                            both("glossy",                   "none")},
        {"both", coating(3,   3),both("semi-gloss", "semi-gloss")},
        {"back",            coating(4,  5),              both("none",                                            "matte")},
        {"any other",coating(7,4),both("satin","satin")},
        {"front, unknown",    coating(2,           6),                            Keyword("media-back-coating",                                                     "none")},
        {"back, type absent",              Dictionary({{"SidesCoated", 4}}),
         Keyword("media-front-coating",              "none")                               },
        {"both, unknown",       coating(3,                0),                ""},
        {"unset",       coating(UnsetValue,                1),       ""},
    });
}

TEST(Media, LeavesOutWhatHasNoWord)
{
    ExpectMembers({
        {"weight of -1",                                 Dictionary({{"Weight", -1}}),               ""      },
        {"weight unset",                                 Dictionary({{"Weight", UnsetValue}}),
         "<media-weight-metric syntax=\"integer\">-2147483648</media-weight-metric>\n"                       },
        {"count of -1",                                  Dictionary({{"Type", 4}, {"Modulus", -1}}),
         Keyword("media-type",                                                                                 "pre-cut-tabs")},
        {"count 0",                                              Dictionary({{"Type", 24}, {"Modulus", 0}}),
         Keyword("media-type", "pre-cut-tabs") + Integer("media-order-count", 0)},
        {"punching unknown", Dictionary({{"Punched", 3}}),                                         ""                                                },
        {"empty description",                  Dictionary({{"Description", ""}}),                  ""},
        {"finish",Dictionary({{"Finish", 1}, {"kGrain", 1}}),
         Keyword("media-tooth",                                                  "fine") + Keyword("media-grain", "y-grain")},
        {"finish unknown",         Dictionary({{"Finish", 4}, {"kGrain", 0}}),                                                                      ""},
    });
}

TEST(JobLevelStock, IsAnEmptyMediumWhenAbsentOrNoDictionary)
{
    const auto job = [](const CFDictionary& settings) {
        return Written(
            [&](TPIFChannel& channel) { WriteTPIFJobLevelStock(channel, settings, nullptr); });
    };
    const std::string empty = "\t\t<media-col syntax=\"collection\">\n\t\t</media-col>\n";
    EXPECT_EQ(job({}), empty);
    EXPECT_EQ(job(Dictionary({
                  {"com.tarvo.print.JobLevelStock", "Letter"}
    })),
              empty);
    EXPECT_EQ(job(Dictionary({
                  {"com.tarvo.print.JobLevelStock", Dictionary({{"Finish", 2}})}
    })),
              "\t\t<media-col syntax=\"collection\">\n"
              "\t\t\t<media-tooth syntax=\"keyword\">medium</media-tooth>\n"
              "\t\t</media-col>\n");
}

} // namespace
} // namespace tarvo
