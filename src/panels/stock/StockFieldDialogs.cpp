#include "panels/stock/StockFieldDialogs.h"

#include "panels/stock/StockPicture.h"
#include "panels/toolkit/DialogChecks.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/Pictures.h"
#include "panels/toolkit/SpinFields.h"
#include "panels/toolkit/TextFilters.h"
#include "platform/bundle/CFBundle.h"
#include "records/Stock.h"
#include "records/StockDialogRules.h"

#include <atkmm/object.h>
#include <gtkmm/image.h>

#include <functional>

namespace tarvo {
namespace {

// A dialog with one field of text.
struct TextWindow {
    const char* description;
    const char* window;
    std::size_t limit; // characters
    bool isRequired;   // OK only with a text
};

constexpr TextWindow ColorWindow = {"CustomStockColor", "CustomStockColorSetup", LongestStockName,
                                    true};
constexpr TextWindow TypeWindow = {"CustomStockType", "CustomStockTypeSetup", LongestStockName,
                                   true};
constexpr TextWindow DescriptionWindow = {"StockDescription", "StockDescriptionSetup",
                                          LongestStockDescription, false};
constexpr TextWindow NameWindow = {"StockName", "StockNameSetup", LongestPaperName, true};

void PrepareField(Gtk::Dialog& dialog, Gtk::Entry& field, const std::string& text,
                  std::size_t limit, bool isRequired)
{
    field.set_text(text);
    if (isRequired) {
        RequireText(dialog, field, limit);
    } else {
        LimitInputLength(&field, static_cast<std::int32_t>(limit));
    }
    field.grab_focus();
}

OSStatus RunTextWindow(const CFBundle& bundle, Gtk::Window* parent, const TextWindow& row,
                       const std::string& former,
                       const std::function<void(const std::string&)>& enter, std::int32_t& result)
{
    result = DialogCancel;
    auto nib = Nib::Open(bundle, row.description);
    if (!nib) {
        return StatusNoWindow;
    }
    const auto dialog = nib->window<Gtk::Dialog>(row.window);
    const auto field = nib->widget<Gtk::Entry>("TPDE1");
    if (!nib->isComplete()) {
        return StatusNoWindow;
    }
    nib.reset();
    PrepareField(*dialog.get(), *field.get(), former, row.limit, row.isRequired);
    std::string text;
    AcceptOnlyIf(*dialog.get(), [&] {
        text = PlainText(field->get_text().raw());
        return !row.isRequired || !text.empty();
    });
    result = RunModalWindow(bundle, *dialog.get(), parent);
    if (result == DialogOk) {
        enter(text);
    }
    return StatusOk;
}

} // namespace

OSStatus RunModalCustomStockColorSetup(const CFBundle& bundle, Gtk::Window* parent, Stock& stock,
                                       std::int32_t& result)
{
    const auto enter = [&stock](const std::string& text) { EnterCustomColor(stock, text); };
    return RunTextWindow(bundle, parent, ColorWindow, stock.customColor(), enter, result);
}

OSStatus RunModalCustomStockTypeSetup(const CFBundle& bundle, Gtk::Window* parent, Stock& stock,
                                      std::int32_t& result)
{
    const auto enter = [&stock](const std::string& text) { EnterCustomType(stock, text); };
    return RunTextWindow(bundle, parent, TypeWindow, stock.customType(), enter, result);
}

OSStatus RunModalOrderedStockSetup(const CFBundle& bundle, Gtk::Window* parent, Stock& stock,
                                   std::int32_t& result)
{
    result = DialogCancel;
    auto nib = Nib::Open(bundle, "OrderedStock");
    if (!nib) {
        return StatusNoWindow;
    }
    const auto dialog = nib->window<Gtk::Dialog>("OrderedStockSetup");
    const auto name = nib->widget<Gtk::Entry>("TPDE1");
    const auto modulus = nib->widget<Gtk::SpinButton>("TPDE2");
    if (!nib->isComplete()) {
        return StatusNoWindow;
    }
    nib.reset();
    PrepareField(*dialog.get(), *name.get(), stock.customType(), LongestStockName, true);
    ShowSpin(*modulus.get(), OrderedModulusRange, stock.modulus());
    Stock edited(stock);
    AcceptOnlyIf(*dialog.get(), [&] {
        return EnterOrderedStock(edited, name->get_text().raw(), EnteredInSpin(*modulus.get()));
    });
    result = RunModalWindow(bundle, *dialog.get(), parent);
    if (result == DialogOk) {
        stock.takeAsItIs(edited);
    }
    return StatusOk;
}

OSStatus RunModalPreCutTabStockSetup(const CFBundle& bundle, Gtk::Window* parent, Stock& stock,
                                     std::int32_t& result)
{
    result = DialogCancel;
    auto nib = Nib::Open(bundle, "PreCutTabStockSetup");
    if (!nib) {
        return StatusNoWindow;
    }
    const auto dialog = nib->window<Gtk::Dialog>("PreCutTabStockSetup");
    const auto modulus = nib->widget<Gtk::SpinButton>("TPDE1");
    const auto picture = nib->widget<Gtk::DrawingArea>("TPDE4");
    const auto kind = nib->widget<Gtk::Image>("TPDE5");
    if (!nib->isComplete()) {
        return StatusNoWindow;
    }
    nib.reset();
    ShowPicture(bundle, *kind.get(), "TabStock-White.gif");
    ShowSpin(*modulus.get(), TabModulusRange, stock.modulus());
    modulus->grab_focus();
    Gtk::SpinButton* const spin = modulus.get();
    ShowDrawing(*picture.get(), [spin](const auto& context, const PictureBox& box) {
        DrawTabs(context, box, spin->get_value_as_int());
    });
    picture->get_accessible()->set_name(bundle.localizedString("StockModulus"));
    spin->signal_value_changed().connect(Guarded([area = picture.get()] { area->queue_draw(); }));
    std::int32_t tabs = 0;
    AcceptOnlyIf(*dialog.get(), [&tabs, spin] {
        tabs = EnteredInSpin(*spin);
        return true;
    });
    result = RunModalWindow(bundle, *dialog.get(), parent);
    if (result == DialogOk) {
        EnterPrecutTabs(stock, tabs);
    }
    return StatusOk;
}

OSStatus RunModalStockDescriptionSetup(const CFBundle& bundle, Gtk::Window* parent, Stock& stock,
                                       std::int32_t& result)
{
    const auto enter = [&stock](const std::string& text) { EnterDescription(stock, text); };
    return RunTextWindow(bundle, parent, DescriptionWindow, stock.description(), enter, result);
}

OSStatus RunModalStockNameSetup(const CFBundle& bundle, Gtk::Window* parent, std::string& name,
                                std::int32_t& result)
{
    const auto enter = [&name](const std::string& text) { name = text; };
    return RunTextWindow(bundle, parent, NameWindow, name, enter, result);
}

} // namespace tarvo
