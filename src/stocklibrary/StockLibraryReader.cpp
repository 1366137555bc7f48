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
    const auto present = identity();
    {
        const std::lock_guard lock(mutex_);
        if (present && present == known_) {
            return contents_;
        }
    }
    PreferenceFailure failure;
    auto contents = std::make_shared<const CFDictionary>(ReadStockLibraryFile(folders_, &failure));
    const bool isUsers = failure.reason.empty(); // else the site's, which is looked for every time
    const std::lock_guard lock(mutex_);
    known_ = isUsers ? present : std::nullopt;
    contents_ = isUsers ? contents : nullptr;
    return contents;
}

bool StockLibraryReader::isFileKnown() const
{
    const auto present = identity();
    const std::lock_guard lock(mutex_);
    return !present || present == known_;
}

std::optional<FileIdentity> StockLibraryReader::identity() const
{
    return IdentityOfFile(PathOfUserPreferences(folders_, StockLibraryFile));
}

void ReadAhead(const std::shared_ptr<StockLibraryReader>& reader)
{
    // Without a task it is read when somebody looks.
    static_cast<void>(StartTask([reader] { reader->read(); }));
}

} // namespace tarvo
