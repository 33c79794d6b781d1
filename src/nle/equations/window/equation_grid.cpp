// SPDX-License-Identifier: MIT
#include "nle/equations/window/equation_grid.h"

#include "desktop/expression_edit.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "nle/equations/window/equation_delegate.h"
#include "nle/equations/window/equation_grid_model.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>

#include <algorithm>
#include <cstdlib>

namespace kelvarin
{

namespace
{

using grid = equation_grid_model;

/// Keys of the numeric pad act like the others.
Qt::KeyboardModifiers modifiers_of(const QKeyEvent& event)
{
    return event.modifiers() & ~Qt::KeypadModifier;
}

QString editor_text(const QWidget& editor)
{
    if (const auto* equation = qobject_cast<const expression_edit*>(&editor)) return to_qstring(equation->expression());
    return static_cast<const QLineEdit&>(editor).text();
}

} // namespace

equation_grid::equation_grid(const equation_grid_words& words, QWidget* parent)
    : QTableView(parent), words_(words), model_(new equation_grid_model(words.heads, words.form, this)),
      delegate_(new equation_delegate(*model_, this))
{
    setAccessibleName(tr("Equations"));
    QFont head_font = font();
    setFont(fixed_font(*this));
    setModel(model_);
    setItemDelegate(delegate_);
    connect(delegate_, &equation_delegate::entered, this, [this](QWidget* editor) { take_cell(editor, true); });
    connect(delegate_, &equation_delegate::solve_asked, this, [this](QWidget* editor) {
        take_cell(editor, true);
        if (!open_editor()) emit solve_asked();
    });
    connect(delegate_, &equation_delegate::left, this, [this](QWidget* editor) { take_cell(editor, false); });
    connect(delegate_, &equation_delegate::given_up, this, &equation_grid::give_up);
    connect(delegate_, &equation_delegate::paused, this, [this](QWidget* editor) {
        const QString text = editor_text(*editor);
        if (text != proposed_) emit typing_paused(indexAt(editor->geometry().center()).row() + 1, text);
    });
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);
    // Set one by one: attributes that the font does not set itself come from the grid.
    head_font.setFamilies({head_font.family()});
    head_font.setPointSizeF(head_font.pointSizeF());
    horizontalHeader()->setFont(head_font);
    build_heads();
    connect(model_, &equation_grid_model::comment_edited, this, &equation_grid::comment_edited);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &equation_grid::column_dragged);
}

void equation_grid::build_heads()
{
    const int unit = line_unit(*this);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setMinimumSectionSize(4 * unit);
    const int letters_of_a_value = 14;
    const bool has_values = !words_.heads.value(grid::value_column).isEmpty();
    setColumnHidden(grid::value_column, !has_values);
    if (has_values)
        value_width_ = std::max(letters_of_a_value * fontMetrics().horizontalAdvance(QLatin1Char('0')),
                                horizontalHeader()->sectionSizeHint(grid::value_column));

    verticalHeader()->setHighlightSections(false);
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    // A fixed row height needs no measuring, and space for three digits keeps the columns in place.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(unit);
    verticalHeader()->setDefaultSectionSize(unit + unit / 2);
    verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("000")) + unit);
}

void equation_grid::show_rows(std::span<const equation_row> rows, const equation_set& marks, int empty_rows)
{
    const int row_before = current_row();
    const bool had_rows = model_->filled_rows() > 0;
    showing_rows_ = true;
    if (model_->show_rows(rows, marks, empty_rows)) model_->set_marks({});
    set_current_row(std::clamp(row_before, std::min(1, model_->rowCount()), model_->rowCount()));
    showing_rows_ = false;
    // Removed rows lose their selection.
    if (!selectionModel()->hasSelection() && currentIndex().isValid()) make_current(currentIndex());
    if (current_row() != row_before) emit current_row_changed();
    if ((model_->filled_rows() > 0) != had_rows) refresh_hint();
}

void equation_grid::set_hint(const QString& hint)
{
    hint_ = hint;
    refresh_hint();
}

void equation_grid::refresh_hint()
{
    setAccessibleDescription(model_->filled_rows() > 0 ? QString() : hint_);
    viewport()->update();
}

void equation_grid::show_comments(bool shown)
{
    setColumnHidden(grid::comment_column, !shown);
    share_width();
}

QString equation_grid::value_head() const
{
    return words_.heads.value(grid::value_column);
}

int equation_grid::current_row() const
{
    return currentIndex().row() + 1;
}

