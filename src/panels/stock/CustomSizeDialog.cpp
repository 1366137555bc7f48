#include "panels/stock/CustomSizeDialog.h"

#include "panels/PanelEnvironment.h"
#include "panels/stock/StockPicture.h"
#include "panels/toolkit/DialogChecks.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "platform/bundle/CFBundle.h"
#include "platform/text/TextFormat.h"
#include "printer/PPDKeywordInfo.h"
#include "settings/NumberText.h"

#include <atkmm/object.h>
#include <gtkmm/radiobutton.h>
#include <gtkmm/spinbutton.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace tarvo {
namespace {

using Field = CustomSizeEntry::Field;

constexpr Field Fields[] = {CustomSizeEntry::Width, CustomSizeEntry::Length};

constexpr double Largest = 1e8; // above any paper, below the end of the numbers

double UnitsPerNumber(const CustomSizeEntry& entry)
{
    return std::pow(10.0, entry.decimals());
}

// What a field's text says, in the entry's unit.
std::optional<std::int32_t> NumberIn(const std::string& text, const CustomSizeEntry& entry)
{
    char* end = nullptr;
    const double number = g_strtod(text.c_str(), &end) * UnitsPerNumber(entry);
    if (text.empty() || *end != '\0' || !(std::abs(number) < Largest)) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(std::lround(number));
}

StockDimensions LargestPage(const CustomSizeEntry& entry)
{
    return {StoredFromField(entry.range(CustomSizeEntry::Width).maximum, entry.unit()),
            StoredFromField(entry.range(CustomSizeEntry::Length).maximum, entry.unit())};
}

StockDimensions EnteredPage(const CustomSizeEntry& entry)
{
    return {StoredFromField(entry.value(CustomSizeEntry::Width).value_or(0), entry.unit()),
            StoredFromField(entry.value(CustomSizeEntry::Length).value_or(0), entry.unit())};
}

// The dialog while it is shown. A spin button would put an impossible number right by itself; here
// it stays as it was typed until OK says what is wrong with it.
class CustomSizeWindow {
public:
    CustomSizeWindow(const CFBundle& bundle, Nib& nib, CustomSizeEntry entry)
        : bundle_(bundle),
          entry_(entry),
          dialog_(nib.window<Gtk::Dialog>("Custom")),
          spins_{nib.widget<Gtk::SpinButton>("TPDE1"), nib.widget<Gtk::SpinButton>("TPDE2")},
          inches_(nib.widget<Gtk::RadioButton>("TPDE3")),
          millimeters_(nib.widget<Gtk::RadioButton>("TPDE4")),
          defaults_(nib.widget<Gtk::Button>("TPDE5")),
          outline_(nib.widget<Gtk::DrawingArea>("TPDE6"))
    {
    }

    std::int32_t run(Gtk::Window* parent)
    {
        show();
        for (const Field field : Fields) {
            connect(field);
        }
        inches_->signal_toggled().connect(Guarded([this] { chooseUnit(); }));
        defaults_->signal_clicked().connect(Guarded([this] {
            entry_.setDefaults();
            show();
        }));
        ShowDrawing(*outline_.get(), [this](const auto& context, const PictureBox& box) {
            DrawPageOutline(context, box, EnteredPage(entry_), LargestPage(entry_));
        });
        outline_->get_accessible()->set_name(bundle_.localizedString("StockSize"));
        AcceptOnlyIf(*dialog_.get(), [this] { return accept(); });
        spins_[CustomSizeEntry::Width]->grab_focus();
        return RunModalWindow(bundle_, *dialog_.get(), parent);
    }

    const StockDimensions& entered() const { return entered_; }

private:
    bool isValid(Field field) const
    {
        const auto range = entry_.range(field);
        const auto value = entry_.value(field);
        return value && *value >= range.minimum && *value <= range.maximum;
    }

    void connect(Field field)
    {
        Gtk::SpinButton& spin = *spins_[field].get();
        spin.set_update_policy(Gtk::UPDATE_IF_VALID);
        spin.signal_changed().connect(Guarded([this, field] { onText(field); }));
        spin.signal_input().connect(
            Guarded([this, field](double* number) { return onInput(field, number); }));
        spin.signal_output().connect(Guarded([this, field] { return onOutput(field); }), false);
    }

    void onText(Field field)
    {
        if (!isShowing_) {
            entry_.setValue(field, NumberIn(spins_[field]->get_text(), entry_));
            outline_->queue_draw();
        }
    }

    int onInput(Field field, double* number) const
    {
        const auto value = NumberIn(spins_[field]->get_text(), entry_);
        *number = value.value_or(0) / UnitsPerNumber(entry_);
        return value ? 1 : Gtk::INPUT_ERROR;
    }

