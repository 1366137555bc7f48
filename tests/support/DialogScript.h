#pragma once

#include "support/Widgets.h"

#include <gtkmm/dialog.h>
#include <gtkmm/entry.h>

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tarvo {

/// What a user does in dialogs, one within another: each step waits for the dialog of its name in
/// front and acts in it. An alert's name is "".
class DialogScript {
public:
    using Action = std::function<void(Gtk::Dialog& dialog)>;
    struct Step {
        std::string window;
        Action act;
    };

    explicit DialogScript(std::vector<Step> steps) : steps_(steps.begin(), steps.end())
    {
        waitForNext();
    }
    DialogScript(const std::string& window, const Action& act)
        : DialogScript({
              Step{window, act}
    })
    {
    }
    DialogScript(const DialogScript&) = delete;
    DialogScript& operator=(const DialogScript&) = delete;
    ~DialogScript()
    {
        EXPECT_TRUE(steps_.empty()) << "not shown: " << steps_.front().window;
        if (source_ != 0) {
            g_source_remove(source_);
        }
    }

    /// The dialog that takes the user's input; null when there is none.
    static Gtk::Dialog* InFront()
    {
        GtkWidget* grab = gtk_grab_get_current();
        GtkWidget* top = grab == nullptr ? nullptr : gtk_widget_get_toplevel(grab);
        return GTK_IS_DIALOG(top) && gtk_widget_get_mapped(top) && gtk_widget_get_sensitive(top)
                   ? dynamic_cast<Gtk::Dialog*>(Glib::wrap(top))
                   : nullptr;
    }

protected:
    static constexpr const char* AnyWindow = "*";

private:
    static constexpr int MostTurns = 10'000;

    // A step of its own source, since its action may show the next dialog.
    void waitForNext() { source_ = g_timeout_add(steps_.empty() ? MostTurns : 1, OnTimeout, this); }
    static gboolean OnTimeout(gpointer self) { return static_cast<DialogScript*>(self)->look(); }

    gboolean look()
    {
        Gtk::Dialog* dialog = InFront();
        if (steps_.empty()) {
            return giveUp(dialog);
        }
        if (dialog == nullptr || !IsOf(steps_.front(), *dialog)) {
            return ++turns_ < MostTurns ? TRUE : giveUp(dialog);
        }
        turns_ = 0;
        const Action act = std::move(steps_.front().act);
        steps_.pop_front();
        waitForNext();
        act(*dialog);
        return FALSE;
    }
    // The user leaves everything that is there, so that the test comes to an end.
    gboolean giveUp(Gtk::Dialog* dialog)
    {
        if (dialog == nullptr && steps_.empty()) {
            source_ = 0;
            return FALSE;
        }
        ADD_FAILURE() << "waiting for \"" << (steps_.empty() ? "the end" : steps_.front().window)
                      << "\", in front is \""
                      << (dialog == nullptr ? "nothing" : WindowName(*dialog)) << '"';
        steps_.clear();
        source_ = g_timeout_add(10, OnLeave, this);
        return FALSE;
    }
    static gboolean OnLeave(gpointer /*self*/)
    {
        if (Gtk::Dialog* dialog = InFront()) {
            dialog->response(Gtk::RESPONSE_CANCEL);
        }
        return TRUE;
    }
    static bool IsOf(const Step& step, Gtk::Dialog& dialog)
    {
        return step.window == AnyWindow || step.window == WindowName(dialog);
    }
    static std::string WindowName(Gtk::Dialog& dialog)
    {
        return GTK_IS_MESSAGE_DIALOG(dialog.gobj()) ? "" : NameInDescription(dialog);
    }

    std::deque<Step> steps_;
    guint source_ = 0;
    int turns_ = 0; // in vain
};

/// The same in the next dialog, whichever it is.
class DialogAnswer : public DialogScript {
public:
    explicit DialogAnswer(const Action& act) : DialogScript(AnyWindow, act) {}
};

// What users do.

inline DialogScript::Action Respond(int response)
{
    return [response](Gtk::Dialog& dialog) { dialog.response(response); };
}

/// Types into an entry and presses OK.
inline DialogScript::Action Typing(const char* entry, const std::string& text)
{
    return [entry, text](Gtk::Dialog& dialog) {
        FindWidget<Gtk::Entry>(dialog, entry)->set_text(text);
        dialog.response(Gtk::RESPONSE_OK);
    };
}

inline DialogScript::Action Pressing(guint key)
{
    return [key](Gtk::Dialog& dialog) { PressKey(dialog, key); };
}

inline bool CanPressOk(Gtk::Dialog& dialog)
{
    return dialog.get_widget_for_response(Gtk::RESPONSE_OK)->get_sensitive();
}

} // namespace tarvo
