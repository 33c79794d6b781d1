// SPDX-License-Identifier: MIT
#include "shell/window/setting_text.h"

#include "desktop/qt_text.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <QCoreApplication>

namespace kelvarin
{

namespace
{

QString tr(const char* text)
{
    return QCoreApplication::translate("frmInitials", text);
}

const QString& separator()
{
    static const QString text = QStringLiteral(" = ");
    return text;
}

} // namespace

QString leaf_text(const setting_row& row, std::string_view value)
{
    QString text = to_qstring(row.caption);
    if (!text.contains(separator())) text += separator();
    return text + to_qstring(value);
}

QString leaf_caption(const QString& leaf)
{
    return leaf.section(QLatin1Char('='), 0, 0);
}

QString leaf_value(const QString& leaf)
{
    QString value = leaf.section(QLatin1Char('='), 1);
    // The blank belongs to the separator; otherwise a stored text would grow by a blank each time.
    if (value.startsWith(QLatin1Char(' '))) value.remove(0, 1);
    return value;
}

QStringList folder_names(const setting_row& row)
{
    return to_qstring(row.folder).split(QStringLiteral(" / "));
}

QString setting_hint(const setting_row& row)
{
    switch (row.type) {
    case setting_type::boolean:
        return tr("True or False");
    case setting_type::string:
        return tr("Any text");
    case setting_type::integer:
    case setting_type::floating:
        break;
    }
    const QString bounds =
        tr("%1 to %2").arg(to_qstring(plain_text(row.minimum_value)), to_qstring(plain_text(row.maximum_value)));
    return row.type == setting_type::integer ? tr("A whole number, %1").arg(bounds) : bounds;
}

QString default_hint(const setting_row& row)
{
    const QString value = trimmed(row.default_value).empty() ? tr("(blank)") : to_qstring(row.default_value);
    return tr("Default: %1").arg(value);
}

QString leaf_tip(const setting_row& row)
{
    const QString bounds = QStringLiteral("%1. %2").arg(setting_hint(row), default_hint(row));
    return row.effect.empty() ? bounds : tip_text(to_qstring(row.effect) + QLatin1Char('\n') + bounds);
}

QString reading_note(const setting_row& row, std::string_view text)
{
    const bool is_number = row.type == setting_type::floating || row.type == setting_type::integer;
    const std::optional<double> read = prefix_value(text);
    if (!is_number || is_numeric(text) || !read) return {};
    return tr("read as %1").arg(to_qstring(plain_text(*read)));
}

} // namespace kelvarin
