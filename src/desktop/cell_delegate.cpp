// SPDX-License-Identifier: MIT
#include "desktop/cell_delegate.h"

#include "desktop/look.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTextLayout>

#include <optional>

namespace kelvarin
{

namespace
{

const QStyle& style_of(const QStyleOptionViewItem& item)
{
    return item.widget ? *item.widget->style() : *QApplication::style();
}

/// The direction in which a key that ends typing moves: true for up, false for down, nullopt for any other key.
std::optional<bool> goes_upwards(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Up:
        return true;
    case Qt::Key_Down:
        return false;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return key.modifiers().testFlag(Qt::ShiftModifier);
    default:
        return std::nullopt;
    }
}

} // namespace

cell_delegate::cell_delegate(const cell_grid_model& model, QObject* parent) : QStyledItemDelegate(parent), model_(model)
{
}

void cell_delegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    QPalette& palette = option->palette;
    palette.setColor(QPalette::Highlight, mixed(palette.color(QPalette::Base), accent(palette), 0.25));
    palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
    if (model_.is_set_off(index.column()))
        option->backgroundBrush = mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.06);
}

void cell_delegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (!model_.is_faulty(index.row(), index.column())) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    QStyleOptionViewItem ground = item;
    ground.text.clear();
    style_of(item).drawControl(QStyle::CE_ItemViewItem, &ground, painter, item.widget);
    paint_fault(*painter, item);
}

void cell_delegate::paint_fault(QPainter& painter, const QStyleOptionViewItem& item) const
{
    const int margin = style_of(item).pixelMetric(QStyle::PM_FocusFrameHMargin, &item, item.widget) + 1;
    const QRect area = item.rect.adjusted(margin, 0, -margin, 0);
    QTextLayout layout(item.fontMetrics.elidedText(item.text, Qt::ElideRight, area.width()), item.font);
    QTextCharFormat wave;
    wave.setForeground(fault_colour(item.palette));
    wave.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    wave.setUnderlineColor(fault_colour(item.palette));
    layout.setFormats({{0, static_cast<int>(layout.text().size()), wave}});
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    painter.save();
    painter.setClipRect(area);
    const qreal room = area.width() - line.naturalTextWidth();
    const qreal before = item.displayAlignment.testFlag(Qt::AlignLeft)      ? 0.0
                         : item.displayAlignment.testFlag(Qt::AlignHCenter) ? room / 2
                                                                            : room;
    layout.draw(&painter, QPointF(area.left() + before, area.top() + (area.height() - line.height()) / 2));
    painter.restore();
}

QWidget* cell_delegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    auto* field = new QLineEdit(parent);
    field->setObjectName(QStringLiteral("txtCell"));
    field->setAccessibleName(model_.position_name(index.row(), index.column()));
    field->setAlignment(Qt::AlignRight);
    field->setFrame(false);
    return field;
}

bool cell_delegate::eventFilter(QObject* editor, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const std::optional<bool> upwards = goes_upwards(*static_cast<QKeyEvent*>(event));
        if (upwards) {
            auto* field = static_cast<QWidget*>(editor);
            emit commitData(field);
            emit closeEditor(field);
            emit row_left(*upwards);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}

} // namespace kelvarin
