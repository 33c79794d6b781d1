// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_problem.h"
#include "nle/equations/window/entry_dialog.h"

namespace kelvarin
{

/// The dialog of an explicit equation of a differential problem.
class frmDeqEE : public entry_dialog
{
    Q_OBJECT

public:
    /// For a new row (0) or the change of row `row` (from 1). `problem` outlives the dialog.
    frmDeqEE(desktop_context& context, QWidget* parent, deq_problem& problem, int row);

protected:
    std::optional<message_box> take_over() override;
    std::optional<message_box> check() const override;

private:
    deq_problem& problem_;
    int row_ = 0;
};

} // namespace kelvarin
