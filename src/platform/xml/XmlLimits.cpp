#include "platform/xml/XmlLimits.h"

#include "platform/text/Utf8.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr std::size_t End = std::string_view::npos;
constexpr std::string_view Blanks = " \t\r\n";
constexpr std::string_view CommentStart = "<!--";
constexpr std::string_view CharacterDataStart = "<![CDATA[";
constexpr std::string_view EntityStart = "<!ENTITY";

// How many bytes the character that begins with this one has; 1 for what begins none.
std::size_t CharacterLength(char first)
{
    const auto byte = static_cast<unsigned char>(first);
    return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

// How many bytes at the end begin a character that goes on in what follows.
std::size_t CutLength(std::string_view text)
{
    for (std::size_t length = 1; length <= std::min<std::size_t>(3, text.size()); ++length) {
        const std::size_t whole = CharacterLength(text[text.size() - length]);
        if (whole > 1) {
            return whole > length ? length : 0;
        }
    }
    return 0;
}

// How many line feeds there are. Searching is faster than looking at each character.
std::size_t LinesIn(std::string_view text)
{
    std::size_t lines = 0;
    for (std::size_t at = text.find('\n'); at != End; at = text.find('\n', at + 1)) {
        ++lines;
    }
    return lines;
}

bool NamesOtherEncoding(std::string_view declaration)
{
    const std::size_t name = declaration.find("encoding");
    const std::size_t open = name == End ? End : declaration.find_first_of("\"'", name);
    if (open == End) {
        return false;
    }
    const std::size_t close = declaration.find(declaration[open], open + 1);
    std::string encoding(declaration.substr(open + 1, close == End ? End : close - open - 1));
    std::transform(encoding.begin(), encoding.end(), encoding.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    return encoding != "UTF-8" && encoding != "US-ASCII" && encoding != "ASCII";
}

} // namespace

bool XmlLimitsWalk::take(std::string_view piece)
{
    constexpr std::size_t Mebibyte = std::size_t{1024} * 1024;
    constexpr std::size_t Telling = 8; // bytes, of which a parser guesses the encoding
    bytes_ += piece.size();
    if (!error_ && bytes_ > limits_.bytes) {
        error_ = ParseError{0, "larger than " + std::to_string(limits_.bytes / Mebibyte) + " MiB"};
    }
    if (error_) {
        return false;
    }
    if (!isStarted_) {
        start_ += piece;
        if (start_.size() >= Telling) {
            start();
        }
        return !error_;
    }
    if (!cut_.empty()) {
        const std::size_t missing =
            std::min(CharacterLength(cut_.front()) - cut_.size(), piece.size());
        cut_ += piece.substr(0, missing);
        piece.remove_prefix(missing);
        if (cut_.size() < CharacterLength(cut_.front())) {
            return true;
        }
        takeCharacters(cut_);
    }
    cut_ = piece.substr(piece.size() - CutLength(piece));
    takeCharacters(piece.substr(0, piece.size() - cut_.size()));
    return !error_;
}

bool XmlLimitsWalk::end()
{
    if (!isStarted_ && !error_) {
        start();
    }
    if (!cut_.empty()) {
        takeCharacters(cut_);
    }
    if (!seenMarkup_ && !error_) {
        error_ = ParseError{1, bytes_ == 0 ? "empty" : "not an XML document"};
    }
    return !error_;
}

void XmlLimitsWalk::start()
{
    isStarted_ = true;
    std::string_view text = start_;
    if (text.starts_with("\xFE\xFF") || text.starts_with("\xFF\xFE")) {
        error_ = ParseError{1, "the encoding is not UTF-8"};
    } else if (text.starts_with("bplist")) {
        error_ = ParseError{0, "a binary property list, not XML"};
    } else {
        constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
        text.remove_prefix(text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0);
        bytes_ -= text.size(); // taken once more
        take(text);
    }
}

// Whole characters, or bytes that are none.
void XmlLimitsWalk::takeCharacters(std::string_view characters)
{
    if (error_) {
        return;
    }
    piece_ = characters;
    position_ = 0;
    if (const std::size_t nul = piece_.find('\0'); nul != End) {
        error_ = ParseError{lineAt(nul), "a NUL character"};
    } else if (const std::size_t valid = ValidUtf8Prefix(piece_).size(); valid != piece_.size()) {
        error_ = ParseError{lineAt(valid), "not UTF-8"};
    }
    while (!error_ && position_ < piece_.size()) {
        step();
    }
    lines_ += LinesIn(piece_);
}

std::size_t XmlLimitsWalk::lineAt(std::size_t position) const
{
    return 1 + lines_ + LinesIn(piece_.substr(0, position));
}

void XmlLimitsWalk::fail(std::string reason)
{
    if (!error_) {
        error_ = ParseError{lineAt(std::min(position_, piece_.size())), std::move(reason)};
    }
}

void XmlLimitsWalk::step()
{
    switch (state_) {
    case State::Text:
        text();
        break;
    case State::Opened:
        opened();
        break;
    case State::Tag:
        tag();
        break;
    case State::Value:
    case State::Literal:
        quote();
        break;
    case State::Skipped:
        passMark();
        break;
    case State::Instruction:
        instruction();
        break;
    case State::DocumentType:
        documentType();
        break;
    case State::Declared:
        declared();
        break;
    }
}

void XmlLimitsWalk::text()
{
    const std::size_t found = piece_.find('<', position_);
    if (!seenMarkup_) {
        const std::size_t first = piece_.find_first_not_of(Blanks, position_);
        if (first != found) {
            error_ = ParseError{1, "not an XML document"};
            return;
        }
        seenMarkup_ = found != End;
    }
    position_ = std::min(found, piece_.size() - 1) + 1;
    if (found != End && (position_ == piece_.size() || !beginTag())) {
        construct_ = "<";
        state_ = State::Opened;
    }
}

// Behind "<": begins what is an element's tag.
// @return false when it is something else
bool XmlLimitsWalk::beginTag()
{
    const char letter = piece_[position_];
    if (letter == '!' || letter == '?') {
        return false;
    }
    if (letter != '/') {
        startTag(); // the character belongs to it
        return true;
    }
    leaveElement();
    skip(">", State::Text);
    ++position_;
    return true;
}

void XmlLimitsWalk::opened()
{
    if (construct_.size() == 1 && beginTag()) {
        return;
    }
    construct_ += piece_[position_];
    if (construct_ == "<?") {
        next_ = State::Text;
        beginInstruction();
    } else if (construct_ == CommentStart) {
        skip("-->", State::Text);
    } else if (construct_ == CharacterDataStart) {
        skip("]]>", State::Text);
    } else if (!CommentStart.starts_with(construct_) &&
               !CharacterDataStart.starts_with(construct_)) {
        inSubset_ = false;
        state_ = State::DocumentType;
        for (const char mark : construct_.substr(1)) {
            documentTypeMark(mark);
        }
    }
    ++position_;
}

void XmlLimitsWalk::startTag()
{
    if (++depth_ > limits_.depth) {
        fail("elements are nested deeper than " + std::to_string(limits_.depth));
    }
    attributes_ = 0;
    previous_ = '<';
    state_ = State::Tag;
}

void XmlLimitsWalk::tag()
{
    for (; position_ < piece_.size(); ++position_) {
        const char letter = piece_[position_];
        if (letter == '>') {
            if (previous_ == '/') {
                leaveElement();
            }
            state_ = State::Text;
            ++position_;
            return;
        }
        previous_ = letter;
        if (letter == '"' || letter == '\'') {
            if (++attributesInAll_ > limits_.attributesInAll) {
                fail("more than " + std::to_string(limits_.attributesInAll) + " attributes");
            }
            if (++attributes_ > limits_.attributes) {
                fail("an element has more than " + std::to_string(limits_.attributes) +
                     " attributes");
            }
            quote_ = letter;
            next_ = State::Tag;
            state_ = State::Value;
            ++position_;
            return;
        }
    }
}

// Up to the end of what is quoted.
void XmlLimitsWalk::quote()
{
    const std::size_t found = piece_.find(quote_, position_);
    position_ = std::min(found, piece_.size() - 1) + 1;
    if (found != End) {
        state_ = next_;
    }
}

void XmlLimitsWalk::beginInstruction()
{
    if (++processingInstructions_ > limits_.processingInstructions) {
        fail("more than " + std::to_string(limits_.processingInstructions) +
             " processing instructions");
    }
    const State next = next_;
    skip("?>", next);
    beginLine_ = lineAt(position_);
    state_ = State::Instruction;
}

void XmlLimitsWalk::instruction()
{
    constexpr std::size_t LongestDeclaration = 1024; // bytes that are looked at
    const std::size_t from = position_;
    const State next = next_;
    const bool isWhole = passMark();
    const std::string_view passed = piece_.substr(from, position_ - from);
    construct_ +=
        passed.substr(0, LongestDeclaration - std::min(construct_.size(), LongestDeclaration));
    if (!isWhole) {
        return;
    }
    const std::string_view text = construct_;
    if (next == State::Text && text.starts_with("<?xml") && text.size() > 5 &&
        Blanks.find(text[5]) != End && NamesOtherEncoding(text)) {
        error_ = ParseError{beginLine_, "the encoding is not UTF-8"};
    }
}

// Up to the ">" that ends the declaration, with its internal subset in brackets.
void XmlLimitsWalk::documentType()
{
    const std::size_t found = piece_.find_first_of("\"'[]<>", position_);
    position_ = std::min(found, piece_.size() - 1);
    if (found != End) {
        documentTypeMark(piece_[found]);
    }
    ++position_;
}

void XmlLimitsWalk::documentTypeMark(char mark)
{
    switch (mark) {
    case '"':
    case '\'':
        quote_ = mark;
        next_ = State::DocumentType;
        state_ = State::Literal;
        break;
    case '[':
        inSubset_ = true;
        break;
    case ']':
        inSubset_ = false;
        break;
    case '<':
        construct_ = "<";
        state_ = State::Declared;
        break;
    case '>':
        state_ = inSubset_ ? State::DocumentType : State::Text;
        break;
    default:
        break;
    }
}

void XmlLimitsWalk::declared()
{
    construct_ += piece_[position_];
    if (construct_ == CommentStart) {
        skip("-->", State::DocumentType);
    } else if (construct_ == "<?") {
        next_ = State::DocumentType;
        beginInstruction();
    } else if (construct_ == EntityStart) {
        fail("entities may not be declared");
    } else if (!CommentStart.starts_with(construct_) && !EntityStart.starts_with(construct_)) {
        fail("declarations in the document type are not allowed");
    }
    ++position_;
}

void XmlLimitsWalk::leaveElement()
{
    if (depth_ > 0) {
        --depth_;
    }
}

void XmlLimitsWalk::skip(std::string_view mark, State next)
{
    mark_ = mark;
    next_ = next;
    recent_.clear();
    state_ = State::Skipped;
}

// Moves behind the mark, part of which may have stood in pieces before.
// @return false, at the end of the piece, when it is not there
bool XmlLimitsWalk::passMark()
{
    const std::string_view rest = piece_.substr(position_);
    const std::size_t overlap = mark_.size() - 1;
    const std::string joined =
        recent_.empty() ? "" : recent_ + std::string(rest.substr(0, overlap));
    if (const std::size_t found = joined.find(mark_); found != End) {
        position_ += found + mark_.size() - recent_.size();
    } else if (const std::size_t later = rest.find(mark_); later != End) {
        position_ += later + mark_.size();
    } else {
        recent_ += rest.substr(rest.size() - std::min(overlap, rest.size()));
        recent_.erase(0, recent_.size() - std::min(overlap, recent_.size()));
        position_ = piece_.size();
        return false;
    }
    state_ = next_;
    return true;
}

std::optional<ParseError> CheckXmlLimits(std::string_view xml, const XmlLimits& limits)
{
    XmlLimitsWalk walk(limits);
    walk.take(xml);
    walk.end();
    return walk.error();
}

} // namespace tarvo
