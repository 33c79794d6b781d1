// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/window/entry_dialog.h"
#include "nle/nle_problem.h"

#include <QButtonGroup>

namespace kelvarin
{

/// The dialog of an implicit equation of a nonlinear problem.
class frmNleNE : public entry_dialog
{
    Q_OBJECT

public:
    /// For a new row (0) or the change of row `row` (from 1). `problem` outlives the dialog.
    frmNleNE(desktop_context& context, QWidget* parent, nle_problem& problem, int row);

protected:
    std::optional<message_box> take_over() override;
    std::optional<message_box> check() const override;
    bool is_filled_in() const override;
    void clear_fields() override;

private:
    void build_ui();
    void txtVar_Change();

    nle_problem& problem_;
    int row_ = 0;
    QLabel* lblGuess_ = nullptr;
    QLabel* lblConstrained_ = nullptr;
    QLineEdit* txtGuess_ = nullptr;
    QWidget* constraints_ = nullptr;
    QButtonGroup* optConstrained_ = nullptr;
};

} // namespace kelvarin
