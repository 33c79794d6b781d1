// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/cell_grid_model.h"
#include "shell/document/cell_block.h"

#include <QBrush>
#include <QColor>

#include <optional>
#include <string>
#include <vector>

namespace kelvarin
{

enum class cell_alignment
{
    left,
    centre,
    right
};

/// The cells of a data table as they are displayed: names of formula columns are coloured and underlined, and blocks of
/// cells may have an alignment and colours, which belong to the view alone. Cells are not edited in place.
class table_grid_model : public cell_grid_model
{
    Q_OBJECT

public:
    using cell_grid_model::cell_grid_model;

    /// The formula of each column; empty for plain columns.
    void show_formulas(const std::vector<std::string>& formulas);
    void set_formula_colour(const QColor& colour);

    void align(const cell_range& block, cell_alignment alignment);
    void set_back_colour(const cell_range& block, const QColor& colour);
    void set_fore_colour(const cell_range& block, const QColor& colour);
    /// All cells as in a new table.
    void clear_formats();

    QString row_head(int row) const override;
    QString column_tip(int column) const override;
    bool is_editable(int, int) const override { return false; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    /// What was done to a block of cells; later formats lie above earlier ones.
    struct format
    {
        cell_range block;
        std::optional<cell_alignment> alignment;
        QColor back, fore;
    };

    bool has_formula(int column) const;
    void add_format(format added);
    template <class Test> const format* topmost(const QModelIndex& index, Test test) const;

    std::vector<std::string> formulas_;
    QColor formula_colour_;
    std::vector<format> formats_;
};

} // namespace kelvarin
