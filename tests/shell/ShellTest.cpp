// The shell with panels that write down what is asked of them.
#include "shell/Shell.h"

#include "DialogSession.h"
#include "panels/PanelEnvironment.h"
#include "settings/TicketKeys.h"
#include "shell/ShellCommands.h"
#include "support/BuiltBundle.h"
#include "support/DialogScript.h"
#include "support/Entries.h"

#include <gmock/gmock.h>
#include <gtk/gtk.h>
#include <gtkmm/button.h>
#include <gtkmm/label.h>
#include <gtkmm/messagedialog.h>

#include <set>

namespace tarvo {
namespace {

// Of all panels; "A<" is panel A reading the ticket, "A>" writing it.
std::string calls;
CFDictionary jobTypeOfB;
std::vector<std::string> conflictsOfB;
PMPrintSession* sessionOfClick = nullptr;  // what a panel's handler has found
std::set<PMPrintSession*> sessionsOfCalls; // what operations have found

class FakePanel : public Panel {
public:
    explicit FakePanel(std::string name) : name_(std::move(name)) {}
    ~FakePanel() override { note("~"); }

    OSStatus prologue(PanelDescription& description) override
    {
        description.title = "Panel " + name_;
        if (name_ == "T") {
            throw std::runtime_error("no prologue");
        }
        return name_ == "X" ? -1 : StatusOk;
    }
    OSStatus initialize(Gtk::Container& pane, PMPrintSession* /*session*/) override
    {
        pane_ = &pane;
        return -7; // counts for nothing
    }
    OSStatus sync(PMPrintSession* /*session*/, SyncDirection direction) override
    {
        note(direction == SyncDirection::ToTicket ? ">" : "<");
        return -7;
    }
    OSStatus getSummaryText(PanelSummary& summary) override
    {
        sessionsOfCalls.insert(GetCurrentPrintSession());
        summary = {};
        if (name_ == "A") {
            summary.titles = {{"A"}};
        }
        return StatusOk;
    }
    OSStatus open() override
    {
        note("o");
        auto* label = Gtk::manage(new Gtk::Label(name_));
        label->show();
        pane_->add(*label);
        auto* button = Gtk::make_managed<Gtk::Button>();
        button->signal_clicked().connect([] { sessionOfClick = GetCurrentPrintSession(); });
        button->show();
        pane_->add(*button);
        return StatusOk;
    }
    OSStatus close() override
    {
        note("c");
        return StatusOk;
    }
    OSStatus terminate(OSStatus status) override
    {
        sessionsOfCalls.insert(GetCurrentPrintSession());
        note("t" + std::to_string(status));
        if (name_ == "A") {
            throw std::runtime_error("no end");
        }
        return StatusOk;
    }
    const CFDictionary* jobType() const override { return name_ == "B" ? &jobTypeOfB : nullptr; }
    std::vector<std::string> conflicts() const override
    {
        return name_ == "B" ? conflictsOfB : std::vector<std::string>();
    }

private:
    void note(const std::string& call) const { calls += name_ + call + " "; }

    std::string name_;
    Gtk::Container* pane_ = nullptr;
};

template <char Name>
std::unique_ptr<Panel> Get()
{
    return std::make_unique<FakePanel>(std::string(1, Name));
}
std::unique_ptr<Panel> GetNothing()
{
    return nullptr;
}

constexpr PanelGetter ThreePanels[] = {Get<'A'>, Get<'B'>, Get<'C'>, nullptr};

std::string CallsSince()
{
    return std::exchange(calls, "");
}

class ShellOperations : public testing::Test {
protected:
    ShellOperations()
    {
        window_.add(pane_);
        start();
        // What a dialog leaves behind is there for the next: every case starts from panel 1.
        shell_->open();
        while (shownPanel() != "A") {
            hit(NextPanelControl);
        }
        shell_->close();
        start();
    }

