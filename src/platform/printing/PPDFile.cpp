#include "platform/printing/PPDFile.h"

#include "platform/bundle/CFBundle.h"
#include "platform/cf/CFPropertyList.h"
#include "platform/files/Descriptor.h"
#include "platform/files/FileContents.h"
#include "platform/printing/CupsLibrary.h"
#include "platform/printing/PMPrintSession.h"
#include "platform/printing/PPDInput.h"
#include "platform/printing/PPDText.h"
#include "platform/printing/PPDTranslations.h"
#include "platform/text/Utf8.h"

#include <cups/ppd.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <memory>
#include <sstream>
#include <system_error>

// The printing system calls its reader deprecated and has no other for files.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace tarvo {
namespace {

// The library's functions, found when the first file is opened.
struct Reader {
    decltype(&ppdOpenFd) openFd = nullptr;
    decltype(&ppdClose) close = nullptr;
    decltype(&ppdLastError) lastError = nullptr;
    decltype(&ppdFindCustomOption) findCustomOption = nullptr;
    decltype(&ppdFindAttr) findAttribute = nullptr;
    decltype(&ppdFindNextAttr) findNextAttribute = nullptr;
};

// Null when one of the functions is missing.
const Reader* LoadReader()
{
    static Reader reader;
    static const bool loaded = FindCupsFunction("ppdOpenFd", reader.openFd) &&
                               FindCupsFunction("ppdClose", reader.close) &&
                               FindCupsFunction("ppdLastError", reader.lastError) &&
                               FindCupsFunction("ppdFindCustomOption", reader.findCustomOption) &&
                               FindCupsFunction("ppdFindAttr", reader.findAttribute) &&
                               FindCupsFunction("ppdFindNextAttr", reader.findNextAttribute);
    return loaded ? &reader : nullptr;
}

struct PPDDeleter {
    const Reader* reader;
    void operator()(ppd_file_t* file) const { reader->close(file); }
};
using OpenFile = std::unique_ptr<ppd_file_t, PPDDeleter>;

// The library has decoded hexadecimal parts already and passes bytes that it knows no encoding of.
// @param mostBytes  that the library keeps of such a text; 0 for any number
std::string Text(const char* bytes, std::size_t mostBytes)
{
    std::string text = bytes == nullptr ? "" : bytes;
    char all = 0;
    for (const char byte : text) {
        all = static_cast<char>(all | byte);
    }
    const bool isAscii = all >= 0;
    if (isAscii || IsUtf8(text)) {
        return text;
    }
    // Cut by the library, maybe inside a character: converting from another encoding, it leaves a
    // byte unused.
    constexpr std::size_t LongestTail = 3;
    const std::size_t valid = ValidUtf8Prefix(text).size();
    if (mostBytes != 0 && text.size() + 1 >= mostBytes && text.size() - valid <= LongestTail) {
        text.resize(valid);
    }
    return Utf8OfPPDText(std::move(text));
}

template <std::size_t Size>
std::string Text(const char (&bytes)[Size])
{
    return Text(bytes, Size - 1);
}

struct RefusalRow {
    ppd_status_t status;
    const char* reason; // null ends the table
};

// Why the library refuses a file. Its own words follow the locale; messages are English.
constexpr RefusalRow RefusalMap[] = {
    {PPD_NULL_FILE,              "nothing to read"                                           },
    {PPD_ALLOC_ERROR,            "out of memory"                                             },
    {PPD_MISSING_PPDADOBE4,      "missing PPD-Adobe-4.x header"                              },
    {PPD_MISSING_VALUE,          "missing value"                                             },
    {PPD_INTERNAL_ERROR,         "not understood by the printing system"                     },
    {PPD_BAD_OPEN_GROUP,         "bad OpenGroup"                                             },
    {PPD_NESTED_OPEN_GROUP,      "OpenGroup without a CloseGroup before it"                  },
    {PPD_BAD_OPEN_UI,            "bad OpenUI or JCLOpenUI"                                   },
    {PPD_NESTED_OPEN_UI,         "OpenUI or JCLOpenUI without a CloseUI or JCLCloseUI before"},
    {PPD_BAD_ORDER_DEPENDENCY,   "bad OrderDependency"                                       },
    {PPD_BAD_UI_CONSTRAINTS,     "bad UIConstraints"                                         },
    {PPD_MISSING_ASTERISK,       "missing asterisk in column 1"                              },
    {PPD_LINE_TOO_LONG,          "line longer than the maximum allowed (255 characters)"     },
    {PPD_ILLEGAL_CHARACTER,      "illegal control character"                                 },
    {PPD_ILLEGAL_MAIN_KEYWORD,   "illegal main keyword"                                      },
    {PPD_ILLEGAL_OPTION_KEYWORD, "illegal option keyword"                                    },
    {PPD_ILLEGAL_TRANSLATION,    "illegal translation"                                       },
    {PPD_ILLEGAL_WHITESPACE,     "illegal white space"                                       },
    {PPD_BAD_CUSTOM_PARAM,       "bad custom parameter"                                      },
    {PPD_MISSING_OPTION_KEYWORD, "missing option keyword"                                    },
    {PPD_BAD_VALUE,              "bad value"                                                 },
    {PPD_MISSING_CLOSE_GROUP,    "missing CloseGroup"                                        },
    {PPD_BAD_CLOSE_UI,           "bad CloseUI or JCLCloseUI"                                 },
    {PPD_MISSING_CLOSE_UI,       "missing CloseUI or JCLCloseUI"                             },
    {PPD_OK,                     nullptr                                                     },
};

ParseError RefusalOf(const Reader& reader)
{
    int line = 0;
    const ppd_status_t status = reader.lastError(&line);
    const auto* row = RefusalMap;
    while (row->reason != nullptr && row->status != status) {
        ++row;
    }
    return {static_cast<std::size_t>(std::max(line, 0)),
            row->reason == nullptr ? "refused by the printing system" : row->reason};
}

// The file is at its beginning before, and somewhere after.
OpenFile OpenWithReader(const Descriptor& file, const Reader& reader, ParseError& error)
{
    OpenFile opened(nullptr, PPDDeleter{&reader});
    error.reason = RefusalOfPPD(file);
    if (!error.reason.empty()) {
        return opened;
    }
    const int own = fcntl(file.number(), F_DUPFD_CLOEXEC, 0);
    if (own < 0) {
        error.reason = std::generic_category().message(errno);
        return opened;
    }
    opened.reset(reader.openFd(own)); // which closes it
    if (!opened) {
        error = RefusalOf(reader);
    }
    return opened;
}

struct LanguageRow {
    std::string_view version; // as PPD files call their own language; "" ends the table
    std::string_view code;
};

constexpr LanguageRow LanguageMap[] = {
    {"Chinese",    "zh"},
    {"Czech",      "cs"},
    {"Danish",     "da"},
    {"Dutch",      "nl"},
    {"English",    "en"},
    {"Finnish",    "fi"},
    {"French",     "fr"},
    {"German",     "de"},
    {"Greek",      "el"},
    {"Hungarian",  "hu"},
    {"Italian",    "it"},
    {"Japanese",   "ja"},
    {"Korean",     "ko"},
    {"Norwegian",  "nb"},
    {"Norwegian",  "no"},
    {"Polish",     "pl"},
    {"Portuguese", "pt"},
    {"Russian",    "ru"},
    {"Spanish",    "es"},
    {"Swedish",    "sv"},
    {"Turkish",    "tr"},
    {"",           ""  },
};

// @param version  null for English
bool IsOwnLanguage(const char* version, std::string_view code)
{
    const std::string_view own = version == nullptr ? "English" : version;
    for (const auto* row = LanguageMap; !row->version.empty(); ++row) {
        if (row->version == own && row->code == code) {
            return true;
        }
    }
    return false;
}

// Those of the user's languages that the file has translations for, up to its own.
std::vector<std::string> TranslatedLanguages(ppd_file_t* file, const Reader& reader,
                                             const std::vector<std::string>& wanted)
{
    const ppd_attr_t* languages = reader.findAttribute(file, "cupsLanguages", nullptr);
    if (languages == nullptr || languages->value == nullptr) {
        return {};
    }
    std::istringstream list(languages->value);
    const std::vector<std::string> offered(std::istream_iterator<std::string>(list), {});
    std::vector<std::string> translated;
    for (const std::string& language : wanted) {
        if (IsOwnLanguage(file->lang_version, language)) {
            break;
        }
        if (std::find(offered.begin(), offered.end(), language) != offered.end()) {
            translated.push_back(language);
        }
    }
    return translated;
}

// The whole file, wherever it is read at; what cannot be read again has no translations.
std::string ContentsOf(const Descriptor& file)
{
    std::string unread;
    return lseek(file.number(), 0, SEEK_SET) == 0
               ? ReadDescriptorContents(file.number(), PPDMaximumBytes, unread).value_or("")
               : "";
}

void Translate(std::string& text, const std::string* translation)
{
    if (translation != nullptr) {
        text = *translation;
    }
}

void Translate(std::vector<PPDGroup>& groups, const PPDTranslations& translations)
{
    for (PPDGroup& group : groups) {
        Translate(group.text, translations.text(group.name));
        for (PPDOption& option : group.options) {
            Translate(option.text, translations.text(option.keyword));
            for (PPDChoice& choice : option.choices) {
                Translate(choice.text, translations.choiceText(option.keyword, choice.keyword));
            }
        }
        Translate(group.subgroups, translations);
    }
}

PPDOption OptionOf(ppd_file_t* file, const ppd_option_t& from, const Reader& reader)
{
    PPDOption option;
    option.keyword = Text(from.keyword);
    option.text = Text(from.text);
    option.type = from.ui == PPD_UI_BOOLEAN   ? PPDUIType::Boolean
                  : from.ui == PPD_UI_PICKONE ? PPDUIType::PickOne
                                              : PPDUIType::PickMany;
    option.defaultChoice = Text(from.defchoice);
    // The library adds the choice to the region of manual feeding too, under the page size's name.
    const bool isRegion = option.keyword == "PageRegion";
    option.takesCustom =
        reader.findCustomOption(file, isRegion ? "PageSize" : from.keyword) != nullptr;
    option.choices.reserve(static_cast<std::size_t>(from.num_choices));
    bool marked = false;
    for (int index = 0; index < from.num_choices; ++index) {
        PPDChoice choice = {Text(from.choices[index].choice), Text(from.choices[index].text)};
        if (option.takesCustom && choice.keyword == "Custom") {
            continue;
        }
        choice.isMarked = !marked && choice.keyword == option.defaultChoice;
        marked = marked || choice.isMarked;
        option.choices.push_back(std::move(choice));
    }
    return option;
}

PPDGroup GroupOf(ppd_file_t* file, const ppd_group_t& from, const Reader& reader)
{
    PPDGroup group = {Text(from.name), Text(from.text), {}, {}};
    group.options.reserve(static_cast<std::size_t>(from.num_options));
    for (int index = 0; index < from.num_options; ++index) {
        group.options.push_back(OptionOf(file, from.options[index], reader));
    }
    for (int index = 0; index < from.num_subgroups; ++index) {
        group.subgroups.push_back(GroupOf(file, from.subgroups[index], reader));
    }
    return group;
}

std::optional<PPDSizeLimits> CustomSizesOf(const ppd_file_t& file)
{
    if (file.variable_sizes == 0 || !IsPaperRange(file.custom_min[0], file.custom_max[0]) ||
        !IsPaperRange(file.custom_min[1], file.custom_max[1])) {
        return std::nullopt;
    }
    return PPDSizeLimits{file.custom_min[0], file.custom_min[1], file.custom_max[0],
                         file.custom_max[1]};
}

std::vector<PPDConstraint> ConstraintsOf(ppd_file_t* file, const Reader& reader)
{
    std::vector<PPDConstraint> constraints;
    constraints.reserve(static_cast<std::size_t>(file->num_consts));
    for (int index = 0; index < file->num_consts; ++index) {
        const ppd_const_t& pair = file->consts[index];
        constraints.push_back(
            {Text(pair.option1), Text(pair.choice1), Text(pair.option2), Text(pair.choice2)});
    }
    // The library leaves these as they are.
    for (const ppd_attr_t* found = reader.findAttribute(file, PPDConstraintKeyword, nullptr);
         found != nullptr; found = reader.findNextAttribute(file, PPDConstraintKeyword, nullptr)) {
        if (auto pair = PPDConstraintOf(Text(found->value, 0))) {
            constraints.push_back(std::move(*pair));
        }
    }
    return constraints;
}

void Collect(const PPDGroup& group, std::vector<const PPDOption*>& options)
{
    for (const PPDOption& option : group.options) {
        options.push_back(&option);
    }
    for (const PPDGroup& subgroup : group.subgroups) {
        Collect(subgroup, options);
    }
}

// Null when none of the groups has that main keyword.
template <typename Groups>
auto* FindOption(Groups& groups, std::string_view keyword)
{
    decltype(&groups.front().options.front()) found = nullptr;
    for (auto& group : groups) {
        for (auto& option : group.options) {
            if (option.keyword == keyword) {
                return &option;
            }
        }
        if ((found = FindOption(group.subgroups, keyword)) != nullptr) {
            return found;
        }
    }
    return found;
}

// @return false, with nothing changed, when there is no such choice
bool Mark(PPDOption& option, std::string_view choiceKeyword)
{
    const auto chosen = std::find_if(
        option.choices.begin(), option.choices.end(),
        [choiceKeyword](const PPDChoice& choice) { return choice.keyword == choiceKeyword; });
    if (chosen == option.choices.end()) {
        return false;
    }
    for (PPDChoice& choice : option.choices) {
        choice.isMarked = false;
    }
    chosen->isMarked = true;
    return true;
}

void Mark(std::vector<PPDGroup>& groups, const CFDictionary& choices)
{
    for (PPDGroup& group : groups) {
        for (PPDOption& option : group.options) {
            if (const auto* choice = choices.get<std::string>(option.keyword)) {
                Mark(option, *choice);
            }
        }
        Mark(group.subgroups, choices);
    }
}

} // namespace