void equation_grid::set_current_row(int row)
{
    if (row < 1 || row > model_->rowCount() || row == current_row()) return;
    make_current(model_->index(row - 1, std::max(currentIndex().column(), 0)));
}

void equation_grid::make_current(const QModelIndex& index)
{
    // The view's own selection command depends on the modifier keys held down: Ctrl of a shortcut that changes rows
    // would leave the selection where it was.
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

std::vector<int> equation_grid::selected_rows() const
{
    std::vector<int> rows;
    const QModelIndexList selected = selectionModel()->selectedRows();
    for (const QModelIndex& index : selected)
        if (model_->is_filled(index.row())) rows.push_back(index.row() + 1);
    std::ranges::sort(rows);
    return rows;
}

void equation_grid::select_rows(const std::vector<int>& rows)
{
    QItemSelection selection;
    for (const int row : rows) {
        if (!model_->is_filled(row - 1)) continue;
        selection.select(model_->index(row - 1, 0), model_->index(row - 1, grid::column_count - 1));
    }
    if (selection.isEmpty()) return;
    set_current_row(selection.first().top() + 1);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    scrollTo(currentIndex());
}

void equation_grid::mark_place(const text_place& place)
{
    if (!model_->is_filled(place.row - 1)) return;
    select_rows({place.row});
    model_->set_marks({place});
}

void equation_grid::mark_rows(const std::vector<int>& rows)
{
    select_rows(rows);
    model_->set_marks(model_->name_places(rows));
}

int equation_grid::row_defining(std::string_view name) const
{
    return model_->row_defining(name);
}

void equation_grid::set_editable(bool editable)
{
    // Take over what is being typed before the cell is locked.
    QWidget* editor = open_editor();
    if (editor && !editable) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
    editable_ = editable;
    model_->set_editable(editable);
}

void equation_grid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (showing_rows_ || current.row() == previous.row()) return;
    model_->set_marks({});
    emit current_row_changed();
}

void equation_grid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTableView::selectionChanged(selected, deselected);
    if (showing_rows_ || !currentIndex().isValid() || selectionModel()->isSelected(currentIndex())) return;
    // A row that a click with Ctrl took out of the selection was made current by it.
    const QModelIndexList rows = selectionModel()->selectedRows(std::max(currentIndex().column(), 0));
    if (rows.isEmpty()) return make_current(currentIndex());
    const auto distance = [this](const QModelIndex& index) { return std::abs(index.row() - currentIndex().row()); };
    const auto nearest = std::ranges::min_element(rows, {}, distance);
    selectionModel()->setCurrentIndex(*nearest, QItemSelectionModel::NoUpdate);
}

QItemSelectionModel::SelectionFlags equation_grid::selectionCommand(const QModelIndex& index, const QEvent* event) const
{
    const QItemSelectionModel::SelectionFlags command = QTableView::selectionCommand(index, event);
    // Ctrl with an arrow would move the current row away from the selected ones.
    const bool key = event && event->type() == QEvent::KeyPress;
    if (key && command == QItemSelectionModel::NoUpdate)
        return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
    return command;
}

void equation_grid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    // Tab ends an edit as Enter does; it doesn't move to the next cell.
    const bool wanders = hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem;
    QTableView::closeEditor(editor, wanders ? QAbstractItemDelegate::NoHint : hint);
    // An equation that waits for its value is given up if the value is.
    if (!taking_ && editor->objectName() == QLatin1String("txtCellValue")) model_->set_draft(std::nullopt);
}

std::vector<int> equation_grid::rows_to_change() const
{
    return editable_ ? selected_rows() : std::vector<int>();
}

int equation_grid::row_to_change() const
{
    return editable_ && model_->is_filled(currentIndex().row()) ? current_row() : 0;
}

void equation_grid::edit_cell(const QModelIndex& index)
{
    if (!editable_ || !index.isValid() || isColumnHidden(index.column()) || !(index.flags() & Qt::ItemIsEditable))
        return;
    make_current(index);
    edit(index);
    QWidget* editor = open_editor();
    proposed_ = editor ? editor_text(*editor) : QString();
    if (auto* equation = qobject_cast<expression_edit*>(editor)) equation->moveCursor(QTextCursor::End);
}

QWidget* equation_grid::open_editor() const
{
    return state() == EditingState ? indexWidget(currentIndex()) : nullptr;
}

void equation_grid::set_names(const QStringList& names)
{
    delegate_->set_names(names);
}

void equation_grid::begin_row(const QString& beginning)
{
    edit_cell(model_->index(model_->filled_rows(), grid::equation_column));
    if (!open_editor() || beginning.isEmpty()) return;
    replace_typing(beginning);
    proposed_ = beginning;
}

