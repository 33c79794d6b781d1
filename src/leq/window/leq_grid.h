// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_block.h"
#include "leq/leq_content.h"

#include <QTableView>

#include <optional>

namespace kelvarin
{

class leq_grid_model;

/// The table of coefficients and right sides. It shows cells and reports gestures; what they do is the window's
/// matter.
///
/// The keys are those of spreadsheets: typing and F2 edit, Tab goes to the next cell and at the end of a row to
/// the next row, Enter goes down to where the row was begun, Delete clears. Tab behind the last cell leaves the
/// table. Selected is always one block.
class leq_grid : public QTableView
{
    Q_OBJECT

public:
    explicit leq_grid(QWidget* parent = nullptr);

    /// The current cell stays where it is as far as there is one.
    void show_content(const leq_content& content);
    leq_cell current_cell() const;
    void set_current_cell(leq_cell cell);
    cell_range selected_block() const;
    void select_block(cell_range range);
    /// What is wrong with the current cell; empty where nothing is.
    QString fault_of_current_cell() const;

    /// Ends the editing of a cell by keeping what was typed.
    void take_over_typing();

signals:
    void cell_edited(kelvarin::leq_cell cell, const QString& text);
    void current_cell_changed();
    void clear_asked();
    void rename_asked(int column);
    void menu_asked(const QPoint& global_position);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void build_heads();
    void fit_columns(bool anew);
    bool take_key(const QKeyEvent& event);
    /// False where there is no cell any more.
    bool go_along(bool forward);
    void go_to_next_row(bool upwards);

    leq_grid_model* model_;
    /// The column in which Tab was first pressed.
    std::optional<int> row_begun_at_;
};

} // namespace kelvarin
