#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/printing/PMPrintSession.h"
#include "platform/printing/PMStatus.h"

#include <gtkmm/container.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvo {

inline constexpr OSStatus StatusNullContext = -9530; // also: opened before
inline constexpr OSStatus StatusNoSession = -30879;

/// The kind of the pane, and of each panel in it.
inline constexpr const char* UserOptionKind = "com.tarvo.print.pde.tarvofeatureskind";

enum class SyncDirection : bool {
    ToTicket = false,
    FromTicket = true,
};

/// What a panel says of itself; what it leaves untouched is what the panel before it said.
struct PanelDescription {
    std::string title;
    std::string kind;
};

/// What a panel tells the print dialog's summary: line by line, or nothing.
struct PanelSummary {
    std::optional<std::vector<std::string>> titles;
    std::optional<std::vector<std::string>> summaries;
};

/// One panel of the print features, for one opening of the print dialog. The shell calls prologue,
/// initialize, then any number of open and close with sync and getSummaryText at any time; at last
/// terminate, and destroys it.
class Panel {
public:
    Panel() = default;
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;
    virtual ~Panel() = default;

    /// @return anything else than StatusOk leaves out this panel and those behind it
    virtual OSStatus prologue(PanelDescription& description) = 0;
    /// Reads the session's ticket.
    /// @param pane  where the panel puts its controls when it opens; outlives the panel
    /// @return StatusNullContext without a session
    virtual OSStatus initialize(Gtk::Container& pane, PMPrintSession* session) = 0;
    /// Moves the panel's values between the job ticket and itself, its controls included if there
    /// are any yet.
    /// @return StatusNoSession without a session
    virtual OSStatus sync(PMPrintSession* session, SyncDirection direction) = 0;
    /// Clears the summary first; only few panels fill it.
    virtual OSStatus getSummaryText(PanelSummary& summary)
    {
        summary = {};
        return StatusOk;
    }
    /// Makes the controls and shows the panel's values in them, so that a sync to the ticket which
    /// follows has nothing empty to read.
    virtual OSStatus open() = 0;
    virtual OSStatus close() { return StatusOk; }
    virtual OSStatus terminate(OSStatus /*status*/) { return StatusOk; }

    /// The job type's dictionary as the user has it, for the panel that sets it; null for others.
    virtual const CFDictionary* jobType() const { return nullptr; }
    /// What the printer cannot do as it is chosen, a sentence each; it may be printed all the same.
    virtual std::vector<std::string> conflicts() const { return {}; }
};

/// Makes a panel. A null one ends the loading of panels.
using PanelGetter = std::unique_ptr<Panel> (*)();

} // namespace tarvo
