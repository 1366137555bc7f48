#pragma once

#include "platform/cf/OrderedMap.h"
#include "platform/printing/PMPrintSession.h"
#include "platform/printing/PPDFile.h"
#include "settings/Menu.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// One choice of a main keyword, as menus and tickets need it.
struct PPDKeywordInfo {
    std::string mainKeyword;
    std::string optionKeyword;
    std::string text; // what menus show
    bool isMarked = false;
    bool isDefault = false;
    bool isSecondFlagSet = false; // the printing system has no such flag here: never set
};
using PPDKeywordInfos = std::vector<PPDKeywordInfo>;

/// The choices of a main keyword that is picked from a list.
/// @return nullopt unless the main keyword exists, is PickOne and has a choice
std::optional<PPDKeywordInfos> PPDCopyOptionsForMainKeyword(const PPDFile& ppd,
                                                            std::string_view mainKeyword);

/// The main keywords of a description that PPDCopyOptionsForMainKeyword finds, for who asks for
/// many of them. Choices are copied when they are asked for: menus need a few of maybe a thousand.
class PPDUIDictionary {
public:
    /// @param ppd  must outlive this and stay in its place
    explicit PPDUIDictionary(const PPDFile& ppd);

    bool empty() const { return options_.empty(); }
    bool contains(std::string_view mainKeyword) const { return options_.contains(mainKeyword); }
    /// @return nullopt unless the main keyword is contained
    std::optional<PPDKeywordInfos> copyOptions(std::string_view mainKeyword) const;

private:
    OrderedMap<const PPDOption*> options_;
};

/// That of the process's printer, see PrinterDescription.
/// @return null when there is no printer, or no description of it
const PPDUIDictionary* PPDGetGlobalUIDictionary();

/// The text of the choice that stands for a ticket value, at the process's printer; "" when
/// any step finds nothing.
std::string GetPPDOptionAliasForTicketValue(std::string_view mainKeyword, std::int32_t value);

/// The position of the choice with exactly these keywords; -1 when there is none.
std::int32_t FindPPDKeyPairsMatch(const PPDKeywordInfos& options, std::string_view mainKeyword,
                                  std::string_view optionKeyword);

// The ticket's PPD dictionary: main keyword to option keyword. Null arguments give -50.

OSStatus PPDSetMainKeyword(PMTicket* ticket, std::string_view key, std::string_view value);
/// Clears `value` first; -50 when the key is absent.
OSStatus PPDGetMainKeywordValue(const PMTicket* ticket, std::string_view key, std::string* value);
/// The position of the ticket's choice among the options; -1 when absent or not among them.
/// @return 0, for a null ticket too
OSStatus PPDGetMainKeywordValueIndex(const PMTicket* ticket, std::string_view key,
                                     const PPDKeywordInfos& options, std::int32_t* index);
/// -50 for an index outside the options.
OSStatus PPDSetMainKeywordIndex(PMTicket* ticket, const PPDKeywordInfos& options,
                                std::int32_t index);

/// Replaces the menu's items by one for each choice, whose value is the ticket's number for it; -1
/// where the main keyword has no table or the table lacks the choice.
/// @return the number of items, at most 32,767
std::int16_t PopulateMenuFromPPDOptions(Menu& menu, const PPDKeywordInfos& options);

/// The custom paper sizes of the session's printer, in points; 432 to 864 in both directions when
/// there is no printer, its description cannot be read or has no custom sizes.
/// @return whether the printer's own limits were found
bool GetMediaLimits(const PMPrintSession* session, PPDSizeLimits& limits);

} // namespace tarvo
