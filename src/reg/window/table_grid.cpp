// SPDX-License-Identifier: MIT
#include "reg/window/table_grid.h"

#include "desktop/look.h"
#include "reg/table/typing_rules.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

namespace kelvarin
{

void table_grid::fit_columns(bool anew)
{
    if (!anew) return;
    constexpr int letters = 12;
    horizontalHeader()->setDefaultSectionSize(letters * fontMetrics().horizontalAdvance(QLatin1Char('0')));
}

void table_grid::keyPressEvent(QKeyEvent* event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    const QString text = event->text();
    const bool is_plain = modifiers == Qt::NoModifier;
    if (is_plain && event->key() == Qt::Key_Backspace) {
        emit key_typed(backspace_key);
    } else if (is_plain && event->key() == Qt::Key_F2) {
        emit line_asked();
    } else if (is_plain && event->key() == Qt::Key_Escape) {
        emit escape_typed();
    } else if (is_plain && text.size() == 1 && text.front().isPrint()) {
        // Letters beyond ASCII are refused like any other that makes no number.
        emit key_typed(text.front().unicode() < 128 ? text.front().toLatin1() : '?');
    } else {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) emit enter_typed();
        cell_grid::keyPressEvent(event);
        return;
    }
    event->accept();
}

void table_grid::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid())
        emit line_asked();
    else
        cell_grid::mouseDoubleClickEvent(event);
}

void table_grid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    cell_grid::selectionChanged(selected, deselected);
    emit selection_changed();
}

bool table_grid::is_filled(int row, int column) const
{
    return !model()->index(row, column).data().toString().isEmpty();
}

/// The last filled cell of the block in a direction, or the first one behind the gap, or the table's edge.
QModelIndex table_grid::block_edge(int row_step, int column_step) const
{
    int row = currentIndex().row();
    int column = currentIndex().column();
    const auto can_go = [&] {
        return row + row_step >= 0 && row + row_step < model()->rowCount() && column + column_step >= 0 &&
               column + column_step < model()->columnCount();
    };
    if (!can_go()) return currentIndex();
    const bool in_block = is_filled(row, column) && is_filled(row + row_step, column + column_step);
    do {
        row += row_step;
        column += column_step;
    } while (can_go() && (in_block ? is_filled(row + row_step, column + column_step) : !is_filled(row, column)));
    return model()->index(row, column);
}

QModelIndex table_grid::last_filled_in_row() const
{
    const int row = currentIndex().row();
    int column = model()->columnCount() - 1;
    while (column > 0 && !is_filled(row, column))
        --column;
    return model()->index(row, column);
}

QModelIndex table_grid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    if (!currentIndex().isValid()) return cell_grid::moveCursor(action, modifiers);
    const bool to_edge = modifiers.testFlag(Qt::ControlModifier);
    switch (action) {
    case MoveUp:
        return to_edge ? block_edge(-1, 0) : cell_grid::moveCursor(action, modifiers);
    case MoveDown:
        return to_edge ? block_edge(1, 0) : cell_grid::moveCursor(action, modifiers);
    case MoveLeft:
        return to_edge ? block_edge(0, -1) : cell_grid::moveCursor(action, modifiers);
    case MoveRight:
        return to_edge ? block_edge(0, 1) : cell_grid::moveCursor(action, modifiers);
    case MoveEnd:
        return to_edge ? cell_grid::moveCursor(action, modifiers) : last_filled_in_row();
    default:
        return cell_grid::moveCursor(action, modifiers);
    }
}

} // namespace kelvarin
