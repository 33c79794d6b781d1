// SPDX-License-Identifier: MIT
#include "leq/window/leq_grid_model.h"

#include "desktop/qt_text.h"
#include "leq/leq_text.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/document/cell_block.h"

#include <utility>

namespace kelvarin
{

void leq_grid_model::show_content(const leq_content& content)
{
    if (content.count() != content_.count()) {
        beginResetModel();
        content_ = content;
        endResetModel();
        return;
    }
    const leq_content before = std::exchange(content_, content);
    report_changes([&](int row, int column) { return before.cell(row, column) != content_.cell(row, column); });
    if (before.names != content_.names) emit headerDataChanged(Qt::Horizontal, 0, content_.count());
}

QString leq_grid_model::cell_text(int row, int column) const
{
    return to_qstring(content_.cell(row, column));
}

QString leq_grid_model::column_head(int column) const
{
    return to_qstring(kelvarin::column_head(content_, column));
}

QString leq_grid_model::column_tip(int column) const
{
    return is_set_off(column) ? QString() : tr("Double click to rename the variable");
}

bool leq_grid_model::is_faulty(int row, int column) const
{
    const std::string& text = content_.cell(row, column);
    return !trimmed(text).empty() && !is_numeric(text);
}

QString leq_grid_model::fault_of(int row, int column) const
{
    if (!is_faulty(row, column)) return {};
    const std::string& text = content_.cell(row, column);
    const QString sentence = tr("'%1' is not a number.").arg(to_qstring(text));
    const auto with_point = decimal_comma_block({{text}});
    return with_point ? sentence + tr(" Decimals stand behind a point: %1").arg(to_qstring(with_point->front().front()))
                      : sentence;
}

int leq_grid_model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : content_.count();
}

int leq_grid_model::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : content_.count() + 1;
}

} // namespace kelvarin
