// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/problem_window.h"
#include "nle/nle_problem.h"
#include "nle/nle_run.h"

namespace kelvarin
{

/// "Nonlinear Equations Solver": the window of a nonlinear problem.
class frmNLE : public problem_window
{
    Q_OBJECT

public:
    explicit frmNLE(desktop_context& context);

    using problem_window::document;
    nle_problem& document() override { return problem_; }
    QList<QMenu*> menus() override;

protected:
    void show_document() override;
    void enable_controls_for_run(bool running) override;
    bool can_solve() const override;
    void solve() override;

private:
    nle_problem problem_;
};

} // namespace kelvarin
