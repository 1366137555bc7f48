#include "panels/toolkit/SpinFields.h"

namespace tarvo {

void ShowSpin(Gtk::SpinButton& spin, const SpinRange& range, std::int32_t stored)
{
    spin.set_digits(0);
    spin.set_range(range.minimum, range.maximum);
    spin.set_increments(1, 10);
    spin.set_value(SpinValue(range, stored));
}

std::int32_t EnteredInSpin(Gtk::SpinButton& spin)
{
    spin.update();
    return spin.get_value_as_int();
}

} // namespace tarvo
