#pragma once

#include <gtkmm/builder.h>
#include <gtkmm/widget.h>

#include <optional>
#include <string>

namespace tarvo {

class CFBundle;

/// A dialog description of the bundle, Resources/<name>.ui, while widgets are taken from it. The
/// texts in it are keys of the bundle's. Drop it once they are taken: it keeps them alive.
class Nib {
public:
    /// @return nullopt when the description is absent or cannot be read
    static std::optional<Nib> Open(const CFBundle& bundle, const std::string& name);

    /// A top-level widget with its texts in the user's language and names for a screen reader.
    /// @return null when there is none of that name and type
    template <typename Widget>
    Glib::RefPtr<Widget> window(const char* name)
    {
        auto window = widget<Widget>(name);
        if (window) {
            prepare(*window.get());
        }
        return window;
    }

    /// @param name  such as "Tshl611"
    /// @return null when there is none of that name and type
    template <typename Widget>
    Glib::RefPtr<Widget> widget(const char* name)
    {
        auto found = Glib::RefPtr<Widget>::cast_dynamic(builder_->get_object(name));
        isComplete_ = isComplete_ && found;
        return found;
    }

    /// Whether a widget was taken from a description as a window.
    static bool IsOfDescription(const Gtk::Widget& widget);

    /// Whether all that was asked for has been found.
    bool isComplete() const { return isComplete_; }

private:
    Nib(const CFBundle& bundle, Glib::RefPtr<Gtk::Builder> builder);
    void prepare(Gtk::Widget& window) const;

    const CFBundle* bundle_;
    Glib::RefPtr<Gtk::Builder> builder_;
    bool isComplete_ = true;
};

/// Moves a widget into a container, in place of whatever it is in.
void MoveInto(Gtk::Container& container, const Glib::RefPtr<Gtk::Widget>& widget);
/// Takes a widget out of whatever it is in.
void RemoveFromParent(const Glib::RefPtr<Gtk::Widget>& widget);

} // namespace tarvo
