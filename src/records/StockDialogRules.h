#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvo {

class CFBundle;
class Stock;

// Most characters that a field takes; what OK finds beyond is cut.
inline constexpr std::size_t LongestStockName = 30; // custom colour, custom type, ordered stock
inline constexpr std::size_t LongestStockDescription = 255;
inline constexpr std::size_t LongestPaperName = 255;

/// A text as it is kept: without blanks around it, and with a blank for each line end and other
/// control character, which neither a menu nor a printer could show.
std::string PlainText(std::string_view text);

/// A spin field; it proposes a value where the stock has none.
struct SpinRange {
    std::int32_t minimum;
    std::int32_t maximum;
    std::int32_t proposed;
};
inline constexpr SpinRange OrderedModulusRange = {0, 254, 5};
inline constexpr SpinRange TabModulusRange = {1, 254, 3};
inline constexpr SpinRange StockWeightRange = {60, 200, 75}; // g/m2

/// What the field shows: the stock's value, or the nearest one that the field can show.
std::int32_t SpinValue(const SpinRange& range, std::int32_t stored);

// What OK does to the stock. Those with a name return false, with nothing changed, when it is
// empty: their OK is to be enabled only while it is not.

bool EnterCustomColor(Stock& stock, std::string_view name);
bool EnterCustomType(Stock& stock, std::string_view name);
bool EnterOrderedStock(Stock& stock, std::string_view name, std::int32_t modulus);
void EnterPrecutTabs(Stock& stock, std::int32_t modulus);
void EnterDescription(Stock& stock, std::string_view description);

// The weight has a check box for the printer's default beside its spin field, which is disabled
// while the box is checked.

/// Checking the box forgets the weight; unchecking it proposes one.
void ChooseDefaultWeight(Stock& stock, bool isDefault);
/// Takes what the spin field shows, unless that is just the stock's own weight brought into range:
/// a stock of 229 g/m2 keeps them until the user turns the spin.
void EnterWeight(Stock& stock, std::int32_t shown);

/// Whether a dialog makes something new or edits what is there.
enum class DialogMode : std::int32_t { Add = 0, Edit = 1 };

/// For what every attribute of a stock is edited in one dialog.
enum class NamedPaperContext : std::int32_t {
    StockLibrary = 0, // a paper of the library, which needs a name
    StockMenu = 1,    // the stock of a job or a page
};

/// The key of the title of the dialog that edits a named paper.
const char* NamedPaperTitleKey(DialogMode mode);

void EnterPaperName(Stock& stock, std::string_view name);

enum class NamedPaperCheck {
    NameMissing,  // OK is to be disabled
    AskToReplace, // see ReplaceNamedPaperText; Cancel keeps the dialog open
    Save,
};

/// What OK meets.
/// @param mustBeNew    the paper is being added
/// @param isInLibrary  the library has a paper of that name
NamedPaperCheck CheckNamedPaper(NamedPaperContext context, const Stock& stock, bool mustBeNew,
                                bool isInLibrary);

/// The question whether a paper of that name is to be replaced.
std::string ReplaceNamedPaperText(const CFBundle& bundle, std::string_view name);

} // namespace tarvo
