#pragma once

#include "platform/cf/CFPropertyList.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

// Settings that last are property lists whose root is a dictionary. Those of the user alone lie in
// one folder; those that an administrator may give to everybody are looked for in several, and the
// user's changes to them go to the first.

/// Where preference files are; each an absolute path without a last slash.
struct PreferenceFolders {
    std::string user;
    std::vector<std::string> site; // at least one: the first is written to, all are read in order
};

/// The folders of the process's user: "tarvo" where the desktop keeps configuration, and "Tarvo"
/// where it keeps data, first the user's and then the machine's.
PreferenceFolders UserPreferenceFolders();

/// The defaults that an administrator may give; read among the site files, never written.
inline constexpr std::string_view SiteDefaultsFile = "TarvoFeatures.plist";

/// What could not be done with which file, and why.
struct PreferenceFailure {
    std::string action;      // "make" a folder; "lock", "read", "set aside" or "write" a file
    std::string path;        // of the file or folder
    int error = 0;           // errno; 0 when the file's contents are at fault
    std::string reason;      // for people
    std::size_t line = 0;    // of the file, from 1; 0 when no line applies
    std::string keptAs = {}; // path of a file that was set aside, "" for none
    /// Whether there is no such file.
    bool isAbsence() const;
    /// "cannot write /home/me/.config/tarvo/x: No space left on device"
    std::string message() const;
};

/// Reads a file of the user.
/// @return nullopt when there is none or it cannot be read; why, in `failure` if that is given,
/// with the error ENOENT when there is none
std::optional<CFDictionary> CopyUserPreferences(const PreferenceFolders& folders,
                                                std::string_view fileName,
                                                PreferenceFailure* failure = nullptr);

/// Where a file of the user is, or would be.
std::string PathOfUserPreferences(const PreferenceFolders& folders, std::string_view fileName);

/// Replaces a file of the user whole or not at all; makes the folder when it is absent. A file
/// whose contents cannot be understood is kept as by ChangeUserPreferences. Prints
/// "WriteUserPreferences() failed (errno)" to standard error when it could not.
/// @return false with `failure` filled if that is given, the former file untouched
bool WriteUserPreferences(const PreferenceFolders& folders, std::string_view fileName,
                          const CFDictionary& root, PreferenceFailure* failure = nullptr);

/// The path that a site file is written to; makes its folder when it is absent.
/// @return nullopt when the folder cannot be made
std::optional<std::string> CopyPreferenceFileURL(const PreferenceFolders& folders,
                                                 std::string_view fileName);

/// Reads a site file from the first folder that has it. Prints what is wrong with its contents to
/// standard error.
/// @return as CopyUserPreferences
std::optional<CFDictionary> CopyXMLData(const PreferenceFolders& folders, std::string_view fileName,
                                        PreferenceFailure* failure = nullptr);

/// Changes the root of a preference file.
/// @param isPresent  false when there was no file to read and the root is empty
/// @return false to leave the file as it is
using PreferenceChange = std::function<bool(CFDictionary& root, bool isPresent)>;

/// Reads a file of the user, changes it and writes it back, with everybody else who changes it
/// waiting, so that no change is lost. A file whose contents cannot be understood counts as absent;
/// before another takes its place it is kept beside that as <name>.unreadable, <name>.unreadable.2
/// and so on up to 100, then nothing is written any more. One that cannot be had for another reason
/// is left alone.
/// @return false with `failure` filled, the former file untouched; true when the change wanted
/// nothing written. Then `failure` has a reason without an error where the contents could not be
/// understood.
[[nodiscard]] bool ChangeUserPreferences(const PreferenceFolders& folders,
                                         std::string_view fileName, const PreferenceChange& change,
                                         PreferenceFailure& failure);

/// A change of preferences, which fills `failure` when nothing could be written.
using PreferenceWrite = std::function<bool(PreferenceFailure& failure)>;

/// Makes a change for somebody who cannot do anything about a failure: prints
/// "WriteUserPreferences() failed (errno)" to standard error then.
/// @param failure  gets the change's if given
/// @return the change's result
bool WriteOrReport(const PreferenceWrite& write, PreferenceFailure* failure = nullptr);

/// The same as ChangeUserPreferences for a site file. It is read from the first folder that has it
/// and always written to the first of all.
[[nodiscard]] bool ChangeXMLData(const PreferenceFolders& folders, std::string_view fileName,
                                 const PreferenceChange& change, PreferenceFailure& failure);

} // namespace tarvo
