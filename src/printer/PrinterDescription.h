#pragma once

#include "platform/printing/PPDFile.h"
#include "printer/FeatureDatabase.h"
#include "printer/InstallableOptions.h"
#include "printer/PPDKeywordInfo.h"

#include <optional>

namespace tarvo {

/// All that the print features know of the printer at hand. There is one from the opening of the
/// print dialog to its end; it answers the process-wide functions of the feature database, the
/// installable options and the main keywords (TDPGetFeature, getInstalledFeature,
/// PPDGetGlobalUIDictionary and so on) for as long as it lives. A further one takes its place until
/// that one ends or this is made current again. Without any, those functions find nothing.
///
/// Making and dropping it is for start and end, when no other thread asks. In between it doesn't
/// change, so threads may ask at once; what they are given is borrowed from it.
class PrinterDescription {
public:
    /// @param ppd     of the printer; nullopt when it cannot be read: then there are the bundle's
    ///                features, but no installable options and no main keywords
    /// @param ticket  its PPD dictionary says which choices are in force instead of the defaults,
    ///                and what is installed; may be null
    /// @param table   of features that may be installed; must outlive this
    /// @param bundle  has the device profile
    PrinterDescription(std::optional<PPDFile> ppd, const PMTicket* ticket,
                       const InstalledFeatureMap* table, const CFBundle& bundle);
    PrinterDescription(const PrinterDescription&) = delete;
    PrinterDescription& operator=(const PrinterDescription&) = delete;
    ~PrinterDescription();

    /// Takes the place of the one that answers; threads that ask may get either.
    void makeCurrent() const;

    /// @return the one that answers the process-wide functions; null when there is none
    static const PrinterDescription* Current();

    /// Null without a PPD, as are the next two.
    const PPDFile* ppd() const { return ppd_ ? &*ppd_ : nullptr; }
    const PPDUIDictionary* uiDictionary() const { return ui_ ? &*ui_ : nullptr; }
    const InstallableOptions* installable() const
    {
        return installable_ ? &*installable_ : nullptr;
    }
    const FeatureDatabase& features() const { return features_; }

private:
    std::optional<PPDFile> ppd_;
    std::optional<PPDUIDictionary> ui_; // borrows from ppd_
    std::optional<InstallableOptions> installable_;
    FeatureDatabase features_;
};

} // namespace tarvo
