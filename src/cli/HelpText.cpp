#include "cli/HelpText.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr std::size_t LineWidth = 79;
constexpr std::size_t TextColumn = 22; // of what an option means

// A heading such as "  -o, --output FILE", then the text beside and below it.
std::string Entry(std::string heading, std::string_view text, std::size_t column)
{
    if (!heading.empty() && heading.size() + 2 > column) {
        heading += '\n' + std::string(column, ' ');
    } else {
        heading.resize(column, ' ');
    }
    std::string entry = heading;
    std::size_t used = column;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        if (used > column && used + 1 + word.size() > LineWidth) {
            entry += '\n' + std::string(column, ' ');
            used = column;
        }
        if (used > column) {
            entry += ' ';
            ++used;
        }
        entry += word;
        used += word.size();
        text.remove_prefix(std::min(word.size() + 1, text.size()));
    }
    return entry + '\n';
}

std::string Paragraphs(std::string_view text)
{
    std::string paragraphs;
    while (!text.empty()) {
        const std::size_t end = text.find("\n\n");
        paragraphs += '\n' + Entry("", text.substr(0, end), 0);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
    }
    return paragraphs;
}

std::string OptionHeading(const OptionRow& row)
{
    std::string heading = "  ";
    if (StandsAlone(row.kind)) {
        return heading + row.name;
    }
    heading += *row.shortName == '\0' ? "    " : std::string(row.shortName) + ", ";
    heading += row.name;
    return *row.argument == '\0' ? heading : heading + ' ' + row.argument;
}

std::string OptionsOf(std::string_view verb)
{
    std::string options;
    for (const OptionRow* row = OptionMap; row->verb != nullptr; ++row) {
        if (row->verb == verb) {
            options += Entry(OptionHeading(*row), row->help, TextColumn);
        }
    }
    return options;
}

// All verbs, or those of a group.
std::string VerbSummaries(std::string_view group)
{
    std::string summaries = "\nVerbs:\n";
    for (const VerbRow* row = VerbMap; row->name != nullptr; ++row) {
        if (group.empty() || GroupOfVerb(row->name) == group) {
            summaries += Entry(std::string("  ") + row->name, row->summary, TextColumn);
        }
    }
    return summaries;
}

std::string ExitStatuses()
{
    std::string statuses = "\nExit status:\n";
    for (const ExitStatusRow* row = ExitStatusMap; row->meaning != nullptr; ++row) {
        statuses +=
            "  " + std::to_string(static_cast<int>(row->status)) + "  " + row->meaning + '\n';
    }
    return statuses;
}

std::string ExamplesOf(std::string_view verb)
{
    std::string examples;
    for (const ExampleRow* row = ExampleMap; row->verb != nullptr; ++row) {
        if (row->verb == verb) {
            examples += std::string("  ") + row->command + "\n" + Entry("", row->meaning, 6);
        }
    }
    return examples.empty() ? "" : "\nExamples:\n" + examples;
}

} // namespace

const VerbRow* FindVerb(std::string_view name)
{
    for (const VerbRow* row = VerbMap; row->name != nullptr; ++row) {
        if (row->name == name) {
            return row;
        }
    }
    return nullptr;
}

bool IsVerbGroup(std::string_view word)
{
    return !VerbsOfGroup(word).empty();
}

std::string VerbsOfGroup(std::string_view group)
{
    std::string verbs;
    for (const VerbRow* row = VerbMap; row->name != nullptr; ++row) {
        if (!group.empty() && GroupOfVerb(row->name) == group) {
            verbs += verbs.empty() ? "" : ", ";
            verbs += std::string_view(row->name).substr(group.size() + 1);
        }
    }
    return verbs;
}

std::string ProgramHelp()
{
    return std::string("Usage: ") + ProgramName + " VERB [OPTION...]\n" +
           "\nJob tickets of Tarvo production printers on the command line.\n" + VerbSummaries("") +
           "\nOptions:\n" + OptionsOf("") + ExitStatuses() + "\n'" + ProgramName +
           " VERB --help' says what a verb takes.\n";
}

std::string GroupHelp(std::string_view group)
{
    const std::string name = std::string(ProgramName) + ' ' + std::string(group);
    return "Usage: " + name + " VERB [OPTION...]\n" + VerbSummaries(group) + "\nOptions:\n" +
           OptionsOf("") + ExitStatuses() + "\n'" + name +
           " VERB --help' says what a verb takes.\n";
}

std::string VerbHelp(const VerbRow& verb)
{
    return std::string("Usage: ") + ProgramName + ' ' + verb.name + ' ' + verb.synopsis + '\n' +
           Paragraphs(verb.description) + "\nOptions:\n" + OptionsOf(verb.name) + OptionsOf("") +
           ExitStatuses() + ExamplesOf(verb.name);
}

} // namespace tarvo
