// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QString>

namespace kelvarin
{

/// The cells of a grid as they are shown. A cell that was typed in is reported and not changed: the derived model,
/// which holds the cells, takes new ones from the document alone. Rows and columns count from 0.
class cell_grid_model : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    virtual QString cell_text(int row, int column) const = 0;
    virtual QString column_head(int column) const = 0;
    virtual QString row_head(int row) const { return QString::number(row + 1); }
    virtual QString column_tip(int) const { return {}; }
    /// Neither empty nor what the column is made for.
    virtual bool is_faulty(int, int) const { return false; }
    /// What is wrong with a faulty cell, in a sentence; empty for every other.
    virtual QString fault_of(int, int) const { return {}; }
    virtual bool is_editable(int, int) const { return true; }
    /// Whether the column is set off from the others by a tint.
    virtual bool is_set_off(int) const { return false; }

    /// "row 2, column x3".
    QString position_name(int row, int column) const;

    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    void cell_edited(int row, int column, const QString& text);

protected:
    /// Reports the changed cells of each row in as few ranges as there are.
    template <class Changed> void report_changes(Changed changed)
    {
        for (int row = 0; row < rowCount(); ++row) {
            for (int column = 0; column < columnCount(); ++column) {
                if (!changed(row, column)) continue;
                const int first = column;
                while (column + 1 < columnCount() && changed(row, column + 1))
                    ++column;
                emit dataChanged(index(row, first), index(row, column));
            }
        }
    }
};

} // namespace kelvarin
