// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/window/equation_grid_model.h"

#include <QStyledItemDelegate>

namespace kelvarin
{

/// Paints the cells of an equation grid with tints and marks, shows tool tips for names, and makes the editors of
/// cells. What is typed into the cells of equations and values is not stored by the model: the grid is told when typing
/// ends.
class equation_delegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    equation_delegate(const equation_grid_model& model, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    bool eventFilter(QObject* editor, QEvent* event) override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// The variables that completion offers in the cells of equations.
    void set_names(const QStringList& names) { names_ = names; }
    /// Ends an edit, unless that has happened already.
    void close(QWidget* editor);

signals:
    /// Enter or Tab was pressed in the editor of an equation or value.
    void entered(QWidget* editor) const;
    /// F5 was pressed in an editor while nothing could be solved yet.
    void solve_asked(QWidget* editor) const;
    /// Such an editor loses the keyboard or its cell.
    void left(QWidget* editor) const;
    /// Esc was pressed in an editor, which will close without being taken over.
    void given_up(QWidget* editor) const;
    /// Typing pauses in the editor of an equation.
    void paused(QWidget* editor) const;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    QString tip_at(int x, const QStyleOptionViewItem& item, const QModelIndex& index) const;

    const equation_grid_model& model_;
    QStringList names_;
};

} // namespace kelvarin
