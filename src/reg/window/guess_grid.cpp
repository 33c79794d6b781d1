// SPDX-License-Identifier: MIT
#include "reg/window/guess_grid.h"

#include "desktop/look.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QStyledItemDelegate>

namespace kelvarin
{

namespace
{

constexpr int guess_column = 1;

/// Edits a number; other characters can't be typed.
class number_delegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        auto* field = new QLineEdit(parent);
        field->setObjectName(QStringLiteral("guess_editor"));
        field->setFrame(false);
        static const QRegularExpression number(QStringLiteral("-?[0-9]*\\.?[0-9]*([eE][-+]?[0-9]*)?"));
        field->setValidator(new QRegularExpressionValidator(number, field));
        return field;
    }

    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override
    {
        QString text = static_cast<const QLineEdit*>(editor)->text();
        if (text.endsWith(QLatin1Char('e'), Qt::CaseInsensitive)) text.chop(1);
        model->setData(index, text, Qt::EditRole);
    }
};

} // namespace

guess_grid::guess_grid(QWidget* parent) : QTableView(parent)
{
    setItemDelegate(new number_delegate(this));
    setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(line_unit(*this) * 3 / 2);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
}

void guess_grid::take_over_typing()
{
    if (state() != EditingState) return;
    if (auto* const field = findChild<QLineEdit*>(QStringLiteral("guess_editor"))) {
        commitData(field);
        closeEditor(field, QAbstractItemDelegate::NoHint);
    }
}

void guess_grid::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete && currentIndex().column() == guess_column) {
        model()->setData(currentIndex(), QString(), Qt::EditRole);
        return;
    }
    QTableView::keyPressEvent(event);
}

void guess_grid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    QTableView::closeEditor(editor, hint);
    if (hint != QAbstractItemDelegate::SubmitModelCache) return;
    const QModelIndex below = currentIndex().siblingAtRow(currentIndex().row() + 1);
    if (below.isValid()) setCurrentIndex(below);
}

void guess_grid::focusInEvent(QFocusEvent* event)
{
    // Typing belongs to the guesses, wherever the names were clicked.
    if (model() && model()->rowCount() > 0 && currentIndex().column() != guess_column)
        setCurrentIndex(model()->index(std::max(currentIndex().row(), 0), guess_column));
    QTableView::focusInEvent(event);
}

} // namespace kelvarin
