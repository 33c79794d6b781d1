// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/window/equation_grid_model.h"

#include <QStyledItemDelegate>

namespace kelvarin
{

/// Paints the cells of an equation grid with tints and marks, and shows tool tips for names.
class equation_delegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    equation_delegate(const equation_grid_model& model, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    QString tip_at(int x, const QStyleOptionViewItem& item, const QModelIndex& index) const;

    const equation_grid_model& model_;
};

} // namespace kelvarin
