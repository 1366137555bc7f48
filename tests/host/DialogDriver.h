#pragma once

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <functional>
#include <string>

namespace tarvo {

/// Turns the main loop until the condition holds.
/// @return false when it does not for so long that it never will
bool TurnUntil(const std::function<bool()>& condition);

/// A print dialog as an application has it, and what its user does.
class DialogDriver {
public:
    /// Shows a dialog and waits for the default printer.
    DialogDriver();
    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;
    ~DialogDriver() { close(); }

    GtkPrintUnixDialog* dialog() const { return dialog_; }
    void close();

    /// Chooses a printer and waits until the dialog has it.
    /// @return false when there is no such printer
    bool choose(const std::string& printer) const;
    std::string chosen() const;

    /// @return the page of the notebook with that label; null when there is none
    GtkWidget* tab(const std::string& label) const;
    /// Waits for the tab and brings it to the front.
    bool showTab(const std::string& label) const;

    /// Makes a choice of the printer's in one of the dialog's own tabs.
    /// @return false when there is no such choice
    bool chooseOption(const std::string& keyword) const;

    /// Presses a button. @return whether the application has heard of it
    bool press(int response);

    /// Prints a page as an application does. Waits until the job is with the print server.
    bool print() const;

private:
    GtkPrintUnixDialog* dialog_;
    bool isAnswered_ = false;
};

} // namespace tarvo
