// SPDX-License-Identifier: MIT
#include "desktop/cell_grid.h"

#include "desktop/cell_delegate.h"
#include "desktop/cell_grid_model.h"
#include "desktop/look.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QRect>

#include <algorithm>

namespace kelvarin
{

cell_grid::cell_grid(cell_grid_model* model, QWidget* parent) : QTableView(parent), model_(*model)
{
    model_.setParent(this);
    setFont(fixed_font(*this));
    setModel(&model_);
    auto* delegate = new cell_delegate(model_, this);
    setItemDelegate(delegate);
    setSelectionMode(ContiguousSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    build_heads();
    set_current_cell(0, 0);
    watch_resets();
    connect(&model_, &cell_grid_model::cell_edited, this, &cell_grid::cell_edited);
    connect(delegate, &cell_delegate::row_left, this, &cell_grid::go_to_next_row);
    connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, &cell_grid::head_chosen);
}

void cell_grid::watch_resets()
{
    connect(&model_, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        before_reset_ = {currentIndex().column(), currentIndex().row()};
    });
    connect(&model_, &QAbstractItemModel::modelReset, this, [this] {
        set_current_cell(std::clamp(before_reset_.y(), 0, std::max(model_.rowCount() - 1, 0)),
                         std::clamp(before_reset_.x(), 0, std::max(model_.columnCount() - 1, 0)));
        fit_columns(true);
    });
}

void cell_grid::build_heads()
{
    const int unit = line_unit(*this);
    // A fixed row height needs no measuring, and space for two digits keeps the columns in place.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(unit);
    verticalHeader()->setDefaultSectionSize(unit + unit / 2);
    verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00")) + unit);
    horizontalHeader()->setMinimumSectionSize(3 * unit);
    fit_columns(true);
}

void cell_grid::fit_columns(bool anew)
{
    constexpr qsizetype least_letters = 10;
    constexpr qsizetype most_letters = 24;
    const int letter = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    for (int column = 0; column < model_.columnCount(); ++column) {
        qsizetype letters = model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().size();
        for (int row = 0; row < model_.rowCount(); ++row)
            letters = std::max(letters, model_.index(row, column).data().toString().size());
        const int width =
            static_cast<int>(std::clamp(letters, least_letters, most_letters)) * letter + line_unit(*this);
        // Columns never shrink automatically: nothing moves under the pointer, and columns dragged wider stay so.
        if (anew || columnWidth(column) < width) setColumnWidth(column, width);
    }
}

void cell_grid::set_current_cell(int row, int column)
{
    setCurrentIndex(model_.index(row, column));
}

cell_range cell_grid::selected_block() const
{
    const QItemSelection selected = selectionModel()->selection();
    if (selected.isEmpty()) return {currentIndex().row(), currentIndex().column()};
    // The selection is one block but may consist of several ranges.
    QRect block;
    for (const QItemSelectionRange& part : selected)
        block |= QRect(QPoint(part.left(), part.top()), QPoint(part.right(), part.bottom()));
    return {block.top(), block.left(), block.height(), block.width()};
}

void cell_grid::select_block(const cell_range& block)
{
    const QModelIndex first = model_.index(block.row, block.column);
    const QModelIndex last = model_.index(block.row + block.rows - 1, block.column + block.columns - 1);
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
}

QString cell_grid::fault_of_current_cell() const
{
    const QModelIndex cell = currentIndex();
    return cell.isValid() ? model_.fault_of(cell.row(), cell.column()) : QString();
}

void cell_grid::take_over_typing()
{
    QWidget* editor = state() == EditingState ? indexWidget(currentIndex()) : nullptr;
    if (!editor) return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void cell_grid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    row_begun_at_.reset();
    emit current_cell_changed();
}

bool cell_grid::go_along(bool forward)
{
    const int columns = model_.columnCount();
    const QModelIndex cell = currentIndex();
    const int next = cell.row() * columns + cell.column() + (forward ? 1 : -1);
    if (next < 0 || next >= model_.rowCount() * columns) return false;
    const int begun_at = row_begun_at_.value_or(cell.column());
    set_current_cell(next / columns, next % columns);
    row_begun_at_ = next / columns == cell.row() ? std::min(begun_at, next % columns) : 0;
    return true;
}

void cell_grid::go_to_next_row(bool upwards)
{
    const QModelIndex cell = currentIndex();
    const int row = cell.row() + (upwards ? -1 : 1);
    if (row < 0 || row >= model_.rowCount()) return;
    set_current_cell(row, upwards ? cell.column() : row_begun_at_.value_or(cell.column()));
}

void cell_grid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const bool forward = hint == QAbstractItemDelegate::EditNextItem;
    const bool along = forward || hint == QAbstractItemDelegate::EditPreviousItem;
    // The next cell becomes current without an editor: typing replaces its text and Delete clears it.
    QTableView::closeEditor(editor, along ? QAbstractItemDelegate::NoHint : hint);
    if (along && !go_along(forward)) focusNextPrevChild(forward);
}

bool cell_grid::take_key(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if ((modifiers & ~Qt::ShiftModifier) != Qt::NoModifier) return false;
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return go_along(event.key() == Qt::Key_Tab);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        go_to_next_row(modifiers == Qt::ShiftModifier);
        return true;
    case Qt::Key_Delete:
        if (modifiers != Qt::NoModifier) return false;
        emit clear_asked();
        return true;
    default:
        return false;
    }
}

void cell_grid::keyPressEvent(QKeyEvent* event)
{
    if (state() != EditingState && take_key(*event)) {
        event->accept();
        return;
    }
    // Tab in the last cell goes to the widget after the table. The window copies; the view itself would copy one cell
    // only.
    if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab || event == QKeySequence::Copy)
        event->ignore();
    else
        QTableView::keyPressEvent(event);
}

void cell_grid::contextMenuEvent(QContextMenuEvent* event)
{
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard && currentIndex().isValid())
        place = viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft());
    emit menu_asked(place);
}

} // namespace kelvarin
