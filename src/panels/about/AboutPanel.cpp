#include "panels/about/AboutPanel.h"

#include "panels/PanelEnvironment.h"
#include "panels/toolkit/DesktopServices.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/Pictures.h"

#include <gdkmm/cursor.h>
#include <gtk/gtk.h>
#include <gtkmm/button.h>
#include <gtkmm/image.h>
#include <gtkmm/label.h>

namespace tarvo {
namespace {

constexpr const char* MakersAddress = "https://www.tarvo.example/";

// What a label shows of the bundle's information; nullptr ends the table.
struct InformationRow {
    const char* widget;
    const char* entry;
};

constexpr InformationRow InformationMap[] = {
    {"Tshl801", "CFBundleName"            },
    {"Tshl802", "CFBundleGetInfoString"   },
    {"Tshl803", "NSHumanReadableCopyright"},
    {nullptr,   nullptr                   },
};

void ShowInformation(Nib& nib, const CFDictionary& information)
{
    for (const InformationRow* row = InformationMap; row->widget != nullptr; ++row) {
        const auto label = nib.widget<Gtk::Label>(row->widget);
        const auto* text = information.get<std::string>(row->entry);
        if (label && text != nullptr) {
            label->set_text(*text);
        }
    }
}

void SetPointerCursor(GdkWindow* window)
{
    GdkCursor* cursor = gdk_cursor_new_from_name(gdk_window_get_display(window), "pointer");
    gdk_window_set_cursor(window, cursor);
    g_clear_object(&cursor);
}

void MakeLink(Gtk::Button& button)
{
    button.signal_clicked().connect(
        Guarded([] { TheDesktopServices().openURI(GetPDEWindow(), MakersAddress); }));
    button.signal_enter_notify_event().connect(Guarded([](GdkEventCrossing* event) {
        SetPointerCursor(event->window);
        return false;
    }));
}

class AboutPanel : public Panel {
public:
    OSStatus prologue(PanelDescription& description) override
    {
        const CFBundle* bundle = GetPDEBundle();
        if (bundle == nullptr) {
            return StatusNullContext;
        }
        description = {bundle->localizedString("About"), UserOptionKind};
        return StatusOk;
    }

    OSStatus initialize(Gtk::Container& pane, PMPrintSession* session) override
    {
        if (session == nullptr) {
            return StatusNullContext;
        }
        pane_ = &pane;
        return StatusOk;
    }

    // It has nothing to do with the job.
    OSStatus sync(PMPrintSession* /*session*/, SyncDirection /*direction*/) override
    {
        return StatusOk;
    }

    OSStatus open() override
    {
        auto nib = Nib::Open(*GetPDEBundle(), "About");
        if (!nib) {
            return StatusOk; // a panel without a description is empty
        }
        const auto window = nib->window<Gtk::Widget>("AboutPanel");
        const auto content = nib->widget<Gtk::Widget>("Tshl800");
        const auto logo = nib->widget<Gtk::Button>("Tshl804");
        const auto picture = nib->widget<Gtk::Image>("Tshl805");
        ShowInformation(*nib, GetPDEBundle()->infoDictionary());
        if (nib->isComplete()) {
            ShowPicture(*GetPDEBundle(), *picture.get(), "TarvoLogo.png");
            MakeLink(*logo.get());
            MoveInto(*pane_, content);
            content_ = content;
        }
        return StatusOk;
    }

    OSStatus close() override
    {
        if (content_) {
            RemoveFromParent(content_);
            content_.reset();
        }
        return StatusOk;
    }

private:
    Gtk::Container* pane_ = nullptr;
    Glib::RefPtr<Gtk::Widget> content_;
};

} // namespace

std::unique_ptr<Panel> GetAboutPanelInterface()
{
    return std::make_unique<AboutPanel>();
}

} // namespace tarvo
