#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/StockPapers.h"
#include "cli/StocksCommand.h"
#include "cli/TicketFile.h"
#include "platform/cf/PropertyListWriter.h"
#include "platform/files/FileContents.h"
#include "platform/text/CaseFolding.h"
#include "platform/text/Utf8.h"
#include "records/StockDialogRules.h"
#include "stocklibrary/StockLibraryKeys.h"

#include <unordered_map>

namespace tarvo {
namespace {

// A paper of a library file, and which file.
struct Imported {
    std::string file;
    StockLibrary entry;
};

// Reads the papers of one library file; what is no paper is named.
class LibraryFileReader {
public:
    /// @return false when the file is none
    bool read(const std::string& file);
    std::vector<Imported>& papers() { return papers_; }
    bool hasLeftOut() const { return hasLeftOut_; }

private:
    void readPaper(const std::string& file, const std::string& uuid, const CFPropertyList& value);

    std::vector<Imported> papers_;
    bool hasLeftOut_ = false;
};

bool LibraryFileReader::read(const std::string& file)
{
    ParseError error;
    const auto root = ReadTicket(file, error);
    if (!root) {
        PrintFileMessage(InputName(file), error.line, error.reason);
        return false;
    }
    const auto* list = root->get<CFDictionary>(StockListKey);
    if (list == nullptr) {
        PrintFileMessage(InputName(file), 0, "no stock library");
        return false;
    }
    for (const auto& each : *list) {
        readPaper(file, each.key, each.value);
    }
    return true;
}

void LibraryFileReader::readPaper(const std::string& file, const std::string& uuid,
                                  const CFPropertyList& value)
{
    std::string fault = "is no paper";
    if (const auto* dictionary = value.get<CFDictionary>()) {
        StockLibrary entry(*dictionary);
        const std::string name = PaperName(entry);
        if (!name.empty() && Utf8Length(name) <= LongestPaperName) {
            entry.setUUID(uuid);
            entry.setName(name);
            entry.setStatus(StockEntryStatus::NotInUse); // by this user
            entry.validateStockEntry();
            papers_.push_back({file, std::move(entry)});
            return;
        }
        fault = name.empty() ? "has no name" : "has too long a name";
    }
    PrintFileMessage(InputName(file), 0, '"' + uuid + "\" " + fault);
    hasLeftOut_ = true;
}

// Puts papers into a library that may have some of them.
class LibraryMerger {
public:
    LibraryMerger(StockLibraryList& list, bool mayReplace) : list_(list), mayReplace_(mayReplace)
    {
        for (const auto& each : list.stockList()) {
            if (const auto entry = list.entry(each.key)) {
                names_.emplace(CaseFolded(entry->stock().customName()), each.key);
            }
        }
    }

    void merge(Imported& paper);
    /// Replaces the stocks that are to be; last, since it disturbs the search for equal ones.
    void finish();
    std::string summary() const;
    bool isChanged() const { return added_ + replaced_.size() > 0; }
    const std::vector<std::string>& faults() const { return faults_; }

private:
    void add(StockLibrary& entry);

