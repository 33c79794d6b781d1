// SPDX-License-Identifier: MIT
#include "tools/window/link_text.h"

#include "desktop/look.h"

#include <QFocusEvent>

namespace kelvarin
{

link_text::link_text(const QString& caption, QWidget* parent) : QLabel(parent), caption_(caption)
{
    setTextFormat(Qt::RichText);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(caption_);
    show_caption();
    connect(this, &QLabel::linkActivated, this, &link_text::clicked);
}

void link_text::show_caption()
{
    setText(QStringLiteral("<a href=\"caption\" style=\"color:%1\">%2</a>")
                .arg(accent(palette()).name(), caption_.toHtmlEscaped()));
}

void link_text::focusInEvent(QFocusEvent* event)
{
    QLabel::focusInEvent(event);
    // Tab goes directly to the link.
    if (event->reason() == Qt::TabFocusReason) focusNextPrevChild(true);
    if (event->reason() == Qt::BacktabFocusReason) focusNextPrevChild(false);
}

void link_text::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) show_caption();
}

} // namespace kelvarin
