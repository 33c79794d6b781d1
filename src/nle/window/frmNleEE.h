// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/window/entry_dialog.h"
#include "nle/nle_problem.h"

namespace kelvarin
{

/// The dialog of an explicit equation of a nonlinear problem.
class frmNleEE : public entry_dialog
{
    Q_OBJECT

public:
    /// For a new row (0) or the change of row `row` (from 1). `problem` outlives the dialog.
    frmNleEE(desktop_context& context, QWidget* parent, nle_problem& problem, int row);

protected:
    std::optional<message_box> take_over() override;
    std::optional<message_box> check() const override;

private:
    nle_problem& problem_;
    int row_ = 0;
};

} // namespace kelvarin
