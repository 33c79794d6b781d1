// SPDX-License-Identifier: MIT
#include "app/panel_label.h"

#include <QEvent>

namespace kelvarin
{

panel_label::panel_label(QWidget* parent) : QLabel(parent)
{
    // Names of files and titles are never markup.
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    setProperty("elides", true);
}

void panel_label::show_text(const QString& text)
{
    whole_text_ = text;
    setAccessibleName(text);
    fit();
}

QSize panel_label::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(whole_text_), fontMetrics().height()};
}

QSize panel_label::minimumSizeHint() const
{
    return {0, fontMetrics().height()};
}

void panel_label::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    fit();
}

void panel_label::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) fit();
}

void panel_label::fit()
{
    const int room = contentsRect().width() - 2 * std::max(indent(), 0);
    const QString fitting = fontMetrics().elidedText(whole_text_, Qt::ElideRight, room);
    if (fitting != text()) setText(fitting);
    setToolTip(fitting == whole_text_ ? QString() : whole_text_);
}

} // namespace kelvarin
