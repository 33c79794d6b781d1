// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/cell_columns.h"

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>

namespace kelvarin
{

/// The cells of a grid: numbers below heads. Text typed into a cell is reported but not stored: only show_cells changes
/// cells. Rows and columns count from 0.
class cell_grid_model : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Replaces cells and heads and signals what differs; columns that both contents share are not compared.
    void show_cells(const cell_columns& cells, const QStringList& heads);

    /// Whether the cell is neither empty nor a number.
    bool is_faulty(int row, int column) const;
    /// What is wrong with a faulty cell, in a sentence; empty for any other cell.
    QString fault_of(int row, int column) const;
    /// "row 2, column x3".
    QString position_name(int row, int column) const;

    virtual QString row_head(int row) const { return QString::number(row + 1); }
    virtual QString column_tip(int) const { return {}; }
    virtual bool is_editable(int, int) const { return true; }
    /// Whether the column is set apart from the others by a tint.
    virtual bool is_set_off(int) const { return false; }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : cells_.rows(); }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : cells_.columns(); }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    void cell_edited(int row, int column, const QString& text);

private:
    void report_changes(const cell_columns& before);
    QString cell_text(int row, int column) const;

    cell_columns cells_;
    QStringList heads_;
};

} // namespace kelvarin
