// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"
#include "nle/equations/set_analysis.h"

#include <QStringList>
#include <QTableView>

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class QMenu;

namespace kelvarin
{

class equation_delegate;
class equation_grid_model;

/// What was typed into a cell of an equation or a value.
struct typed_cell
{
    int row = 0;
    bool is_value = false;
    std::string text;
    /// The equation of this row that was typed before its value and is not stored yet.
    std::optional<std::string> equation;
    /// Whether Enter or Tab ended the edit; else the keyboard went elsewhere, and no box should appear.
    bool by_key = false;
};

/// What was typed into a cell when Esc gave it up.
struct given_up_text
{
    int row = 0;
    /// As in equation_grid_words::heads.
    int column = 0;
    QString text;
};

enum class cell_answer
{
    taken,
    refused,
    /// The equation is right and its value is still to be typed.
    value_missing
};

/// Stores what was typed.
using cell_taker = std::function<cell_answer(const typed_cell&)>;

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
/// edited in place, by a double click or Enter on them. F2 edits the cell it stands on, and typing into an
/// empty row begins an equation in the first of them; what is typed goes to the cell_taker. An implicit equation is
/// given to it again with its value when that was typed. Esc ends an edit and leaves the cell as it was. Empty rows may
/// follow the equations; all other gestures ignore them.
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

    /// Whoever stores what is typed into cells of equations and values.
    void set_cell_taker(cell_taker taker) { taker_ = std::move(taker); }
    /// The variables that completion offers.
    void set_names(const QStringList& names);
    /// Opens the first empty row for typing, with the beginning of an equation.
    void begin_row(const QString& beginning = {});
    /// Opens the cell of a text that was given up, to type on.
    void type_on(const given_up_text& text);
    /// Opens the value of a row for typing.
    void edit_value(int row);
    /// Selects a part of the text that is being typed, and gives it the keyboard.
    void select_while_typing(const text_place& place);
    /// Underlines it.
    void mark_while_typing(const std::optional<text_place>& place);

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
    /// An equation or value was stored after Enter or Tab; the edit has ended. `added`: in a row that was empty.
    void cell_entered(int row, bool added);
    /// Typing pauses in the cell of an equation.
    void typing_paused(int row, const QString& text);
    /// F5 was pressed while typing, and what was typed is taken over.
    void solve_asked();
    /// Esc ended an edit that had changed the cell's text, which is as it was.
    void typing_given_up(const kelvarin::given_up_text& text);

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
    void edit_cell(const QModelIndex& index);
    bool begins_row(const QKeyEvent& event) const;
    QWidget* open_editor() const;
    void take_cell(QWidget* editor, bool by_key);
    void end_edit(QWidget* editor);
    void give_up(QWidget* editor);
    void replace_typing(const QString& text);
    QMenu* build_context_menu();
    void share_width();
    void column_dragged(int column, int width_before, int width);

    equation_grid_words words_;
    equation_grid_model* model_;
    equation_delegate* delegate_;
    cell_taker taker_;
    /// What an opened editor holds at first; leaving it unchanged is no edit.
    QString proposed_;
    bool taking_ = false;
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
