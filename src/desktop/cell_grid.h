// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/cell_block.h"

#include <QPoint>
#include <QTableView>

#include <optional>

namespace kelvarin
{

class cell_grid_model;

/// A table of cells with one editor. It shows the cells of its model and reports gestures, which the window carries
/// out.
///
/// The keys are those of spreadsheets: typing and F2 edit, Tab goes to the next cell and at the end of a row to the
/// next row, Enter goes down to the column where Tab was first pressed, Delete clears. Tab in the last cell leaves the
/// table. The selection is always one block.
class cell_grid : public QTableView
{
    Q_OBJECT

public:
    /// Takes ownership of the model.
    explicit cell_grid(cell_grid_model* model, QWidget* parent = nullptr);

    void set_current_cell(int row, int column);
    cell_range selected_block() const;
    void select_block(const cell_range& block);
    /// Makes columns as wide as their heads and cells need, within bounds. Wider columns keep their width unless
    /// `anew`.
    virtual void fit_columns(bool anew = false);
    /// What is wrong with the current cell; empty if nothing is.
    QString fault_of_current_cell() const;

    /// Ends the editing of a cell and keeps the text typed so far.
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
    /// Goes to the next or previous cell. Returns false if there is none.
    bool go_along(bool forward);
    void go_to_next_row(bool upwards);
    /// Keeps the current cell at its position when all cells are replaced, if there is still such a cell.
    void watch_resets();

    cell_grid_model& model_;
    QPoint before_reset_;
    /// The column in which Tab was first pressed.
    std::optional<int> row_begun_at_;
};

} // namespace kelvarin
