#pragma once

#include "prefs/PreferenceFiles.h"
#include "records/Stock.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryView.h"

#include <memory>
#include <string>

namespace tarvo {

struct TicketSpecialPages;

/// Whether one of the papers is just that stock, by its custom name and all else.
/// @param papers  uuid to entry, keys of StockLibraryKeys.h
bool HasPaper(const CFDictionary& papers, const Stock& stock);

/// What has become of the user's file.
struct UserPapersState {
    bool areSaved = true;     // the file has every change of the papers
    std::string unreadReason; // why it could not be read, for people; "" when it could
    std::string keptAs;       // where one that could not be understood lies since it was replaced
};

/// The user's papers as they are looked at and changed. Every change is written at once and may
/// wait for the disk, so it is for a task, one at a time; what cannot be written stays in memory
/// and is told on standard error, as by StockLibraryList.
class UserPapers {
public:
    explicit UserPapers(PreferenceFolders folders) : folders_(std::move(folders)) {}

    /// Reads the library anew and marks the papers that the job uses. The file gets the marks
    /// later, see StartPreferenceChange, unless it could not be read. May wait for the disk, but
    /// for nobody who holds the file.
    void load(const Stock& jobStock, const TicketSpecialPages& pages);

    /// A new paper of the stock's custom name.
    /// @return its uuid
    std::string add(const Stock& stock);
    /// Changes a paper, its name too; one that is gone meanwhile is added.
    /// @return its uuid
    std::string edit(const std::string& uuid, const Stock& stock);
    /// Gives the stock to the paper that has its custom name. A paper that was renamed to that
    /// leaves the library: the other takes its place.
    /// @param renamed  its uuid; "" for none
    /// @return the uuid of the paper that has the stock now
    std::string replace(const Stock& stock, const std::string& renamed);
    /// Also from the recently used ones.
    void remove(const std::string& uuid);
    /// Marks a paper in use, puts it in front of the recently used ones and changes how the dialog
    /// was left, all in one write. One of a printer's list is not marked.
    void use(const std::string& uuid, const StockLibraryViewChange& view);

    UserPapersState state() const;

    /// Whether a paper has that custom name, in any case.
    bool hasName(const std::string& name) const;

    /// uuid to entry, as they are now; later changes make another. Safe in any thread.
    std::shared_ptr<const CFDictionary> papers() const { return papers_; }

private:
    void changed();
    std::string uuidOfName(const std::string& name) const;

    PreferenceFolders folders_;
    std::shared_ptr<StockLibraryList> list_;
    std::shared_ptr<const CFDictionary> papers_ = std::make_shared<const CFDictionary>();
};

} // namespace tarvo
