// SPDX-License-Identifier: MIT
#include "reg/window/column_lists.h"

#include "desktop/qt_text.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace kelvarin
{

std::vector<int> listed_columns(const table_reader& table)
{
    std::vector<int> columns = table.started_columns();
    if (columns.size() > most_listed_columns) columns.resize(most_listed_columns);
    return columns;
}

void fill_column_list(QComboBox& list, const table_reader& table, const std::vector<int>& columns, int proposed)
{
    const QSignalBlocker quiet(list);
    const QString chosen = list.currentText();
    list.clear();
    for (const int column : columns)
        list.addItem(to_qstring(table.name(column)), column);
    const int kept = chosen.isEmpty() ? -1 : list.findText(chosen, Qt::MatchExactly | Qt::MatchCaseSensitive);
    list.setCurrentIndex(kept >= 0 ? kept : columns.size() < 2 ? -1 : proposed);
}

std::optional<int> chosen_column(const QComboBox& list)
{
    if (list.currentIndex() < 0) return std::nullopt;
    return list.currentData().toInt();
}

} // namespace kelvarin
