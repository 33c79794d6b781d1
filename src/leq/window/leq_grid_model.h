// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/cell_grid_model.h"
#include "leq/leq_content.h"

namespace kelvarin
{

/// The coefficients and right sides of a problem of linear equations as they are shown, below the names of the
/// unknowns.
class leq_grid_model : public cell_grid_model
{
    Q_OBJECT

public:
    using cell_grid_model::cell_grid_model;

    /// Takes the content over and reports what changed.
    void show_content(const leq_content& content);

    QString cell_text(int row, int column) const override;
    QString column_head(int column) const override;
    QString column_tip(int column) const override;
    bool is_faulty(int row, int column) const override;
    QString fault_of(int row, int column) const override;
    /// The right sides stand apart from the coefficients.
    bool is_set_off(int column) const override { return column == content_.count(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;

private:
    leq_content content_;
};

} // namespace kelvarin
