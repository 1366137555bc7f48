#include "records/JobOptions.h"

#include "platform/cf/PropertyListReader.h"
#include "platform/cf/PropertyListText.h"
#include "platform/cf/PropertyListWriter.h"
#include "platform/printing/PMTicket.h"
#include "records/JobTypeKeys.h"

#include <algorithm>

namespace tarvo {
namespace {

// As the printing system folds the names of options, whatever the locale.
std::string InLowerCase(std::string_view name)
{
    std::string folded(name);
    for (char& letter : folded) {
        letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    return folded;
}

CFPropertyList WithoutPasscodes(const CFPropertyList& value);

CFDictionary WithoutPasscodes(const CFDictionary& dictionary)
{
    CFDictionary clean;
    clean.reserve(dictionary.size());
    for (const auto& entry : dictionary) {
        if (entry.key != SecurePrintPasswordKey) {
            clean.set(entry.key, WithoutPasscodes(entry.value));
        }
    }
    return clean;
}

CFPropertyList WithoutPasscodes(const CFPropertyList& value)
{
    if (const auto* dictionary = value.get<CFDictionary>()) {
        return WithoutPasscodes(*dictionary);
    }
    if (const auto* array = value.get<CFArray>()) {
        CFArray clean;
        clean.reserve(array->size());
        for (const CFPropertyList& entry : *array) {
            clean.push_back(WithoutPasscodes(entry));
        }
        return clean;
    }
    return value;
}

CFDictionary EntriesOf(const PMTicket& ticket)
{
    CFDictionary entries;
    for (const std::string& key : ticket.keys()) {
        if (key != SecurePrintPasswordKey) {
            entries.set(key, WithoutPasscodes(ticket.item(key)->value));
        }
    }
    return entries;
}

// Whether the printing system hands the text on as it is. The keywords of a PPD are like that.
bool IsPlain(std::string_view text)
{
    static constexpr std::string_view Syntax = "=,{}'\"\\";
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char letter) {
        return letter > ' ' && letter <= '~' && Syntax.find(letter) == std::string_view::npos;
    });
}

// Sets the choices of the PPD. What is no keyword of one is left out: no choice can stand for it.
// Returns the bytes that they take.
std::size_t SetPlainOptions(JobOptions& options, const CFDictionary& choices)
{
    std::size_t bytes = 0;
    for (const auto& entry : choices) {
        const auto* choice = entry.value.get<std::string>();
        if (choice != nullptr && IsPlain(entry.key) && IsPlain(*choice)) {
            bytes += entry.key.size() + choice->size() + 2; // "=" and a blank
            options.set(entry.key, *choice);
        }
    }
    return bytes;
}

// base64 whose digits no part of the printing system takes for syntax, or the way back.
void Exchange(std::string& text, std::string_view from, std::string_view to)
{
    for (char& letter : text) {
        const std::size_t position = from.find(letter);
        letter = position == std::string_view::npos ? letter : to[position];
    }
}
constexpr std::string_view UsualDigits = "+/";
constexpr std::string_view OptionDigits = "-_";

std::string InPieces(std::string_view text)
{
    std::string pieces;
    pieces.reserve(text.size() + text.size() / TicketPieceBytes);
    while (text.size() > TicketPieceBytes) {
        pieces.append(text.substr(0, TicketPieceBytes)).push_back(',');
        text.remove_prefix(TicketPieceBytes);
    }
    return pieces.append(text);
}

bool IsOptionBase64(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char letter) {
        return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z') ||
               (letter >= '0' && letter <= '9') || letter == '-' || letter == '_' || letter == '=';
    });
}

constexpr bool IsBlank(char letter)
{
    return letter == ' ' || (letter >= '\t' && letter <= '\r');
}

// One walk over the text of options.
class OptionsReader {
public:
    explicit OptionsReader(std::string_view text) : rest_(text.substr(0, text.find('\0')))
    {
        // A collection's braces may stand around all options.
        if (rest_.size() > 1 && rest_.front() == '{' && rest_.back() == '}') {
            rest_ = rest_.substr(1, rest_.size() - 2);
        }
    }

    JobOptions read()
    {
        JobOptions options;
        skipBlanks();
        while (!rest_.empty() && rest_.front() != '=') {
            readOption(options);
        }
        return options;
    }

private:
    char here() const { return rest_.front(); }
    void skip() { rest_.remove_prefix(1); }
    void skipBlanks()
    {
        while (!rest_.empty() && IsBlank(here())) {
            skip();
        }
    }
    // The letter behind a backslash stands for itself.
    void takeLetter(std::string& value)
    {
        if (here() == '\\' && rest_.size() > 1) {
            skip();
        }
        value.push_back(here());
        skip();
    }

