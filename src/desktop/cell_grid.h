// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/cell_block.h"

#include <QPoint>
#include <QTableView>

#include <optional>

namespace kelvarin
{

class cell_grid_model;

/// A table of cells with one field to type in. It shows the cells of its model and reports gestures; what they do is
/// the window's matter.
///
/// The keys are those of spreadsheets: typing and F2 edit, Tab goes to the next cell and at the end of a row to
/// the next row, Enter goes down to where the row was begun, Delete clears. Tab behind the last cell leaves the
/// table. Selected is always one block.
class cell_grid : public QTableView
{
    Q_OBJECT

public:
    /// Takes the model over.
    explicit cell_grid(cell_grid_model* model, QWidget* parent = nullptr);

    void set_current_cell(int row, int column);
    cell_range selected_block() const;
    void select_block(const cell_range& block);
    /// Columns are as wide as their heads and cells need, within bounds; what was dragged wider stays so, unless
    /// `anew`.
    void fit_columns(bool anew = false);
    /// What is wrong with the current cell; empty where nothing is.
    QString fault_of_current_cell() const;

    /// Ends the editing of a cell by keeping what was typed.
    void take_over_typing();

signals:
    void cell_edited(int row, int column, const QString& text);
    void current_cell_changed();
    void clear_asked();
    /// A head was double-clicked.
    void head_chosen(int column);
    void menu_asked(const QPoint& global_position);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void build_heads();
    bool take_key(const QKeyEvent& event);
    /// False where there is no cell any more.
    bool go_along(bool forward);
    void go_to_next_row(bool upwards);
    /// The current cell stays where it is as far as there is one when all cells are replaced.
    void watch_resets();

    cell_grid_model& model_;
    QPoint before_reset_;
    /// The column in which Tab was first pressed.
    std::optional<int> row_begun_at_;
};

} // namespace kelvarin
