#include "panels/toolkit/SpinFields.h"

#include "panels/toolkit/Guarded.h"
#include "platform/text/WhiteSpace.h"

namespace tarvo {
namespace {

constexpr const char* KeptDataName = "tarvo-keeps-number";

} // namespace

// Else the toolkit takes an empty field for 0, which becomes the minimum.
void KeepNumberOfEmptyField(Gtk::SpinButton& spin)
{
    GObject* const object = G_OBJECT(spin.gobj());
    if (g_object_get_data(object, KeptDataName) != nullptr) {
        return; // shown before
    }
    Gtk::SpinButton* const control = &spin;
    g_object_set_data(object, KeptDataName, object);
    spin.signal_input().connect(Guarded([control](double* number) {
        *number = control->get_value();
        return Trimmed(control->get_text().raw()).empty() ? 1 : 0;
    }));
}

void ShowSpin(Gtk::SpinButton& spin, const SpinRange& range, std::int32_t stored)
{
    spin.set_digits(0);
    spin.set_range(range.minimum, range.maximum);
    spin.set_increments(1, 10);
    spin.set_value(SpinValue(range, stored));
    KeepNumberOfEmptyField(spin);
}

std::int32_t EnteredInSpin(Gtk::SpinButton& spin)
{
    spin.update();
    return spin.get_value_as_int();
}

} // namespace tarvo
