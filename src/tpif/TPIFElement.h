#pragma once

#include "platform/cf/CFPropertyList.h"
#include "tpif/TPIFChannel.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvo {

/// The `syntax` attribute of an element. Names and texts keep their white space.
enum class TPIFSyntax {
    Integer,
    SpacedInteger, // written with a blank before the equals sign, as the printers' front end has it
    Keyword,
    Enum,
    Name,
    Text,
    Uri,
    MimeMediaType,
    Resolution,
    OneSetOf,
    Collection,
    RangeOfInteger,
};

// Depth of a line, in tabs: groups stand at 1, attributes at 2, their members at 3 and deeper.
inline constexpr int AttributeIndent = 2;
inline constexpr int MemberIndent = 3;

/// One line: <name syntax="...">content</name>.
/// @param content  escaped already where it comes from a user
void WriteTPIFElement(TPIFChannel& writeData, int indent, std::string_view name, TPIFSyntax syntax,
                      std::string_view content);

/// One line with a number, of integer syntax unless said otherwise.
void WriteTPIFElement(TPIFChannel& writeData, int indent, std::string_view name,
                      std::int64_t number, TPIFSyntax syntax = TPIFSyntax::Integer);

/// An element over several lines: the start tag now, the end tag when this leaves its scope.
class TPIFBlock {
public:
    TPIFBlock(TPIFChannel& writeData, int indent, std::string_view name, TPIFSyntax syntax);
    TPIFBlock(const TPIFBlock&) = delete;
    TPIFBlock& operator=(const TPIFBlock&) = delete;
    ~TPIFBlock();

private:
    TPIFChannel& writeData_;
    int indent_;
    std::string_view name_; // borrowed: element names are literals
};

/// The text under a key, up to its first NUL; empty when absent, empty or no text: an export treats
/// them alike. Borrowed from the dictionary.
std::string_view TPIFText(const CFDictionary& dictionary, std::string_view key);

/// The same, with its entities escaped.
std::string EscapedTPIFText(const CFDictionary& dictionary, std::string_view key);

} // namespace tarvo
