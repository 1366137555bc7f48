#include "platform/printing/PPDFile.h"

#include "platform/bundle/CFBundle.h"
#include "platform/files/FileContents.h"
#include "platform/printing/PMPrintSession.h"
#include "platform/text/Utf8.h"

#include <cups/ppd.h>
#include <sys/stat.h>

#include <dlfcn.h>
#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <iterator>
#include <memory>
#include <sstream>
#include <system_error>

// The printing system calls its reader deprecated and has no other for files.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace tarvo {
namespace {

// The library's functions, found when the first file is opened: naming the library at link time
// would cost every start of a program some 5 ms.
struct Reader {
    decltype(&ppdOpenFd) openFd = nullptr;
    decltype(&ppdClose) close = nullptr;
    decltype(&ppdLastError) lastError = nullptr;
    decltype(&ppdErrorString) errorString = nullptr;
    decltype(&ppdFindCustomOption) findCustomOption = nullptr;
    decltype(&ppdFindAttr) findAttribute = nullptr;
    decltype(&ppdLocalize) localize = nullptr;
};

template <typename Function>
bool Find(void* library, const char* name, Function& function)
{
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

// Null when the library or one of the functions is missing. It stays loaded.
const Reader* LoadReader()
{
    static Reader reader;
    static const bool loaded = [] {
        void* library = dlopen("libcups.so.2", RTLD_NOW | RTLD_LOCAL);
        return library != nullptr && Find(library, "ppdOpenFd", reader.openFd) &&
               Find(library, "ppdClose", reader.close) &&
               Find(library, "ppdLastError", reader.lastError) &&
               Find(library, "ppdErrorString", reader.errorString) &&
               Find(library, "ppdFindCustomOption", reader.findCustomOption) &&
               Find(library, "ppdFindAttr", reader.findAttribute) &&
               Find(library, "ppdLocalize", reader.localize);
    }();
    return loaded ? &reader : nullptr;
}

struct PPDDeleter {
    const Reader* reader;
    void operator()(ppd_file_t* file) const { reader->close(file); }
};
using OpenFile = std::unique_ptr<ppd_file_t, PPDDeleter>;

// The library has decoded hexadecimal parts already and passes bytes that it knows no encoding of.
std::string Text(const char* bytes)
{
    if (bytes == nullptr) {
        return "";
    }
    std::string text = bytes;
    const bool isAscii = std::all_of(text.begin(), text.end(), [](char byte) { return byte >= 0; });
    if (isAscii || IsUtf8(text)) {
        return text;
    }
    // Cut by the library, maybe inside a character.
    constexpr std::size_t LongestTail = 3;
    const std::size_t valid = ValidUtf8Prefix(text).size();
    if (text.size() >= PPD_MAX_TEXT - 2 && text.size() - valid <= LongestTail) {
        return text.substr(0, valid);
    }
    const std::unique_ptr<char, decltype(&g_free)> converted(
        g_convert(bytes, -1, "UTF-8", "MACINTOSH", nullptr, nullptr, nullptr), g_free);
    return converted ? converted.get() : "";
}

ParseError RefusalOf(const Reader& reader)
{
    int line = 0;
    const ppd_status_t status = reader.lastError(&line);
    std::string reason = reader.errorString(status);
    reason[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(reason[0])));
    return {static_cast<std::size_t>(std::max(line, 0)), std::move(reason)};
}

// The library's time grows with the square of the options, and of the lines.
constexpr std::size_t MostOptions = 10'000;
constexpr std::size_t MostLines = 100'000;

// Why the library had better not read the contents; empty when it may.
std::string RefusalOfContents(std::string_view contents)
{
    if (contents.starts_with("\x1F\x8B")) { // no limit would hold for what it unpacks to
        return "compressed; unpack it first";
    }
    const auto isLineEnd = [](char letter) { return letter == '\n' || letter == '\r'; };
    const auto lines = std::count_if(contents.begin(), contents.end(), isLineEnd);
    if (static_cast<std::size_t>(lines) > MostLines) {
        return "more than " + std::to_string(MostLines) + " lines";
    }
    std::size_t options = 0;
    for (std::size_t at = 0; (at = contents.find("OpenUI", at)) != std::string_view::npos; ++at) {
        ++options;
    }
    return options > MostOptions ? "more than " + std::to_string(MostOptions) + " options" : "";
}

// An open file that is regular, small enough and not packed, which the library will close; -1 with
// the reason when there is none.
int OpenChecked(const std::string& path, std::string& reason)
{
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat status = {};
    if (file < 0 || fstat(file, &status) != 0) {
        reason = std::generic_category().message(errno);
    } else if (!S_ISREG(status.st_mode)) {
        reason = "not a regular file";
    } else if (const auto contents = ReadDescriptorContents(file, PPDMaximumBytes, reason)) {
        reason = RefusalOfContents(*contents);
        if (reason.empty() && lseek(file, 0, SEEK_SET) == 0) {
            return file;
        }
    }
    if (file >= 0) {
        close(file);
    }
    return -1;
}

OpenFile OpenWithReader(const std::string& path, const Reader& reader, ParseError& error)
{
    const int file = OpenChecked(path, error.reason);
    if (file < 0) {
        return {nullptr, PPDDeleter{&reader}};
    }
    OpenFile opened(reader.openFd(file), PPDDeleter{&reader});
    if (!opened) {
        error = RefusalOf(reader);
    }
    return opened;
}

// Puts the texts into the user's language if the file has it. Asked in vain, the library would look
// for a translation of every choice.
void Translate(ppd_file_t* file, const Reader& reader)
{
    const ppd_attr_t* languages = reader.findAttribute(file, "cupsLanguages", nullptr);
    if (languages == nullptr || languages->value == nullptr) {
        return;
    }
    std::istringstream list(languages->value);
    const std::vector<std::string> offered(std::istream_iterator<std::string>(list), {});
    for (const std::string& language : UserLanguages()) {
        if (std::find(offered.begin(), offered.end(), language) != offered.end()) {
            reader.localize(file);
            return;
        }
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
    const bool isCustom =
        reader.findCustomOption(file, isRegion ? "PageSize" : from.keyword) != nullptr;
    option.choices.reserve(static_cast<std::size_t>(from.num_choices));
    bool marked = false;
    for (int index = 0; index < from.num_choices; ++index) {
        PPDChoice choice = {Text(from.choices[index].choice), Text(from.choices[index].text)};
        if (isCustom && choice.keyword == "Custom") {
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

bool IsRange(float minimum, float maximum)
{
    constexpr float LongestPaper = 100'000; // points; over 35 m
    return minimum >= 0 && maximum > 0 && minimum <= maximum && maximum <= LongestPaper;
}

std::optional<PPDSizeLimits> CustomSizesOf(const ppd_file_t& file)
{
    if (file.variable_sizes == 0 || !IsRange(file.custom_min[0], file.custom_max[0]) ||
        !IsRange(file.custom_min[1], file.custom_max[1])) {
        return std::nullopt;
    }
    return PPDSizeLimits{file.custom_min[0], file.custom_min[1], file.custom_max[0],
                         file.custom_max[1]};
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

} // namespace

std::optional<PPDFile> PPDFile::Open(const std::string& path, ParseError& error)
{
    error = ParseError();
    const Reader* reader = LoadReader();
    if (reader == nullptr) {
        error.reason = "the printing system's library, libcups.so.2, is missing";
        return std::nullopt;
    }
    const OpenFile opened = OpenWithReader(path, *reader, error);
    if (!opened) {
        return std::nullopt;
    }
    Translate(opened.get(), *reader);
    PPDFile file;
    file.manufacturer_ = Text(opened->manufacturer);
    file.nickName_ = Text(opened->nickname);
    for (int index = 0; index < opened->num_groups; ++index) {
        file.groups_.push_back(GroupOf(opened.get(), opened->groups[index], *reader));
    }
    for (int index = 0; index < opened->num_consts; ++index) {
        const ppd_const_t& pair = opened->consts[index];
        file.constraints_.push_back(
            {Text(pair.option1), Text(pair.choice1), Text(pair.option2), Text(pair.choice2)});
    }
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
    if (option == nullptr) {
        return false;
    }
    const auto chosen = std::find_if(
        option->choices.begin(), option->choices.end(),
        [choiceKeyword](const PPDChoice& choice) { return choice.keyword == choiceKeyword; });
    if (chosen == option->choices.end()) {
        return false;
    }
    for (PPDChoice& choice : option->choices) {
        choice.isMarked = false;
    }
    chosen->isMarked = true;
    return true;
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
