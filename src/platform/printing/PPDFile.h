#pragma once

#include "platform/xml/XmlLimits.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

class CFDictionary;
class Descriptor;

/// How a main keyword is chosen.
enum class PPDUIType { Boolean, PickOne, PickMany };

struct PPDChoice {
    std::string keyword;
    std::string text;      // in the user's language where the file has it
    bool isMarked = false; // in force, see PPDFile::mark
};

/// A main keyword with its choices.
struct PPDOption {
    std::string keyword;
    std::string text;
    PPDUIType type = PPDUIType::PickOne;
    std::string defaultChoice; // as the file says it: maybe none of the choices, maybe ""
    bool takesCustom = false;  // or a value of the user's own, "Custom.100x200"
    std::vector<PPDChoice> choices;
};

struct PPDGroup {
    std::string name;
    std::string text;
    std::vector<PPDOption> options;
    std::vector<PPDGroup> subgroups;
};

/// Two choices that exclude each other. An empty choice stands for each that switches the option
/// on: all but "None", "Off" and "False".
struct PPDConstraint {
    std::string option1;
    std::string choice1;
    std::string option2;
    std::string choice2;
};

inline constexpr const char* PPDConstraintKeyword = "cupsUIConstraints";

/// The value of such a statement, such as "*Duplex *MediaType Labels".
/// @return nullopt unless exactly two options are in it
std::optional<PPDConstraint> PPDConstraintOf(std::string_view value);

/// Custom paper sizes that a printer takes, in points (1/72 in).
struct PPDSizeLimits {
    float minimumWidth = 0;
    float minimumLength = 0;
    float maximumWidth = 0;
    float maximumLength = 0;
};

/// Whether a printer can take papers of these lengths, in points.
bool IsPaperRange(float minimum, float maximum);

inline constexpr std::size_t PPDMaximumBytes = std::size_t{8} * 1024 * 1024;

/// A printer's description: what its PPD file holds, as values. Texts are UTF-8.
class PPDFile {
public:
    /// Reads a file, with each option's default marked and its texts in the user's language. A
    /// choice "Custom" that stands for a custom value is left out; the limits of custom sizes are
    /// kept.
    /// @param path   of an uncompressed regular file of at most PPDMaximumBytes
    /// @return nullopt with `error` filled: the line that is refused (0: none) and why
    [[nodiscard]] static std::optional<PPDFile> Open(const std::string& path, ParseError& error);

    /// The same from the bytes of such a file.
    /// @param languages  of the user, most wanted first, such as {"de_AT", "de"}; texts are in the
    ///                   first that has them, else in the file's own
    [[nodiscard]] static std::optional<PPDFile>
    Read(std::string_view contents, const std::vector<std::string>& languages, ParseError& error);

    const std::string& manufacturer() const { return manufacturer_; } // "" when the file has none
    const std::string& nickName() const { return nickName_; }         // make and model for people
    const std::vector<PPDGroup>& groups() const { return groups_; }   // in the file's order
    /// Those that name two options, in either way that a file may state them.
    const std::vector<PPDConstraint>& constraints() const { return constraints_; }
    /// nullopt when the printer takes no custom sizes.
    const std::optional<PPDSizeLimits>& customSizes() const { return customSizes_; }

    /// Every main keyword in the file's order, those of subgroups behind their group's own.
    std::vector<const PPDOption*> options() const;

    /// @return the option of exactly that main keyword, owned by the file; null when absent
    const PPDOption* option(std::string_view keyword) const;

    /// Marks the first choice of exactly that keyword in place of the marked one.
    /// @return false, with nothing changed, when there is no such option or choice
    bool mark(std::string_view optionKeyword, std::string_view choiceKeyword);

    /// Marks of each option the choice that the dictionary has for it, as a ticket's PPD dictionary
    /// does: option keyword to choice keyword. What the file lacks changes nothing.
    void mark(const CFDictionary& choices);

    /// @return the keyword of the marked choice, owned by the file; null when nothing is marked
    const std::string* markedChoice(std::string_view optionKeyword) const;

private:
    static std::optional<PPDFile> ReadFrom(const Descriptor& descriptor,
                                           const std::vector<std::string>& languages,
                                           ParseError& error);

    std::string manufacturer_;
    std::string nickName_;
    std::vector<PPDGroup> groups_;
    std::vector<PPDConstraint> constraints_;
    std::optional<PPDSizeLimits> customSizes_;
};

class PMTicket;

/// The description that the printer information ticket names.
/// @return nullopt with `error` filled when the ticket is null, names no file, or the file is
/// refused
[[nodiscard]] std::optional<PPDFile> ppdOpenCompiledPPDFromTicket(const PMTicket* ticket,
                                                                  ParseError& error);

} // namespace tarvo
