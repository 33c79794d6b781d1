// SPDX-License-Identifier: MIT
#include "leq/window/leq_grid_model.h"

#include "desktop/qt_text.h"
#include "leq/leq_block.h"
#include "leq/leq_text.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <utility>

namespace kelvarin
{

namespace
{

leq_cell cell_of(const QModelIndex& index)
{
    return {index.row(), index.column()};
}

} // namespace

leq_grid_model::leq_grid_model(QObject* parent) : QAbstractTableModel(parent) {}

bool leq_grid_model::show_content(const leq_content& content)
{
    if (content.count() != content_.count()) {
        beginResetModel();
        content_ = content;
        endResetModel();
        return true;
    }
    const leq_content before = std::exchange(content_, content);
    report_changes(before);
    return false;
}

void leq_grid_model::report_changes(const leq_content& before)
{
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            if (before.cell(row, column) == content_.cell(row, column)) continue;
            const int first = column;
            while (column + 1 < columnCount() && before.cell(row, column + 1) != content_.cell(row, column + 1))
                ++column;
            emit dataChanged(index(row, first), index(row, column));
        }
    }
    if (before.names != content_.names) emit headerDataChanged(Qt::Horizontal, 0, beta_column());
}

bool leq_grid_model::is_faulty(leq_cell cell) const
{
    const std::string& text = content_.cell(cell.row, cell.column);
    return !trimmed(text).empty() && !is_numeric(text);
}

QString leq_grid_model::fault_of(leq_cell cell) const
{
    if (!is_faulty(cell)) return {};
    const std::string& text = content_.cell(cell.row, cell.column);
    const QString sentence = tr("'%1' is not a number.").arg(to_qstring(text));
    const auto with_point = decimal_comma_block({{text}});
    return with_point ? sentence + tr(" Decimals stand behind a point: %1").arg(to_qstring(with_point->front().front()))
                      : sentence;
}

QString leq_grid_model::place_name(leq_cell cell) const
{
    return tr("row %1, column %2").arg(QString::number(cell.row + 1), to_qstring(column_head(content_, cell.column)));
}

int leq_grid_model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : content_.count();
}

int leq_grid_model::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : content_.count() + 1;
}

QString leq_grid_model::spoken_text(leq_cell cell) const
{
    const std::string& text = content_.cell(cell.row, cell.column);
    return tr("%1: %2").arg(place_name(cell), text.empty() ? tr("empty") : to_qstring(text));
}

QVariant leq_grid_model::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const leq_cell cell = cell_of(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return to_qstring(content_.cell(cell.row, cell.column));
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::AccessibleTextRole:
        return spoken_text(cell);
    case Qt::AccessibleDescriptionRole:
        return fault_of(cell);
    case Qt::ToolTipRole:
        return tip_text(fault_of(cell));
    default:
        return {};
    }
}

QVariant leq_grid_model::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool names = orientation == Qt::Horizontal;
    switch (role) {
    case Qt::DisplayRole:
        return names ? to_qstring(column_head(content_, section)) : QString::number(section + 1);
    case Qt::TextAlignmentRole:
        return QVariant((names ? Qt::AlignRight : Qt::AlignHCenter) | Qt::AlignVCenter);
    case Qt::ToolTipRole:
        return names && section != beta_column() ? tr("Double click to rename the variable") : QString();
    default:
        return {};
    }
}

Qt::ItemFlags leq_grid_model::flags(const QModelIndex& index) const
{
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
}

bool leq_grid_model::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid()) return false;
    const leq_cell cell = cell_of(index);
    const QString text = value.toString();
    if (text != to_qstring(content_.cell(cell.row, cell.column))) emit cell_edited(cell, text);
    return true;
}

} // namespace kelvarin