    void start()
    {
        shell_.reset();
        shell_ = std::make_unique<Shell>(&bundle_, ThreePanels);
        host_.self = this;
        host_.SetEventHandler = [](void* self, TarvoEventHandler handler, void* data) {
            static_cast<ShellOperations*>(self)->handler_ = handler;
            static_cast<ShellOperations*>(self)->data_ = data;
        };
        EXPECT_EQ(shell_->initialize(&host_, GTK_CONTAINER(pane_.gobj()), &dialog_.session),
                  StatusOk);
        CallsSince();
    }
    OSStatus hit(std::int32_t control) { return shell_->handleControlHit(ShellSignature, control); }
    OSStatus press(std::int32_t button) const
    {
        const TarvoEvent event{TARVO_CONTROL_CLASS, TARVO_CONTROL_HIT, 0, button};
        return handler_(&event, data_);
    }
    Gtk::ComboBox& popup() { return *FindWidget<Gtk::ComboBox>(pane_, "Tshl16"); }
    // What can be seen in the container.
    std::string shownPanel()
    {
        std::string shown;
        ForEachWidget(*FindWidget<Gtk::Widget>(pane_, "Tshl17"), [&shown](Gtk::Widget& widget) {
            auto* label = dynamic_cast<Gtk::Label*>(&widget);
            shown +=
                label != nullptr && label->get_parent()->get_visible() ? label->get_text() : "";
        });
        return shown;
    }

