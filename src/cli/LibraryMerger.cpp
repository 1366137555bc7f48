#include "cli/LibraryMerger.h"

#include "cli/Messages.h"
#include "cli/StockPapers.h"
#include "platform/text/CaseFolding.h"
#include "platform/text/Utf8.h"
#include "records/StockDialogRules.h"

#include <unordered_map>
#include <utility>

namespace tarvo {
namespace {

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

    void merge(IncomingPaper& paper);
    /// Replaces the stocks that are to be; last, since it disturbs the search for equal ones.
    void finish();
    const MergeCounts& counts() const { return counts_; }
    const std::vector<std::string>& faults() const { return faults_; }

private:
    void add(StockLibrary& entry);

    StockLibraryList& list_;
    bool mayReplace_;
    std::unordered_map<std::string, std::string> names_; // custom name, folded, to uuid
    MergeCounts counts_;
    std::vector<std::pair<std::string, Stock>> replaced_;
    std::vector<std::string> faults_;
};

void LibraryMerger::merge(IncomingPaper& paper)
{
    const Stock& stock = paper.entry.stock();
    if (list_.findMatch(stock) != nullptr) {
        ++counts_.present;
        return;
    }
    const auto named = names_.find(CaseFolded(stock.customName()));
    if (stock.customName().empty() || named == names_.end()) {
        add(paper.entry);
    } else if (mayReplace_) {
        replaced_.emplace_back(named->second, stock);
        ++counts_.replaced;
    } else {
        faults_.push_back(paper.source + ": the library has another paper \"" + stock.customName() +
                          '"');
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
    ++counts_.added;
}

void LibraryMerger::finish()
{
    for (const auto& [uuid, stock] : replaced_) {
        StockLibrary entry = *list_.entry(uuid);
        entry.setStock(stock);
        list_.update(uuid, entry);
    }
}

} // namespace

std::string MergeText(const MergeCounts& counts)
{
    return std::to_string(counts.added) + " added, " + std::to_string(counts.replaced) +
           " replaced, " + std::to_string(counts.present) + " there already\n";
}

std::string FaultOfLibraryName(const std::string& name)
{
    if (name.empty()) {
        return "has no name";
    }
    return Utf8Length(name) > LongestPaperName ? "has too long a name" : "";
}

ExitStatus MergeIntoUserLibrary(std::vector<IncomingPaper>& papers, bool mayReplace,
                                MergeCounts& counts)
{
    std::vector<std::string> faults;
    const auto merge = [&](StockLibraryList& list, CFArray&) {
        LibraryMerger merger(list, mayReplace);
        for (IncomingPaper& paper : papers) {
            merger.merge(paper);
        }
        merger.finish();
        counts = merger.counts();
        faults = merger.faults();
        return counts.added + counts.replaced > 0;
    };
    const ExitStatus changed = ChangeUserLibrary(merge);
    if (changed == ExitStatus::Failed) {
        return changed;
    }
    for (const std::string& fault : faults) {
        PrintMessage(fault);
    }
    return faults.empty() ? changed : Worse(changed, ExitStatus::LeftOut);
}

} // namespace tarvo
