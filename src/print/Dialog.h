#pragma once

#include "print/Document.h"

using GtkPrintSettings = struct _GtkPrintSettings; // NOLINT(bugprone-reserved-identifier): GTK's

namespace tarvo {

enum class PrintOutcome {
    Sent,
    Cancelled,
    Failed,
};

/// What the user has chosen for a file, which the next one begins with.
class Dialog {
public:
    /// @param printer  to begin with; "" is the user's default
    explicit Dialog(const std::string& printer);
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    ~Dialog();

    /// Shows the dialog and prints.
    /// @param reason  filled when it failed
    PrintOutcome print(Document& document, std::string& reason);

private:
    GtkPrintSettings* settings_;
    GtkPageSetup* setup_ = nullptr; // null: the user's default
};

} // namespace tarvo
