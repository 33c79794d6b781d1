// SPDX-License-Identifier: MIT
#include "desktop/cell_grid_model.h"

#include "desktop/qt_text.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/document/cell_block.h"

#include <utility>

namespace kelvarin
{

void cell_grid_model::show_cells(const cell_columns& cells, const QStringList& heads)
{
    if (cells.rows() != cells_.rows() || cells.columns() != cells_.columns()) {
        beginResetModel();
        cells_ = cells;
        heads_ = heads;
        endResetModel();
        return;
    }
    const cell_columns before = std::exchange(cells_, cells);
    report_changes(before);
    if (heads == heads_) return;
    heads_ = heads;
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void cell_grid_model::report_changes(const cell_columns& before)
{
    for (int column = 0; column < columnCount(); ++column) {
        if (cells_.shares_column(column, before)) continue;
        const auto changed = [&](int row) { return cells_.cell(row, column) != before.cell(row, column); };
        for (int row = 0; row < rowCount(); ++row) {
            if (!changed(row)) continue;
            const int first = row;
            while (row + 1 < rowCount() && changed(row + 1))
                ++row;
            emit dataChanged(index(first, column), index(row, column));
        }
    }
}

QString cell_grid_model::cell_text(int row, int column) const
{
    return to_qstring(cells_.cell(row, column));
}

bool cell_grid_model::is_faulty(int row, int column) const
{
    const std::string& text = cells_.cell(row, column);
    return !trimmed(text).empty() && !is_numeric(text);
}

QString cell_grid_model::fault_of(int row, int column) const
{
    if (!is_faulty(row, column)) return {};
    const QString sentence = tr("'%1' is not a number.").arg(cell_text(row, column));
    const auto with_point = decimal_comma_block({{cells_.cell(row, column)}});
    return with_point ? sentence + tr(" Decimals stand behind a point: %1").arg(to_qstring(with_point->front().front()))
                      : sentence;
}

QString cell_grid_model::position_name(int row, int column) const
{
    return tr("row %1, column %2").arg(row_head(row), heads_.value(column));
}

QVariant cell_grid_model::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const int row = index.row();
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return cell_text(row, column);
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::AccessibleTextRole: {
        const QString text = cell_text(row, column);
        return tr("%1: %2").arg(position_name(row, column), text.isEmpty() ? tr("empty") : text);
    }
    case Qt::AccessibleDescriptionRole:
        return fault_of(row, column);
    case Qt::ToolTipRole:
        return tip_text(fault_of(row, column));
    default:
        return {};
    }
}

QVariant cell_grid_model::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool names = orientation == Qt::Horizontal;
    switch (role) {
    case Qt::DisplayRole:
        return names ? heads_.value(section) : row_head(section);
    case Qt::TextAlignmentRole:
        return QVariant((names ? Qt::AlignRight : Qt::AlignHCenter) | Qt::AlignVCenter);
    case Qt::ToolTipRole:
        return names ? column_tip(section) : QString();
    default:
        return {};
    }
}

Qt::ItemFlags cell_grid_model::flags(const QModelIndex& index) const
{
    if (!index.isValid()) return Qt::NoItemFlags;
    Qt::ItemFlags cell = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (is_editable(index.row(), index.column())) cell |= Qt::ItemIsEditable;
    return cell;
}

bool cell_grid_model::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid()) return false;
    const QString text = value.toString();
    if (text != cell_text(index.row(), index.column())) emit cell_edited(index.row(), index.column(), text);
    return true;
}

} // namespace kelvarin