bool IsPaperRange(float minimum, float maximum)
{
    constexpr float LongestPaper = 100'000; // points; over 35 m
    return minimum >= 0 && maximum > 0 && minimum <= maximum && maximum <= LongestPaper;
}

std::optional<PPDConstraint> PPDConstraintOf(std::string_view value)
{
    constexpr std::string_view Blanks = " \t\r\n";
    std::vector<std::pair<std::string_view, std::string_view>> sides; // option and choice
    for (std::size_t end = 0, start = 0;
         (start = value.find_first_not_of(Blanks, end)) != std::string_view::npos;) {
        end = std::min(value.find_first_of(Blanks, start), value.size());
        const std::string_view word = value.substr(start, end - start);
        if (word.starts_with('*')) {
            sides.emplace_back(word.substr(1), "");
        } else if (!sides.empty() && sides.back().second.empty()) {
            sides.back().second = word;
        } else {
            return std::nullopt;
        }
    }
    if (sides.size() != 2) {
        return std::nullopt;
    }
    return PPDConstraint{std::string(sides[0].first), std::string(sides[0].second),
                         std::string(sides[1].first), std::string(sides[1].second)};
}

std::optional<PPDFile> PPDFile::Open(const std::string& path, ParseError& error)
{
    error = ParseError();
    const Descriptor file = OpenPPD(path, error.reason);
    return file.valid() ? ReadFrom(file, UserLanguages(), error) : std::nullopt;
}

