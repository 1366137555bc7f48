#include "cli/BashCompletion.h"

#include "cli/OptionTable.h"

#include <algorithm>
#include <string_view>

namespace tarvo {
namespace {

// The words that fit, one a line; $word is what has been typed.
constexpr const char* FileWords = "compgen -f -- \"$word\"";
constexpr const char* DirectoryWords = "compgen -d -- \"$word\"";
constexpr const char* TicketWords =
    "compgen -f -X '!*.plist' -- \"$word\"; compgen -d -- \"$word\"";

constexpr const char* DocumentWords =
    "compgen -f -X '!*.@(xml|tpif)' -- \"$word\"; compgen -d -- \"$word\"";
constexpr const char* PPDWords = "compgen -f -X '!*.ppd' -- \"$word\"; compgen -d -- \"$word\"";

const char* WordsOfKind(OptionKind kind)
{
    switch (kind) {
    case OptionKind::File:
    case OptionKind::Files:
        return FileWords;
    case OptionKind::Directory:
        return DirectoryWords;
    case OptionKind::Tickets:
        return TicketWords;
    case OptionKind::PPDs:
        return PPDWords;
    case OptionKind::Documents:
        return DocumentWords;
    case OptionKind::Flag:
    case OptionKind::Text:
    case OptionKind::Texts:
        break;
    }
    return ":"; // nothing to offer
}

std::string OptionNames(std::string_view verb)
{
    std::string names;
    for (const OptionRow* row = OptionMap; row->verb != nullptr; ++row) {
        const bool taken = row->verb == verb || *row->verb == '\0';
        if (!taken || StandsAlone(row->kind)) {
            continue;
        }
        names += *row->shortName == '\0' ? "" : std::string(row->shortName) + ' ';
        names += std::string(row->name) + ' ';
    }
    names.pop_back();
    return names;
}

// How the script writes a verb: "stocks/list" for one of two words.
std::string PatternOf(std::string_view verb)
{
    std::string pattern(verb);
    std::replace(pattern.begin(), pattern.end(), ' ', '/');
    return pattern;
}

std::string Choice(const std::string& pattern, const std::string& words)
{
    return "        " + pattern + ") " + words + " ;;\n";
}

// What stands behind an option that takes a value.
std::string ValueChoices()
{
    std::string choices;
    for (const OptionRow* row = OptionMap; row->verb != nullptr; ++row) {
        if (row->kind == OptionKind::Flag || StandsAlone(row->kind)) {
            continue;
        }
        const std::string verb = PatternOf(row->verb) + ':';
        const std::string shortPattern = *row->shortName == '\0' ? "" : verb + row->shortName + "|";
        choices += Choice(shortPattern + verb + row->name, WordsOfKind(row->kind));
    }
    return choices;
}

// The words that may stand first: verbs of one word, and groups.
std::string FirstWords()
{
    std::string names;
    std::string_view former;
    for (const VerbRow* row = VerbMap; row->name != nullptr; ++row) {
        const std::string_view group = GroupOfVerb(row->name);
        if (group.empty() || group != former) { // a group's verbs stand together
            names += std::string(group.empty() ? row->name : group) + ' ';
        }
        former = group;
    }
    return names;
}

std::string SecondWords(std::string_view group)
{
    std::string names;
    for (const VerbRow* row = VerbMap; row->name != nullptr; ++row) {
        if (GroupOfVerb(row->name) == group) {
            names += std::string(row->name).substr(group.size() + 1) + ' ';
        }
    }
    return names;
}

// The second words of each group; behind one, $verb is both.
std::string GroupChoices()
{
    std::string choices;
    std::string_view former;
    for (const VerbRow* row = VerbMap; row->name != nullptr; ++row) {
        const std::string_view group = GroupOfVerb(row->name);
        if (!group.empty() && group != former) {
            choices += "        " + std::string(group) + ")\n" +
                       "            if ((COMP_CWORD == 2)); then\n" +
                       "                compgen -W '" + SecondWords(group) + OptionNames("") +
                       "' -- \"$word\"\n                return\n            fi\n" +
                       "            verb=$verb/${COMP_WORDS[2]} ;;\n";
        }
        former = group;
    }
    return choices;
}

std::string OptionChoices()
{
    std::string choices;
    for (const VerbRow* row = VerbMap; row->name != nullptr; ++row) {
        choices += Choice(PatternOf(row->name) + ":-*",
                          "compgen -W '" + OptionNames(row->name) + "' -- \"$word\"");
    }
    return choices;
}

std::string ArgumentChoices()
{
    std::string choices;
    for (const OptionRow* row = OptionMap; row->verb != nullptr; ++row) {
        if (StandsAlone(row->kind)) {
            choices += Choice(PatternOf(row->verb) + ":*", WordsOfKind(row->kind));
        }
    }
    return choices;
}

} // namespace

std::string BashCompletion()
{
    return "# bash completion for tarvo-ticket\n\n"
           "_tarvo_ticket_words()\n{\n"
           "    local word=$1 previous=$2 verb=${COMP_WORDS[1]}\n"
           "    if ((COMP_CWORD == 1)); then\n"
           "        compgen -W '" +
           FirstWords() + OptionNames("") +
           "' -- \"$word\"\n        return\n    fi\n"
           "    case $verb in\n" +
           GroupChoices() +
           "    esac\n"
           "    case $verb:$previous in\n" +
           ValueChoices() + "        *) case $verb:$word in\n" + OptionChoices() +
           ArgumentChoices() +
           "        esac ;;\n    esac\n}\n\n"
           "_tarvo_ticket()\n{\n"
           "    mapfile -t COMPREPLY < <(_tarvo_ticket_words \"$2\" \"$3\" | sort -u)\n"
           "}\n\n"
           "complete -o filenames -F _tarvo_ticket tarvo-ticket\n";
}

} // namespace tarvo
