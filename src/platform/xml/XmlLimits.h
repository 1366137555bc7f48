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
    // more there are. No bound is needed where the names themselves are counted.
    std::size_t attributesInAll = 256;
    std::size_t processingInstructions = 256;
};

/// Walks the markup of a document once, piece by piece, without building anything, and refuses what
/// a parser would pay for out of proportion: size, depth, attributes, declarations in the document
/// type (an entity that doubles, a default attribute for every element); besides NUL characters and
/// what is not UTF-8, which this walk could not read. Well-formedness is left to the parser.
class XmlLimitsWalk {
public:
    explicit XmlLimitsWalk(const XmlLimits& limits) : limits_(limits) {}

    /// @param piece  what follows the piece before; may end anywhere
    /// @return false once something is wrong
    bool take(std::string_view piece);

    /// To be called behind the last piece.
    /// @return false when something is wrong with the document
    bool end();

    /// The first thing that is wrong; nullopt while the document keeps the limits.
    const std::optional<ParseError>& error() const { return error_; }

private:
    enum class State {
        Text,
        Opened, // behind "<"
        Tag,
        Value,   // of an attribute
        Skipped, // up to mark_
        Instruction,
        DocumentType,
        Literal, // in the document type
        Declared // behind "<" in the document type
    };

    void start();
    void takeCharacters(std::string_view characters);
    void fail(std::string reason);
    std::size_t lineAt(std::size_t position) const;

    void step();
    void text();
    void opened();
    bool beginTag();
    void startTag();
    void tag();
    void quote();
    void beginInstruction();
    void instruction();
    void documentType();
    void documentTypeMark(char mark);
    void declared();
    void leaveElement();
    void skip(std::string_view mark, State next);
    bool passMark();

    XmlLimits limits_;
    std::optional<ParseError> error_;
    State state_ = State::Text;

    std::string_view piece_;
    std::size_t position_ = 0; // in the piece
    std::size_t bytes_ = 0;    // of all pieces
    std::size_t lines_ = 0;    // that ended before the piece
    std::string start_;        // the first bytes, while they are too few to tell
    bool isStarted_ = false;
    bool seenMarkup_ = false;
    std::string cut_; // the beginning of a character, at the end of the last piece

    std::size_t beginLine_ = 1;  // of the instruction that the walk is in
    std::string construct_;      // the first characters of a construct, as many as tell what it is
    std::string_view mark_;      // its end
    std::string recent_;         // what was passed last in search of the mark, shorter than that
    State next_ = State::Text;   // behind the mark
    char quote_ = 0;             // around a value or a literal
    char previous_ = 0;          // in a tag
    bool inSubset_ = false;      // of the document type
    std::size_t attributes_ = 0; // of the element

    std::size_t depth_ = 0;
    std::size_t attributesInAll_ = 0;
    std::size_t processingInstructions_ = 0;
};

/// The same for a document that is at hand.
/// @return the first thing that is wrong; nullopt when the document keeps the limits
std::optional<ParseError> CheckXmlLimits(std::string_view xml, const XmlLimits& limits);

} // namespace tarvo
