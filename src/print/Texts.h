#pragma once

#include <string>

namespace tarvo {

// What people read in the dialog, in the user's language. Messages of the program are English.

/// The title of the dialog for a document.
std::string DialogTitle(const std::string& document);

/// What a document from standard input is called.
std::string InputTitle();

} // namespace tarvo
