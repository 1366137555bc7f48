#pragma once

#include "platform/printing/PMStatus.h"
#include "settings/SettingMap.h"

#include <string>

namespace tarvo {

class CFBundle;
class Cover;
class ExceptionPage;
class Insert;

// Columns of the list of special pages.
inline constexpr std::uint32_t SpecialPageColumn = FourCharCode("PAGE");
inline constexpr std::uint32_t SpecialPageTypeColumn = FourCharCode("TYPE");
inline constexpr std::uint32_t SpecialPageAttributesColumn = FourCharCode("ATTR");

inline constexpr OSStatus StatusNoSuchColumn = -4979;

/// A row of the list of special pages, in the user's words.
struct SpecialPageTexts {
    std::string page;
    std::string type;
    std::string attributes; // the description
};

enum class CoverPlace { Front, Back };

SpecialPageTexts CoverTexts(const CFBundle& bundle, const Cover& cover, CoverPlace place);
SpecialPageTexts InsertTexts(const CFBundle& bundle, const Insert& insert);
SpecialPageTexts ExceptionPageTexts(const CFBundle& bundle, const ExceptionPage& page);

/// @param text  untouched unless the column is one of the three
/// @return StatusOk; StatusNoSuchColumn; StatusBadArgument when `text` is null
OSStatus TextOfColumn(const SpecialPageTexts& texts, std::uint32_t column, std::string* text);

// The descriptions: what is set, as parts with PartSeparator between them.
inline constexpr const char* PartSeparator = ";  ";

/// The sides imaged and the stock's summary.
std::string CoverDescription(const CFBundle& bundle, const Cover& cover);
/// The number of sheets and the stock's summary.
std::string InsertDescription(const CFBundle& bundle, const Insert& insert);
/// The plex, the stock's summary and the image shift; "" when nothing is set.
std::string ExceptionPageDescription(const CFBundle& bundle, const ExceptionPage& page);

/// "4" or "4-9", as a page list holds it too.
std::string PageRangeText(const ExceptionPage& page);

} // namespace tarvo
