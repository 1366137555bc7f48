#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

/// What is wrong with a file, and where.
struct ParseError {
    std::size_t line = 0; // from 1; 0 when no line applies
    std::string reason;   // lower case, no full stop
};

/// Bounds that a document must keep before a parser builds anything from it.
struct XmlLimits {
    std::size_t bytes = std::size_t{64} * 1024 * 1024;
    std::size_t depth = 64;      // of elements, the root being 1
    std::size_t attributes = 64; // of one element
    // Of the whole document: a parser keeps every name that it meets, and takes longer for each the
    // more there are.
    std::size_t attributesInAll = 256;
    std::size_t processingInstructions = 256;
};

/// Walks the markup once, without building anything, and refuses what a parser would pay for out of
/// proportion: size, depth, attributes, declarations in the document type (an entity that doubles,
/// a default attribute for every element); besides NUL characters and what is not UTF-8, which this
/// walk could not read. Well-formedness is left to the parser.
/// @return the first thing that is wrong; nullopt when the document keeps the limits
std::optional<ParseError> CheckXmlLimits(std::string_view xml, const XmlLimits& limits);

} // namespace tarvo
