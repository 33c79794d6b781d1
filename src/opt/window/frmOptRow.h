// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/window/entry_dialog.h"
#include "opt/opt_problem.h"

class QCheckBox;

namespace kelvarin
{

/// The dialog of a row of an optimization problem: a variable with its start value, or an explicit equation.
class frmOptRow : public entry_dialog
{
    Q_OBJECT

public:
    /// For a new row (0) or the change of row `row` (from 1). `varied`: a new row is a start value at first. `problem`
    /// outlives the dialog.
    frmOptRow(desktop_context& context, QWidget* parent, opt_problem& problem, bool varied, int row);

protected:
    std::optional<message_box> take_over() override;
    std::optional<message_box> check() const override;

private:
    /// The row's left side, with the equals sign.
    std::string left_side() const;
    /// The box with its place, if it has one, in the expression alone.
    std::optional<message_box> in_expression(std::optional<message_box> refused) const;

    opt_problem& problem_;
    int row_ = 0;
    QCheckBox* chkVaried_ = nullptr;
};

} // namespace kelvarin