std::optional<PPDFile> PPDFile::Read(std::string_view contents,
                                     const std::vector<std::string>& languages, ParseError& error)
{
    error = ParseError();
    const Descriptor file = PPDInMemory(contents, error.reason);
    return file.valid() ? ReadFrom(file, languages, error) : std::nullopt;
}

std::optional<PPDFile> PPDFile::ReadFrom(const Descriptor& descriptor,
                                         const std::vector<std::string>& languages,
                                         ParseError& error)
{
    const Reader* reader = LoadReader();
    if (reader == nullptr) {
        error.reason = CupsLibraryMissing;
        return std::nullopt;
    }
    const OpenFile opened = OpenWithReader(descriptor, *reader, error);
    if (!opened) {
        return std::nullopt;
    }
    PPDFile file;
    file.manufacturer_ = Text(opened->manufacturer, 0);
    file.nickName_ = Text(opened->nickname, 0);
    for (int index = 0; index < opened->num_groups; ++index) {
        file.groups_.push_back(GroupOf(opened.get(), opened->groups[index], *reader));
    }
    const auto translated = TranslatedLanguages(opened.get(), *reader, languages);
    if (!translated.empty()) {
        Translate(file.groups_, PPDTranslations(ContentsOf(descriptor), translated));
    }
    file.constraints_ = ConstraintsOf(opened.get(), *reader);
    file.customSizes_ = CustomSizesOf(*opened);
    return file;
}

