// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/cell_grid.h"

namespace kelvarin
{

/// The grid of a data table. Keys that make text are reported one by one and change nothing here. Ctrl with an arrow
/// goes to the edge of a block of filled cells, End to the last filled cell of the row.
class table_grid : public cell_grid
{
    Q_OBJECT

public:
    using cell_grid::cell_grid;

    /// All columns have one width: measuring the cells of a large table takes too long.
    void fit_columns(bool anew = false) override;

signals:
    /// A key for the current cell; '\b' is Backspace.
    void key_typed(char key);
    /// Enter, before the current cell moves down.
    void enter_typed();
    void escape_typed();
    /// The current cell is to be edited in the editing line.
    void line_asked();
    void selection_changed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    bool is_filled(int row, int column) const;
    QModelIndex block_edge(int row_step, int column_step) const;
    QModelIndex last_filled_in_row() const;
};

} // namespace kelvarin
