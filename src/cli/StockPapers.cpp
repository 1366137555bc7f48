#include "cli/StockPapers.h"

#include "cli/Messages.h"
#include "platform/text/CaseFolding.h"

#include <algorithm>
#include <cerrno>

namespace tarvo {
namespace {

bool HasName(const StockLibrary& entry, std::string_view name)
{
    return EqualIgnoringCase(entry.name(), name) ||
           EqualIgnoringCase(entry.stock().customName(), name);
}

} // namespace

std::unique_ptr<StockLibraryList> OpenUserLibrary()
{
    PreferenceFailure failure;
    auto list = ReadUserStockList(UserPreferenceFolders(), &failure);
    if (!failure.reason.empty() && failure.error != ENOENT && failure.error != ENOTDIR) {
        PrintMessage(failure.message());
        return nullptr;
    }
    return list;
}

ExitStatus
ChangeUserLibrary(const std::function<bool(StockLibraryList& list, CFArray& order)>& change)
{
    PreferenceFailure failure;
    if (!ChangeStockLibrary(UserPreferenceFolders(), change, failure)) {
        PrintMessage(failure.message());
        return ExitStatus::Failed;
    }
    if (failure.reason.empty() || failure.error != 0) {
        return ExitStatus::Done;
    }
    PrintMessage(failure.message() +
                 (failure.keptAs.empty() ? "" : "; it is kept as " + failure.keptAs));
    return ExitStatus::LeftOut;
}

bool HasPaper(const StockLibraryList& list, std::string_view name)
{
    const auto& entries = list.stockList();
    return std::any_of(entries.begin(), entries.end(), [&](const auto& each) {
        const auto entry = list.entry(each.key);
        return entry && HasName(*entry, name);
    });
}

void ReplaceStock(StockLibraryList& list, const std::string& uuid, const Stock& stock)
{
    StockLibrary entry = *list.entry(uuid);
    entry.setStock(stock);
    if (entry.isInvalid()) {
        entry.setStatus(StockEntryStatus::NotInUse);
    }
    entry.validateStockEntry();
    list.update(uuid, entry);
}

std::string FindPaper(const StockLibraryList& list, std::string_view word, std::string& reason)
{
    if (list.entry(word)) {
        return std::string(word);
    }
    std::string uuids;
    std::string found;
    for (const auto& each : list.stockList()) {
        const auto entry = list.entry(each.key);
        if (entry && !word.empty() && HasName(*entry, word)) {
            found = each.key;
            uuids += (uuids.empty() ? "" : ", ") + each.key;
        }
    }
    if (found != uuids) {
        reason = "several papers are called \"" + std::string(word) + "\": " + uuids;
        return "";
    }
    if (found.empty()) {
        reason = "the library has no paper \"" + std::string(word) + '"';
    }
    return found;
}

const std::string& PaperName(const StockLibrary& entry)
{
    return entry.name().empty() ? entry.stock().customName() : entry.name();
}

ExitStatus Worse(ExitStatus left, ExitStatus right)
{
    if (left == ExitStatus::Failed || right == ExitStatus::Failed) {
        return ExitStatus::Failed;
    }
    return left == ExitStatus::Done ? right : left;
}

} // namespace tarvo
