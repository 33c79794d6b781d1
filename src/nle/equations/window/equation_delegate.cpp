// SPDX-License-Identifier: MIT
#include "nle/equations/window/equation_delegate.h"

#include "desktop/expression_edit.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

#include <algorithm>

namespace kelvarin
{

namespace
{

const QStyle& style_of(const QStyleOptionViewItem& item)
{
    return item.widget ? *item.widget->style() : *QApplication::style();
}

/// The rectangle in which the style draws a cell's text.
QRect text_area(const QStyleOptionViewItem& item)
{
    const int margin = style_of(item).pixelMetric(QStyle::PM_FocusFrameHMargin, &item, item.widget) + 1;
    return item.rect.adjusted(margin, 0, -margin, 0);
}

QString elided(const QStyleOptionViewItem& item)
{
    return item.fontMetrics.elidedText(item.text, Qt::ElideRight, text_area(item).width());
}

/// Lays out one line with its spans; those beyond the end of an elided text are cut.
void lay_out(QTextLayout& layout, const std::vector<text_span>& spans, const QPalette& palette)
{
    const auto end = static_cast<int>(layout.text().size());
    QList<QTextLayout::FormatRange> formats;
    for (const text_span& span : spans) {
        const int length = std::min(span.length, end - span.start);
        if (length > 0) formats.append({span.start, length, span_format(span.meaning, palette)});
    }
    layout.setFormats(formats);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
}

} // namespace

equation_delegate::equation_delegate(const equation_grid_model& model, QObject* parent)
    : QStyledItemDelegate(parent), model_(model)
{
}

void equation_delegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // A selection colour that keeps the tints readable: a light accent, with the text in its own colours.
    QPalette& palette = option->palette;
    palette.setColor(QPalette::Highlight, mixed(palette.color(QPalette::Base), accent(palette), 0.25));
    palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
    if (index.column() == equation_grid_model::value_column && option->text == to_qstring(no_guess)) {
        const QColor quiet = mixed(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.45);
        palette.setColor(QPalette::Text, quiet);
        palette.setColor(QPalette::HighlightedText, quiet);
    }
}

void equation_delegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const bool is_missing = index.column() == equation_grid_model::value_column && model_.is_value_missing(index.row());
    if (index.column() != equation_grid_model::equation_column && !is_missing) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    QTextLayout layout(elided(item), item.font);
    if (is_missing)
        lay_out(layout, {{0, static_cast<int>(item.text.size()), text_meaning::undefined}}, item.palette);
    else
        lay_out(layout, model_.spans(index.row()), item.palette);

    item.text.clear();
    style_of(item).drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

    const QRect area = text_area(item);
    const double height = layout.boundingRect().height();
    const bool enabled = item.state & QStyle::State_Enabled;
    painter->save();
    painter->setClipRect(area);
    painter->setPen(item.palette.color(enabled ? QPalette::Normal : QPalette::Disabled, QPalette::Text));
    layout.draw(painter, QPointF(area.left(), area.top() + (area.height() - height) / 2));
    painter->restore();
}

QWidget* equation_delegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const QString number = QString::number(index.row() + 1);
    if (index.column() == equation_grid_model::equation_column) {
        auto* field = new expression_edit(parent);
        field->setObjectName(QStringLiteral("txtCellEquation"));
        field->setAccessibleName(tr("Equation %1").arg(number));
        field->set_one_line();
        field->set_names(names_);
        connect(field, &expression_edit::done_asked, this, [this, field] { emit entered(field); });
        connect(field, &expression_edit::paused, this, [this, field] { emit paused(field); });
        return field;
    }
    const bool is_value = index.column() == equation_grid_model::value_column;
    auto* field = new QLineEdit(parent);
    field->setObjectName(is_value ? QStringLiteral("txtCellValue") : QStringLiteral("txtCellComment"));
    field->setAccessibleName((is_value ? tr("Value of equation %1") : tr("Comment of equation %1")).arg(number));
    field->setFrame(false);
    return field;
}

void equation_delegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                             const QModelIndex& index) const
{
    QStyledItemDelegate::updateEditorGeometry(editor, option, index);
    auto* field = qobject_cast<expression_edit*>(editor);
    if (!field) return;
    field->setGeometry(option.rect);
    // The margin puts the line of text in the middle of the cell.
    field->document()->setDocumentMargin(
        std::max(0.0, (option.rect.height() - QFontMetricsF(field->font()).lineSpacing()) / 2.0));
}

void equation_delegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    if (index.column() == equation_grid_model::comment_column)
        QStyledItemDelegate::setModelData(editor, model, index);
    else
        emit left(editor);
}

void equation_delegate::close(QWidget* editor)
{
    // The view has no record of an editor that it has closed and complains about another attempt.
    if (editor->isVisible()) emit closeEditor(editor);
}

bool equation_delegate::eventFilter(QObject* editor, QEvent* event)
{
    auto* field = static_cast<QWidget*>(editor);
    const bool key = event->type() == QEvent::KeyPress;
    if (key && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) emit given_up(field);
    if (field->objectName() == QLatin1String("txtCellComment")) return QStyledItemDelegate::eventFilter(editor, event);
    if (key) {
        const int code = static_cast<QKeyEvent*>(event)->key();
        const bool enter = code == Qt::Key_Return || code == Qt::Key_Enter;
        const bool tab = code == Qt::Key_Tab || code == Qt::Key_Backtab;
        // The field of an equation knows itself what Enter means while it offers names.
        if (tab || (enter && qobject_cast<QLineEdit*>(field))) {
            emit entered(field);
            return true;
        }
        if (code == Qt::Key_F5) {
            emit solve_asked(field);
            return true;
        }
    } else if (event->type() == QEvent::FocusOut) {
        // A list of names, a menu or a box does not end the edit.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        const bool stays =
            reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || reason == Qt::MenuBarFocusReason;
        if (!stays && field->isVisible()) {
            emit left(field);
            close(field);
        }
        return false;
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}

QString equation_delegate::tip_at(int x, const QStyleOptionViewItem& item, const QModelIndex& index) const
{
    const QString shown = elided(item);
    if (index.column() == equation_grid_model::value_column && model_.is_value_missing(index.row()))
        return index.data(Qt::AccessibleDescriptionRole).toString();
    if (index.column() == equation_grid_model::equation_column) {
        QTextLayout layout(shown, item.font);
        lay_out(layout, {}, item.palette);
        const QTextLine line = layout.lineAt(0);
        const int within = x - text_area(item).left();
        if (within >= 0 && within < line.naturalTextWidth()) {
            const int letter = line.xToCursor(within, QTextLine::CursorOnCharacter);
            if (const QString tip = model_.explanation(index.row(), letter); !tip.isEmpty()) return tip;
        }
    }
    return shown == item.text ? QString() : item.text;
}

bool equation_delegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                  const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    QToolTip::showText(event->globalPos(), tip_text(tip_at(event->pos().x(), item, index)), view->viewport());
    return true;
}

} // namespace kelvarin
