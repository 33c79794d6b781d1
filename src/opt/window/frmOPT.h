// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/window/equation_window.h"
#include "opt/opt_problem.h"
#include "opt/opt_run.h"
#include "opt/opt_run_card.h"
#include "opt/opt_verdict.h"

#include <optional>

class QAction;
class QLabel;

namespace kelvarin
{

class target_field;

/// "Minima Maxima Solver": the window of an optimization problem. The rules are in opt_problem; the window shows the
/// target, runs the problem and says below the table what the end point is.
class frmOPT : public equation_window
{
    Q_OBJECT

public:
    explicit frmOPT(desktop_context& context);

    using equation_window::document;
    opt_problem& document() override { return problem_; }

protected:
    equation_table& equations() override { return problem_; }
    equation_status analyse() const override;
    std::string variable_listing() const override { return show_all_vars(problem_.content()); }
    int method_index() const override { return static_cast<int>(problem_.content().method); }
    void choose_method(int index) override { problem_.choose_method(static_cast<opt_method>(index)); }
    void put_example(int number) override;
    entry_dialog* make_entry_dialog(bool implicit, int row) override;
    void show_fields() override;
    void solve() override;
    void mark_place(const text_place& place) override;
    QString first_step() const override;

private:
    /// A run and what its end point is.
    struct judged_run
    {
        opt_outcome outcome;
        std::optional<opt_verdict> verdict;
    };

    QWidget* build_target();
    QWidget* build_card();
    void txtTarget_Change();
    void show_run(const opt_run_problem& problem, const judged_run& run, const settings& store, int number,
                  bool comments);
    void show_card(const opt_content& content, const opt_run_card& card);
    void mnuTrace_Click();
    /// Shows the target along its variable as a graph, or the contours of a target of two variables.
    void mnuTarget_Click();
    void enable_items();

    opt_problem problem_;
    target_field* txtTarget_ = nullptr;
    QLabel* lblCard_ = nullptr;
    QAction* mnuTrace_ = nullptr;
    QAction* mnuTarget_ = nullptr;
    /// The last run, and its problem.
    opt_outcome last_;
    int last_number_ = 0;
    opt_content card_content_;
};

} // namespace kelvarin
