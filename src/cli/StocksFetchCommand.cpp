#include "cli/LibraryMerger.h"
#include "cli/MediumReport.h"
#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/ProgramBundle.h"
#include "cli/StockPapers.h"
#include "cli/StocksCommand.h"
#include "platform/printing/IppMessage.h"
#include "platform/text/CaseFolding.h"
#include "stocklibrary/PrinterMedia.h"
#include "stocklibrary/PrinterStocks.h"

#include <algorithm>
#include <optional>

namespace tarvo {
namespace {

struct PrinterScheme {
    std::string_view start; // of the address
    bool isEncrypted;
};

constexpr PrinterScheme PrinterSchemes[] = {
    {"ipp://",  false},
    {"ipps://", true },
    {"http://", false},
};

// A printer as the command line names it.
struct NamedPrinter {
    std::string uri;
    std::string authority;
    bool isEncrypted = false;
};

std::optional<NamedPrinter> PrinterOfURI(const std::string& uri, std::string& reason)
{
    for (const PrinterScheme& scheme : PrinterSchemes) {
        if (!EqualIgnoringCase(uri.substr(0, scheme.start.size()), scheme.start)) {
            continue;
        }
        NamedPrinter printer = {uri, AuthorityOfDeviceURI(uri).value_or(""), scheme.isEncrypted};
        if (AddressOfAuthority(printer.authority).host.empty()) {
            reason = "\"" + uri + "\" names no printer";
            return std::nullopt;
        }
        return printer;
    }
    reason = "\"" + uri + "\" does not begin with ipp://, ipps:// or http://";
    return std::nullopt;
}

// @return nullopt with a message when there is no answer that counts
std::optional<std::string> AskForMedia(const NamedPrinter& printer)
{
    ProgressLine progress;
    progress.show("asking " + printer.authority);
    const auto tell = [&](int seconds) {
        progress.show("asking " + printer.authority + ", " + std::to_string(seconds) + " s");
    };
    MediaReply reply = RetrievePrinterMedia(printer.authority, {}, {}, {printer.isEncrypted, tell});
    progress.clear();
    if (reply.bytes) {
        return std::move(reply.bytes);
    }
    const char* step = reply.status == StatusNotConnected ? "cannot connect: " : "";
    PrintFileMessage(printer.uri, 0, step + reply.cause);
    return std::nullopt;
}

// Which media are wanted: those with the names, or all.
class MediaChoice {
public:
    explicit MediaChoice(std::span<const std::string> names)
    {
        for (const std::string& name : names) {
            names_.push_back({name, false});
        }
    }

    bool takes(const std::string& name)
    {
        bool isNamed = names_.empty();
        for (Name& each : names_) {
            if (EqualIgnoringCase(each.name, name)) {
                each.isFound = true;
                isNamed = true;
            }
        }
        return isNamed;
    }

    /// Names what was not found.
    ExitStatus finish(const std::string& uri) const
    {
        ExitStatus status = ExitStatus::Done;
        for (const Name& each : names_) {
            if (!each.isFound) {
                PrintFileMessage(uri, 0, "the printer reports no medium \"" + each.name + '"');
                status = ExitStatus::LeftOut;
            }
        }
        const bool isVain = std::none_of(names_.begin(), names_.end(),
                                         [](const Name& each) { return each.isFound; });
        return isVain && !names_.empty() ? ExitStatus::Failed : status;
    }

private:
    struct Name {
        std::string name;
        bool isFound;
    };
    std::vector<Name> names_;
};

// Prints the media while they are read; there may be tens of thousands.
class MediaPrinter {
public:
    MediaPrinter(const CFBundle& bundle, bool isJson)
        : bundle_(bundle), isJson_(isJson), text_(isJson ? "{\"media\": [" : "")
    {
    }

    void print(const MediumReport& medium)
    {
        if (isJson_) {
            text_ += (isFirst_ ? "\n" : ",\n") + MediumJson(medium);
        } else {
            text_ += MediumText(bundle_, medium);
        }
        isFirst_ = false;
        constexpr std::size_t Piece = 65536;
        if (text_.size() > Piece) {
            flush();
        }
    }

