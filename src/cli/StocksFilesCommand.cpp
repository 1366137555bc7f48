#include "cli/LibraryMerger.h"
#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/ProgramBundle.h"
#include "cli/StockPapers.h"
#include "cli/StocksCommand.h"
#include "cli/TicketFile.h"
#include "platform/cf/PropertyListWriter.h"
#include "platform/files/FileContents.h"
#include "stocklibrary/StockLibraryKeys.h"

namespace tarvo {
namespace {

// Reads the papers of one library file; what is no paper is named.
class LibraryFileReader {
public:
    /// @return false when the file is none
    bool read(const std::string& file);
    std::vector<IncomingPaper>& papers() { return papers_; }
    bool hasLeftOut() const { return hasLeftOut_; }

private:
    void readPaper(const std::string& file, const std::string& uuid, const CFPropertyList& value);

    std::vector<IncomingPaper> papers_;
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
        fault = FaultOfLibraryName(name);
        if (fault.empty()) {
            entry.setUUID(uuid);
            entry.setName(name);
            entry.setStatus(StockEntryStatus::NotInUse); // by this user
            entry.validateStockEntry();
            papers_.push_back({InputName(file), std::move(entry)});
            return;
        }
    }
    PrintFileMessage(InputName(file), 0, '"' + uuid + "\" " + fault);
    hasLeftOut_ = true;
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
    const auto bundle = OpenProgramBundle(UserLanguages());
    if (!bundle) {
        return ExitStatus::Failed;
    }
    MergeCounts counts;
    const ExitStatus merged =
        MergeIntoUserLibrary(reader.papers(), arguments.has(ReplaceOption), counts);
    if (merged == ExitStatus::Failed) {
        return merged;
    }
    const ExitStatus left = reader.hasLeftOut() ? ExitStatus::LeftOut : ExitStatus::Done;
    return Worse(PrintResult(MergeText(*bundle, counts)), Worse(merged, left));
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
