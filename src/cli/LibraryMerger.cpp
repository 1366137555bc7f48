#include "cli/LibraryMerger.h"

#include "cli/Messages.h"
#include "cli/StockPapers.h"
#include "platform/bundle/CFBundle.h"
#include "platform/text/CaseFolding.h"
#include "platform/text/TextFormat.h"
#include "platform/text/Utf8.h"
#include "records/StockDialogRules.h"

#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace tarvo {
namespace {

// Puts papers into a library that may have some of them: one of the same uuid or name.
class LibraryMerger {
public:
    LibraryMerger(StockLibraryList& list, bool mayReplace) : list_(list), mayReplace_(mayReplace)
    {
        for (const auto& each : list.stockList()) {
            if (const auto entry = list.entry(each.key)) {
                addNames(*entry, each.key);
            }
        }
    }

    void merge(IncomingPaper& paper);
    const MergeCounts& counts() const { return counts_; }
    const std::vector<std::string>& faults() const { return faults_; }

private:
    void addNames(const StockLibrary& entry, const std::string& uuid);
    std::string named(const std::string& name) const;
    bool isThere(const std::string& uuid, const Stock& stock) const;
    void add(StockLibrary& entry);
    void replace(const IncomingPaper& paper, const std::string& uuid);

    StockLibraryList& list_;
    bool mayReplace_;
    std::unordered_map<std::string, std::string> names_; // folded, to uuid
    std::unordered_set<std::string> changed_;            // uuids
    MergeCounts counts_;
    std::vector<std::string> faults_;
};

// Both of its names, as far as no paper before has them.
void LibraryMerger::addNames(const StockLibrary& entry, const std::string& uuid)
{
    for (const std::string* name : {&entry.name(), &entry.stock().customName()}) {
        if (!name->empty()) {
            names_.emplace(CaseFolded(*name), uuid);
        }
    }
}

// The uuid of the paper with a name; "" when there is none.
std::string LibraryMerger::named(const std::string& name) const
{
    const auto found = names_.find(CaseFolded(name));
    return name.empty() || found == names_.end() ? "" : found->second;
}

bool LibraryMerger::isThere(const std::string& uuid, const Stock& stock) const
{
    const auto entry = list_.entry(uuid);
    return entry && entry->stock() == stock;
}

void LibraryMerger::merge(IncomingPaper& paper)
{
    const Stock& stock = paper.entry.stock();
    const std::string& name = PaperName(paper.entry);
    const std::string uuid = named(name);
    const bool isNamelessThere = name.empty() && list_.findMatch(stock) != nullptr;
    if (isNamelessThere || isThere(uuid, stock) || isThere(paper.entry.uuid(), stock)) {
        ++counts_.present;
    } else if (uuid.empty()) {
        add(paper.entry);
    } else {
        replace(paper, uuid);
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
    addNames(entry, entry.uuid());
    changed_.insert(entry.uuid());
    ++counts_.added;
}

void LibraryMerger::replace(const IncomingPaper& paper, const std::string& uuid)
{
    const std::string called =
        paper.source + ": the library has another paper \"" + PaperName(paper.entry) + '"';
    if (changed_.contains(uuid)) {
        faults_.push_back(called + " by now");
    } else if (!mayReplace_) {
        faults_.push_back(called);
    } else {
        ReplaceStock(list_, uuid, paper.entry.stock());
        changed_.insert(uuid);
        ++counts_.replaced;
    }
}

} // namespace

std::string MergeText(const CFBundle& bundle, const MergeCounts& counts)
{
    return FilledFormat(bundle.localizedString("StocksMerged"),
                        {std::to_string(counts.added), std::to_string(counts.replaced),
                         std::to_string(counts.present)}) +
           '\n';
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
