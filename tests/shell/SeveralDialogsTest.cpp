// Several print dialogs at a time: what a panel begins in one of them ends there.
#include "DialogSession.h"
#include "panels/PanelEnvironment.h"
#include "panels/advanced/JobTicketFiles.h"
#include "panels/toolkit/BackgroundWork.h"
#include "panels/toolkit/DesktopServices.h"
#include "panels/toolkit/Dialogs.h"
#include "platform/files/FileContents.h"
#include "settings/TicketKeys.h"
#include "shell/Shell.h"
#include "stocklibrary/DemoPrinter.h"
#include "support/BuiltBundle.h"
#include "support/DialogScript.h"

#include <gmock/gmock.h>
#include <gtkmm/box.h>
#include <gtkmm/button.h>

namespace tarvo {
namespace {

constexpr PanelGetter NoPanels[] = {nullptr};
constexpr const char* TwoSided =
    R"(<tpif><job-template-attributes><sides syntax="keyword">two-sided-long-edge</sides>)"
    "</job-template-attributes></tpif>";

const CFBundle& Bundle()
{
    static const CFBundle bundle = BuiltBundle();
    return bundle;
}

// A print dialog on the screen.
class PrintDialog {
public:
    explicit PrintDialog(PMPrintSession& session)
    {
        window_.add(pane_);
        window_.show();
        start(session);
    }
    PrintDialog(const PrintDialog&) = delete;
    PrintDialog& operator=(const PrintDialog&) = delete;
    ~PrintDialog() { shell_->close(); }

    // What another printer ends and begins while the window stays.
    void start(PMPrintSession& session)
    {
        shell_.reset();
        shell_ = std::make_unique<Shell>(&Bundle(), NoPanels);
        EXPECT_EQ(shell_->initialize(nullptr, GTK_CONTAINER(pane_.gobj()), &session), StatusOk);
    }
    void use() { shell_->makeCurrent(); }
    void open() { EXPECT_EQ(shell_->open(), StatusOk); }
    Gtk::Window& window() { return window_; }

private:
    Gtk::Window window_;
    Gtk::Box pane_;
    std::unique_ptr<Shell> shell_;
};

class SeveralDialogs : public testing::Test {
protected:
    SeveralDialogs()
    {
        TheDesktopServices().chooseFileToSave = [this](auto&&...) {
            meanwhile_();
            return file_;
        };
        TheDesktopServices().chooseFilesToOpen = [this](auto&&...) {
            meanwhile_();
            return std::vector<std::string>{file_};
        };
    }
    ~SeveralDialogs() override
    {
        TheDesktopServices() = former_;
        std::filesystem::remove(file_);
    }

    // All that lets the application go on. Each gives whether what the user has done counts.
    bool choosesFileToSave() { return ChooseFileToSave(Bundle(), nullptr, "").has_value(); }
    bool choosesFilesToOpen() { return !ChooseFilesToOpen(Bundle(), nullptr, "", {}).empty(); }
    bool givesText()
    {
        const DialogAnswer ok([this](Gtk::Dialog& dialog) {
            meanwhile_();
            dialog.response(Gtk::RESPONSE_OK);
        });
        std::optional<std::string> text = "Trim";
        std::int32_t result = 0;
        RunModalCustomValueDialog(Bundle(), nullptr, 8, text, result);
        return text.has_value();
    }
    bool works()
    {
        Gtk::Window window; // hears when the waiting begins
        window.property_sensitive().signal_changed().connect([&] {
            if (!window.get_sensitive()) {
                meanwhile_();
            }
        });
        return RunInBackground(&window, [] {});
    }

    const DesktopServices former_ = TheDesktopServices();
    const std::string file_ = testing::TempDir() + "tarvo-several-dialogs.xml";
    std::function<void()> meanwhile_ = [] {};
    DialogSession first_;
    DialogSession other_;
    std::unique_ptr<PrintDialog> dialog_ = std::make_unique<PrintDialog>(first_.session);
    std::unique_ptr<PrintDialog> second_;

