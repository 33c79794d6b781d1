// SPDX-License-Identifier: MIT
// A run of the problem, from its start to its report.

#include "desktop/qt_text.h"
#include "nle/equations/window/equation_grid.h"
#include "nle/equations/window/problem_status.h"
#include "nle/window/frmNLE.h"
#include "shell/window/frmSolution.h"

#include <atomic>

namespace kelvarin
{

namespace
{

/// Counts the started runs of all windows, those that fail as well; shown as the number of a solution.
std::atomic<int> solution_counter = 0;

constexpr int message_time_ms = 8000;

/// Whether the problem gets as far as a run; what is refused before that is not counted.
bool is_startable(const nle_content& content, const equation_set& set)
{
    if (content.method == nle_method::constrained && set.implicit_count < 2) return false;
    return set.implicit_count + set.explicit_count <= equation_limit;
}

/// What a run works on: copies, so that nothing can change under it.
struct run_input
{
    nle_run_problem problem;
    settings store;
    int number = 0;
};

} // namespace

void frmNLE::solve()
{
    if (is_running()) return;
    take_over_typing();
    stbNLE_->clearMessage();
    const bool counts = is_startable(problem_.content(), analysis_.set);
    const auto input = std::make_shared<const run_input>(
        run_input{{problem_.content(), problem_.path()}, context().store, counts ? ++solution_counter : 0});
    start_run([input, &clock = context().clock](
                  run_listener& listener) { return run_nle(input->problem, input->store, clock, listener); },
              [this, input](const nle_outcome& outcome) {
                  show_outcome(input->problem, outcome, input->store, input->number);
              });
}

void frmNLE::show_outcome(const nle_run_problem& problem, const nle_outcome& outcome, const settings& store, int number)
{
    if (outcome.stopped) {
        stbNLE_->showMessage(tr("Solution stopped."), message_time_ms);
        return;
    }
    if (!show_boxes(outcome.boxes)) return;
    if (!outcome.has_report) return;
    show_new_report(context(), nle_report(problem, outcome, store, context().clock.today()), problem.content.title,
                    QStringLiteral("Nonlinear Equations Solution #%1").arg(number));
}

void frmNLE::mark_place(const text_place& place)
{
    grdRoots_->mark_place(place);
}

} // namespace kelvarin