void equation_grid::type_on(const given_up_text& text)
{
    setFocus(Qt::OtherFocusReason);
    edit_cell(model_->index(text.row - 1, text.column));
    replace_typing(text.text);
}

void equation_grid::replace_typing(const QString& text)
{
    QWidget* editor = open_editor();
    if (auto* equation = qobject_cast<expression_edit*>(editor)) {
        equation->setPlainText(text);
        equation->moveCursor(QTextCursor::End);
    } else if (auto* field = qobject_cast<QLineEdit*>(editor)) {
        field->setText(text);
    }
}

void equation_grid::edit_value(int row)
{
    setFocus(Qt::OtherFocusReason);
    edit_cell(model_->index(row - 1, grid::value_column));
}

void equation_grid::select_while_typing(const text_place& place)
{
    auto* editor = qobject_cast<expression_edit*>(open_editor());
    if (!editor) return;
    editor->setFocus(Qt::OtherFocusReason);
    editor->select_place(place);
}

void equation_grid::mark_while_typing(const std::optional<text_place>& place)
{
    if (auto* editor = qobject_cast<expression_edit*>(open_editor())) editor->mark_place(place);
}

void equation_grid::take_cell(QWidget* editor, bool by_key)
{
    if (taking_ || !editor->isVisible() || !taker_) return;
    const QModelIndex index = indexAt(editor->geometry().center());
    const QString text = editor_text(*editor);
    const bool is_value = index.column() == grid::value_column;
    const bool waits = is_value && model_->draft();
    if (!index.isValid() || (text == proposed_ && !waits) ||
        (text.trimmed().isEmpty() && !model_->is_filled(index.row()))) {
        if (by_key) end_edit(editor);
        return;
    }
    typed_cell cell = {index.row() + 1, is_value, to_text(text), std::nullopt, by_key};
    if (waits) cell.equation = model_->draft()->second;
    const bool added = !model_->is_filled(index.row());
    const QPointer<QWidget> still_there = editor;
    taking_ = true;
    const cell_answer answer = taker_(cell);
    taking_ = false;
    if (!by_key || answer == cell_answer::refused) return;
    if (still_there) end_edit(editor);
    if (answer == cell_answer::value_missing) {
        model_->set_draft(std::pair(cell.row - 1, cell.text));
        edit_cell(model_->index(cell.row - 1, grid::value_column));
    } else {
        emit cell_entered(cell.row, added);
    }
}

void equation_grid::end_edit(QWidget* editor)
{
    delegate_->close(editor);
    setFocus(Qt::OtherFocusReason);
}

void equation_grid::give_up(QWidget* editor)
{
    const QModelIndex index = indexAt(editor->geometry().center());
    const QString text = editor_text(*editor);
    const bool waits = index.column() == grid::value_column && model_->draft();
    // With the value goes the equation that waits for it.
    if (waits)
        emit typing_given_up({index.row() + 1, grid::equation_column, to_qstring(model_->draft()->second)});
    else if (index.isValid() && text != proposed_ && !text.trimmed().isEmpty())
        emit typing_given_up({index.row() + 1, index.column(), text});
}

bool equation_grid::begins_row(const QKeyEvent& event) const
{
    const bool letter = !event.text().isEmpty() && event.text().front().isPrint() && event.key() != Qt::Key_Space;
    const Qt::KeyboardModifiers modifiers = modifiers_of(event) & ~Qt::ShiftModifier;
    // Some keyboards type brackets by Ctrl with Alt.
    const bool command = modifiers != Qt::NoModifier && modifiers != (Qt::ControlModifier | Qt::AltModifier);
    return letter && !command && editable_ && currentIndex().isValid() && !model_->is_filled(currentIndex().row());
}

bool equation_grid::take_key(const QKeyEvent& event)
{
    const int row = row_to_change();
    const Qt::KeyboardModifiers modifiers = modifiers_of(event);
    const bool up = event.key() == Qt::Key_Up;
    if (modifiers == Qt::AltModifier && (up || event.key() == Qt::Key_Down)) {
        if (!rows_to_change().empty()) emit move_asked(up);
        return true;
    }
    if (modifiers != Qt::NoModifier) return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (row && currentIndex().column() == grid::comment_column)
            edit_cell(currentIndex());
        else if (row)
            emit edit_asked(row, entry_field::expression);
        else
            begin_row();
        return true;
    case Qt::Key_F2:
        if (row)
            edit_cell(currentIndex());
        else
            begin_row();
        return true;
    case Qt::Key_Delete:
        if (!rows_to_change().empty()) emit remove_asked();
        return true;
    default:
        return false;
    }
}

