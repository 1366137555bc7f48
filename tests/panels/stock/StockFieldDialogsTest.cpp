#include "panels/stock/StockFieldDialogs.h"

#include "panels/stock/AdvancedStockDialog.h"
#include "panels/stock/CustomSizeDialog.h"
#include "panels/stock/StockLibraryDialog.h"
#include "panels/toolkit/Dialogs.h"
#include "records/Stock.h"
#include "support/BuiltBundle.h"
#include "support/DialogScript.h"
#include "support/StockText.h"

#include <gmock/gmock.h>
#include <gtkmm/spinbutton.h>

#include <fstream>

namespace tarvo {
namespace {

using StockDialog = OSStatus (*)(const CFBundle&, Gtk::Window*, Stock&, std::int32_t&);

struct DialogCase {
    const char* name;
    StockDialog run;
    const char* before;
    const char* text; // to be entered; "" for a dialog without
    int number;       // likewise; 0 for none
    const char* after;
};

// clang-format off
constexpr DialogCase DialogCases[] = {
    {"colour",             RunModalCustomStockColorSetup, "CustomColor=Lime",   "Moss",  0,   "CustomColor=Moss"},
    {"type",               RunModalCustomStockTypeSetup,  "",                   "Felt",  0,   "CustomType=Felt"},
    {"ordered",            RunModalOrderedStockSetup,     "",                   "Press", 7,   "CustomType=Press Modulus=7"},
    {"ordered, proposed",  RunModalOrderedStockSetup,     "",                   "Press", 0,   "CustomType=Press Modulus=5"},
    {"ordered, too many",  RunModalOrderedStockSetup,     "",                   "Press", 999, "CustomType=Press Modulus=254"},
    {"pre-cut tabs",       RunModalPreCutTabStockSetup,   "",                   "",      9,   "Modulus=9"},
    {"tabs, out of range", RunModalPreCutTabStockSetup,   "Type=4 Modulus=999", "",      0,   "Type=4 Modulus=254"},
    {"description",        RunModalStockDescriptionSetup, "",                   "Thick", 0,   "Description=Thick"},
};
// clang-format on

void Enter(Gtk::Dialog& dialog, const DialogCase& row)
{
    EXPECT_THAT(AccessibilityFaults(dialog), testing::IsEmpty());
    if (auto* field = FindWidget<Gtk::Entry>(dialog, "TPDE1"); *row.text != '\0') {
        EXPECT_TRUE(field->is_focus()) << "the first thing to do";
        field->set_text(row.text);
    }
    const char* spin = *row.text == '\0' ? "TPDE1" : "TPDE2";
    if (row.number != 0) {
        FindWidget<Gtk::SpinButton>(dialog, spin)->set_text(std::to_string(row.number));
    }
}

TEST(StockFieldDialogs, SetTheStockOnOkAlone)
{
    const CFBundle bundle = BuiltBundle();
    for (const auto& row : DialogCases) {
        for (const guint key : {guint{0}, guint{GDK_KEY_Return}, guint{GDK_KEY_Escape}}) {
            SCOPED_TRACE(std::string(row.name) + ", key " + std::to_string(key));
            Stock stock;
            stock.takeAsItIs(StockOf(row.before));
            const bool isCancelled = key == GDK_KEY_Escape;
            std::int32_t result = 0;
            const DialogAnswer user([&](Gtk::Dialog& dialog) {
                Enter(dialog, row);
                key == 0 ? dialog.response(Gtk::RESPONSE_OK) : PressKey(dialog, key);
            });
            EXPECT_EQ(row.run(bundle, nullptr, stock, result), StatusOk);
            EXPECT_EQ(result, isCancelled ? DialogCancel : DialogOk);
            EXPECT_EQ(StockText(stock), isCancelled ? row.before : row.after);
        }
    }
}

TEST(StockFieldDialogs, TakeNoEmptyNameAndCutALongOne)
{
    const CFBundle bundle = BuiltBundle();
    std::string name = "Proof";
    std::int32_t result = 0;
    const std::string longest = std::string(254, 'a') + "ü";
    const DialogScript user("StockNameSetup", [&longest](Gtk::Dialog& dialog) {
        auto* field = FindWidget<Gtk::Entry>(dialog, "TPDE1");
        EXPECT_TRUE(CanPressOk(dialog));
        field->set_text("");
        EXPECT_FALSE(CanPressOk(dialog));
        field->set_text("  ");
        EXPECT_FALSE(CanPressOk(dialog));
        PressKey(dialog, GDK_KEY_Return);
        EXPECT_TRUE(dialog.get_mapped());
        field->set_text(longest + "bc"); // as a paste does
        EXPECT_TRUE(CanPressOk(dialog));
        dialog.response(Gtk::RESPONSE_OK);
    });
    EXPECT_EQ(RunModalStockNameSetup(bundle, nullptr, name, result), StatusOk);
    EXPECT_EQ(result, DialogOk);
    EXPECT_EQ(name, longest);
}

TEST(StockFieldDialogs, GoBackToTheNumberOfAnEmptyField)
{
    const CFBundle bundle = BuiltBundle();
    Stock stock = StockOf("Type=4 Modulus=9");
    std::int32_t result = 0;
    const DialogScript user("PreCutTabStockSetup", [](Gtk::Dialog& dialog) {
        FindWidget<Gtk::SpinButton>(dialog, "TPDE1")->set_text("");
        dialog.response(Gtk::RESPONSE_OK);
    });
    EXPECT_EQ(RunModalPreCutTabStockSetup(bundle, nullptr, stock, result), StatusOk);
    EXPECT_EQ(StockText(stock), "Type=4 Modulus=9");
}

OSStatus RunSize(const CFBundle& bundle, Gtk::Window* parent, Stock& stock, std::int32_t& result)
{
    std::int32_t width = stock.width();
    std::int32_t length = stock.length();
    return RunModalCustomStockSizeDialog(bundle, parent, width, length, result);
}

OSStatus RunAdvanced(const CFBundle& bundle, Gtk::Window* parent, Stock& stock,
                     std::int32_t& result)
{
    return RunModalAdvancedStockSelection(bundle, parent, JobContext::Cover, stock, result);
}

OSStatus RunLibrary(const CFBundle& bundle, Gtk::Window* parent, Stock& stock, std::int32_t& result)
{
    LibraryAnswer answer = LibraryAnswer::Chosen;
    const OSStatus status =
        RunModalStockLibraryDialog(bundle, parent, JobContext::Cover, stock, answer);
    result = answer == LibraryAnswer::Chosen ? DialogOk : DialogCancel;
    return status;
}

struct WindowCase {
    const char* window;
    const char* file;
    StockDialog run;
};

constexpr WindowCase WindowCases[] = {
    {"CustomStockColorSetup",  "CustomStockColor.ui",       RunModalCustomStockColorSetup},
    {"OrderedStockSetup",      "OrderedStock.ui",           RunModalOrderedStockSetup    },
    {"PreCutTabStockSetup",    "PreCutTabStockSetup.ui",    RunModalPreCutTabStockSetup  },
    {"Custom",                 "CustomStockSize.ui",        RunSize                      },
    {"AdvancedStockSelection", "AdvancedStockSelection.ui", RunAdvanced                  },
    {"StockLibrary",           "StockLibrary.ui",           RunLibrary                   },
};

TEST(StockDialogs, AreGoneAfterwards)
{
    const CFBundle bundle = BuiltBundle();
    for (const auto& [window, file, run] : WindowCases) {
        SCOPED_TRACE(window);
        GObject* shown = nullptr;
        Stock stock;
        std::int32_t result = 0;
        const DialogScript user(window, [&shown](Gtk::Dialog& dialog) {
            g_set_weak_pointer(&shown, G_OBJECT(dialog.gobj()));
            dialog.response(Gtk::RESPONSE_CANCEL);
        });
        run(bundle, nullptr, stock, result);
        EXPECT_TRUE(TurnUntil([&shown] { return shown == nullptr; }));
        g_clear_weak_pointer(&shown);
    }
}

// A bundle that was installed by halves.
TEST(StockDialogs, AreCancelledWhenTheyCannotBeShown)
{
    for (const auto& [window, file, run] : WindowCases) {
        for (const char* description :
             {"", "<interface>", "<interface/>",
              "<interface><object class='GtkDialog' id='Custom'/></interface>"}) {
            SCOPED_TRACE(std::string(file) + description);
            const BundleCopy copy;
            std::filesystem::remove(copy.resource(file));
            if (*description != '\0') {
                std::ofstream(copy.resource(file)) << description;
            }
            Stock stock = StockOf("Color=2 CustomColor=Lime");
            std::int32_t result = 0;
            EXPECT_EQ(run(copy.bundle(), nullptr, stock, result), StatusNoWindow);
            EXPECT_EQ(result, DialogCancel);
            EXPECT_EQ(StockText(stock), "Color=2 CustomColor=Lime");
        }
    }
}

} // namespace
} // namespace tarvo
