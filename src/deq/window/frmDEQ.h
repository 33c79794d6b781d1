// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_problem.h"
#include "deq/deq_run.h"
#include "deq/deq_run_card.h"
#include "nle/equations/window/equation_window.h"

#include <QCheckBox>
#include <QTimer>

#include <memory>

class QAction;
class QLabel;
class QPushButton;

namespace kelvarin
{

class problem_field;

/// "Ordinary Differential Equations Solver": the window of a differential problem. The rules are in deq_problem; the
/// window shows the independent variable with its range, runs the problem and offers the stiff method after an abort.
class frmDEQ : public equation_window
{
    Q_OBJECT

public:
    explicit frmDEQ(desktop_context& context);

    using equation_window::document;
    deq_problem& document() override { return problem_; }

    bool can(window_command which) const override;
    void perform(window_command which) override;
    QString caption_of(window_command which) const override;

protected:
    equation_table& equations() override { return problem_; }
    equation_status analyse() const override;
    std::string variable_listing() const override { return show_all_vars(problem_.content()); }
    int method_index() const override { return static_cast<int>(problem_.content().method); }
    void choose_method(int index) override { problem_.choose_method(static_cast<deq_method>(index)); }
    void put_example(int number) override;
    void document_replaced() override;
    entry_dialog* make_entry_dialog(bool implicit, int row) override;
    void show_fields() override;
    void solve() override;
    void enable_controls_for_run(bool running) override;
    void take_over_typing() override;

private:
    /// The output of a run that was asked for.
    struct run_wish
    {
        int number = 0;
        bool report = false;
        bool table = false;
        bool graph = false;
        bool comments = false;
    };

    QWidget* build_range();
    QWidget* build_options();
    QWidget* build_card();
    void txtIndVar_Change();
    void range_Change();
    /// Takes over the name of the independent variable, or shows the refusal and restores the old name.
    void settle_independent();
    void show_outcome(const deq_run_problem& problem, const deq_outcome& outcome, const settings& store,
                      const run_wish& wish);
    void show_graph(const deq_outcome& outcome, const settings& store, const run_wish& wish);
    /// Shows the points in a data table of their own, or returns the box that says why not.
    std::vector<message_box> show_table(const deq_run_problem& problem, const deq_outcome& outcome, int number);
    void offer_stiff_method(deq_method method);
    void solve_by_stiff_method();
    void cmdStiff_Click();
    void cmdCopyPoints_Click();
    void mnuCheckAccuracy_Click();
    void mnuCompareLast_Click();
    /// Shows what the present state of the run allows.
    void show_run_state();
    void show_card(const deq_content& content, const deq_run_card& card);
    void clear_card();

    deq_problem problem_;
    /// Runs while a refused name of the independent variable stands in its field.
    QTimer pause_;
    problem_field* txtIndVar_ = nullptr;
    problem_field* txtInitVal_ = nullptr;
    problem_field* txtFinalVal_ = nullptr;
    QCheckBox* chkTable_ = nullptr;
    QCheckBox* chkGraph_ = nullptr;
    QCheckBox* chkReport_ = nullptr;
    QLabel* lblAbort_ = nullptr;
    /// Shown during a run that seems to be stiff.
    QPushButton* cmdStiff_ = nullptr;
    QLabel* lblCard_ = nullptr;
    QPushButton* cmdCopyPoints_ = nullptr;
    QAction* mnuCheckAccuracy_ = nullptr;
    /// Checked: graphs show the solution before as well.
    QAction* mnuCompareLast_ = nullptr;
    /// The differential variables of the last solution.
    named_columns last_solution_;
    /// The points of the last run, and its problem.
    named_columns points_;
    deq_content card_content_;
    std::shared_ptr<deq_run_alerts> alerts_;
    /// The running offer of the stiff method was taken.
    bool stiff_wanted_ = false;
};

} // namespace kelvarin