    ExitStatus finish(const std::optional<MergeCounts>& saved)
    {
        if (isJson_) {
            text_ += "\n]";
            if (saved) {
                text_ += ",\n\"saved\": {\"added\": " + std::to_string(saved->added) +
                         ", \"replaced\": " + std::to_string(saved->replaced) +
                         ", \"present\": " + std::to_string(saved->present) + "}\n";
            }
            text_ += "}\n";
        } else if (saved) {
            text_ += MergeText(bundle_, *saved);
        }
        flush();
        return status_;
    }

private:
    void flush()
    {
        if (status_ == ExitStatus::Done) { // else the reader has gone
            status_ = PrintResult(text_);
        }
        text_.clear();
    }

    const CFBundle& bundle_;
    bool isJson_;
    bool isFirst_ = true;
    std::string text_;
    ExitStatus status_ = ExitStatus::Done;
};

// Copies the papers into the user's library, those with a name.
ExitStatus Save(const NamedPrinter& printer, const std::vector<Stock>& stocks, bool mayReplace,
                std::optional<MergeCounts>& saved)
{
    ExitStatus status = ExitStatus::Done;
    std::vector<IncomingPaper> papers;
    for (const Stock& stock : stocks) {
        if (const std::string fault = FaultOfLibraryName(stock.customName()); !fault.empty()) {
            PrintFileMessage(printer.uri, 0, "not saved: a medium " + fault);
            status = ExitStatus::LeftOut;
            continue;
        }
        StockLibrary entry;
        entry.setStock(stock);
        entry.setName(stock.customName());
        entry.validateStockEntry();
        papers.push_back({printer.uri, std::move(entry)});
    }
    MergeCounts counts;
    const ExitStatus merged = MergeIntoUserLibrary(papers, mayReplace, counts);
    if (merged != ExitStatus::Failed) {
        saved = counts;
    }
    return Worse(status, merged);
}

/// @return why the answer brings no media; "" when it does or the printer has none
std::string FaultOfReply(const std::string& reply)
{
    std::string reason;
    const auto stocks = StocksOfReply(reply, reason);
    if (stocks && stocks->empty() && IppStatus(reply) > IppLastSuccess) {
        reason = "the printer reports no media: " + IppStatusName(IppStatus(reply));
    }
    return reason;
}

ExitStatus Show(const NamedPrinter& printer, const std::string& reply, const Arguments& arguments)
{
    MediaChoice choice(std::span(arguments.values(FetchArguments)).subspan(1));
    const auto bundle = OpenProgramBundle(UserLanguages());
    if (!bundle) {
        return ExitStatus::Failed;
    }
    MediaPrinter output(*bundle, arguments.has(JsonOption));
    std::vector<Stock> stocks;
    std::size_t count = 0;
    const auto take = [&](const ReportedMedium& medium) {
        ++count;
        if (choice.takes(medium.medium.key.value_or(""))) {
            output.print(DescribeMedium(*bundle, medium));
            stocks.push_back(StockOfMedium(medium.medium));
        }
    };
    TellPrinterMedia(reply, take);
    if (count == 0) {
        PrintFileMessage(printer.uri, 0, "the printer reports no media");
    }
    ExitStatus status = choice.finish(printer.uri);
    std::optional<MergeCounts> saved;
    if (arguments.has(SaveOption) && status != ExitStatus::Failed) {
        const bool mayReplace = arguments.has(ReplaceOption);
        status = Worse(status, Save(printer, stocks, mayReplace, saved));
    }
    return Worse(output.finish(saved), status);
}

} // namespace

ExitStatus RunStocksFetch(const Arguments& arguments)
{
    const auto& words = arguments.values(FetchArguments);
    if (words.empty()) {
        return PrintWrongUse("no printer is named");
    }
    if (arguments.has(ReplaceOption) && !arguments.has(SaveOption)) {
        return PrintWrongUse(std::string(ReplaceOption) + " needs " + SaveOption);
    }
    std::string reason;
    const auto printer = PrinterOfURI(words.front(), reason);
    if (!printer) {
        return PrintWrongUse(reason);
    }
    const auto reply = AskForMedia(*printer);
    if (!reply) {
        return ExitStatus::Failed;
    }
    if (const std::string fault = FaultOfReply(*reply); !fault.empty()) {
        PrintFileMessage(printer->uri, 0, fault); // before anything is printed
        return ExitStatus::Failed;
    }
    return Show(*printer, *reply, arguments);
}

} // namespace tarvo
