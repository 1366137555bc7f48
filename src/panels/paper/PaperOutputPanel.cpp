#include "panels/paper/PaperOutputPanel.h"

#include "panels/PanelEnvironment.h"
#include "panels/paper/ConflictNotice.h"
#include "panels/paper/FinishingSection.h"
#include "panels/paper/JobTypeSection.h"
#include "panels/paper/PaperConflicts.h"
#include "panels/paper/PaperOutputMenus.h"
#include "panels/paper/PaperOutputSettings.h"
#include "panels/stock/StockControl.h"
#include "panels/toolkit/ControlBindings.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/TicketPanel.h"
#include "printer/PrinterDescription.h"
#include "records/StockSummary.h"
#include "settings/TicketAccess.h"

#include <gtkmm/image.h>

#include <algorithm>
#include <ctime>

namespace tarvo {
namespace {

CFDate CurrentTime()
{
    return {static_cast<std::int64_t>(std::time(nullptr))};
}

// Where conflicts are told of, and what can be changed there by keyboard.
struct NoticeRow {
    PaperControl control;
    const char* name;
    const char* controlName;
};
constexpr NoticeRow NoticeRows[] = {
    {PaperControl::JobType,     "Tshl2201", "Tshl201"},
    {PaperControl::Stock,       "Tshl2202", "Tshl210"},
    {PaperControl::Sides,       "Tshl2203", "Tshl220"},
    {PaperControl::Finishing,   "Tshl2204", "Tshl230"},
    {PaperControl::Offset,      "Tshl2205", "Tshl232"},
    {PaperControl::Destination, "Tshl2206", "Tshl240"},
};

// A notice's place and the control that it is about.
struct NoticePlace {
    Glib::RefPtr<Gtk::Box> box;
    Glib::RefPtr<Gtk::Widget> control;
};

class PaperOutputPanel : public TicketPanel {
public:
    PaperOutputPanel() : TicketPanel("PaperOutput", "PaperOutputPanel") {}

    OSStatus getSummaryText(PanelSummary& summary) override
    {
        const CFBundle* bundle = GetPDEBundle();
        if (bundle == nullptr) {
            summary = {};
            return StatusNullContext;
        }
        summary.titles = {bundle->localizedString("ShowPaper"),
                          bundle->localizedString("ShowFinishing")};
        summary.summaries = {StockSummaryText(*bundle, JobContext::Job, &settings_.stock),
                             CreateFinishingString(settings_.finishing, *bundle)};
        return StatusOk;
    }

    const CFDictionary* jobType() const override { return &settings_.jobType; }

    std::vector<std::string> conflicts() const override
    {
        std::vector<std::string> texts;
        for (const PaperConflict& conflict : findConflicts()) {
            texts.push_back(conflict.text);
        }
        return texts;
    }

private:
    OSStatus readTicket(const PMTicket& ticket) override
    {
        ReadPaperOutputSettings(ticket, settings_);
        controls_.show();
        return StatusOk;
    }

    // What the dialog itself has meanwhile is taken over, so the controls may be behind.
    OSStatus writeTicket(PMTicket& ticket) override
    {
        WritePaperOutputSettings(settings_, ticket);
        controls_.show();
        return StatusOk;
    }

    void takeControls(Nib& nib) override
    {
        const auto window = nib.window<Gtk::Widget>("PaperOutputPanel");
        const auto content = nib.widget<Gtk::Widget>("Tshl200");
        auto jobType = std::make_unique<JobTypeSection>(nib, settings_, controls_);
        const auto stockMenu = nib.widget<Gtk::Button>("Tshl210");
        const auto stockPicture = nib.widget<Gtk::Button>("Tshl211");
        const auto stockSummary = nib.widget<Gtk::Label>("Tshl212");
        const auto sides = nib.widget<Gtk::ComboBox>("Tshl220");
        const auto sidesPicture = nib.widget<Gtk::Image>("Tshl221");
        auto finishing = std::make_unique<FinishingSection>(nib, settings_, controls_);
        const auto destination = nib.widget<Gtk::ComboBox>("Tshl240");
        const auto color = nib.widget<Gtk::ComboBox>("Tshl250");
        std::vector<NoticePlace> notices;
        for (const NoticeRow& row : NoticeRows) {
            notices.push_back(
                {nib.widget<Gtk::Box>(row.name), nib.widget<Gtk::Widget>(row.controlName)});
        }
        if (!nib.isComplete()) {
            return;
        }
        jobType_ = std::move(jobType);
        jobType_->bind();
        stock_.bind(stockMenu, stockPicture, stockSummary);
        controls_.bindView([this] { stock_.show(); });
        bindSides(sides, sidesPicture);
        finishing_ = std::move(finishing);
        finishing_->bind();
        bindOutput(destination, color);
        bindNotices(notices);
        controls_.show();
        MoveInto(pane(), content);
    }

