// SPDX-License-Identifier: MIT
#include "reg/window/table_grid_model.h"

#include "desktop/qt_text.h"
#include "reg/table/table_content.h"

#include <QFont>

#include <algorithm>
#include <ranges>
#include <utility>

namespace kelvarin
{

namespace
{

bool is_in(const cell_range& block, int row, int column)
{
    return row >= block.row && row < block.row + block.rows && column >= block.column &&
           column < block.column + block.columns;
}

Qt::Alignment alignment_of(cell_alignment alignment)
{
    switch (alignment) {
    case cell_alignment::centre:
        return Qt::AlignHCenter;
    case cell_alignment::right:
        return Qt::AlignRight;
    case cell_alignment::left:
        break;
    }
    return Qt::AlignLeft;
}

} // namespace

void table_grid_model::show_formulas(const std::vector<std::string>& formulas)
{
    if (formulas == formulas_) return;
    formulas_ = formulas;
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void table_grid_model::set_formula_colour(const QColor& colour)
{
    formula_colour_ = colour;
    if (columnCount() > 0) emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void table_grid_model::align(const cell_range& block, cell_alignment alignment)
{
    add_format({block, alignment, {}, {}});
}

void table_grid_model::set_back_colour(const cell_range& block, const QColor& colour)
{
    add_format({block, std::nullopt, colour, {}});
}

void table_grid_model::set_fore_colour(const cell_range& block, const QColor& colour)
{
    add_format({block, std::nullopt, {}, colour});
}

void table_grid_model::clear_formats()
{
    formats_.clear();
    if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void table_grid_model::add_format(format added)
{
    const cell_range& block = added.block;
    emit dataChanged(index(block.row, block.column),
                     index(block.row + block.rows - 1, block.column + block.columns - 1));
    formats_.push_back(std::move(added));
}

template <class Test>
const table_grid_model::format* table_grid_model::topmost(const QModelIndex& index, Test test) const
{
    for (const format& each : formats_ | std::views::reverse)
        if (test(each) && is_in(each.block, index.row(), index.column())) return &each;
    return nullptr;
}

bool table_grid_model::has_formula(int column) const
{
    const auto at = static_cast<std::size_t>(column);
    return at < formulas_.size() && !formulas_[at].empty();
}

QString table_grid_model::row_head(int row) const
{
    return to_qstring(row_label(row));
}

QString table_grid_model::column_tip(int column) const
{
    if (!has_formula(column)) return tr("Double click to rename the column");
    return tip_text(QStringLiteral("= ") + to_qstring(formulas_[static_cast<std::size_t>(column)]));
}

QVariant table_grid_model::data(const QModelIndex& index, int role) const
{
    switch (role) {
    case Qt::TextAlignmentRole: {
        const format* const found = topmost(index, [](const format& each) { return each.alignment.has_value(); });
        return QVariant(alignment_of(found ? *found->alignment : cell_alignment::left) | Qt::AlignVCenter);
    }
    case Qt::BackgroundRole: {
        const format* const found = topmost(index, [](const format& each) { return each.back.isValid(); });
        return found ? QVariant(QBrush(found->back)) : QVariant();
    }
    case Qt::ForegroundRole: {
        const format* const found = topmost(index, [](const format& each) { return each.fore.isValid(); });
        return found ? QVariant(QBrush(found->fore)) : QVariant();
    }
    default:
        return cell_grid_model::data(index, role);
    }
}

QVariant table_grid_model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal) {
        if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
        if (role == Qt::FontRole && has_formula(section)) {
            QFont underlined;
            underlined.setUnderline(true);
            return underlined;
        }
        if (role == Qt::ForegroundRole && has_formula(section)) return QBrush(formula_colour_);
    }
    return cell_grid_model::headerData(section, orientation, role);
}

} // namespace kelvarin