void equation_grid::keyPressEvent(QKeyEvent* event)
{
    if (state() != EditingState && take_key(*event)) {
        event->accept();
        return;
    }
    if (state() != EditingState && begins_row(*event)) {
        begin_row();
        if (QWidget* editor = open_editor()) QApplication::sendEvent(editor, event);
        return;
    }
    // The window copies; the view itself would copy one cell only.
    if (event == QKeySequence::Copy)
        event->ignore();
    else
        QTableView::keyPressEvent(event);
}

void equation_grid::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTableView::mouseDoubleClickEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !index.isValid()) return;
    if (!row_to_change())
        begin_row();
    else if (index.column() == grid::comment_column)
        edit_cell(index);
    else
        emit edit_asked(index.row() + 1,
                        index.column() == grid::value_column ? entry_field::value : entry_field::expression);
}

QMenu* equation_grid::build_context_menu()
{
    const int row = row_to_change();
    const std::vector<int> rows = rows_to_change();
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuGrid"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [this, menu](const QString& caption, const QKeySequence& key, bool enabled, auto gesture) {
        QAction* item = menu->addAction(caption, this, gesture);
        // Displayed beside the caption; the grid handles the keys themselves.
        item->setShortcut(key);
        item->setShortcutContext(Qt::WidgetShortcut);
        item->setShortcutVisibleInContextMenu(true);
        item->setEnabled(enabled);
    };
    add(words_.new_implicit, {}, editable_, [this] { emit new_implicit_asked(); });
    add(words_.new_explicit, {}, editable_, [this] { emit new_explicit_asked(); });
    menu->addSeparator();
    add(tr("Edit"), Qt::Key_Return, row > 0, [this, row] { emit edit_asked(row, entry_field::expression); });
    add(tr("Edit in place"), Qt::Key_F2, row > 0 && (currentIndex().flags() & Qt::ItemIsEditable),
        [this] { edit_cell(currentIndex()); });
    add(tr("Edit comment"), {}, row > 0 && !isColumnHidden(grid::comment_column),
        [this, row] { edit_cell(model_->index(row - 1, grid::comment_column)); });
    add(tr("Remove"), Qt::Key_Delete, !rows.empty(), [this] { emit remove_asked(); });
    menu->addSeparator();
    add(tr("Move up"), Qt::ALT | Qt::Key_Up, !rows.empty() && rows.front() > 1, [this] { emit move_asked(true); });
    add(tr("Move down"), Qt::ALT | Qt::Key_Down, !rows.empty() && rows.back() < model_->filled_rows(),
        [this] { emit move_asked(false); });
    return menu;
}

void equation_grid::contextMenuEvent(QContextMenuEvent* event)
{
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard && currentIndex().isValid())
        place = viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft());
    build_context_menu()->popup(place);
}

void equation_grid::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (model_->filled_rows() > 0 || hint_.isEmpty()) return;
    QPainter painter(viewport());
    painter.setFont(horizontalHeader()->font());
    const int unit = line_unit(*this);
    const QRect room = viewport()->rect().adjusted(2 * unit, 2 * unit, -2 * unit, -2 * unit);
    const int flags = Qt::AlignCenter | Qt::TextWordWrap;
    const QRect area = painter.boundingRect(room, flags, hint_).adjusted(-unit, -unit / 2, unit, unit / 2);
    painter.fillRect(area, palette().base());
    painter.setPen(mixed(palette().color(QPalette::Text), palette().color(QPalette::Base), 0.4));
    painter.drawText(area, flags, hint_);
}

void equation_grid::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    share_width();
}

void equation_grid::share_width()
{
    const bool comments = !isColumnHidden(grid::comment_column);
    const int room = viewport()->width() - value_width_;
    sharing_width_ = true;
    horizontalHeader()->resizeSection(grid::equation_column,
                                      comments ? static_cast<int>(room * equation_share_) : room);
    // Without comments the column of values is the last and takes the remaining width.
    if (comments) horizontalHeader()->resizeSection(grid::value_column, value_width_);
    sharing_width_ = false;
}

void equation_grid::column_dragged(int column, int, int width)
{
    if (sharing_width_ || isColumnHidden(grid::comment_column)) return;
    const int room = viewport()->width() - value_width_;
    if (column == grid::value_column) value_width_ = width;
    if (column == grid::equation_column && room > 0)
        equation_share_ = std::clamp(static_cast<double>(width) / room, 0.1, 0.9);
}

} // namespace kelvarin
