// The panels with their widgets.
#include "PanelWidgets.h"
#include "panels/about/AboutPanel.h"
#include "panels/advanced/AdvancedPanel.h"
#include "panels/paper/PaperOutputPanel.h"
#include "panels/toolkit/DesktopServices.h"
#include "panels/toolkit/WidgetTexts.h"

#include <gmock/gmock.h>
#include <gtkmm/button.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/image.h>

namespace tarvo {
namespace {

constexpr PanelGetter AllPanels[] = {GetPaperOutputPanelInterface, GetAdvancedPanelInterface,
                                     GetAboutPanelInterface};

TEST_F(PanelWidgets, AdvancedShowsTheTicketAndStoresTheUsersChoice)
{
    const auto panel = start(GetAdvancedPanelInterface);
    EXPECT_EQ(panel->open(), StatusOk);
    EXPECT_EQ(shown("Tshl611"), "Normal Order");
    EXPECT_EQ(shown("Tshl621"), "Printer Default");
    EXPECT_TRUE(control<Gtk::CheckButton>("Tshl630").get_active());

    control<Gtk::ComboBox>("Tshl611").set_active(0);
    control<Gtk::ComboBox>("Tshl621").set_active(1);
    control<Gtk::CheckButton>("Tshl630").set_active(false);
    EXPECT_EQ(panel->sync(&session_, SyncDirection::ToTicket), StatusOk);
    EXPECT_EQ(stored(BookletLayoutOrderKey), CFPropertyList(1));
    EXPECT_EQ(stored(RotateImageKey), CFPropertyList(1));
    EXPECT_EQ(stored(EmitTPIFKey), CFPropertyList(0));

    ticket_->setItem("x", RotateImageKey, 2);
    ticket_->setItem("x", BookletLayoutOrderKey, 7); // of a newer driver: no item has it
    EXPECT_EQ(panel->sync(&session_, SyncDirection::FromTicket), StatusOk);
    EXPECT_EQ(shown("Tshl621"), "Rotate by 180°");
    panel->sync(&session_, SyncDirection::ToTicket);
    EXPECT_EQ(stored(BookletLayoutOrderKey), CFPropertyList(7));
    EXPECT_EQ(panel->sync(nullptr, SyncDirection::ToTicket), -30879);
}

TEST_F(PanelWidgets, AdvancedMakesItsControlsOnce)
{
    const auto panel = start(GetAdvancedPanelInterface);
    EXPECT_EQ(panel->open(), StatusOk);
    const auto* content = &control<Gtk::Widget>("Tshl600");
    EXPECT_EQ(panel->close(), StatusOk);
    EXPECT_EQ(panel->open(), -9530);
    EXPECT_EQ(&control<Gtk::Widget>("Tshl600"), content);
    EXPECT_EQ(pane_.get_children().size(), 1U);
    for (const char* hidden : {"Tshl623", "Tshl625", "Tshl627", "Tshl629"}) {
        window_.show_all();
        EXPECT_FALSE(control<Gtk::Widget>(hidden).get_visible()) << hidden;
    }
}

// The application may destroy the dialog before the panel is told.
TEST_F(PanelWidgets, OutliveTheirDialog)
{
    for (const PanelGetter getter : AllPanels) {
        const auto panel = start(getter);
        panel->open();
        for (Gtk::Widget* child : pane_.get_children()) {
            gtk_widget_destroy(child->gobj());
        }
        panel->sync(&session_, SyncDirection::ToTicket);
        panel->sync(&session_, SyncDirection::FromTicket);
        EXPECT_EQ(panel->close(), StatusOk);
    }
}

TEST_F(PanelWidgets, ImportIsToldFileByFile)
{
    const auto panel = start(GetAdvancedPanelInterface);
    panel->open();
    const DesktopServices former = TheDesktopServices();
    TheDesktopServices().chooseFilesToOpen = [](auto&&...) {
        return std::vector<std::string>{TARVO_SOURCE_DIR "/examples/hold-for-operator.xml"};
    };
    const DialogAnswer answer([](Gtk::Dialog& dialog) {
        EXPECT_THAT(AccessibilityFaults(dialog), testing::IsEmpty());
        EXPECT_THAT(FindWidget<Gtk::Label>(dialog, "TPDE1")->get_text().raw(),
                    testing::StartsWith("“hold-for-operator.xml” has been imported."));
        dialog.response(Gtk::RESPONSE_OK);
    });
    control<Gtk::Button>("Tshl651").clicked();
    EXPECT_TRUE(ticket_->containsItem(JobTypeKey));
    TheDesktopServices() = former;
}

TEST_F(PanelWidgets, AboutSaysWhatThisIsAndLeadsToItsMaker)
{
    const auto panel = start(GetAboutPanelInterface);
    const DesktopServices former = TheDesktopServices();
    std::string opened;
    TheDesktopServices().openURI = [&opened](Gtk::Window*, const std::string& uri) {
        opened = uri;
        return 0;
    };
    for (const char* pass : {"first", "opened again"}) {
        SCOPED_TRACE(pass);
        EXPECT_EQ(panel->open(), StatusOk);
        EXPECT_EQ(control<Gtk::Label>("Tshl801").get_text(), "Tarvo Print Features");
        EXPECT_EQ(control<Gtk::Label>("Tshl802").get_text(), "Version 1.0");
        EXPECT_NE(control<Gtk::Label>("Tshl803").get_text(), "");
        EXPECT_EQ(control<Gtk::Image>("Tshl805").get_storage_type(), Gtk::IMAGE_SURFACE);
        control<Gtk::Button>("Tshl804").clicked();
        EXPECT_EQ(opened, "https://www.tarvo.example/");
        EXPECT_EQ(panel->close(), StatusOk);
        EXPECT_TRUE(pane_.get_children().empty());
    }
    TheDesktopServices() = former;
}

TEST_F(PanelWidgets, AreEmptyWithoutTheirDescriptionsAndPictures)
{
    const BundleCopy copy;
    std::filesystem::remove(copy.resource("TarvoLogo.png"));
    use(std::make_unique<CFBundle>(copy.bundle()));
    const auto about = start(GetAboutPanelInterface);
    EXPECT_EQ(about->open(), StatusOk);
    EXPECT_EQ(control<Gtk::Image>("Tshl805").get_storage_type(), Gtk::IMAGE_EMPTY);
    about->close();
    for (const char* name : {"About.ui", "AdvancedPanelProductionHLC.ui", "PaperOutputPanel.ui"}) {
        std::filesystem::resize_file(copy.resource(name), 300); // broken off
    }
    for (const PanelGetter getter : AllPanels) {
        const auto panel = start(getter);
        EXPECT_EQ(panel->open(), StatusOk);
        EXPECT_TRUE(pane_.get_children().empty());
        panel->sync(&session_, SyncDirection::ToTicket);
        panel->close();
    }
}

TEST_F(PanelWidgets, CanBeUsedByKeyboardAndHeard)
{
    for (const char* language : {"en", "de"}) {
        use(std::make_unique<CFBundle>(BuiltBundle(language)));
        for (const PanelGetter getter : AllPanels) {
            SCOPED_TRACE(language);
            const auto panel = start(getter);
            panel->open();
            std::set<gunichar> taken;
            AssignMnemonics(pane_, taken);
            pane_.show();
            EXPECT_THAT(AccessibilityFaults(pane_), testing::IsEmpty());
            panel->close();
            for (Gtk::Widget* child : pane_.get_children()) {
                pane_.remove(*child);
            }
        }
    }
}

} // namespace
} // namespace tarvo