    StockLibraryList& list_;
    bool mayReplace_;
    std::unordered_map<std::string, std::string> names_; // custom name, folded, to uuid
    std::size_t added_ = 0;
    std::size_t present_ = 0;
    std::vector<std::pair<std::string, Stock>> replaced_;
    std::vector<std::string> faults_;
};

void LibraryMerger::merge(Imported& paper)
{
    const Stock& stock = paper.entry.stock();
    if (list_.findMatch(stock) != nullptr) {
        ++present_;
        return;
    }
    const auto named = names_.find(CaseFolded(stock.customName()));
    if (stock.customName().empty() || named == names_.end()) {
        add(paper.entry);
    } else if (mayReplace_) {
        replaced_.emplace_back(named->second, stock);
    } else {
        faults_.push_back(InputName(paper.file) + ": the library has another paper \"" +
                          stock.customName() + '"');
    }
}

// Under its uuid, so that an order that names it stays right, unless another paper has that.
void LibraryMerger::add(StockLibrary& entry)
{
    if (entry.uuid().empty() || list_.stockList().contains(entry.uuid())) {
        list_.add(entry);
    } else {
        list_.update(entry.uuid(), entry);
    }
    names_.emplace(CaseFolded(entry.stock().customName()), entry.uuid());
    ++added_;
}

void LibraryMerger::finish()
{
    for (const auto& [uuid, stock] : replaced_) {
        StockLibrary entry = *list_.entry(uuid);
        entry.setStock(stock);
        list_.update(uuid, entry);
    }
}

std::string LibraryMerger::summary() const
{
    return std::to_string(added_) + " added, " + std::to_string(replaced_.size()) + " replaced, " +
           std::to_string(present_) + " there already\n";
}

// The papers that are asked for, all when none is named.
// @return nullopt with a message when one is not in the library
std::optional<CFDictionary> PapersToExport(const StockLibraryList& list,
                                           const std::vector<std::string>& words)
{
    std::vector<std::string> uuids;
    for (const std::string& word : words) {
        std::string reason;
        uuids.push_back(FindPaper(list, word, reason));
        if (!reason.empty()) {
            PrintMessage(reason);
            return std::nullopt;
        }
    }
    if (words.empty()) {
        for (const auto& each : list.stockList()) {
            uuids.push_back(each.key);
        }
    }
    CFDictionary papers;
    for (const std::string& uuid : uuids) {
        if (auto entry = list.entry(uuid)) {
            entry->setStatus(StockEntryStatus::NotInUse); // that is the user's own
            entry->validateStockEntry();
            papers.set(uuid, entry->asTicket());
        }
    }
    return papers;
}

ExitStatus WriteLibraryFile(const std::string& output, CFDictionary papers)
{
    CFDictionary root;
    root.set(StockListKey, std::move(papers));
    ParseError error;
    const auto xml = WritePropertyList(std::move(root), error);
    if (!xml) {
        PrintFileMessage(OutputName(output), 0, "cannot write: " + error.reason);
        return ExitStatus::Failed;
    }
    if (output == "-") {
        return PrintResult(*xml);
    }
    std::string reason;
    if (!ReplaceFileContents(output, *xml, reason)) {
        PrintFileMessage(output, 0, "cannot write: " + reason);
        return ExitStatus::Failed;
    }
    return ExitStatus::Done;
}

} // namespace

ExitStatus RunStocksImport(const Arguments& arguments)
{
    const auto& files = arguments.values(LibraryArguments);
    if (files.empty()) {
        return PrintWrongUse("no library file is named");
    }
    LibraryFileReader reader;
    for (const std::string& file : files) {
        if (!reader.read(file)) {
            return ExitStatus::Failed; // nothing is done by halves
        }
    }
    std::string summary;
    std::vector<std::string> faults;
    const auto merge = [&](StockLibraryList& list, CFArray&) {
        LibraryMerger merger(list, arguments.has(ReplaceOption));
        for (Imported& paper : reader.papers()) {
            merger.merge(paper);
        }
        merger.finish();
        summary = merger.summary();
        faults = merger.faults();
        return merger.isChanged();
    };
    const ExitStatus changed = ChangeUserLibrary(merge);
    if (changed == ExitStatus::Failed) {
        return changed;
    }
    for (const std::string& fault : faults) {
        PrintMessage(fault);
    }
    const bool isWhole = faults.empty() && !reader.hasLeftOut();
    const ExitStatus left = isWhole ? ExitStatus::Done : ExitStatus::LeftOut;
    return Worse(PrintResult(summary), Worse(changed, left));
}

ExitStatus RunStocksExport(const Arguments& arguments)
{
    const auto list = OpenUserLibrary();
    if (!list) {
        return ExitStatus::Failed;
    }
    auto papers = PapersToExport(*list, arguments.values(PaperArguments));
    if (!papers) {
        return ExitStatus::Failed;
    }
    const bool isNamed = arguments.has(OutputOption);
    return WriteLibraryFile(isNamed ? arguments.values(OutputOption).front() : "-",
                            std::move(*papers));
}

} // namespace tarvo
