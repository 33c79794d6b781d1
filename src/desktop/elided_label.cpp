// SPDX-License-Identifier: MIT
#include "desktop/elided_label.h"

#include "desktop/qt_text.h"

#include <QEvent>

namespace kelvarin
{

elided_label::elided_label(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    // A long text must not widen the window.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    setProperty("elides", true);
}

void elided_label::show_text(const QString& text)
{
    if (text == whole_text_) return;
    whole_text_ = text;
    setAccessibleName(text);
    show_what_fits();
}

QSize elided_label::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void elided_label::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    show_what_fits();
}

void elided_label::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) show_what_fits();
}

void elided_label::show_what_fits()
{
    const QString fitting = fontMetrics().elidedText(whole_text_, Qt::ElideRight, contentsRect().width());
    if (fitting != text()) setText(fitting);
    setToolTip(fitting == whole_text_ ? QString() : tip_text(whole_text_));
}

} // namespace kelvarin
