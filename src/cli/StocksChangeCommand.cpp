#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/StockAttributes.h"
#include "cli/StockPapers.h"
#include "cli/StocksCommand.h"
#include "cli/TicketFile.h"
#include "platform/text/Utf8.h"
#include "records/StockDialogRules.h"
#include "settings/TicketKeys.h"
#include "stocklibrary/StockLibraryOrderList.h"

#include <algorithm>
#include <optional>

namespace tarvo {
namespace {

/// @return why a paper cannot have that name; "" when it can
std::string FaultOfName(const std::string& name)
{
    if (!IsUtf8(name) || WithoutControls(name) != name) {
        return "is not plain text";
    }
    if (name.empty() || Utf8Length(name) > LongestPaperName) {
        return "does not have 1 to " + std::to_string(LongestPaperName) + " characters";
    }
    return "";
}

// The job's own stock of the ticket that the option names.
// @return nullopt with a message when it has none
std::optional<Stock> StockOfTicket(const std::string& file)
{
    ParseError error;
    const auto ticket = ReadTicket(file, error);
    if (!ticket) {
        PrintFileMessage(InputName(file), error.line, error.reason);
        return std::nullopt;
    }
    const auto* stock = ticket->get<CFDictionary>(JobLevelStockKey);
    if (stock == nullptr) {
        PrintFileMessage(InputName(file), 0, "the job has no stock of its own");
        return std::nullopt;
    }
    return Stock(*stock);
}

ExitStatus AddPaper(StockLibrary& entry, bool mayReplace)
{
    std::string fault;
    const auto add = [&](StockLibraryList& list, CFArray&) {
        std::string reason; // none of the name, or several
        const std::string uuid = FindPaper(list, entry.name(), reason);
        if (!HasPaper(list, entry.name())) {
            list.add(entry);
        } else if (!mayReplace) {
            fault = "the library has a paper \"" + entry.name() + "\" already; " + ReplaceOption +
                    " replaces it";
        } else if (uuid.empty()) {
            fault = reason;
        } else {
            ReplaceStock(list, uuid, entry.stock());
        }
        return fault.empty();
    };
    const ExitStatus status = ChangeUserLibrary(add);
    if (fault.empty() || status == ExitStatus::Failed) {
        return status;
    }
    PrintMessage(fault);
    return ExitStatus::Failed;
}

// Does something with each paper that the words mean, and names those that are none.
template <typename Work>
ExitStatus ChangePapers(const std::vector<std::string>& words, const Work& work)
{
    if (words.empty()) {
        return PrintWrongUse("no paper is named");
    }
    std::vector<std::string> faults;
    const auto change = [&](StockLibraryList& list, CFArray& order) {
        std::vector<std::string> uuids; // all found before the first goes
        for (const std::string& word : words) {
            std::string reason;
            const std::string uuid = FindPaper(list, word, reason);
            if (!reason.empty()) {
                faults.push_back(reason);
            } else if (std::find(uuids.begin(), uuids.end(), uuid) == uuids.end()) {
                uuids.push_back(uuid);
            }
        }
        for (const std::string& uuid : uuids) {
            work(list, order, uuid);
        }
        return !uuids.empty();
    };
    const ExitStatus status = ChangeUserLibrary(change);
    for (const std::string& fault : faults) {
        PrintMessage(fault);
    }
    if (faults.empty()) {
        return status;
    }
    return Worse(status, faults.size() < words.size() ? ExitStatus::LeftOut : ExitStatus::Failed);
}

} // namespace

ExitStatus RunStocksAdd(const Arguments& arguments)
{
    const auto& names = arguments.values(PaperNameArgument);
    if (names.size() != 1) {
        return PrintWrongUse(names.empty() ? "the paper has no name"
                                           : "more than one name is given");
    }
    if (const std::string fault = FaultOfName(names.front()); !fault.empty()) {
        return PrintWrongUse("the name \"" + names.front() + "\" " + fault);
    }
    Stock stock;
    std::string reason;
    if (!ReadStockAttributes(arguments, stock, reason)) {
        return PrintWrongUse(reason);
    }
    if (arguments.has(FromOption)) {
        const auto from = StockOfTicket(arguments.values(FromOption).front());
        if (!from) {
            return ExitStatus::Failed;
        }
        stock = *from;
        static_cast<void>(ReadStockAttributes(arguments, stock, reason)); // right, see above
    }
    EnterPaperName(stock, names.front());
    StockLibrary entry;
    entry.setName(names.front());
    entry.setStock(stock);
    return AddPaper(entry, arguments.has(ReplaceOption));
}

ExitStatus RunStocksRemove(const Arguments& arguments)
{
    const auto remove = [](StockLibraryList& list, CFArray& order, const std::string& uuid) {
        list.remove(uuid);
        RemoveFromOrder(order, uuid);
    };
    return ChangePapers(arguments.values(PaperArguments), remove);
}

ExitStatus RunStocksUse(const Arguments& arguments)
{
    const auto use = [](StockLibraryList& list, CFArray& order, const std::string& uuid) {
        list.setInUse(uuid);
        MoveToFront(order, uuid);
    };
    return ChangePapers(arguments.values(PaperArguments), use);
}

} // namespace tarvo
