#include "panels/stock/StockListModel.h"

#include "platform/text/Utf8.h"
#include "stocklibrary/StockColumnTexts.h"

#include <gtk/gtk.h>
#include <gtkmm/treepath.h>

#include <algorithm>
#include <utility>

namespace tarvo {
namespace {

// Iterators of this kind of model alone.
constexpr int Stamp = 0x5A17;

// The toolkit measures all of a text, of which a printer may send 32 KB; no column shows more.
constexpr std::size_t MostCellCharacters = 255;

// A list goes through all rows before its first paint, which takes the binding several milliseconds
// for 10,000; so the toolkit gets a function that it can call at once.
gboolean NextRow(GtkTreeModel* /*model*/, GtkTreeIter* row)
{
    const gsize next = GPOINTER_TO_SIZE(row->user_data) + 1;
    const bool isRow = next < GPOINTER_TO_SIZE(row->user_data2);
    row->user_data = GSIZE_TO_POINTER(next);
    row->stamp = isRow ? Stamp : 0;
    return isRow ? TRUE : FALSE;
}

bool IsInUse(const StockLibrary& paper)
{
    return paper.status() == static_cast<std::int32_t>(StockEntryStatus::InUse);
}

} // namespace

Glib::RefPtr<StockListModel> StockListModel::Create(const CFBundle& bundle,
                                                    std::shared_ptr<const CFDictionary> papers)
{
    return Glib::RefPtr<StockListModel>(new StockListModel(bundle, std::move(papers)));
}

StockListModel::StockListModel(const CFBundle& bundle, std::shared_ptr<const CFDictionary> papers)
    : Glib::ObjectBase(typeid(StockListModel)), bundle_(bundle), papers_(std::move(papers))
{
    rows_.reserve(papers_ == nullptr ? 0 : papers_->size());
    for (std::size_t index = 0; papers_ != nullptr && index < papers_->size(); ++index) {
        const CFDictionary::Entry& entry = *(papers_->begin() + static_cast<std::ptrdiff_t>(index));
        if (entry.value.get<CFDictionary>() != nullptr) {
            rows_.push_back(&entry);
        }
    }
    auto* functions = GTK_TREE_MODEL_GET_IFACE(Gtk::TreeModel::gobj()); // of this class alone
    functions->iter_next = NextRow;
    functions->ref_node = nullptr; // rows come and go with the model, whoever shows them
    functions->unref_node = nullptr;
}

const std::string& StockListModel::uuid(std::size_t row) const
{
    return rows_[row]->key;
}

StockLibrary StockListModel::paper(std::size_t row) const
{
    return StockLibrary(*rows_[row]->value.get<CFDictionary>());
}

std::optional<std::size_t> StockListModel::rowOf(const std::string& uuid) const
{
    const auto found =
        std::find_if(rows_.begin(), rows_.end(),
                     [&uuid](const CFDictionary::Entry* entry) { return entry->key == uuid; });
    return found == rows_.end() ? std::nullopt
                                : std::optional(static_cast<std::size_t>(found - rows_.begin()));
}

Gtk::TreeModelFlags StockListModel::get_flags_vfunc() const
{
    return Gtk::TREE_MODEL_LIST_ONLY | Gtk::TREE_MODEL_ITERS_PERSIST;
}

GType StockListModel::get_column_type_vfunc(int column) const
{
    switch (column) {
    case CanBeChosenColumn:
        return G_TYPE_BOOLEAN;
    case WeightColumn:
        return G_TYPE_INT;
    default:
        return G_TYPE_STRING;
    }
}

void StockListModel::get_value_vfunc(const iterator& row, int column, Glib::ValueBase& value) const
{
    const StockLibrary& paper = shown(RowOf(row));
    value.init(get_column_type_vfunc(column));
    if (column == CanBeChosenColumn) {
        g_value_set_boolean(value.gobj(), !paper.isInvalid());
    } else if (column == WeightColumn) {
        g_value_set_int(value.gobj(), IsInUse(paper) ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    } else {
        const std::string text = StockColumnText(bundle_, paper, static_cast<std::size_t>(column));
        const std::string beginning(Utf8FirstCharacters(text, MostCellCharacters));
        g_value_set_string(value.gobj(), beginning.c_str());
    }
}

bool StockListModel::iter_next_vfunc(const iterator& row, iterator& next) const
{
    return setRow(RowOf(row) + 1, next);
}

bool StockListModel::get_iter_vfunc(const Path& path, iterator& row) const
{
    return path.size() == 1 && path[0] >= 0 && setRow(static_cast<std::size_t>(path[0]), row);
}

Gtk::TreeModel::Path StockListModel::get_path_vfunc(const iterator& row) const
{
    Path path;
    path.push_back(static_cast<int>(RowOf(row)));
    return path;
}

bool StockListModel::iter_nth_root_child_vfunc(int number, iterator& row) const
{
    return number >= 0 && setRow(static_cast<std::size_t>(number), row);
}

bool StockListModel::iter_children_vfunc(const iterator& /*parent*/, iterator& /*row*/) const
{
    return false;
}

bool StockListModel::iter_has_child_vfunc(const iterator& /*row*/) const
{
    return false;
}

int StockListModel::iter_n_children_vfunc(const iterator& /*row*/) const
{
    return 0;
}

bool StockListModel::iter_nth_child_vfunc(const iterator& /*parent*/, int /*number*/,
                                          iterator& /*row*/) const
{
    return false;
}

bool StockListModel::iter_parent_vfunc(const iterator& /*child*/, iterator& /*row*/) const
{
    return false;
}

bool StockListModel::setRow(std::size_t number, iterator& row) const
{
    if (number >= size()) {
        row.set_stamp(0);
        return false;
    }
    row.set_stamp(Stamp);
    row.gobj()->user_data = GSIZE_TO_POINTER(number);
    row.gobj()->user_data2 = GSIZE_TO_POINTER(size());
    return true;
}

std::size_t StockListModel::RowOf(const iterator& row)
{
    return GPOINTER_TO_SIZE(row.gobj()->user_data);
}

const StockLibrary& StockListModel::shown(std::size_t row) const
{
    if (!shown_ || shown_->first != row) {
        shown_.emplace(row, paper(row));
    }
    return shown_->second;
}

} // namespace tarvo
