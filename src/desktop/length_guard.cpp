// SPDX-License-Identifier: MIT
#include "desktop/length_guard.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QToolTip>

#include <algorithm>

namespace kelvarin
{

namespace
{

void say_bound(QWidget& field, qsizetype longest)
{
    const QString text =
        length_guard::tr("Too long for this field, which takes %1 letters. The rest is left out.").arg(longest);
    QToolTip::showText(field.mapToGlobal(QPoint(0, field.height())), text, &field);
}

} // namespace

QString pasted_text(QWidget& field, const QMimeData& pasted, qsizetype present)
{
    QString text = pasted.text();
    const qsizetype room = std::max(longest_field_text - present, qsizetype{0});
    if (text.size() <= room) return text;
    text.truncate(room);
    // A pair stays whole.
    if (!text.isEmpty() && text.back().isHighSurrogate()) text.chop(1);
    say_bound(field, longest_field_text);
    return text;
}

length_guard::length_guard(QApplication& application) : QObject(&application)
{
    application.installEventFilter(this);
}

bool length_guard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Polish) return false;
    auto* field = qobject_cast<QLineEdit*>(watched);
    if (!field) return false;
    connect(field, &QLineEdit::inputRejected, this, [field] {
        // Other letters are refused for what they are.
        if (field->text().size() >= field->maxLength()) say_bound(*field, field->maxLength());
    });
    return false;
}

} // namespace kelvarin