    void readOption(JobOptions& options);
    std::string readValue();
    void readQuoted(std::string& value);
    void readCollection(std::string& value);

    std::string_view rest_;
};

void OptionsReader::readOption(JobOptions& options)
{
    const std::size_t end = std::min(rest_.find_first_of("\f\n\r\t\v ="), rest_.size());
    const std::string_view name = rest_.substr(0, end);
    rest_.remove_prefix(end);
    skipBlanks();
    if (!rest_.empty() && here() == '=') {
        skip();
        options.set(name, readValue());
        skipBlanks();
    } else if (InLowerCase(name.substr(0, 2)) == "no") { // a switch
        options.set(name.substr(2), "false");
    } else {
        options.set(name, "true");
    }
}

std::string OptionsReader::readValue()
{
    std::string value;
    while (!rest_.empty() && !IsBlank(here())) {
        if (here() == ',') {
            takeLetter(value);
        } else if (here() == '\'' || here() == '"') {
            readQuoted(value);
        } else if (here() == '{') {
            readCollection(value);
        } else {
            while (!rest_.empty() && !IsBlank(here())) {
                takeLetter(value);
            }
        }
    }
    return value;
}

void OptionsReader::readQuoted(std::string& value)
{
    const char quote = here();
    skip();
    while (!rest_.empty() && here() != quote) {
        takeLetter(value);
    }
    if (!rest_.empty()) {
        skip();
    }
}

void OptionsReader::readCollection(std::string& value)
{
    int depth = 0;
    while (!rest_.empty()) {
        depth += here() == '{' ? 1 : here() == '}' ? -1 : 0;
        takeLetter(value);
        if (depth == 0) {
            return;
        }
    }
}

} // namespace

void JobOptions::set(std::string_view name, std::string value)
{
    if (name.empty()) {
        return;
    }
    const std::string key = InLowerCase(name);
    if (JobOption* present = options_.find(key)) {
        present->value = std::move(value);
        return;
    }
    options_.set(key, JobOption{std::string(name), std::move(value)});
}

const std::string* JobOptions::find(std::string_view name) const
{
    const JobOption* option = options_.find(InLowerCase(name));
    return option == nullptr ? nullptr : &option->value;
}

std::optional<JobOptions> JobOptionsOf(const PMTicket& ticket, JobOptionsFault& fault)
{
    fault = JobOptionsFault::NotWritable;
    ParseError error;
    auto xml = WritePropertyList(EntriesOf(ticket), error);
    if (!xml) {
        return std::nullopt;
    }
    std::string text = Base64FromData(CFData{std::move(*xml)});
    Exchange(text, UsualDigits, OptionDigits);
    text = InPieces(text);
    fault = JobOptionsFault::TooLarge;
    JobOptions options;
    const std::size_t plainBytes = SetPlainOptions(options, ticket.ppdDictionary());
    if (text.size() > TicketOptionMaximumBytes ||
        plainBytes + text.size() > JobOptionsMaximumBytes) {
        return std::nullopt;
    }
    options.set(TicketOptionName, std::move(text));
    fault = JobOptionsFault::None;
    return options;
}

JobOptions JobOptionsFromText(std::string_view text)
{
    return OptionsReader(text).read();
}

std::optional<CFDictionary> TicketOfJobOptions(const JobOptions& options, std::string& reason)
{
    const std::string* value = options.find(TicketOptionName);
    if (value == nullptr) {
        reason = "the job carries no ticket";
        return std::nullopt;
    }
    if (value->size() > TicketOptionMaximumBytes) {
        reason = "the job's ticket is larger than " + std::to_string(TicketOptionMaximumBytes) +
                 " bytes";
        return std::nullopt;
    }
    std::string text = *value;
    std::erase(text, ',');
    const bool isBase64 = IsOptionBase64(text);
    Exchange(text, OptionDigits, UsualDigits);
    const auto xml = isBase64 ? DataFromBase64(text) : std::nullopt;
    if (!xml) {
        reason = "the job's ticket is no base64";
        return std::nullopt;
    }
    ParseError error;
    auto ticket = ReadPropertyListDictionary(xml->bytes, error);
    if (!ticket) {
        reason = "the job's ticket, line " + std::to_string(error.line) + ": " + error.reason;
    }
    return ticket;
}

} // namespace tarvo