    static constexpr std::pair<const char*, bool (SeveralDialogs::*)()> WaitCases[] = {
        {"save chooser", &SeveralDialogs::choosesFileToSave },
        {"open chooser", &SeveralDialogs::choosesFilesToOpen},
        {"modal window", &SeveralDialogs::givesText         },
        {"background",   &SeveralDialogs::works             },
    };
};

TEST_F(SeveralDialogs, ADialogIsCurrentAgainAfterAWait)
{
    meanwhile_ = [this] { second_ = std::make_unique<PrintDialog>(other_.session); };
    for (const auto& [name, run] : WaitCases) {
        SCOPED_TRACE(name);
        EXPECT_TRUE((this->*run)());
        EXPECT_EQ(GetCurrentPrintSession(), &first_.session);
        EXPECT_EQ(GetPDEWindow(), &dialog_->window());
        second_.reset();
    }
}

TEST_F(SeveralDialogs, AWaitGivesNothingWhenItsDialogHasEnded)
{
    meanwhile_ = [this] {
        dialog_.reset();
        second_ = std::make_unique<PrintDialog>(first_.session); // the address is no proof
    };
    for (const auto& [name, run] : WaitCases) {
        SCOPED_TRACE(name);
        EXPECT_FALSE((this->*run)());
        EXPECT_EQ(GetPDEWindow(), &second_->window());
        dialog_.swap(second_);
    }
    meanwhile_ = [this] { dialog_.reset(); };
    EXPECT_FALSE(choosesFileToSave());
    EXPECT_EQ(GetCurrentPrintSession(), nullptr);
}

TEST_F(SeveralDialogs, WhatHappensInAPanelsDialogIsAboutItsPrintDialog)
{
    second_ = std::make_unique<PrintDialog>(other_.session);
    Gtk::Dialog stock;
    stock.set_transient_for(dialog_->window());
    Gtk::Dialog notice;
    notice.set_transient_for(stock);
    Gtk::Dialog ofSecond;
    ofSecond.set_transient_for(second_->window());
    Gtk::Dialog ofApplication;
    const auto sessionIn = [](Gtk::Dialog& dialog) {
        PMPrintSession* found = nullptr;
        auto* button = dialog.add_button("", Gtk::RESPONSE_OK);
        button->signal_clicked().connect([&found] { found = GetCurrentPrintSession(); });
        button->clicked();
        return found;
    };
    EXPECT_EQ(sessionIn(stock), &first_.session);
    EXPECT_EQ(sessionIn(ofSecond), &other_.session);
    EXPECT_EQ(sessionIn(ofApplication), &other_.session) << "nobody has gone elsewhere";
    EXPECT_EQ(sessionIn(notice), &first_.session);
}

// The newest dialog has the worker. After its end the others ask by themselves, each its printer.
TEST_F(SeveralDialogs, APrintersPapersAreOfItsDialogAlone)
{
    const DemoPrinter printer({});
    const DemoPrinter silent({"--misbehave", "silent"});
    const auto uriOf = [](const DemoPrinter& each) { return "ipp://" + each.authority() + "/"; };
    first_.session.currentPrinter.emplace().deviceUri = uriOf(printer);
    other_.session.currentPrinter.emplace().deviceUri = uriOf(silent);
    const PanelEnvironment& environment = ThePanelEnvironment();
    dialog_->open();
    ASSERT_TRUE(TurnUntil([&] { return environment.printerStockList != nullptr; }));
    const auto former = environment.printerStockList;

    second_ = std::make_unique<PrintDialog>(other_.session);
    second_->open();
    EXPECT_TRUE(TurnUntil(
        [&] { return environment.printerStocksState().status == PrinterStockStatus::InProgress; }));
    EXPECT_EQ(environment.printerStockList, nullptr);
    dialog_->use();
    EXPECT_EQ(environment.printerStocksState().status, PrinterStockStatus::Complete);
    EXPECT_EQ(environment.printerStockList, former);

    second_.reset();
    bool isTold = false;
    const WindowEventHandler window([&](const Event& /*event*/) {
        environment.takePrinterStocks();
        isTold = true;
        return StatusOk;
    });
    environment.askForPrinterStocks(window.window());
    EXPECT_EQ(environment.printerStocksState().status, PrinterStockStatus::InProgress);
    EXPECT_TRUE(TurnUntil([&] { return isTold; }));
    EXPECT_EQ(environment.printerStocksState().status, PrinterStockStatus::Complete);
    EXPECT_NE(environment.printerStockList, former);
    EXPECT_EQ(environment.printerStockList->stockList().size(), DemoPrinter::MediaCount);
}

TEST_F(SeveralDialogs, AnExportIsOfTheJobWhoseButtonWasPressed)
{
    first_.ticket().setItem("x", DuplexKey, 2);
    meanwhile_ = [this] { second_ = std::make_unique<PrintDialog>(other_.session); };
    EXPECT_EQ(RunModalTPIFExportDialog(), StatusOk);
    std::string reason;
    const auto document = ReadFileContents(file_, 1 << 20, reason);
    ASSERT_TRUE(document) << reason;
    EXPECT_THAT(*document, testing::HasSubstr("two-sided-long-edge"));
}

TEST_F(SeveralDialogs, AnImportIsForTheJobWhoseButtonWasPressed)
{
    std::string reason;
    ASSERT_TRUE(ReplaceFileContents(file_, TwoSided, reason)) << reason;
    meanwhile_ = [this] { second_ = std::make_unique<PrintDialog>(other_.session); };
    // The user goes to the other dialog while the file is read, too.
    dialog_->window().property_sensitive().signal_changed().connect([this] { second_->use(); });
    const Gtk::Window* parent = nullptr;
    const DialogAnswer summary([&](Gtk::Dialog& dialog) {
        parent = dialog.get_transient_for();
        dialog.response(Gtk::RESPONSE_OK);
    });
    EXPECT_EQ(RunModalTPIFImportDialog(), StatusOk);
    EXPECT_EQ(parent, &dialog_->window());
    ASSERT_TRUE(first_.ticket().containsItem(DuplexKey));
    EXPECT_EQ(first_.ticket().item(DuplexKey)->value, CFPropertyList(2));
    EXPECT_FALSE(other_.ticket().containsItem(DuplexKey));
}

TEST_F(SeveralDialogs, AnImportEndsQuietlyWithItsDialog)
{
    std::string reason;
    ASSERT_TRUE(ReplaceFileContents(file_, TwoSided, reason)) << reason;
    dialog_->window().property_sensitive().signal_changed().connect(
        [this] { dialog_->start(first_.session); });
    EXPECT_THAT(ImportIntoJobTicket({file_}).files, testing::IsEmpty()) << "nothing to tell";
    EXPECT_FALSE(first_.ticket().containsItem(DuplexKey));
}

} // namespace
} // namespace tarvo
