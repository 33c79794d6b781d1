// SPDX-License-Identifier: MIT
#include "deq/window/frmDEQ.h"

#include "deq/deq_accuracy.h"
#include "deq/deq_graph.h"
#include "deq/deq_kind.h"
#include "deq/deq_report.h"
#include "deq/deq_samples.h"
#include "deq/window/frmDeqDE.h"
#include "deq/window/frmDeqEE.h"
#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/problem_field.h"
#include "desktop/qt_text.h"
#include "desktop/wrapping_row.h"
#include "graph/window/frmGraph.h"
#include "reg/window/frmRGT.h"
#include "shell/window/frmMsg.h"
#include "shell/window/frmSolution.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>

#include <atomic>
#include <memory>
#include <utility>

namespace kelvarin
{

namespace
{

/// Counts the started runs of all windows, including failed ones; it is the number of a solution.
std::atomic<int> solution_counter = 0;

constexpr int typing_pause_ms = 1000;

/// The input of a run in a thread: copies, so that nothing changes during the run.
struct run_input
{
    deq_run_problem problem;
    settings store;
};

} // namespace

frmDEQ::frmDEQ(desktop_context& context) : equation_window(context, deq_kind())
{
    pause_.setSingleShot(true);
    pause_.setInterval(typing_pause_ms);
    connect(&pause_, &QTimer::timeout, this, &frmDEQ::settle_independent);
    build_ui(
        {.icon_name = "deq",
         .grid_name = "grdDiffEq",
         .status_name = "stbDEQ",
         .new_implicit_name = "cmdNewDiffEq",
         .new_implicit_caption = tr("Add &DE"),
         .new_implicit_tip = tr("New differential equation"),
         .new_implicit_item_name = "mnuNewDiffEq",
         .new_implicit_item = tr("New di&fferential equation..."),
         .heads = {tr("Differential equations / explicit equations"), tr("Initial value"), tr("Comments")},
         .form = deq_row_form,
         .hint =
             tr("Name the independent variable and its range, then add\na differential equation, d(y)/d(t) = "
                "..., with \"Add DE\",\nor an explicit one, a = ..., with \"Add EE\",\nor type it into the first row."),
         .listing_caption = tr("DEQ variables"),
         .above_grid = build_range(),
         .below_grid = build_options(),
         .below_options = build_card()});
    mnuCheckAccuracy_ = named(solution_menu()->addAction(tr("Check &accuracy"), this, &frmDEQ::mnuCheckAccuracy_Click),
                              "mnuCheckAccuracy");
    mnuCompareLast_ = named(solution_menu()->addAction(tr("Compare with last r&un")), "mnuCompareLast");
    mnuCompareLast_->setCheckable(true);
    connect(mnuCompareLast_, &QAction::triggered, this, &frmDEQ::mnuCompareLast_Click);
    connect(this, &frmDEQ::state_changed, this, &frmDEQ::show_run_state);
    document_changed();
}

QWidget* frmDEQ::build_range()
{
    auto* range = new QWidget(this);
    auto* row = new wrapping_row(line_unit(*this) / 2);
    range->setLayout(row);
    const int digits = 12;
    const auto add_field = [&](const QString& caption, const char* name, const QString& tip, auto changed,
                               auto finished) {
        auto* field = new problem_field(digits, name, tip);
        connect(field, &QLineEdit::textEdited, this, changed);
        connect(field, &QLineEdit::editingFinished, this, finished);
        auto* label = new QLabel(caption);
        label->setBuddy(field);
        row->add_together({label, field});
        switch_off_in_run(field);
        return field;
    };
    txtIndVar_ = add_field(tr("&Independent variable"), "txtIndVar", tr("Its name, t for the time"),
                           &frmDEQ::txtIndVar_Change, &frmDEQ::settle_independent);
    txtInitVal_ =
        add_field(tr("f&rom"), "txtInitVal", tr("Its initial value"), &frmDEQ::range_Change, &frmDEQ::update_num_vars);
    txtFinalVal_ =
        add_field(tr("t&o"), "txtFinalVal", tr("Its final value"), &frmDEQ::range_Change, &frmDEQ::update_num_vars);
    return range;
}

QWidget* frmDEQ::build_options()
{
    auto* options = new QWidget(this);
    auto* row = new wrapping_row(line_unit(*this));
    options->setLayout(row);
    const auto add_box = [&](const QString& caption, const char* name, const QString& tip) {
        auto* box = named(new QCheckBox(caption), name);
        box->setToolTip(tip);
        row->addWidget(box);
        return box;
    };
    chkTable_ = add_box(tr("Ta&ble"), "chkTable", tr("Show the points of each run in a data table"));
    chkGraph_ = add_box(tr("&Graph"), "chkGraph", tr("Show a graph of the points of each run"));
    chkReport_ = add_box(tr("Re&port"), "chkReport", tr("Make a report of each run"));
    chkReport_->setChecked(true);
    lblAbort_ = named(new QLabel(tr("Press Cntl+C to Abort")), "lblAbort");
    cmdStiff_ =
        make_button(tr("Stop and use STIFF"), "cmdStiff",
                    tr("The steps are held down by stability, not by accuracy: the problem seems to be stiff."));
    connect(cmdStiff_, &QPushButton::clicked, this, &frmDEQ::cmdStiff_Click);
    for (QWidget* in_run : std::initializer_list<QWidget*>{lblAbort_, cmdStiff_}) {
        in_run->hide();
        row->addWidget(in_run);
    }
    return options;
}

QWidget* frmDEQ::build_card()
{
    auto* card = new QWidget(this);
    auto* row = new QHBoxLayout(card);
    row->setContentsMargins(0, 0, 0, 0);
    lblCard_ = named(new QLabel, "lblCard");
    lblCard_->setTextFormat(Qt::PlainText);
    lblCard_->setWordWrap(true);
    lblCard_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    cmdCopyPoints_ = make_button(tr("Copy full precision"), "cmdCopyPoints",
                                 tr("Copy the points of the last run in full precision, for a spreadsheet"));
    connect(cmdCopyPoints_, &QPushButton::clicked, this, &frmDEQ::cmdCopyPoints_Click);
    row->addWidget(lblCard_, 1);
    row->addWidget(cmdCopyPoints_);
    lblCard_->hide();
    cmdCopyPoints_->hide();
    return card;
}

equation_status frmDEQ::analyse() const
{
    const deq_analysis found = problem_.analyse();
    return {found.set, found.green, found.panels, next_step(problem_.content())};
}

void frmDEQ::show_fields()
{
    txtIndVar_->show_text(problem_.content().independent);
    txtInitVal_->show_text(problem_.content().initial_value);
    txtFinalVal_->show_text(problem_.content().final_value);
    // What was said of a run holds for the problem as it was then.
    if (!lblCard_->isHidden() && problem_.content() != card_content_) clear_card();
}

void frmDEQ::txtIndVar_Change()
{
    // While `yz` is typed the field holds `y`, which may be another variable: it is refused only if it stays.
    if (problem_.set_independent(to_text(txtIndVar_->text()))) return pause_.start();
    pause_.stop();
    document_changed();
}

void frmDEQ::settle_independent()
{
    pause_.stop();
    const std::string typed = to_text(txtIndVar_->text());
    if (typed == problem_.content().independent) return;
    const auto refused = problem_.set_independent(typed);
    // The old name is restored first: the box takes the focus from the field, which calls this function again.
    document_changed();
    if (refused) context().user.show(this, *refused);
}

void frmDEQ::range_Change()
{
    problem_.set_range(to_text(txtInitVal_->text()), to_text(txtFinalVal_->text()));
    document_changed();
}

void frmDEQ::take_over_typing()
{
    equation_window::take_over_typing();
    settle_independent();
}

entry_dialog* frmDEQ::make_entry_dialog(bool implicit, int row)
{
    if (implicit) return new frmDeqDE(context(), this, problem_, row);
    return new frmDeqEE(context(), this, problem_, row);
}

void frmDEQ::put_example(int number)
{
    problem_.load_example(deq_samples().at(static_cast<std::size_t>(number - 1)));
}

void frmDEQ::document_replaced()
{
    equation_window::document_replaced();
    last_solution_ = {};
}

bool frmDEQ::can(window_command which) const
{
    return which == window_command::copy && is_running() ? true : equation_window::can(which);
}

void frmDEQ::perform(window_command which)
{
    // During a run Ctrl+C stops it.
    const bool aborts = which == window_command::copy && is_running();
    equation_window::perform(aborts ? window_command::stop : which);
}

QString frmDEQ::caption_of(window_command which) const
{
    return which == window_command::copy && is_running() ? tr("&Abort") : equation_window::caption_of(which);
}

void frmDEQ::enable_controls_for_run(bool running)
{
    equation_window::enable_controls_for_run(running);
    lblAbort_->setVisible(running);
    cmdStiff_->hide();
}

void frmDEQ::solve()
{
    if (!ready_to_run() || !can_solve()) return;
    const auto input =
        std::make_shared<const run_input>(run_input{{problem_.content(), problem_.path()}, context().store});
    const run_wish wish = {++solution_counter, chkReport_->isChecked(), chkTable_->isChecked(), chkGraph_->isChecked(),
                           comments_shown()};
    alerts_ = std::make_shared<deq_run_alerts>();
    stiff_wanted_ = false;
    clear_card();
    start_run(
        [input, alerts = alerts_](run_listener& listener) {
            return run_deq(input->problem, input->store, listener, steady_seconds, alerts.get());
        },
        [this, input, wish](const deq_outcome& outcome) { show_outcome(input->problem, outcome, input->store, wish); });
}

void frmDEQ::show_outcome(const deq_run_problem& problem, const deq_outcome& outcome, const settings& store,
                          const run_wish& wish)
{
    // The run was stopped in order to close the window.
    if (is_closing()) return;
    // The offer answers the boxes of an abort.
    if (outcome.stopped && stiff_wanted_) return solve_by_stiff_method();
    points_ = outcome.points;
    show_card(problem.content, deq_run_card_of(problem.content, outcome));
    if (!show_boxes(outcome.boxes)) return;
    if (outcome.stopped) return offer_stiff_method(outcome.method);
    if (!outcome.has_report) return;
    std::vector<message_box> refused;
    if (wish.table) refused = show_table(problem, outcome, wish.number);
    if (wish.graph) show_graph(outcome, store, wish);
    last_solution_ = differential_columns(outcome);
    if (wish.report) {
        show_new_report(context(), *this, deq_report(problem, outcome, store, context().clock.today(), wish.comments),
                        problem.content.title, QStringLiteral("Differential Equations Solution #%1").arg(wish.number));
    }
    // Behind all that could be shown, since the window may be closed while a box stands.
    show_boxes(refused);
}

void frmDEQ::show_graph(const deq_outcome& outcome, const settings& store, const run_wish& wish)
{
    graph_start start = deq_graph_start(outcome, wish.number);
    std::vector<std::pair<drawn_part, curve_style>> styles;
    if (mnuCompareLast_->isChecked()) styles = add_earlier_run(start, last_solution_);
    show_new_graph(
        context(), *this, [&] { return scatter_graph_form_startup2(start, {}, store); }, styles);
}

std::vector<message_box> frmDEQ::show_table(const deq_run_problem& problem, const deq_outcome& outcome, int number)
{
    if (std::optional<message_box> refused = context().frame.no_room_for(window_command::new_reg))
        return {std::move(*refused)};
    auto* table = new frmRGT(context());
    table->show_points(outcome.points, problem.content.title,
                       QStringLiteral("ODE Results: %1, Solution #%2")
                           .arg(to_qstring(problem.content.title), QString::number(number)));
    context().frame.show_child(table, this);
    return {};
}

void frmDEQ::offer_stiff_method(deq_method method)
{
    if (is_for_stiff(method)) return;
    const user_question asked = {.text = "Would you like to solve this problem using the Stiff method ?",
                                 .default_answer = user_answer::no};
    if (context().user.ask(this, asked) == user_answer::yes) solve_by_stiff_method();
}

void frmDEQ::solve_by_stiff_method()
{
    problem_.choose_method(deq_method::stiff);
    document_changed();
    solve();
}

void frmDEQ::cmdStiff_Click()
{
    stiff_wanted_ = true;
    perform(window_command::stop);
}

void frmDEQ::show_card(const deq_content& content, const deq_run_card& card)
{
    card_content_ = content;
    QStringList lines;
    if (!card.counts.empty()) lines.append(to_qstring(card.counts));
    for (const std::string& each : card.advice)
        lines.append(to_qstring(each));
    lblCard_->setText(lines.join(QLatin1Char('\n')));
    lblCard_->setVisible(!lines.isEmpty());
    cmdCopyPoints_->setVisible(!lines.isEmpty() && points_.row_count() > 0);
}

void frmDEQ::clear_card()
{
    points_ = {};
    show_card({}, {});
}

void frmDEQ::show_run_state()
{
    cmdStiff_->setVisible(is_running() && alerts_ && alerts_->stiffness_suspected);
    mnuCheckAccuracy_->setEnabled(!is_running() && can_solve());
}

void frmDEQ::cmdCopyPoints_Click()
{
    context().user.copy_text(to_qstring(tab_separated_text(points_)));
}

void frmDEQ::mnuCompareLast_Click()
{
    // The comparison is seen in graphs alone.
    if (mnuCompareLast_->isChecked()) chkGraph_->setChecked(true);
}

void frmDEQ::mnuCheckAccuracy_Click()
{
    if (!ready_to_run() || !can_solve()) return;
    const auto input =
        std::make_shared<const run_input>(run_input{{problem_.content(), problem_.path()}, context().store});
    alerts_.reset();
    start_run([input](run_listener& listener) { return check_accuracy(input->problem, input->store, listener); },
              [this](const deq_accuracy& accuracy) {
                  if (is_closing() || !show_boxes(accuracy.boxes) || !accuracy.has_report) return;
                  auto* shown = new frmMsg(this);
                  shown->display_msg(tr("Accuracy"), accuracy_text(accuracy));
              });
}

} // namespace kelvarin
