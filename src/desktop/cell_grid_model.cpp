// SPDX-License-Identifier: MIT
#include "desktop/cell_grid_model.h"

#include "desktop/qt_text.h"

namespace kelvarin
{

QString cell_grid_model::position_name(int row, int column) const
{
    return tr("row %1, column %2").arg(row_head(row), column_head(column));
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
        return names ? column_head(section) : row_head(section);
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