std::vector<const PPDOption*> PPDFile::options() const
{
    std::vector<const PPDOption*> options;
    for (const PPDGroup& group : groups_) {
        Collect(group, options);
    }
    return options;
}

const PPDOption* PPDFile::option(std::string_view keyword) const
{
    return FindOption(groups_, keyword);
}

bool PPDFile::mark(std::string_view optionKeyword, std::string_view choiceKeyword)
{
    PPDOption* option = FindOption(groups_, optionKeyword);
    return option != nullptr && Mark(*option, choiceKeyword);
}

void PPDFile::mark(const CFDictionary& choices)
{
    Mark(groups_, choices);
}

const std::string* PPDFile::markedChoice(std::string_view optionKeyword) const
{
    if (const PPDOption* option = this->option(optionKeyword)) {
        for (const PPDChoice& choice : option->choices) {
            if (choice.isMarked) {
                return &choice.keyword;
            }
        }
    }
    return nullptr;
}

std::optional<PPDFile> ppdOpenCompiledPPDFromTicket(const PMTicket* ticket, ParseError& error)
{
    std::string path;
    if (ticket == nullptr || ticket->getString(PPDPathKey, &path) != StatusOk) {
        error = ParseError{0, "the printer information names no PPD file"};
        return std::nullopt;
    }
    return PPDFile::Open(path, error);
}

} // namespace tarvo
