#pragma once

#include "panels/PanelEnvironment.h"
#include "settings/TicketKeys.h"
#include "support/BuiltBundle.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace tarvo {

/// A panel's surroundings without a shell: a bundle, a session with an empty job ticket, and a list
/// of the syncs that were asked for.
class PanelFixture : public testing::Test {
protected:
    PanelFixture()
    {
        ticket_ = &session_.addTicket(JobTicketName);
        use(std::make_unique<CFBundle>(BuiltBundle()));
        ThePanelEnvironment().session = &session_;
        ThePanelEnvironment().sync = [this](SyncDirection direction) {
            syncs_ += direction == SyncDirection::ToTicket ? "to " : "from ";
            return syncStatus_;
        };
    }
    ~PanelFixture() override { ThePanelEnvironment() = PanelEnvironment(); }

    void use(std::unique_ptr<CFBundle> bundle)
    {
        bundle_ = std::move(bundle);
        ThePanelEnvironment().bundle = bundle_.get();
    }

    PMPrintSession session_;
    PMTicket* ticket_ = nullptr;
    std::string syncs_;
    OSStatus syncStatus_ = StatusOk;
    std::unique_ptr<CFBundle> bundle_;
};

} // namespace tarvo
