#include "cli/ArgumentParser.h"

#include "cli/OptionTable.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>

namespace tarvo {
namespace {

bool BelongsTo(const OptionRow& row, std::string_view verb)
{
    return *row.verb == '\0' || row.verb == verb;
}

// The parser's sentence as a message: lower case, no full stop.
std::string MessageOf(std::string sentence)
{
    sentence.erase(sentence.find_last_not_of(". \n") + 1);
    if (!sentence.empty()) {
        sentence[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(sentence[0])));
    }
    return sentence;
}

// Why a flag written as "--all=no" is refused; empty when that is not what is wrong.
std::string FlagWithValue(std::span<char* const> words)
{
    for (const OptionRow* row = OptionMap; row->verb != nullptr; ++row) {
        const std::string start = std::string(row->name) + "=";
        const bool found = std::any_of(words.begin(), words.end(), [&start](const char* word) {
            return std::string_view(word).starts_with(start);
        });
        if (found && row->kind == OptionKind::Flag) {
            return std::string(row->name) + " takes no value";
        }
    }
    return "";
}

// Which option is written as "--output=" with nothing behind it; the parser would take the next
// word for the value. Empty when there is none.
std::string OptionWithoutValue(std::span<char* const> words)
{
    for (const std::string_view word : words) {
        for (const OptionRow* row = OptionMap; row->verb != nullptr; ++row) {
            if (word.ends_with('=') && word.substr(0, word.size() - 1) == row->name) {
                return row->name;
            }
        }
    }
    return "";
}

// The general parser, set up with the rows of one verb.
class VerbParser {
public:
    explicit VerbParser(std::string_view verb)
    {
        parser_.set_help_flag();
        parser_.allow_extras();
        for (const OptionRow* row = OptionMap; row->verb != nullptr; ++row) {
            if (BelongsTo(*row, verb)) {
                addRow(*row);
            }
        }
    }

    /// @return what is wrong; empty when the words have been read
    std::string read(std::span<char* const> words);
    /// Adds what was read. The same result.
    std::string collect(Arguments& arguments) const;

private:
    void addRow(const OptionRow& row);
    std::string collectFiles(Arguments& arguments) const;

    CLI::App parser_;
    std::vector<std::pair<const OptionRow*, CLI::Option*>> options_; // owned by the parser
    const OptionRow* fileRow_ = nullptr;                             // null: the verb takes none
};

void VerbParser::addRow(const OptionRow& row)
{
    const std::string names =
        (*row.shortName == '\0' ? "" : std::string(row.shortName) + ",") + row.name;
    if (StandsAlone(row.kind)) {
        fileRow_ = &row;
    } else if (row.kind == OptionKind::Flag) {
        options_.emplace_back(&row, parser_.add_flag(names)->disable_flag_override());
    } else { // repetitions are refused in collect(), in clearer words
        options_.emplace_back(
            &row, parser_.add_option(names)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll));
    }
}

std::string VerbParser::read(std::span<char* const> words)
{
    if (const std::string name = OptionWithoutValue(words); !name.empty()) {
        return name + " needs a value";
    }
    std::vector<std::string> reversed(words.rbegin(), words.rend()); // as the parser wants them
    try {
        parser_.parse(std::move(reversed));
    } catch (const CLI::ArgumentMismatch& error) {
        const std::string text = error.what(); // "--output: 1 required TEXT missing"
        const std::string reason = FlagWithValue(words);
        return reason.empty() ? text.substr(0, text.find(':')) + " needs a value" : reason;
    } catch (const CLI::ParseError& error) {
        return MessageOf(error.what());
    }
    return "";
}

std::string VerbParser::collect(Arguments& arguments) const
{
    for (const auto& [row, option] : options_) {
        if (row->kind != OptionKind::Flag && option->count() > 1) {
            return std::string(row->name) + " is given more than once";
        }
        const bool hasValue = row->kind != OptionKind::Flag && option->count() > 0;
        if (hasValue && option->results().front().starts_with("--")) {
            return std::string(row->name) + " needs a value";
        }
        if (option->count() > 0) {
            arguments.add(row->name, option->results());
        }
    }
    return collectFiles(arguments);
}

// Sorts out what the parser left: files, and what looks like an option. The files are no option of
// the parser's, which would take "[a,b]" for two of them.
std::string VerbParser::collectFiles(Arguments& arguments) const
{
    std::vector<std::string> files;
    bool filesOnly = false;
    for (const std::string& word : parser_.remaining()) {
        if (!filesOnly && word == "--") {
            filesOnly = true;
        } else if (!filesOnly && word.size() > 1 && word[0] == '-') {
            return "unknown option \"" + word + "\"";
        } else if (fileRow_ == nullptr) {
            return "unexpected argument \"" + word + "\"";
        } else {
            files.push_back(word);
        }
    }
    if (!files.empty()) {
        arguments.add(fileRow_->name, std::move(files));
    }
    return "";
}

} // namespace

std::optional<Arguments> ParseArguments(std::string_view verb, std::span<char* const> words,
                                        std::string& reason)
{
    VerbParser parser(verb);
    Arguments arguments;
    reason = parser.read(words);
    if (reason.empty()) {
        reason = parser.collect(arguments);
    }
    return reason.empty() ? std::optional(std::move(arguments)) : std::nullopt;
}

} // namespace tarvo