    void bindSides(const Glib::RefPtr<Gtk::ComboBox>& sides,
                   const Glib::RefPtr<Gtk::Image>& picture)
    {
        const CFBundle& bundle = *GetPDEBundle();
        controls_.bindMenu(
            sides, [this, &bundle] { return SidesMenu(bundle, settings_.sides); },
            [this](std::int32_t chosen) { settings_.sides = chosen; });
        controls_.bindPicture(picture, bundle, [this] { return SidesPicture(settings_); });
    }

    void bindOutput(const Glib::RefPtr<Gtk::ComboBox>& destination,
                    const Glib::RefPtr<Gtk::ComboBox>& color)
    {
        const CFBundle& bundle = *GetPDEBundle();
        controls_.bindMenu(
            destination,
            [this, &bundle] {
                return OutputDestinationMenu(bundle, PrinterDescription::Current(),
                                             settings_.outputDestination);
            },
            [this](std::int32_t chosen) { settings_.outputDestination = chosen; });
        controls_.bindMenu(
            color, [this, &bundle] { return OutputColorMenu(bundle, settings_.outputColor); },
            [this](std::int32_t chosen) { settings_.outputColor = chosen; });
    }

    void bindNotices(const std::vector<NoticePlace>& places)
    {
        for (std::size_t index = 0; index < places.size(); ++index) {
            const PaperControl control = NoticeRows[index].control;
            notices_.push_back(std::make_unique<ConflictNotice>(
                places[index].box, [this, control, place = places[index].control] {
                    resolve(control, *place.get());
                }));
        }
        controls_.bindView([this] { showConflicts(); });
    }

    // The button that has been pressed goes, and the focus would go with it.
    void resolve(PaperControl control, Gtk::Widget& place)
    {
        place.grab_focus();
        ResolvePaperConflict(settings_, control);
        controls_.show();
    }

    void showConflicts()
    {
        const auto conflicts = findConflicts();
        for (std::size_t index = 0; index < notices_.size(); ++index) {
            const auto found = std::find_if(
                conflicts.begin(), conflicts.end(), [index](const PaperConflict& conflict) {
                    return conflict.control == NoticeRows[index].control;
                });
            notices_[index]->show(found == conflicts.end() ? nullptr : &*found);
        }
    }

    std::vector<PaperConflict> findConflicts() const
    {
        PMTicket* ticket = nullptr;
        GetTicketFromSession(GetCurrentPrintSession(), JobTicketName, &ticket);
        return PaperConflicts(*GetPDEBundle(), settings_, PrinterDescription::Current(),
                              ticket == nullptr ? CFDictionary() : ticket->ppdDictionary());
    }

    PaperOutputSettings settings_ = FreshPaperOutputSettings(CurrentTime());
    ControlBindings controls_;
    StockControl stock_{JobContext::Job, settings_.stock, [this] { controls_.showViews(); }};
    std::unique_ptr<JobTypeSection> jobType_;
    std::unique_ptr<FinishingSection> finishing_;
    std::vector<std::unique_ptr<ConflictNotice>> notices_; // as in NoticeRows
};

} // namespace

std::unique_ptr<Panel> GetPaperOutputPanelInterface()
{
    return std::make_unique<PaperOutputPanel>();
}

} // namespace tarvo
