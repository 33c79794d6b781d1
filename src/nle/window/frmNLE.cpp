// SPDX-License-Identifier: MIT
#include "nle/window/frmNLE.h"

#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/problem_field.h"
#include "desktop/qt_text.h"
#include "desktop/wrapping_row.h"
#include "graph/window/frmGraph.h"
#include "nle/nle_advice.h"
#include "nle/nle_graph.h"
#include "nle/nle_kind.h"
#include "nle/nle_report.h"
#include "nle/nle_samples.h"
#include "nle/window/frmNleEE.h"
#include "nle/window/frmNleNE.h"
#include "shell/window/frmSolution.h"

#include <QLabel>
#include <QMenu>

#include <atomic>
#include <memory>
#include <optional>
#include <variant>

namespace kelvarin
{

namespace
{

/// Counts the started runs of all windows, including failed ones; it is the number of a solution.
std::atomic<int> solution_counter = 0;

/// Whether the problem would be run: refusals before that are not counted.
bool is_startable(const nle_content& content, const equation_set& set)
{
    if (content.method == nle_method::constrained && set.implicit_count < 2) return false;
    return set.implicit_count + set.explicit_count <= equation_limit;
}

/// The input of a run in a thread: copies, so that nothing changes during the run.
struct run_input
{
    nle_run_problem problem;
    settings store;
    int number = 0;
    bool graph = false;
};

/// The unknowns at the solution, or at the first of several roots.
std::vector<solved_value> unknowns_of(const nle_outcome& outcome)
{
    const nle_solution* solution = nullptr;
    if (const auto* system = std::get_if<nle_system_result>(&outcome.result)) solution = &system->solution;
    if (const auto* single = std::get_if<nle_single_result>(&outcome.result))
        if (!single->roots.empty()) solution = &single->roots.front();
    std::vector<solved_value> values;
    if (!solution || !outcome.converged()) return values;
    for (const implicit_result& unknown : solution->implicit)
        values.push_back({unknown.name, unknown.value});
    return values;
}

} // namespace

frmNLE::frmNLE(desktop_context& context) : equation_window(context, nle_kind())
{
    bounds_ = build_bounds();
    build_ui({.icon_name = "nle",
              .grid_name = "grdRoots",
              .status_name = "stbNLE",
              .new_implicit_name = "cmdNewRoot",
              .new_implicit_caption = tr("Add &NLE"),
              .new_implicit_tip = tr("New nonlinear (implicit) equation"),
              .new_implicit_item_name = "mnuNewRoot",
              .new_implicit_item = tr("New &nonlinear equation..."),
              .heads = {tr("Implicit equations / explicit equations"), tr("Initial guess"), tr("Comments")},
              .form = nle_row_form,
              .hint = tr("Add a nonlinear equation, f(x) = 0, with \"Add NLE\",\nor an explicit one, a = ..., with "
                         "\"Add EE\",\nor type it into the first row."),
              .listing_caption = tr("NLE variables"),
              .below_grid = bounds_,
              .offers_guesses = true});
    document_changed();
}

QWidget* frmNLE::build_bounds()
{
    auto* bounds = new QWidget(this);
    auto* row = new wrapping_row(line_unit(*this) / 2);
    bounds->setLayout(row);
    const int digits = 12;
    const auto add_field = [&](const QString& caption, const char* label_name, const char* name, const QString& tip) {
        auto* field = new problem_field(digits, name, tip);
        connect(field, &QLineEdit::textEdited, this, &frmNLE::bound_Change);
        connect(field, &QLineEdit::editingFinished, this, &frmNLE::update_num_vars);
        auto* label = named(new QLabel(caption), label_name);
        label->setBuddy(field);
        row->add_together({label, field});
        switch_off_in_run(field);
        return field;
    };
    txtnle_min_ini_guess_ =
        add_field(tr("&Lower bound"), "lblLower", "txtnle_min_ini_guess", tr("Where the search for roots begins"));
    txtnle_max_ini_guess_ =
        add_field(tr("&Upper bound"), "lblUpper", "txtnle_max_ini_guess", tr("Where the search for roots ends"));
    chkGraph_ = named(new QCheckBox, "chkGraph");
    auto* label = named(new QLabel(tr("Graph")), "lblGraph");
    for (QWidget* part : std::initializer_list<QWidget*>{chkGraph_, label})
        part->setToolTip(tr("Show the right side over the range of the search"));
    row->add_together({chkGraph_, label});
    chkGraph_->setAccessibleName(tr("Graph"));
    return bounds;
}

equation_status frmNLE::analyse() const
{
    const nle_analysis found = problem_.analyse();
    return {found.set, found.green, found.panels, next_step(problem_.content())};
}

void frmNLE::show_fields()
{
    const bool single = status().set.implicit_count == 1;
    txtnle_min_ini_guess_->show_text(problem_.content().lower_bound);
    txtnle_max_ini_guess_->show_text(problem_.content().upper_bound);
    bounds_->setVisible(single);
    if (!single) chkGraph_->setChecked(false);
}

void frmNLE::bound_Change()
{
    problem_.set_bounds(to_text(txtnle_min_ini_guess_->text()), to_text(txtnle_max_ini_guess_->text()));
    document_changed();
}

entry_dialog* frmNLE::make_entry_dialog(bool implicit, int row)
{
    if (implicit) return new frmNleNE(context(), this, problem_, row);
    return new frmNleEE(context(), this, problem_, row);
}

void frmNLE::advice_taken(const QString& thing)
{
    if (const std::optional<nle_method> method = method_named(to_text(thing))) {
        choose_method(static_cast<int>(*method));
        document_changed();
        solve();
    } else if (to_text(thing) == other_bounds) {
        txtnle_min_ini_guess_->setFocus(Qt::OtherFocusReason);
        txtnle_min_ini_guess_->selectAll();
    } else {
        edit_first_value();
    }
}

void frmNLE::put_example(int number)
{
    problem_.load_example(nle_samples().at(static_cast<std::size_t>(number - 1)));
}

void frmNLE::solve()
{
    if (!ready_to_run()) return;
    const bool counts = is_startable(problem_.content(), status().set);
    const auto input = std::make_shared<const run_input>(run_input{{problem_.content(), problem_.path()},
                                                                   context().store,
                                                                   counts ? ++solution_counter : 0,
                                                                   chkGraph_->isChecked()});
    start_run([input, &clock = context().clock](
                  run_listener& listener) { return run_nle(input->problem, input->store, clock, listener); },
              [this, input](const nle_outcome& outcome) {
                  show_outcome(input->problem, outcome, input->store, {input->number, input->graph});
              });
}

void frmNLE::show_outcome(const nle_run_problem& problem, const nle_outcome& outcome, const settings& store,
                          const run_wish& wish)
{
    if (!show_end_of_run(outcome.stopped, outcome.boxes)) return;
    if (outcome.has_report) show_results(problem, outcome, store, wish);
    const nle_advice advice = advice_after(outcome);
    QStringList things;
    for (const std::string& thing : advice.things)
        things.append(to_qstring(thing));
    show_advice(to_qstring(advice.text), things);
}

void frmNLE::show_results(const nle_run_problem& problem, const nle_outcome& outcome, const settings& store,
                          const run_wish& wish)
{
    const std::vector<solved_value> solution = unknowns_of(outcome);
    keep_solution(solution);
    show_new_report(context(), *this, nle_report(problem, outcome, store, context().clock.today()),
                    problem.content.title, QStringLiteral("Nonlinear Equations Solution #%1").arg(wish.number),
                    solution);
    if (!wish.graph) return;
    if (const std::optional<graph_start> scan = nle_graph_start(outcome, wish.number))
        show_new_graph(context(), *this, [&] { return scatter_graph_form_startup(*scan, store); });
}

} // namespace kelvarin
