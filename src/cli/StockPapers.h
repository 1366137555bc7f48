#pragma once

#include "cli/ExitStatus.h"
#include "prefs/PreferenceFiles.h"
#include "stocklibrary/StockLibraryList.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tarvo {

// What the verbs of the group "stocks" share.

/// The user's library for a verb that only looks. A file that cannot be read is named.
/// @return null when there is one that cannot be read
std::unique_ptr<StockLibraryList> OpenUserLibrary();

/// Changes the user's library at once or not at all and says why it was not done.
/// @param change  returns false to leave the library as it is
/// @return Failed when it could not be written; LeftOut when nobody understands the file that was
/// there, which is named, as is the place where it is kept
ExitStatus
ChangeUserLibrary(const std::function<bool(StockLibraryList& list, CFArray& order)>& change);

/// The uuid of the paper that a word means: a uuid, or a name in any case.
/// @return "" with `reason` filled when there is none, or more than one of the name
std::string FindPaper(const StockLibraryList& list, std::string_view word, std::string& reason);

/// Whether some entry, or its stock, has the name in any case.
bool HasPaper(const StockLibraryList& list, std::string_view name);

/// Gives an entry another stock. An entry that the menus did not offer is looked at anew.
void ReplaceStock(StockLibraryList& list, const std::string& uuid, const Stock& stock);

/// The name that people know an entry by: its own, else its stock's.
const std::string& PaperName(const StockLibrary& entry);

/// Done only when both are; Failed before LeftOut.
ExitStatus Worse(ExitStatus left, ExitStatus right);

} // namespace tarvo
