#include "stocklibrary/StockLibraryReader.h"

#include "platform/ports/Task.h"
#include "stocklibrary/StockLibraryKeys.h"
#include "stocklibrary/StockLibraryStore.h"

#include <utility>

namespace tarvo {

std::shared_ptr<StockLibraryReader> StockLibraryReader::Shared()
{
    static std::weak_ptr<StockLibraryReader> shared;
    auto reader = shared.lock();
    if (!reader) {
        reader = std::make_shared<StockLibraryReader>(UserPreferenceFolders());
        shared = reader;
    }
    return reader;
}

// The identity is that of before the reading: a file that is replaced meanwhile is another one at
// the next look.
std::shared_ptr<const CFDictionary> StockLibraryReader::read()
{
    Identities present = identities();
    {
        const std::lock_guard lock(mutex_);
        if (present == known_) {
            return contents_;
        }
    }
    PreferenceFailure failure;
    auto contents = std::make_shared<const CFDictionary>(ReadStockLibraryFile(folders_, &failure));
    const bool isRead =
        failure.reason.empty() || failure.isAbsence(); // else: better luck next time
    const std::lock_guard lock(mutex_);
    known_ = isRead ? std::optional(std::move(present)) : std::nullopt;
    contents_ = isRead ? contents : nullptr;
    return contents;
}

bool StockLibraryReader::isFileKnown() const
{
    const Identities present = identities();
    const std::lock_guard lock(mutex_);
    return present == known_;
}

StockLibraryReader::Identities StockLibraryReader::identities() const
{
    Identities files = {IdentityOfFile(PathOfUserPreferences(folders_, StockLibraryFile))};
    for (const std::string& folder : folders_.site) {
        files.push_back(IdentityOfFile(folder + "/" + std::string(SiteDefaultsFile)));
    }
    return files;
}

void ReadAhead(const std::shared_ptr<StockLibraryReader>& reader)
{
    // Without a task it is read when somebody looks.
    static_cast<void>(StartTask([reader] { reader->read(); }));
}

} // namespace tarvo
