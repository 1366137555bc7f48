#include "panels/toolkit/TextFilters.h"

#include "settings/SettingMap.h"
#include "support/Widgets.h"

namespace tarvo {
namespace {

using Prepare = void (*)(Gtk::Entry& field, const FieldEventFunction& onEvent);

void Digits(Gtk::Entry& field, const FieldEventFunction& onEvent)
{
    FilterNumericInput(field, onEvent);
}
void AtMost3(Gtk::Entry& field, const FieldEventFunction& onEvent)
{
    LimitInputLength(&field, 9, onEvent);
    LimitInputLength(&field, 3); // a later limit takes the place of the former
    LimitInputLength(&field, 0);
    LimitInputLength(nullptr, 1);
}
void AtMost3Digits(Gtk::Entry& field, const FieldEventFunction& onEvent)
{
    FilterNumericInput(field);
    LimitInputLength(&field, 3, onEvent);
}
void AtMost3OfAb(Gtk::Entry& field, const FieldEventFunction& onEvent)
{
    LimitInputLengthAndCharacters(&field, 3, "abä", onEvent);
}
void AnyOfAll(Gtk::Entry& field, const FieldEventFunction& onEvent)
{
    AtMost3OfAb(field, onEvent);
    LimitInputLengthAndCharacters(&field, 0, "");
}

// Puts a text in at a place, as a key or a paste does.
struct InputCase {
    const char* name;
    Prepare prepare;
    const char* before;
    const char* input;
    int place;
    const char* after;
};

constexpr InputCase InputCases[] = {
    {"digit",                         Digits,        "12",   "3",    2, "123"  },
    {"letter",                        Digits,        "12",   "x",    2, "12"   },
    {"digit of another script",       Digits,        "12",   "٣",   2, "12"   },
    {"paste with one letter",         Digits,        "12",   "3x",   2, "12"   },
    {"control character",             Digits,        "12",   "\t",   2, "12\t" },
    {"last that fits",                AtMost3,       "aä",  "x",    2, "aäx" },
    {"typed beyond the limit",        AtMost3,       "aäx", "y",    0, "aäx" },
    {"paste beyond the limit is cut", AtMost3,       "ab",   "xyz",  1, "axy"  },
    {"both",                          AtMost3Digits, "12",   "345",  2, "123"  },
    {"both, letter",                  AtMost3Digits, "12",   "x",    2, "12"   },
    {"allowed character",             AtMost3OfAb,   "a",    "ä",   1, "aä"  },
    {"other character",               AtMost3OfAb,   "a",    "c",    1, "a"    },
    {"no set and no limit any more",  AnyOfAll,      "a",    "cdef", 1, "acdef"},
};

TEST(TextFilters, RefuseWhatTheFieldDoesNotTake)
{
    for (const auto& row : InputCases) {
        SCOPED_TRACE(row.name);
        Gtk::Entry field;
        field.set_text(row.before);
        row.prepare(field, nullptr);
        int place = row.place;
        field.insert_text(row.input, -1, place);
        EXPECT_EQ(field.get_text(), row.after);
    }
}

TEST(TextFilters, TellWhetherTheFieldIsEmpty)
{
    for (const Prepare prepare : {Digits, AtMost3, AtMost3OfAb}) {
        Gtk::Entry field;
        std::string told;
        prepare(field, [&told](const Event& event) {
            EXPECT_EQ(event.eventClass, FourCharCode("TPDE"));
            told += event.kind == FourCharCode("ICno") ? "empty " : "";
            told += event.kind == FourCharCode("ICso") ? "filled " : "";
        });
        int place = 0;
        field.insert_text(prepare == AtMost3OfAb ? "a" : "1", 1, place);
        field.insert_text("xxxx", 1, place);
        field.delete_text(0, -1);
        EXPECT_EQ(told, prepare == AtMost3 ? "filled filled empty " : "filled empty ");
    }
}

} // namespace
} // namespace tarvo
