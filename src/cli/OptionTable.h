#pragma once

#include "cli/ExitStatus.h"

#include <string_view>

namespace tarvo {

// The command line as tables: parser, --help, manual page and completion are all made from them.

inline constexpr const char* ProgramName = "tarvo-ticket";

inline constexpr const char* ExportVerb = "export";
inline constexpr const char* ShowVerb = "show";
inline constexpr const char* ImportVerb = "import";
inline constexpr const char* CheckVerb = "check";
inline constexpr const char* FromJobVerb = "from-job";
inline constexpr const char* PrinterVerb = "printer";
inline constexpr const char* StocksListVerb = "stocks list";
inline constexpr const char* StocksAddVerb = "stocks add";
inline constexpr const char* StocksRemoveVerb = "stocks remove";
inline constexpr const char* StocksUseVerb = "stocks use";
inline constexpr const char* StocksMatchVerb = "stocks match";
inline constexpr const char* StocksImportVerb = "stocks import";
inline constexpr const char* StocksExportVerb = "stocks export";
inline constexpr const char* StocksFetchVerb = "stocks fetch";
inline constexpr const char* WatermarksListVerb = "watermarks list";

inline constexpr const char* HelpOption = "--help";
inline constexpr const char* VersionOption = "--version";
inline constexpr const char* OutputOption = "--output";
inline constexpr const char* OutputDirectoryOption = "--out-dir";
inline constexpr const char* AllOption = "--all";
inline constexpr const char* CoversOption = "--covers";
inline constexpr const char* InsertsOption = "--inserts";
inline constexpr const char* ExceptionsOption = "--exceptions";
inline constexpr const char* WholeOption = "--whole";
inline constexpr const char* PageFormatOption = "--page-format";
inline constexpr const char* PagesOption = "--pages";
inline constexpr const char* IntoOption = "--into";
inline constexpr const char* ReportOption = "--report";
inline constexpr const char* JsonOption = "--json";
inline constexpr const char* TicketArguments = "TICKET.plist";
inline constexpr const char* DocumentArguments = "DOCUMENT";
inline constexpr const char* CheckedArguments = "FILE";
inline constexpr const char* JobOptionsArgument = "OPTIONS";
inline constexpr const char* PPDArgument = "PPD";
inline constexpr const char* FromOption = "--from";
inline constexpr const char* SizeOption = "--size";
inline constexpr const char* ColorOption = "--color";
inline constexpr const char* TypeOption = "--type";
inline constexpr const char* WeightOption = "--weight";
inline constexpr const char* CommentOption = "--comment";
inline constexpr const char* ReplaceOption = "--replace";
inline constexpr const char* SaveOption = "--save";
inline constexpr const char* FetchArguments = "PRINTER-URI [NAME...]";
inline constexpr const char* PaperNameArgument = "NAME";
inline constexpr const char* PaperArguments = "PAPER";
inline constexpr const char* LibraryArguments = "LIBRARY";

/// What follows an option, and how a shell completes it.
enum class OptionKind {
    Flag,
    Text,
    File,
    Directory,
    Tickets,   // no option: the files that stand by themselves, any number
    PPDs,      // likewise, descriptions of printers
    Documents, // likewise
    Files,     // likewise, of any name
    Texts,     // likewise, but no files
};

/// Whether the row is no option but the files that stand by themselves.
constexpr bool StandsAlone(OptionKind kind)
{
    return kind == OptionKind::Tickets || kind == OptionKind::PPDs ||
           kind == OptionKind::Documents || kind == OptionKind::Files || kind == OptionKind::Texts;
}

struct OptionRow {
    const char* verb;      // "" is the program, and so every verb
    const char* shortName; // "" when there is none
    const char* name;
    const char* argument; // what the help calls the value
    OptionKind kind;
    const char* help;
};

// clang-format off
inline constexpr OptionRow OptionMap[] = {
    {ExportVerb, "",   TicketArguments,       "",      OptionKind::Tickets,
     "The tickets to export; - is standard input."},
    {ExportVerb, "-o", OutputOption,          "FILE",  OptionKind::File,
     "Write the document of the one ticket to FILE; - is standard output, as without this option."},
    {ExportVerb, "",   OutputDirectoryOption, "DIR",   OptionKind::Directory,
     "Write one document for each ticket into DIR, created when missing: job.plist becomes "
     "DIR/job.xml, standard input DIR/stdin.xml."},
    {ExportVerb, "",   AllOption,             "",      OptionKind::Flag,
     "Export the whole job, whatever export options the ticket holds."},
    {ExportVerb, "",   CoversOption,          "",      OptionKind::Flag,
     "Export the covers; may stand with --inserts and --exceptions."},
    {ExportVerb, "",   InsertsOption,         "",      OptionKind::Flag,
     "Export the inserts."},
    {ExportVerb, "",   ExceptionsOption,      "",      OptionKind::Flag,
     "Export the exception pages."},
    {ExportVerb, "",   WholeOption,           "",      OptionKind::Flag,
     "Use the system's own entries of the ticket too, such as the name of the print job."},
    {ExportVerb, "",   PageFormatOption,      "W,L,O", OptionKind::Text,
     "The page that the job is laid out for: width and length in points, as the page lies, and "
     "0 portrait, 1 landscape, 2 reverse portrait or 3 reverse landscape. A4 is 595,842,0. Only "
     "a stock without a size asks for it."},
    {ShowVerb,   "",   TicketArguments,       "",      OptionKind::Tickets,
     "The ticket to show; - is standard input."},
    {ShowVerb,   "",   PagesOption,           "N",     OptionKind::Text,
     "Add the sheet plan of a job of N pages: which sheet carries which pages on which stock, and "
     "where covers and inserts go. Pages printed on covers are not counted."},
    {ShowVerb,   "",   JsonOption,            "",      OptionKind::Flag,
     "Print JSON for programs instead of words."},
    {ImportVerb, "",   DocumentArguments,     "",      OptionKind::Documents,
     "The documents to import; - is standard input."},
    {ImportVerb, "",   IntoOption,            "TICKET", OptionKind::File,
     "Import into this ticket: what the documents do not give stays as it is. Without this option "
     "the ticket is made of the documents alone."},
    {ImportVerb, "-o", OutputOption,          "FILE",  OptionKind::File,
     "Write the ticket to FILE, which may be that of --into; - is standard output, as without this "
     "option."},
    {ImportVerb, "",   ReportOption,          "",      OptionKind::Flag,
     "Print what became of each element in place of the ticket, which is written with -o only."},
    {ImportVerb, "",   JsonOption,            "",      OptionKind::Flag,
     "Print the report as JSON for programs."},
    {CheckVerb,  "",   CheckedArguments,      "",      OptionKind::Files,
     "The tickets and documents to check; - is standard input."},
    {CheckVerb,  "",   JsonOption,            "",      OptionKind::Flag,
     "Print JSON for programs instead of lines."},
    {FromJobVerb, "",  JobOptionsArgument,    "",      OptionKind::Texts,
     "The options of the job, which a filter is given as its fifth argument; - is standard input."},
    {FromJobVerb, "-o", OutputOption,         "FILE",  OptionKind::File,
     "Write the ticket to FILE; - is standard output, as without this option."},
    {FromJobVerb, "",  JsonOption,            "",      OptionKind::Flag,
     "Print what the ticket says as JSON for programs in place of the ticket, which is written with "
     "-o only."},
    {PrinterVerb, "",  PPDArgument,           "",      OptionKind::PPDs,
     "The description of the printer, an uncompressed PPD file; - is standard input."},
    {PrinterVerb, "",  JsonOption,            "",      OptionKind::Flag,
     "Print JSON for programs instead of words."},
    {StocksListVerb, "", JsonOption,          "",      OptionKind::Flag,
     "Print JSON for programs instead of words."},
    {StocksAddVerb, "", PaperNameArgument,    "",      OptionKind::Texts,
     "What the paper is called, in at most 255 characters."},
    {StocksAddVerb, "", FromOption,           "TICKET.plist", OptionKind::File,
     "Take the stock of that job; the options below change it. - is standard input."},
    {StocksAddVerb, "", SizeOption,           "SIZE",  OptionKind::Text,
     "A size by the printer's word, such as A4 or Letter, or width and length in millimetres, "
     "such as 210x297."},
    {StocksAddVerb, "", ColorOption,          "COLOR", OptionKind::Text,
     "A colour by the printer's word, such as Blue."},
    {StocksAddVerb, "", TypeOption,           "TYPE",  OptionKind::Text,
     "A type by the printer's word, such as Standard, Transparency or Recycled."},
    {StocksAddVerb, "", WeightOption,         "GSM",   OptionKind::Text,
     "The weight in g/m2, 60 to 200."},
    {StocksAddVerb, "", CommentOption,        "TEXT",  OptionKind::Text,
     "A comment for whoever looks for the paper."},
    {StocksAddVerb, "", ReplaceOption,        "",      OptionKind::Flag,
     "Give the stock to the paper of that name when the library has one."},
    {StocksRemoveVerb, "", PaperArguments,    "",      OptionKind::Texts,
     "The papers to remove, each by its name or its uuid."},
    {StocksUseVerb, "", PaperArguments,       "",      OptionKind::Texts,
     "The papers that are used, each by its name or its uuid; the last comes first in the menu."},
    {StocksMatchVerb, "", TicketArguments,    "",      OptionKind::Tickets,
     "The ticket whose stocks are looked up; - is standard input."},
    {StocksMatchVerb, "", JsonOption,         "",      OptionKind::Flag,
     "Print JSON for programs instead of words."},
    {StocksImportVerb, "", LibraryArguments,  "",      OptionKind::Files,
     "The library files to take papers from; - is standard input."},
    {StocksImportVerb, "", ReplaceOption,     "",      OptionKind::Flag,
     "Give a paper of the library the stock that comes under its name."},
    {StocksExportVerb, "", PaperArguments,    "",      OptionKind::Texts,
     "The papers to write, each by its name or its uuid; all when none is named."},
    {StocksExportVerb, "-o", OutputOption,    "FILE",  OptionKind::File,
     "Write to FILE; - is standard output, as without this option."},
    {StocksFetchVerb, "", FetchArguments,     "",      OptionKind::Texts,
     "The printer's address, such as ipp://press.local, and the names of the media to show; all "
     "when none is named."},
    {StocksFetchVerb, "", SaveOption,         "",      OptionKind::Flag,
     "Copy these media into the library."},
    {StocksFetchVerb, "", ReplaceOption,      "",      OptionKind::Flag,
     "With --save, give a paper of the library the stock of the medium of its name."},
    {StocksFetchVerb, "", JsonOption,         "",      OptionKind::Flag,
     "Print JSON for programs instead of words, a medium a line."},
    {WatermarksListVerb, "", JsonOption,      "",      OptionKind::Flag,
     "Print JSON for programs instead of words."},
    {"",         "-h", HelpOption,            "",      OptionKind::Flag,
     "Print this help."},
    {"",         "",   VersionOption,         "",      OptionKind::Flag,
     "Print the version."},
    {nullptr,    "",   "",                    "",      OptionKind::Flag, ""},
};
// clang-format on

struct VerbRow {
    const char* name; // one word, or a group's word and its own
    const char* synopsis;
    const char* summary;
    const char* description; // paragraphs, an empty line between them
};

// clang-format off
inline constexpr VerbRow VerbMap[] = {
    {ExportVerb, "TICKET.plist... [-o FILE | --out-dir DIR] [OPTION...]",
     "write job tickets as TPIF documents",
     "Writes the TPIF document of each job ticket, the same bytes as the export of the print "
     "dialog. A ticket is an XML property list whose root dictionary holds the entries of the job "
     "ticket. One ticket goes to standard output unless -o or --out-dir says otherwise; several "
     "need --out-dir.\n\n"
     "What is exported is chosen by the entry \"com.tarvo.print.TPIFOptions\" of the ticket, or "
     "by --all, --covers, --inserts and --exceptions, which take its place. When that chooses "
     "nothing, the document is empty and the exit status 3.\n\n"
     "A file is replaced whole or not at all. A ticket that cannot be exported is named with the "
     "line and the reason; the others are exported all the same. Lines on standard error that "
     "begin with \"DEBUG: \" tell how the ticket was read and are no errors."},
    {ShowVerb, "TICKET.plist [--pages N] [--json]",
     "tell what a job ticket says",
     "Tells what a job ticket says, in the user's language: job type, paper, two-sided printing, "
     "finishing, covers, inserts, exception pages, image, colour, notes and forms. What the ticket "
     "does not set is not named. With --pages follows the plan of one set, sheet by "
     "sheet.\n\n"
     "Passcodes and the names of accounting are never shown."},
    {ImportVerb, "DOCUMENT... [--into TICKET] [-o FILE] [OPTION...]",
     "read TPIF documents into a job ticket",
     "Reads TPIF documents into one job ticket, as the import of the print dialog does. A later "
     "document's entry replaces that of an earlier one. What no feature of the printer asks for, "
     "and values that a feature does not take, are left out; --report names them.\n\n"
     "The report tells for each element that holds no others its line and what became of it: taken "
     "under which entry of the ticket with which value, ignored, refused, or lost because no value "
     "of a ticket stands for it; and which elements a new export would not contain.\n\n"
     "A document that cannot be read is named with the line and the reason; the others are imported "
     "all the same and the exit status is 3. When none can be read, nothing is written."},
    {CheckVerb, "FILE... [--json]",
     "tell what is wrong with tickets and documents",
     "Tells for each job ticket or TPIF document, whichever the file holds, what is wrong with it: a "
     "line each with file, line, entry and reason.\n\n"
     "Of a ticket: unknown keys, values of another kind, numbers and texts outside their "
     "limits, and entries that do not go together, such as a finishing without its position, "
     "exception pages that overlap, or a transparency printed on both sides. Of a document: what "
     "an import refuses or a new export would not contain, elements that stand out of order, and "
     "what does not go together in its ticket. The text of a ticket's entry, such as a passcode, "
     "is never shown.\n\n"
     "The exit status is 0 when nothing is found and 3 when something is. A file that cannot be "
     "read is named on standard error; when none can, the exit status is 1."},
    {FromJobVerb, "OPTIONS [-o FILE] [--json]",
     "read the ticket that a print job carries",
     "Reads the job ticket back that the print dialog has sent with a job. The job carries it as the "
     "option \"com.tarvo.print.Ticket\": the ticket's XML property list in base64 with \"-\" and "
     "\"_\" for \"+\" and \"/\", in pieces between commas. A driver takes the options apart with "
     "cupsParseOptions, puts the pieces together and decodes them; this verb does the same.\n\n"
     "The ticket of a job holds no passcodes: every user of the print server can read it."},
    {PrinterVerb, "PPD [--json]",
     "tell what a printer offers",
     "Tells what the printer of a PPD file offers: its options by group with their choices, what "
     "is installed, the custom paper sizes it takes, what excludes what, and the job types and "
     "finishing that follow. Its texts are in the user's language where the file has them.\n\n"
     "What is wrong with the file is named on standard error with its line, such as an option that "
     "is never closed or a choice that comes again; the exit status is 3 then. What the printer "
     "merely lacks is named there too."},
    {StocksListVerb, "[--json]",
     "show the papers of the user's stock library",
     "Shows the named papers of the user's stock library: name, uuid and what each one is, in the "
     "user's language. One that the menus do not offer any more is marked \"invalid\", one of the "
     "job that the dialog showed last \"in-use\"."},
    {StocksAddVerb, "NAME [--from TICKET.plist] [OPTION...]",
     "add a paper to the stock library",
     "Adds a paper under a name that the library does not have yet. What no option says is left to "
     "the printer."},
    {StocksRemoveVerb, "PAPER...",
     "remove papers from the stock library",
     "Removes papers from the library and from the menu. A name that several papers have is "
     "refused; their uuids are told."},
    {StocksUseVerb, "PAPER...",
     "move papers to the front of the stock menu",
     "Does what choosing a paper in the stock menu does to the library: the paper is in use and "
     "the first of the menu, which offers the last 25."},
    {StocksMatchVerb, "TICKET.plist [--json]",
     "tell which papers of the stock library a job is printed on",
     "Looks up the stock of the job and those of its covers, inserts and exception pages in the "
     "library. Those that are no paper of it are named, and the exit status is 3."},
    {StocksImportVerb, "LIBRARY... [--replace]",
     "take papers from library files",
     "Adds the papers of library files, as \"stocks export\" or the print dialog writes them, in "
     "one step. An equal paper is not added again; another one of a name that the library has is "
     "left out and named, or replaces it."},
    {StocksExportVerb, "[PAPER...] [-o FILE]",
     "write papers to a library file",
     "Writes papers to a library file, which another user can import and an administrator give to "
     "everybody as TarvoFeatures.plist. A file is replaced whole or not at all."},
    {StocksFetchVerb, "PRINTER-URI [NAME...] [--save] [--json]",
     "show the papers that a printer has",
     "Asks a printer over IPP for its media and shows them as it reports them, each member beside "
     "what it makes of the stock, as the print dialog has it. What is left out says why. Sizes are "
     "found by the first size of the same width or length, as in the dialog.\n\n"
     "The address begins with ipp://, http:// or, for an encrypted connection, ipps://; its path "
     "does not count. The printing system's port for IPP is asked, usually 631, where it names none "
     "or one for other printing protocols. The printer has 10 seconds to answer. When nothing comes, "
     "the reason is named and the exit status 1.\n\n"
     "With --save the media shown are copied into the user's library in one step. An equal paper is "
     "not added again; another one of a name that the library has is left out and named, or replaced "
     "with --replace."},
    {WatermarksListVerb, "[--json]",
     "show the watermarks",
     "Shows the watermarks that the print dialog offers: the user's or, where there are none, "
     "those of the site."},
    {nullptr, "", "", ""},
};

/// The first word of a verb of two; "" for a verb of one.
constexpr std::string_view GroupOfVerb(std::string_view verb)
{
    const std::size_t space = verb.find(' ');
    return space == std::string_view::npos ? "" : verb.substr(0, space);
}

struct ExampleRow {
    const char* verb;
    const char* command;
    const char* meaning;
};

inline constexpr ExampleRow ExampleMap[] = {
    {ExportVerb, "tarvo-ticket export --all report.plist -o report.xml",
     "Export the whole job of one ticket."},
    {ExportVerb, "tarvo-ticket export --out-dir documents tickets/*.plist",
     "Export every ticket of a folder with the options that each one holds."},
    {ShowVerb, "tarvo-ticket show --pages 12 brochure.plist",
     "Tell what a ticket says, and plan the sheets of a job of 12 pages."},
    {ImportVerb, "tarvo-ticket import report.xml -o report.plist",
     "Make a ticket of one document."},
    {ImportVerb, "tarvo-ticket import covers.xml --into job.plist -o job.plist",
     "Take the covers of a document into a ticket."},
    {ImportVerb, "tarvo-ticket import --report report.xml",
     "Tell what an import of the document takes, and what it loses."},
    {CheckVerb, "tarvo-ticket check tickets/*.plist documents/*.xml",
     "Tell what is wrong with the files of two folders."},
    {FromJobVerb, "tarvo-ticket from-job \"$5\" -o ticket.plist",
     "Write the ticket of the job at hand, in a filter that is a shell script."},
    {PrinterVerb, "tarvo-ticket printer TarvoQL900.ppd",
     "Tell what the QL900 offers."},
    {StocksAddVerb, "tarvo-ticket stocks add \"Blue cover\" --size A4 --color Blue --weight 160",
     "Add a paper by what it is."},
    {StocksAddVerb, "tarvo-ticket stocks add \"Blue cover\" --from brochure.plist",
     "Add the paper of a job."},
    {StocksMatchVerb, "tarvo-ticket stocks match brochure.plist",
     "Tell which papers a job needs."},
    {StocksFetchVerb, "tarvo-ticket stocks fetch ipp://press.local",
     "Tell what is loaded in a printer."},
    {StocksFetchVerb, "tarvo-ticket stocks fetch ipp://press.local \"Gloss brochure\" --save",
     "Keep one of its papers."},
    {StocksExportVerb, "tarvo-ticket stocks export | ssh press tarvo-ticket stocks import -",
     "Bring the papers to another machine."},
    {nullptr, "", ""},
};
// clang-format on

struct ExitStatusRow {
    ExitStatus status;
    const char* meaning; // null ends the table
};

inline constexpr ExitStatusRow ExitStatusMap[] = {
    {ExitStatus::Done,     "Done."                                                          },
    {ExitStatus::Failed,   "The work failed."                                               },
    {ExitStatus::WrongUse, "Wrong use; nothing was done."                                   },
    {ExitStatus::LeftOut,  "Done, but something was left out, or found wrong, and is named."},
    {ExitStatus::Done,     nullptr                                                          },
};

} // namespace tarvo
