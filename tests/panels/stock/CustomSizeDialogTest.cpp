#include "panels/stock/CustomSizeDialog.h"

#include "StockFixture.h"
#include "panels/toolkit/Dialogs.h"
#include "support/DialogScript.h"

#include <gmock/gmock.h>
#include <gtkmm/messagedialog.h>
#include <gtkmm/radiobutton.h>
#include <gtkmm/spinbutton.h>

namespace tarvo {
namespace {

// A printer without a description takes 432 to 864 points: 152.4 to 304.8 mm.
class CustomSizeDialog : public StockFixture {
protected:
    CustomSizeDialog() { CustomSizeUnit() = LengthUnit::Millimeters; }
    ~CustomSizeDialog() override { CustomSizeUnit() = LengthUnit::NotChosen; }

    std::int32_t run()
    {
        std::int32_t result = 0;
        EXPECT_EQ(RunModalCustomStockSizeDialog(*bundle_, nullptr, width_, length_, result),
                  StatusOk);
        return result;
    }
    std::pair<std::int32_t, std::int32_t> size() const { return {width_, length_}; }

    static Gtk::SpinButton& spin(Gtk::Dialog& dialog, const char* name)
    {
        return *FindWidget<Gtk::SpinButton>(dialog, name);
    }
    static std::string shown(Gtk::Dialog& dialog)
    {
        return spin(dialog, "TPDE1").get_text() + " " + spin(dialog, "TPDE2").get_text();
    }
    static void press(Gtk::Dialog& dialog, const char* button)
    {
        FindWidget<Gtk::Button>(dialog, button)->clicked();
    }

    std::int32_t width_ = 20000;
    std::int32_t length_ = 30000;
};

TEST_F(CustomSizeDialog, TakesASizeInEitherUnit)
{
    const DialogScript user("Custom", [](Gtk::Dialog& dialog) {
        EXPECT_THAT(AccessibilityFaults(dialog), testing::IsEmpty());
        EXPECT_EQ(shown(dialog), "200.0 300.0");
        spin(dialog, "TPDE1").set_text("215.9");
        spin(dialog, "TPDE1").update(); // as a press of the mouse does
        spin(dialog, "TPDE1").spin(Gtk::SPIN_STEP_FORWARD, 1);
        EXPECT_EQ(shown(dialog), "216.9 300.0") << "an arrow goes on from what was typed";
        FindWidget<Gtk::RadioButton>(dialog, "TPDE3")->set_active(true);
        EXPECT_EQ(shown(dialog), "8.54 11.81");
        spin(dialog, "TPDE2").set_text("11");
        dialog.response(Gtk::RESPONSE_OK);
    });
    EXPECT_EQ(run(), DialogOk);
    EXPECT_EQ(size(), std::pair(21692, 27940));
    EXPECT_EQ(CustomSizeUnit(), LengthUnit::Inches) << "for the next time";
}

TEST_F(CustomSizeDialog, LeavesTheSizeOnCancelAndEscape)
{
    for (const DialogScript::Action& leave :
         {Respond(Gtk::RESPONSE_CANCEL), Pressing(GDK_KEY_Escape)}) {
        const DialogScript user("Custom", [&leave](Gtk::Dialog& dialog) {
            spin(dialog, "TPDE1").set_text("250");
            leave(dialog);
        });
        EXPECT_EQ(run(), DialogCancel);
        EXPECT_EQ(size(), std::pair(20000, 30000));
    }
}

TEST_F(CustomSizeDialog, GoesBackToTheUsualSizeOfTheCountry)
{
    const DialogScript user("Custom", [](Gtk::Dialog& dialog) {
        press(dialog, "TPDE5");
        EXPECT_EQ(shown(dialog), "8.50 11.00");
        dialog.response(Gtk::RESPONSE_OK);
    });
    EXPECT_EQ(run(), DialogOk);
    EXPECT_EQ(size(), std::pair(21590, 27940));
}

// name, width, whether the field is left before OK (the toolkit would put it right then)
constexpr std::tuple<const char*, const char*, bool> WrongCases[] = {
    {"too large",           "304.9", false},
    {"too large, left",     "304.9", true },
    {"too small",           "152.3", true },
    {"nothing",             "",      true },
    {"no number",           "2x",    true },
    {"beyond all numbers",  "1e300", true },
    {"not a number at all", "nan",   true },
};

TEST_F(CustomSizeDialog, SaysWhichSizesThePrinterTakes)
{
    for (const auto& [name, width, leavesField] : WrongCases) {
        SCOPED_TRACE(name);
        const DialogScript user({
            {"Custom",
             [width = width, leavesField = leavesField](Gtk::Dialog& dialog) {
                 spin(dialog, "TPDE1").property_numeric() = false; // as a paste may be
                 spin(dialog, "TPDE1").set_text(width);
                 if (leavesField) {
                     spin(dialog, "TPDE1").update();
                     EXPECT_EQ(spin(dialog, "TPDE1").get_text(), width);
                 }
                 dialog.response(Gtk::RESPONSE_OK);
             }},
            {"",
             [](Gtk::Dialog& dialog) {
                 const auto& notice = dynamic_cast<Gtk::MessageDialog&>(dialog);
                 EXPECT_THAT(notice.property_secondary_text().get_value().raw(),
                             testing::HasSubstr("a width from 152.4 to 304.8 mm and a length from "
                                                "152.4 to 304.8 mm"));
                 dialog.response(Gtk::RESPONSE_OK);
             }          },
            {"Custom",
             [](Gtk::Dialog& dialog) {
                 EXPECT_EQ(shown(dialog), "200.0 300.0");
                 dialog.response(Gtk::RESPONSE_CANCEL);
             }},
        });
        EXPECT_EQ(run(), DialogCancel);
        EXPECT_EQ(size(), std::pair(20000, 30000));
    }
}

TEST_F(CustomSizeDialog, KeepsWhatIsNotTouched)
{
    width_ = 21007;
    length_ = 29704;
    const DialogScript user("Custom", [](Gtk::Dialog& dialog) {
        EXPECT_EQ(shown(dialog), "210.0 297.0");
        spin(dialog, "TPDE1").set_text("200");
        dialog.response(Gtk::RESPONSE_OK);
    });
    EXPECT_EQ(run(), DialogOk);
    EXPECT_EQ(size(), std::pair(20000, 29704));
}

// A stock of another printer keeps its size until the user changes it.
TEST_F(CustomSizeDialog, ShowsASizeThatThePrinterDoesNotTake)
{
    length_ = 200000; // a number field takes no separator of thousands
    const DialogScript user({
        {"Custom",
         [](Gtk::Dialog& dialog) {
             EXPECT_EQ(shown(dialog), "200.0 2000.0");
             dialog.response(Gtk::RESPONSE_OK);
         }                                  },
        {"",       Respond(Gtk::RESPONSE_OK)},
        {"Custom",
         [](Gtk::Dialog& dialog) {
             EXPECT_EQ(shown(dialog), "200.0 304.8");
             dialog.response(Gtk::RESPONSE_OK);
         }                                  },
    });
    EXPECT_EQ(run(), DialogOk);
    EXPECT_EQ(size(), std::pair(20000, 30480));
}

} // namespace
} // namespace tarvo
