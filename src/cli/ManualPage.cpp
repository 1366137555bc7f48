#include "cli/ManualPage.h"

#include "cli/OptionTable.h"

namespace tarvo {
namespace {

// Text that the formatter shows as it is. Hyphens are marked, so that options can be copied.
std::string Escaped(std::string_view text)
{
    std::string escaped;
    for (const char letter : text) {
        if (letter == '\\') {
            escaped += "\\e";
        } else if (letter == '-') {
            escaped += "\\-";
        } else {
            escaped += letter;
        }
    }
    // A line that begins with one of these would be an instruction.
    return escaped.starts_with('.') || escaped.starts_with('\'') ? "\\&" + escaped : escaped;
}

std::string Bold(std::string_view text)
{
    return "\\fB" + Escaped(text) + "\\fR";
}

std::string Paragraphs(std::string_view text)
{
    std::string paragraphs;
    while (!text.empty()) {
        const std::size_t end = text.find("\n\n");
        paragraphs += ".PP\n" + Escaped(text.substr(0, end)) + '\n';
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
    }
    return paragraphs;
}

std::string OptionHeading(const OptionRow& row)
{
    if (StandsAlone(row.kind)) {
        return std::string("\\fI") + Escaped(row.name) + "\\fR";
    }
    std::string heading = *row.shortName == '\0' ? "" : Bold(row.shortName) + ", ";
    heading += Bold(row.name);
    return *row.argument == '\0' ? heading : heading + " \\fI" + Escaped(row.argument) + "\\fR";
}

std::string OptionsOf(std::string_view verb)
{
    std::string options;
    for (const OptionRow* row = OptionMap; row->verb != nullptr; ++row) {
        if (row->verb == verb) {
            options += ".TP\n" + OptionHeading(*row) + '\n' + Escaped(row->help) + '\n';
        }
    }
    return options;
}

std::string Synopsis()
{
    std::string synopsis = ".SH SYNOPSIS\n";
    for (const VerbRow* row = VerbMap; row->name != nullptr; ++row) {
        synopsis += Bold(std::string(ProgramName) + ' ' + row->name) + ' ' +
                    Escaped(row->synopsis) + "\n.br\n";
    }
    return synopsis + Bold(ProgramName) + ' ' + Escaped("[--help | --version]") + '\n';
}

std::string Verbs()
{
    std::string verbs;
    for (const VerbRow* row = VerbMap; row->name != nullptr; ++row) {
        verbs += ".SS " + std::string(row->name) + " \\(en " + Escaped(row->summary) + '\n' +
                 Paragraphs(row->description) + OptionsOf(row->name);
    }
    return verbs;
}

std::string ExitStatuses()
{
    std::string statuses = ".SH EXIT STATUS\n";
    for (const ExitStatusRow* row = ExitStatusMap; row->meaning != nullptr; ++row) {
        statuses += ".TP\n" + Bold(std::to_string(static_cast<int>(row->status))) + '\n' +
                    Escaped(row->meaning) + '\n';
    }
    return statuses;
}

std::string Examples()
{
    std::string examples = ".SH EXAMPLES\n";
    for (const ExampleRow* row = ExampleMap; row->verb != nullptr; ++row) {
        examples += ".TP\n" + Bold(row->command) + '\n' + Escaped(row->meaning) + '\n';
    }
    return examples;
}

} // namespace

std::string ManualPage(std::string_view version)
{
    return ".TH TARVO\\-TICKET 1 \"\" \"tarvo\\-ticket " + Escaped(version) + "\"\n" +
           ".SH NAME\ntarvo\\-ticket \\- job tickets of Tarvo production printers\n" + Synopsis() +
           ".SH VERBS\n" + Verbs() + ".SH OPTIONS\nEvery verb takes these too.\n" + OptionsOf("") +
           ExitStatuses() + Examples();
}

} // namespace tarvo
