// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_problem.h"
#include "nle/equations/window/entry_dialog.h"

namespace kelvarin
{

/// The dialog of a differential equation.
class frmDeqDE : public entry_dialog
{
    Q_OBJECT

public:
    /// For a new row (0) or the change of row `row` (from 1). `problem` outlives the dialog.
    frmDeqDE(desktop_context& context, QWidget* parent, deq_problem& problem, int row);

protected:
    std::optional<message_box> take_over() override;
    std::optional<message_box> check() const override;
    bool is_filled_in() const override;
    void clear_fields() override { txtGuess_->clear(); }

private:
    void build_ui();
    void txtVar_Change();

    deq_problem& problem_;
    int row_ = 0;
    QLabel* lblGuess_ = nullptr;
    QLineEdit* txtGuess_ = nullptr;
};

} // namespace kelvarin
