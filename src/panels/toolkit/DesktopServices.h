#pragma once

#include <gtkmm/window.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarvo {

class CFBundle;

/// One row of a file chooser's filter; a filter without patterns takes every file.
struct FileFilter {
    const char* key; // of its text
    std::vector<const char*> patterns;
};

/// What the desktop does for a panel. Replaceable, so that a program can answer without a user.
struct DesktopServices {
    /// Asks where to save; asks before it replaces a file.
    /// @return nullopt when the user cancels
    std::function<std::optional<std::string>(const CFBundle& bundle, Gtk::Window* parent,
                                             const char* titleKey)>
        chooseFileToSave;
    /// Asks for files to open, in the order of the choice; none when the user cancels.
    std::function<std::vector<std::string>(const CFBundle& bundle, Gtk::Window* parent,
                                           const char* titleKey,
                                           const std::vector<FileFilter>& filters)>
        chooseFilesToOpen;
    /// Opens a link with the desktop's default program.
    /// @return 0, or a number that is not when there is no such program
    std::function<int(Gtk::Window* parent, const std::string& uri)> openURI;
};

/// Those of the process, the desktop's own at first. Panels let the user choose files by the
/// functions below.
DesktopServices& TheDesktopServices();

/// As DesktopServices has it; the print dialog that was current before is so again afterwards.
/// @return nullopt also when that one has ended meanwhile
std::optional<std::string> ChooseFileToSave(const CFBundle& bundle, Gtk::Window* parent,
                                            const char* titleKey);
/// @return none also when the print dialog has ended meanwhile
std::vector<std::string> ChooseFilesToOpen(const CFBundle& bundle, Gtk::Window* parent,
                                           const char* titleKey,
                                           const std::vector<FileFilter>& filters);

} // namespace tarvo
