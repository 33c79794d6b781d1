// SPDX-License-Identifier: MIT
#include "opt/window/frmOPT.h"

#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "graph/window/frmGraph.h"
#include "nle/equations/set_texts.h"
#include "opt/opt_graph.h"
#include "opt/opt_kind.h"
#include "opt/opt_map.h"
#include "opt/opt_report.h"
#include "opt/opt_samples.h"
#include "opt/window/frmOptRow.h"
#include "opt/window/frmTarget.h"
#include "opt/window/target_field.h"
#include "platform/text_file.h"
#include "shell/window/frmMsg.h"
#include "shell/window/frmSolution.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>

#include <algorithm>
#include <atomic>
#include <memory>
#include <utility>

namespace kelvarin
{

namespace
{

/// Counts the started runs of all windows, including failed ones; it is the number of a solution.
std::atomic<int> solution_counter = 0;

/// The input of a run in a thread: copies, so that nothing changes during the run.
struct run_input
{
    opt_run_problem problem;
    settings store;
};

/// The end point: wherever a run ended, the next may go on from there.
std::vector<solved_value> end_point_of(const opt_outcome& outcome)
{
    std::vector<solved_value> values;
    for (std::size_t i = 0; i < outcome.names.size(); ++i)
        values.push_back({outcome.names[i], outcome.x[i]});
    return values;
}

/// Why the traffic light is red, in one line.
std::string missing_of(const opt_content& content, const opt_analysis& found)
{
    if (found.green) return {};
    if (trimmed(content.target).empty()) return "Enter the target function.";
    std::string text = red_light_boxes(found).front().text;
    std::ranges::replace(text, '\r', ' ');
    return text;
}

} // namespace

frmOPT::frmOPT(desktop_context& context) : equation_window(context, opt_kind())
{
    build_ui({.icon_name = "opt",
              .grid_name = "grdOPT",
              .status_name = "stbOPT",
              .new_implicit_name = "cmdNewStart",
              .new_implicit_caption = tr("Add &variable"),
              .new_implicit_tip = tr("New variable with its start value"),
              .new_implicit_item_name = "mnuNewStart",
              .new_implicit_item = tr("New v&ariable..."),
              .heads = {tr("Start values / explicit equations"), QString(), tr("Comments")},
              .form = opt_row_form,
              .hint = tr("Type the target that is to become as small as possible, then add\nits variables, x(0) = 1, "
                         "with \"Add variable\",\nand explicit equations, a = ..., with \"Add EE\"."),
              .listing_caption = tr("OPT variables"),
              .above_grid = build_target(),
              .below_options = build_card(),
              .offers_guesses = true});
    // From the target the next stop is the grid.
    setTabOrder(findChild<QWidget*>(QStringLiteral("grdOPT"))->previousInFocusChain(), txtTarget_);
    mnuTrace_ = named(solution_menu()->addAction(tr("Show &trace"), this, &frmOPT::mnuTrace_Click), "mnuTrace");
    mnuTarget_ = named(solution_menu()->addAction(tr("Show t&he target"), this, &frmOPT::mnuTarget_Click), "mnuTarget");
    connect(this, &frmOPT::state_changed, this, &frmOPT::enable_items);
    document_changed();
}

QWidget* frmOPT::build_target()
{
    auto* area = new QWidget(this);
    auto* row = new QHBoxLayout(area);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(line_unit(*this) / 2);
    txtTarget_ = named(new target_field(area), "txtTarget");
    txtTarget_->setToolTip(tr("The function that is to become as small as possible"));
    txtTarget_->setAccessibleName(tr("Target function"));
    auto* label = new QLabel(tr("Tar&get"));
    label->setBuddy(txtTarget_);
    row->addWidget(label, 0, Qt::AlignTop);
    row->addWidget(txtTarget_, 1);
    connect(txtTarget_, &QPlainTextEdit::textChanged, this, &frmOPT::txtTarget_Change);
    switch_off_in_run(txtTarget_);
    return area;
}

QWidget* frmOPT::build_card()
{
    lblCard_ = named(new QLabel(this), "lblCard");
    lblCard_->setTextFormat(Qt::PlainText);
    lblCard_->setWordWrap(true);
    lblCard_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblCard_->hide();
    return lblCard_;
}

equation_status frmOPT::analyse() const
{
    opt_analysis found = problem_.analyse();
    equation_status status;
    status.set = analyse_rows(problem_.content().rows, opt_row_form);
    status.set.undefined = std::move(found.undefined);
    status.set.undefined_places = std::move(found.undefined_places);
    found.undefined = status.set.undefined;
    status.green = found.green;
    status.panels = found.panels;
    if (status.panels[2].empty()) status.panels[2] = duplicates_panel(found.duplicates);
    status.missing = missing_of(problem_.content(), found);
    return status;
}

void frmOPT::show_fields()
{
    txtTarget_->show_text(problem_.content().target);
    QStringList names;
    for (const auto* list : {&status().set.implicit_names, &status().set.explicit_names})
        for (const std::string& name : *list)
            names.append(to_qstring(name));
    txtTarget_->set_names(names);
    std::vector<text_place> undefined = status().set.undefined_places;
    std::erase_if(undefined, [](const text_place& place) { return place.row > 0; });
    txtTarget_->mark_undefined(std::move(undefined));
    // What was said of a run holds for the problem as it was then.
    if (problem_.content() == card_content_) return;
    last_ = {};
    show_card({}, {});
}

void frmOPT::txtTarget_Change()
{
    // Changes of tints are signalled as well.
    const std::string typed = txtTarget_->expression();
    if (typed == problem_.content().target) return;
    problem_.set_target(typed);
    document_changed();
}

void frmOPT::mark_place(const text_place& place)
{
    if (place.row > 0) return equation_window::mark_place(place);
    txtTarget_->select_place(place);
    txtTarget_->setFocus();
}

QString frmOPT::first_step() const
{
    return trimmed(problem_.content().target).empty() ? tr("Enter the target function to begin.")
                                                      : tr("Add a variable with its start value.");
}

entry_dialog* frmOPT::make_entry_dialog(bool implicit, int row)
{
    return new frmOptRow(context(), this, problem_, implicit, row);
}

void frmOPT::put_example(int number)
{
    problem_.load_example(opt_samples().at(static_cast<std::size_t>(number - 1)));
}

void frmOPT::solve()
{
    if (!ready_to_run() || !can_solve()) return;
    const auto input =
        std::make_shared<const run_input>(run_input{{problem_.content(), problem_.path()}, context().store});
    const int number = ++solution_counter;
    const bool comments = comments_shown();
    show_card({}, {});
    start_run(
        [input, clock = &context().clock](run_listener& listener) {
            judged_run run = {run_opt(input->problem, input->store, *clock, listener), std::nullopt};
            try {
                run.verdict = judge_end_point(input->problem.content, run.outcome, listener);
            } catch (const run_stopped&) {
                // The run itself has ended; what its end point is stays open.
            }
            return run;
        },
        [this, input, number, comments](const judged_run& run) {
            show_run(input->problem, run, input->store, number, comments);
        });
}

void frmOPT::show_run(const opt_run_problem& problem, const judged_run& run, const settings& store, int number,
                      bool comments)
{
    // The run was stopped in order to close the window.
    if (is_closing()) return;
    last_ = run.outcome;
    last_number_ = number;
    show_card(problem.content, opt_run_card_of(run.outcome, run.verdict));
    enable_items();
    if (!show_end_of_run(run.outcome.stopped, run.outcome.boxes) || !run.outcome.has_report) return;
    const std::vector<solved_value> end_point = end_point_of(run.outcome);
    keep_solution(end_point);
    show_new_report(context(), *this, opt_report(problem, run.outcome, store, context().clock.today(), comments),
                    problem.content.title, QStringLiteral("Optimization Solution #%1").arg(number), end_point);
}

void frmOPT::show_card(const opt_content& content, const opt_run_card& card)
{
    card_content_ = content;
    QStringList lines;
    if (!card.verdict.empty()) lines.append(to_qstring(card.verdict));
    for (const std::string& each : card.advice)
        lines.append(to_qstring(each));
    lblCard_->setText(lines.join(QLatin1Char('\n')));
    lblCard_->setVisible(!lines.isEmpty());
}

void frmOPT::enable_items()
{
    mnuTrace_->setEnabled(!is_running() && !last_.points.empty());
    mnuTarget_->setEnabled(!is_running() && last_.has_report && last_.names.size() <= 2);
}

void frmOPT::mnuTarget_Click()
{
    // Some thousand evaluations: nobody has time to stop them.
    recording_listener listener;
    if (const auto start = opt_graph_start(problem_.content(), last_, last_number_, listener)) {
        show_new_graph(context(), *this, [&] { return scatter_graph_form_startup(*start, context().store); });
        return;
    }
    if (auto map = opt_map_of(problem_.content(), last_, listener))
        return (new frmTarget(context(), this, std::move(*map)))->show();
    context().user.show(this, {"The target has no contours around the way of this run.", box_icon::exclamation});
}

void frmOPT::mnuTrace_Click()
{
    auto* shown = new frmMsg(this);
    shown->display_msg(tr("Trace of the rounds"), opt_trace(last_));
}

} // namespace kelvarin