    // @return true to leave the text as it is: it is wrong, and no arrow was used since
    bool onOutput(Field field)
    {
        const double number = spins_[field]->get_value();
        const bool isSame = number == shown_[field];
        shown_[field] = number;
        return !isShowing_ && isSame && !isValid(field);
    }

    void chooseUnit()
    {
        if (!isShowing_) {
            entry_.setUnit(inches_->get_active() ? LengthUnit::Inches : LengthUnit::Millimeters);
            show();
        }
    }

    // Shows the entry, numbers out of the printer's range too.
    void show()
    {
        isShowing_ = true;
        const bool areInches = entry_.unit() == LengthUnit::Inches;
        (areInches ? inches_ : millimeters_)->set_active(true);
        for (const Field field : Fields) {
            showField(field, *spins_[field].get());
        }
        isShowing_ = false;
        outline_->queue_draw();
    }

    void showField(Field field, Gtk::SpinButton& spin)
    {
        const auto range = entry_.range(field);
        const double units = UnitsPerNumber(entry_);
        const std::int32_t value = entry_.value(field).value_or(range.minimum);
        spin.set_digits(static_cast<guint>(entry_.decimals()));
        spin.set_range(-Largest, Largest);
        spin.set_value(value / units);
        const Glib::ustring text = spin.get_text(); // with no separators: it would not take them
        spin.set_range(range.minimum / units, range.maximum / units);
        spin.set_increments(10 / units, 100 / units);
        spin.set_value(std::clamp(value, range.minimum, range.maximum) / units);
        shown_[field] = spin.get_value();
        if (!isValid(field)) {
            spin.set_text(entry_.value(field) ? text : "");
        }
    }

    bool accept()
    {
        const std::string message = CustomSizeMessage(bundle_, entry_);
        if (const auto entered = entry_.accept()) {
            entered_ = *entered;
            return true;
        }
        TellUser(bundle_, dialog_.get(), "Invalid Paper Size Header", message);
        if (dialog_->get_mapped()) { // it may have gone with the application's
            show();
        }
        return false;
    }

    const CFBundle& bundle_;
    CustomSizeEntry entry_;
    StockDimensions entered_;
    bool isShowing_ = false;
    std::array<double, 2> shown_ = {}; // the spins' numbers
    Glib::RefPtr<Gtk::Dialog> dialog_;
    std::array<Glib::RefPtr<Gtk::SpinButton>, 2> spins_;
    Glib::RefPtr<Gtk::RadioButton> inches_;
    Glib::RefPtr<Gtk::RadioButton> millimeters_;
    Glib::RefPtr<Gtk::Button> defaults_;
    Glib::RefPtr<Gtk::DrawingArea> outline_;
};

std::string NumberText(std::int32_t number, const CustomSizeEntry& entry)
{
    return CreateLocalizedCFStringFromNumberWithDecimals(number, entry.decimals());
}

} // namespace

OSStatus RunModalCustomStockSizeDialog(const CFBundle& bundle, Gtk::Window* parent,
                                       std::int32_t& width, std::int32_t& length,
                                       std::int32_t& result)
{
    result = DialogCancel;
    auto nib = Nib::Open(bundle, "CustomStockSize");
    if (!nib) {
        return StatusNoWindow;
    }
    PPDSizeLimits limits;
    GetMediaLimits(GetCurrentPrintSession(), limits); // a printer without has the usual ones
    CustomSizeWindow window(
        bundle, *nib, CustomSizeEntry(width, length, limits, CustomSizeUnit(), LocaleLengthUnit()));
    if (!nib->isComplete()) {
        return StatusNoWindow;
    }
    nib.reset();
    result = window.run(parent);
    if (result == DialogOk) {
        width = window.entered().width;
        length = window.entered().length;
    }
    return StatusOk;
}

std::string CustomSizeMessage(const CFBundle& bundle, const CustomSizeEntry& entry)
{
    const bool areInches = entry.unit() == LengthUnit::Inches;
    const auto most = [&](Field field) {
        return FilledFormat(bundle.localizedString(areInches ? "ShowInches" : "ShowMillimeters"),
                            NumberText(entry.range(field).maximum, entry));
    };
    return FilledFormat(bundle.localizedString("Invalid Paper Size Message"),
                        {NumberText(entry.range(CustomSizeEntry::Width).minimum, entry),
                         most(CustomSizeEntry::Width),
                         NumberText(entry.range(CustomSizeEntry::Length).minimum, entry),
                         most(CustomSizeEntry::Length)});
}

} // namespace tarvo
