// SPDX-License-Identifier: MIT
#include "desktop/link_label.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"

#include <QEvent>
#include <QFocusEvent>

namespace kelvarin
{

link_label::link_label(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::RichText);
    // A long text must not widen the window.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    connect(this, &QLabel::linkActivated, this,
            [this](const QString& link) { emit name_clicked(names_.value(link.toInt())); });
}

std::vector<link_label::piece> link_label::pieces_of(const QString& text, const QStringList& names)
{
    std::vector<piece> pieces;
    qsizetype done = 0;
    qsizetype search_from = text.indexOf(QStringLiteral(": ")) + 1;
    for (qsizetype number = 0; number < names.size(); ++number) {
        const qsizetype found = names[number].isEmpty() ? -1 : text.indexOf(names[number], search_from);
        if (found < 0) continue;
        pieces.push_back({text.mid(done, found - done)});
        pieces.push_back({names[number], number});
        done = search_from = found + names[number].size();
    }
    pieces.push_back({text.mid(done)});
    return pieces;
}

void link_label::show_text(const QString& text, const QStringList& names)
{
    if (text == text_ && names == names_) return;
    text_ = text;
    names_ = names;
    pieces_ = pieces_of(text, names);
    setAccessibleName(text.trimmed());
    // A label without links takes no keyboard focus.
    setTextInteractionFlags(pieces_.size() > 1 ? Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard
                                               : Qt::NoTextInteraction);
    setFocusPolicy(pieces_.size() > 1 ? Qt::StrongFocus : Qt::NoFocus);
    show_what_fits();
}

QString link_label::markup_of(const piece& shown) const
{
    const QString text = shown.text.toHtmlEscaped().replace(QLatin1Char(' '), QStringLiteral("&nbsp;"));
    if (shown.link < 0) return text;
    return QStringLiteral("<a href=\"%1\" style=\"color:%2\">%3</a>")
        .arg(QString::number(shown.link), accent(palette()).name(), text);
}

void link_label::show_what_fits()
{
    const QString shown = fontMetrics().elidedText(text_, Qt::ElideRight, contentsRect().width());
    const bool whole = shown == text_;
    qsizetype letters = whole ? text_.size() : shown.size() - 1;
    QString markup;
    for (const piece& next : pieces_) {
        if (letters <= 0) break;
        markup += markup_of({next.text.left(letters), next.link});
        letters -= next.text.size();
    }
    if (!whole) markup += QChar(0x2026);
    if (markup != QLabel::text()) setText(markup);
    setToolTip(whole ? QString() : tip_text(text_.trimmed()));
}

void link_label::focusInEvent(QFocusEvent* event)
{
    QLabel::focusInEvent(event);
    // Tab goes directly to the first link.
    if (event->reason() == Qt::TabFocusReason) focusNextPrevChild(true);
    if (event->reason() == Qt::BacktabFocusReason) focusNextPrevChild(false);
}

void link_label::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    show_what_fits();
}

void link_label::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) show_what_fits();
}

} // namespace kelvarin
