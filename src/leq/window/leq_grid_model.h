// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/cell_grid_model.h"

namespace kelvarin
{

/// The coefficients and right sides of a problem of linear equations as they are displayed, below the names of the
/// unknowns.
class leq_grid_model : public cell_grid_model
{
    Q_OBJECT

public:
    using cell_grid_model::cell_grid_model;

    QString column_tip(int column) const override;
    /// The right sides are set apart from the coefficients.
    bool is_set_off(int column) const override { return column == columnCount() - 1; }
};

} // namespace kelvarin
