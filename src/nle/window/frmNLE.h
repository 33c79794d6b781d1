// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/window/equation_window.h"
#include "nle/nle_problem.h"
#include "nle/nle_run.h"

#include <QCheckBox>

#include <vector>

namespace kelvarin
{

class problem_field;

/// "Nonlinear Equations Solver": the window of a nonlinear problem. The operations are those of nle_problem; the window
/// shows its bounds and methods, and runs it.
class frmNLE : public equation_window
{
    Q_OBJECT

public:
    explicit frmNLE(desktop_context& context);

    using equation_window::document;
    nle_problem& document() override { return problem_; }

protected:
    equation_table& equations() override { return problem_; }
    equation_status analyse() const override;
    std::string variable_listing() const override { return show_all_vars(problem_.content()); }
    int method_index() const override { return static_cast<int>(problem_.content().method); }
    void choose_method(int index) override { problem_.choose_method(static_cast<nle_method>(index)); }
    void put_example(int number) override;
    entry_dialog* make_entry_dialog(bool implicit, int row) override;
    void show_fields() override;
    void solve() override;
    void advice_taken(const QString& thing) override;

private:
    /// The output of a run that was asked for.
    struct run_wish
    {
        int number = 0;
        bool graph = false;
    };

    QWidget* build_bounds();
    void bound_Change();
    void show_outcome(const nle_run_problem& problem, const nle_outcome& outcome, const settings& store,
                      const run_wish& wish);
    void show_results(const nle_run_problem& problem, const nle_outcome& outcome, const settings& store,
                      const run_wish& wish);

    nle_problem problem_;
    QWidget* bounds_ = nullptr;
    problem_field* txtnle_min_ini_guess_ = nullptr;
    problem_field* txtnle_max_ini_guess_ = nullptr;
    QCheckBox* chkGraph_ = nullptr;
};

} // namespace kelvarin
