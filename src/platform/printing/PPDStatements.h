#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tarvo {

/// One statement of a PPD file as it stands there, *keyword option/text: value, borrowed from the
/// file's bytes. What is absent is "".
struct PPDStatement {
    std::size_t line = 0; // where it begins, from 1
    std::string_view keyword;
    std::string_view option;
    std::string_view text;    // still encoded
    std::string_view value;   // with its quotes; maybe several lines
    bool isQuoteOpen = false; // a quote is missing, so the value goes to the end of the file
};

/// Walks the statements of a PPD file, for who needs their lines or what the printing system's
/// reader leaves out. Comments and lines without an asterisk are passed over.
class PPDStatements {
public:
    /// @param contents  must outlive this
    explicit PPDStatements(std::string_view contents) : contents_(contents) {}

    /// @return nullopt at the end of the file
    std::optional<PPDStatement> next();

private:
    std::size_t endOfLine();
    void goBehind(std::size_t end);
    PPDStatement statementHere();
    void readValue(PPDStatement& statement, std::size_t start);

    std::string_view contents_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
    // The next of either kind; npos when there is no more. Kept: a file may have but one kind.
    std::size_t lineFeed_ = 0;
    std::size_t carriageReturn_ = 0;
};

} // namespace tarvo