    const CFBundle bundle_ = BuiltBundle();
    DialogSession dialog_;
    Gtk::Window window_;
    Gtk::Box pane_;
    TarvoPDEHost host_{};
    TarvoEventHandler handler_ = nullptr;
    void* data_ = nullptr;
    std::unique_ptr<Shell> shell_;
};

TEST_F(ShellOperations, ShowOnePanelAtATime)
{
    EXPECT_EQ(shell_->open(), StatusOk);
    EXPECT_EQ(CallsSince(), "A> Ao B< C< ") << "the panel shown last is left first";
    EXPECT_EQ(shownPanel(), "A");
    EXPECT_EQ(ShownText(popup()), "Panel A");
    EXPECT_EQ(popup().get_model()->children().size(), 3U);

    EXPECT_EQ(hit(NextPanelControl), StatusOk);
    EXPECT_EQ(CallsSince(), "A> B< Bo C< ") << "the one that is left is not read again";
    EXPECT_EQ(shownPanel(), "B");
    EXPECT_EQ(ShownText(popup()), "Panel B");

    popup().set_active(0);
    EXPECT_EQ(CallsSince(), "B> A< C< ") << "it has its controls already";
    EXPECT_EQ(shownPanel(), "A");
    EXPECT_EQ(hit(PanelPopupControl), EventNotHandled) << "it is shown already";
    EXPECT_EQ(CallsSince(), "");

    hit(PreviousPanelControl);
    EXPECT_EQ(shownPanel(), "C") << "round from the first to the last";
    hit(NextPanelControl);
    EXPECT_EQ(shownPanel(), "A");
    EXPECT_EQ(hit(4711), EventNotHandled);
    EXPECT_EQ(shell_->handleControlHit(0, NextPanelControl), EventNotHandled);
    EXPECT_EQ(shell_->handleCommand(FourCharCode("TFdn")), EventNotHandled);
    EXPECT_EQ(shownPanel(), "C") << "commands step, too";
    EXPECT_EQ(shell_->handleCommand(FourCharCode("TFup")), EventNotHandled);
    EXPECT_EQ(shownPanel(), "A");
    EXPECT_EQ(ShownText(popup()), "Panel A");
}

TEST_F(ShellOperations, HideArrowsWithoutPictures)
{
    const BundleCopy copy;
    std::filesystem::remove(copy.resource("MacUp.png"));
    const CFBundle bundle = copy.bundle();
    Gtk::Box pane;
    Shell shell(&bundle, ThreePanels);
    EXPECT_EQ(shell.initialize(nullptr, GTK_CONTAINER(pane.gobj()), &dialog_.session), StatusOk);
    EXPECT_EQ(shell.open(), StatusOk);
    pane.show_all();
    EXPECT_FALSE(FindWidget<Gtk::Button>(pane, "Tshl1966")->get_visible());
    EXPECT_TRUE(FindWidget<Gtk::Button>(pane, "Tshl1967")->get_visible());
}

TEST_F(ShellOperations, APanelsLabelsHaveLettersWheneverItIsShown)
{
    window_.show_all();
    shell_->open();
    Gtk::Button* const button =
        AllOf<Gtk::Button>(*FindWidget<Gtk::Widget>(pane_, "Tshl17")).back();
    hit(NextPanelControl);
    RelabelButton(*button, "Stop"); // which cannot be seen now
    hit(PreviousPanelControl);
    EXPECT_THAT(AccessibilityFaults(*button), testing::IsEmpty());
}

TEST_F(ShellOperations, OpenAgainWhereTheyWere)
{
    shell_->open();
    hit(NextPanelControl);
    CallsSince();
    EXPECT_EQ(shell_->close(), StatusOk);
    EXPECT_EQ(CallsSince(), "Ac Bc ") << "those with controls";
    EXPECT_EQ(shell_->open(), StatusOk);
    EXPECT_EQ(CallsSince(), "B> A< Bo C< ");
    EXPECT_EQ(ShownText(popup()), "Panel B");
}

TEST_F(ShellOperations, TheVisiblePanelSyncsLast)
{
    shell_->open();
    CallsSince();
    dialog_.ticket().setItem("x", RotateBookletKey, true);
    EXPECT_EQ(shell_->sync(&dialog_.session, SyncDirection::FromTicket), StatusOk);
    EXPECT_EQ(CallsSince(), "B< C< A< ");
    EXPECT_FALSE(dialog_.ticket().containsItem("com.tarvo.print.TPIFOptions"));
    EXPECT_EQ(PDESync(nullptr, SyncDirection::ToTicket), StatusOk);
    EXPECT_EQ(CallsSince(), "B> C> A> ");
    const PMTicket::Item* options = dialog_.ticket().item("com.tarvo.print.TPIFOptions");
    ASSERT_NE(options, nullptr);
    EXPECT_EQ(options->value, CFPropertyList(Entries("TPIFOptionAll", true)));
    EXPECT_EQ(options->client, "T");
    EXPECT_FALSE(dialog_.ticket().containsItem("com.tarvo.print.RotateBooklet180Degrees"));

    PMPrintSession withoutTicket;
    EXPECT_EQ(shell_->sync(&withoutTicket, SyncDirection::ToTicket), StatusOk);
    EXPECT_EQ(shell_->sync(nullptr, SyncDirection::ToTicket), -30879);
}

TEST_F(ShellOperations, ASecureJobWithoutPasscodeIsNotPrinted)
{
    EXPECT_EQ(press(TARVO_DEFAULT_BUTTON), EventNotHandled);
    jobTypeOfB = Entries("JobType", 6);
    {
        const DialogAnswer answer([](Gtk::Dialog& dialog) {
            auto& notice = dynamic_cast<Gtk::MessageDialog&>(dialog);
            EXPECT_EQ(notice.property_text().get_value(), "The secure print job has no passcode.");
            EXPECT_NE(notice.property_secondary_text().get_value(), "");
            dialog.response(Gtk::RESPONSE_OK);
        });
        EXPECT_EQ(press(TARVO_DEFAULT_BUTTON), StatusOk) << "swallowed";
    }
    EXPECT_EQ(press(TARVO_CANCEL_BUTTON), EventNotHandled);
    jobTypeOfB.set("SecurePrintPassword", "1234");
    EXPECT_EQ(press(TARVO_DEFAULT_BUTTON), EventNotHandled);
    jobTypeOfB = CFDictionary();
}

TEST_F(ShellOperations, AJobWithConflictsIsPrintedOnlyIfTheUserWantsIt)
{
    conflictsOfB = {"No staples.", "No holes."};
    for (const auto& [response, status] : {
             std::pair(Gtk::RESPONSE_OK, EventNotHandled), {Gtk::RESPONSE_CANCEL, StatusOk}
    }) {
        const DialogAnswer answer([response = response](Gtk::Dialog& dialog) {
            EXPECT_THAT(AccessibilityFaults(dialog), testing::IsEmpty());
            auto& question = dynamic_cast<Gtk::MessageDialog&>(dialog);
            EXPECT_NE(question.property_text().get_value(), "");
            EXPECT_EQ(question.property_secondary_text().get_value(), "No staples.\n\nNo holes.");
            dialog.response(response);
        });
        EXPECT_EQ(press(TARVO_DEFAULT_BUTTON), status);
    }
    EXPECT_EQ(press(TARVO_CANCEL_BUTTON), EventNotHandled);
    conflictsOfB.clear();
}

TEST_F(ShellOperations, EndWithTheDialogInEitherOrder)
{
    shell_->open();
    CallsSince();
    shell_->terminate(-128);
    shell_.reset();
    EXPECT_EQ(CallsSince(), "At-128 Bt-128 Ct-128 A~ B~ C~ ");
    EXPECT_EQ(handler_, nullptr);
    EXPECT_TRUE(pane_.get_children().empty());
    EXPECT_EQ(GetCurrentPrintSession(), nullptr);
    EXPECT_EQ(PDESync(nullptr, SyncDirection::ToTicket), -30879);

    start();
    shell_->open();
    for (Gtk::Widget* child : pane_.get_children()) {
        gtk_widget_destroy(child->gobj()); // as a dialog's end does
    }
    hit(NextPanelControl);
    shell_->sync(&dialog_.session, SyncDirection::ToTicket);
    shell_->close();
    shell_.reset();
}

TEST_F(ShellOperations, ADialogThatCannotBeMadeLeavesTheOneBefore)
{
    constexpr PanelGetter Throwing[] = {Get<'A'>, Get<'T'>, nullptr};
    EXPECT_THROW(Shell(&bundle_, Throwing), std::runtime_error);
    EXPECT_EQ(GetCurrentPrintSession(), &dialog_.session);
    EXPECT_EQ(PDESync(nullptr, SyncDirection::ToTicket), StatusOk);
}

// Presses the button of the panel that is shown.
void ClickIn(Gtk::Widget& pane)
{
    for (Gtk::Button* button : AllOf<Gtk::Button>(*FindWidget<Gtk::Widget>(pane, "Tshl17"))) {
        if (button->get_parent()->get_visible()) {
            button->clicked();
        }
    }
}

TEST_F(ShellOperations, WhatHappensInADialogIsAboutThatDialog)
{
    shell_->open();
    DialogSession other;
    Gtk::Window window;
    Gtk::Box pane;
    window.add(pane);
    Shell second(&bundle_, ThreePanels);
    EXPECT_EQ(second.initialize(nullptr, GTK_CONTAINER(pane.gobj()), &other.session), StatusOk);
    second.open();
    const auto* printer = PrinterDescription::Current();
    second.handleControlHit(ShellSignature, NextPanelControl);
    CallsSince();
    ClickIn(pane_);
    EXPECT_EQ(sessionOfClick, &dialog_.session);
    EXPECT_NE(PrinterDescription::Current(), printer);
    hit(NextPanelControl);
    EXPECT_EQ(CallsSince(), "A> B< Bo C< ") << "the panel of its own is left";
    ClickIn(pane);
    EXPECT_EQ(sessionOfClick, &other.session);
    EXPECT_EQ(PrinterDescription::Current(), printer);
    second.handleControlHit(ShellSignature, PreviousPanelControl);
    EXPECT_EQ(CallsSince(), "B> A< C< ");
    shell_->sync(&dialog_.session, SyncDirection::ToTicket);
    EXPECT_EQ(GetCurrentPrintSession(), &dialog_.session);
}

TEST_F(ShellOperations, ADialogIsCurrentInItsSummaryAndItsEnd)
{
    DialogSession other;
    Shell second(&bundle_, ThreePanels);
    EXPECT_EQ(second.initialize(nullptr, nullptr, &other.session), StatusOk);
    const std::set<PMPrintSession*> own = {&dialog_.session};
    sessionsOfCalls.clear();
    EXPECT_EQ(shell_->getSummaryText().titles, std::nullopt) << "C clears what A has filled";
    EXPECT_EQ(std::exchange(sessionsOfCalls, {}), own);
    second.makeCurrent();
    shell_.reset(); // without a close before
    EXPECT_EQ(sessionsOfCalls, own);
    EXPECT_EQ(GetCurrentPrintSession(), &other.session);
}

TEST(ShellLoading, EndsAtThePanelThatCannotBeHad)
{
    const CFBundle bundle = BuiltBundle();
    const std::tuple<const char*, std::vector<PanelGetter>, std::size_t> cases[] = {
        {"none",            {nullptr},                                         0},
        {"null panel",      {Get<'A'>, GetNothing, Get<'B'>, nullptr},         1},
        {"failed prologue", {Get<'A'>, Get<'B'>, Get<'X'>, Get<'C'>, nullptr}, 2},
    };
    for (const auto& [name, getters, count] : cases) {
        SCOPED_TRACE(name);
        DialogSession dialog;
        Gtk::Window window;
        Gtk::Box pane;
        window.add(pane);
        Shell shell(&bundle, getters.data());
        EXPECT_EQ(shell.initialize(nullptr, GTK_CONTAINER(pane.gobj()), &dialog.session), StatusOk);
        EXPECT_EQ(shell.open(), StatusOk);
        auto* popup = FindWidget<Gtk::ComboBox>(pane, "Tshl16");
        EXPECT_EQ(popup->get_model()->children().size(), count);
        shell.handleControlHit(ShellSignature, NextPanelControl);
    }
}

} // namespace
} // namespace tarvo
