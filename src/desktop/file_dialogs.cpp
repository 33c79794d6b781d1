// SPDX-License-Identifier: MIT
#include "desktop/file_dialogs.h"

#include "desktop/qt_text.h"

#include <QFileDialog>
#include <QRegularExpression>

#include <algorithm>

namespace kelvarin
{

QStringList dialog_filters(const std::string& filter)
{
    const QStringList parts = to_qstring(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        // The toolkit takes the pattern from the first parentheses, so those in the description are removed.
        const QString description = parts[i].section(QLatin1String(" ("), 0, 0);
        QString pattern = parts[i + 1];
        pattern.replace(QLatin1Char(';'), QLatin1Char(' '));
        if (pattern == QLatin1String("*.*")) pattern = QStringLiteral("*");
        filters.append(QStringLiteral("%1 (%2)").arg(description, pattern.simplified()));
    }
    return filters;
}

namespace
{

/// The extension of a filter: "txt" of "Text (*.txt)"; empty for "All file (*)".
QString extension_of(const QString& dialog_filter)
{
    static const QRegularExpression pattern(QStringLiteral("\\(\\*\\.(\\w+)"));
    return pattern.match(dialog_filter).captured(1);
}

} // namespace

std::optional<chosen_file> run_file_dialog(QWidget* parent, const file_question& asked, bool saving)
{
    QFileDialog dialog(parent, asked.caption);
    const QStringList filters = dialog_filters(asked.filter);
    dialog.setNameFilters(filters);
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(asked.default_extension);
    if (saving) {
        QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& selected) {
            const QString extension = extension_of(selected);
            dialog.setDefaultSuffix(extension.isEmpty() ? asked.default_extension : extension);
        });
    }
    if (!asked.proposed.empty()) {
        dialog.setDirectory(path_text(asked.proposed.parent_path()));
        dialog.selectFile(path_text(asked.proposed.filename()));
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    const qsizetype chosen = filters.indexOf(dialog.selectedNameFilter());
    return chosen_file{to_path(dialog.selectedFiles().first()), static_cast<int>(std::max<qsizetype>(chosen, 0)) + 1};
}

} // namespace kelvarin
