// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"
#include "nle/equations/set_analysis.h"

#include <QStringList>
#include <QTableView>

#include <optional>
#include <span>
#include <string_view>
#include <vector>

class QMenu;

namespace kelvarin
{

class equation_grid_model;

/// The texts in a grid of equations that depend on the kind of problem.
struct equation_grid_words
{
    /// Heads of the columns of equations, values and comments; a column of values with an empty head is hidden.
    QStringList heads;
    /// The form of the implicit rows.
    row_form form;
    /// The captions of the menu items that add a row: an implicit one, and an explicit one.
    QString new_implicit;
    QString new_explicit;
};

/// The table of equations of a problem window: number, equation, value (an initial guess, for instance), comment. It
/// shows rows and reports gestures, which the window carries out. Rows count from 1.
///
/// Double click or Enter asks for editing; Delete asks for the removal of the selected rows, Alt+Up and Alt+Down for
/// moving them; the context menu offers the same. The current row is always one of the selected ones. Comments are
/// edited in place: by a double click or Enter on them, or by F2. Empty rows may follow the equations; gestures ignore
/// them.
class equation_grid : public QTableView
{
    Q_OBJECT

public:
    explicit equation_grid(const equation_grid_words& words, QWidget* parent = nullptr);

    /// Shows the rows, then `empty_rows` empty ones. The current row keeps its number if there is still such a row; the
    /// first becomes current if there was none. Places of `marks` get wavy underlines.
    void show_rows(std::span<const equation_row> rows, const equation_set& marks, int empty_rows = 0);
    /// Sets the text in the middle of the grid while there is no equation.
    void set_hint(const QString& hint);
    void show_comments(bool shown);
    /// The head of the column of values.
    QString value_head() const;

    /// The current row, which may be an empty one; 0 if there is none.
    int current_row() const;
    void set_current_row(int row);
    /// The selected rows in ascending order, without empty ones.
    std::vector<int> selected_rows() const;
    /// Selects these rows and makes the first of them current.
    void select_rows(const std::vector<int>& rows);
    /// Selects a row and marks a part of its text until the rows change or another row becomes current.
    void mark_place(const text_place& place);
    /// Selects rows and marks their names likewise.
    void mark_rows(const std::vector<int>& rows);
    /// The row that defines the name; 0 if there is none.
    int row_defining(std::string_view name) const;

    /// False disables all changes, during a run.
    void set_editable(bool editable);

signals:
    void current_row_changed();
    /// `start`: the field in which typing is to begin.
    void edit_asked(int row, kelvarin::entry_field start);
    /// About the selected rows.
    void remove_asked();
    void move_asked(bool up);
    void new_implicit_asked();
    void new_explicit_asked();
    void comment_edited(int row, const QString& comment);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void build_heads();
    void refresh_hint();
    /// The selected rows if they may be changed; else none.
    std::vector<int> rows_to_change() const;
    /// The row that a gesture applies to; 0 if nothing may be changed or the row is empty.
    int row_to_change() const;
    bool take_key(const QKeyEvent& event);
    void make_current(const QModelIndex& index);
    void edit_comment();
    QMenu* build_context_menu();
    void share_width();
    void column_dragged(int column, int width_before, int width);

    equation_grid_words words_;
    equation_grid_model* model_;
    QString hint_;
    bool editable_ = true;
    bool showing_rows_ = false;
    bool sharing_width_ = false;
    /// 0 if there is no column of values.
    int value_width_ = 0;
    /// Share of the equations in the common width of equations and comments.
    double equation_share_ = 0.64;
};

} // namespace kelvarin
