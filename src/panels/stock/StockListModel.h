#pragma once

#include "platform/cf/CFPropertyList.h"
#include "stocklibrary/StockLibrary.h"
#include "stocklibrary/StockLibraryView.h"

#include <glibmm/object.h>
#include <gtkmm/treemodel.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvo {

class CFBundle;

/// The papers of a library as rows of a list. It never changes: a changed library is another model.
/// A row is made into text when it is shown, so that the number of papers hardly counts.
// The interface comes first: the toolkit must know it when the class is made.
class StockListModel : public Gtk::TreeModel, public Glib::Object {
public:
    // Columns behind those of StockColumns, which are texts.
    static constexpr int CanBeChosenColumn = StockColumns.size(); // boolean
    static constexpr int WeightColumn = CanBeChosenColumn + 1;    // integer; bold for one in use
    static constexpr int ColumnCount = WeightColumn + 1;

    /// @param bundle  outlives this
    /// @param papers  uuid to entry, keys of StockLibraryKeys.h; what is no entry has no row
    static Glib::RefPtr<StockListModel> Create(const CFBundle& bundle,
                                               std::shared_ptr<const CFDictionary> papers);

    std::size_t size() const { return rows_.size(); }
    const std::string& uuid(std::size_t row) const;
    StockLibrary paper(std::size_t row) const;
    /// @return nullopt when no row has the uuid
    std::optional<std::size_t> rowOf(const std::string& uuid) const;

protected:
    StockListModel(const CFBundle& bundle, std::shared_ptr<const CFDictionary> papers);

    Gtk::TreeModelFlags get_flags_vfunc() const override;
    int get_n_columns_vfunc() const override { return ColumnCount; }
    GType get_column_type_vfunc(int column) const override;
    void get_value_vfunc(const iterator& row, int column, Glib::ValueBase& value) const override;
    bool iter_next_vfunc(const iterator& row, iterator& next) const override;
    bool get_iter_vfunc(const Path& path, iterator& row) const override;
    Path get_path_vfunc(const iterator& row) const override;
    bool iter_nth_root_child_vfunc(int number, iterator& row) const override;
    int iter_n_root_children_vfunc() const override { return static_cast<int>(size()); }

    // Rows have no children.
    bool iter_children_vfunc(const iterator& parent, iterator& row) const override;
    bool iter_has_child_vfunc(const iterator& row) const override;
    int iter_n_children_vfunc(const iterator& row) const override;
    bool iter_nth_child_vfunc(const iterator& parent, int number, iterator& row) const override;
    bool iter_parent_vfunc(const iterator& child, iterator& row) const override;

private:
    bool setRow(std::size_t number, iterator& row) const;
    static std::size_t RowOf(const iterator& row);
    const StockLibrary& shown(std::size_t row) const;

    const CFBundle& bundle_;
    std::shared_ptr<const CFDictionary> papers_;
    std::vector<const CFDictionary::Entry*> rows_; // of papers_
    // The row that was asked for last: a row's columns are asked for one after the other.
    mutable std::optional<std::pair<std::size_t, StockLibrary>> shown_;
};

} // namespace tarvo
