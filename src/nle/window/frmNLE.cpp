// SPDX-License-Identifier: MIT
#include "nle/window/frmNLE.h"

#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/problem_field.h"
#include "desktop/qt_text.h"
#include "desktop/wrapping_row.h"
#include "graph/window/frmGraph.h"
#include "nle/nle_graph.h"
#include "nle/nle_kind.h"
#include "nle/nle_report.h"
#include "nle/nle_samples.h"
#include "nle/window/frmNleEE.h"
#include "nle/window/frmNleNE.h"
#include "shell/window/frmSolution.h"

#include <QLabel>

#include <algorithm>
#include <atomic>
#include <memory>

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
                         "\"Add EE\"."),
              .listing_caption = tr("NLE variables"),
              .below_grid = bounds_});
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
    std::string missing = found.green ? std::string() : red_light_box(problem_.content()).text;
    std::ranges::replace(missing, '\r', ' ');
    return {found.set, found.green, found.panels, missing};
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
    if (!show_end_of_run(outcome.stopped, outcome.boxes) || !outcome.has_report) return;
    show_new_report(context(), *this, nle_report(problem, outcome, store, context().clock.today()),
                    problem.content.title, QStringLiteral("Nonlinear Equations Solution #%1").arg(wish.number));
    if (!wish.graph) return;
    if (const std::optional<graph_start> scan = nle_graph_start(outcome, wish.number))
        show_new_graph(context(), *this, scatter_graph_form_startup(*scan, store));
}

} // namespace kelvarin
