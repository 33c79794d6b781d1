// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/cell_grid_model.h"

#include <QStyledItemDelegate>

namespace kelvarin
{

/// Paints the cells of a grid, with a wavy line below faulty ones, and makes their editors.
class cell_delegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    cell_delegate(const cell_grid_model& model, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool eventFilter(QObject* editor, QEvent* event) override;

signals:
    /// A key ended typing and moves to a cell of another row.
    void row_left(bool upwards);

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    void paint_fault(QPainter& painter, const QStyleOptionViewItem& item) const;

    const cell_grid_model& model_;
};

} // namespace kelvarin
