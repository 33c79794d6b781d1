// SPDX-License-Identifier: MIT
#include "desktop/editable_title.h"

#include "desktop/link_label.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

namespace kelvarin
{

editable_title::editable_title(QWidget* parent) : QStackedWidget(parent), label_(new link_label), field_(new QLineEdit)
{
    label_->setObjectName(QStringLiteral("lblTitle"));
    field_->setObjectName(QStringLiteral("txtTitle"));
    field_->setAccessibleName(tr("Title"));
    field_->setPlaceholderText(tr("Title of the problem"));
    label_->setCursor(Qt::IBeamCursor);
    label_->installEventFilter(this);
    field_->installEventFilter(this);
    addWidget(label_);
    addWidget(field_);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(field_, &QLineEdit::editingFinished, this, &editable_title::end_edit);
}

void editable_title::show_title(const QString& title, const QString& placeholder)
{
    title_ = title;
    label_->show_text(title.isEmpty() ? placeholder : title, {});
}

void editable_title::begin_edit()
{
    if (!editable_ || currentWidget() == field_) return;
    focus_before_ = QApplication::focusWidget();
    field_->setFont(label_->font());
    field_->setText(title_);
    setCurrentWidget(field_);
    field_->setFocus(Qt::OtherFocusReason);
    field_->selectAll();
}

void editable_title::end_edit()
{
    if (currentWidget() != field_) return;
    const QString typed = field_->text();
    show_label();
    if (typed != title_) emit title_edited(typed);
}

void editable_title::show_label()
{
    const bool has_keyboard = field_->hasFocus();
    setCurrentWidget(label_);
    if (has_keyboard && focus_before_) focus_before_->setFocus(Qt::OtherFocusReason);
}

bool editable_title::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == label_ && event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        begin_edit();
        return true;
    }
    if (watched == field_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        field_->setText(title_);
        show_label();
        return true;
    }
    return QStackedWidget::eventFilter(watched, event);
}

} // namespace kelvarin
