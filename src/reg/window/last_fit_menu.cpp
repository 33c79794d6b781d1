// SPDX-License-Identifier: MIT
#include "reg/window/last_fit_menu.h"

#include "desktop/controls.h"
#include "desktop/qt_text.h"
#include "graph/window/frmGraph.h"
#include "reg/fit_details.h"
#include "reg/window/frmRGT.h"
#include "shell/window/frmSolution.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kelvarin
{

namespace
{

/// The row of the table, from 0, of a point of a diagnostic graph; -1 if it has none.
int row_of_point(const graph_content& graph, int point)
{
    const auto column = std::ranges::find(graph.columns, std::string(row_column), &graph_column::name);
    if (column == graph.columns.end()) return -1;
    const double row = column->values[static_cast<std::size_t>(point)];
    return std::isfinite(row) ? static_cast<int>(row) - 1 : -1;
}

} // namespace

last_fit_menu::last_fit_menu(frmRGT& window, QWidget* parent) : QMenu(tr("&Last fit"), parent), window_(window)
{
    named(this, "mnuLastFit");
    named(addAction(tr("&More statistics"), this, &last_fit_menu::mnuMoreStatistics_Click), "mnuMoreStatistics");
    named(addAction(tr("&Polish"), this, &last_fit_menu::mnuPolish_Click), "mnuPolish");
    build_diagnostics();
    comparisons_ = named(addMenu(tr("&Compare models")), "mnuCompareModels");
    show_comparisons();
    connect(this, &QMenu::aboutToShow, this, [this] {
        for (QAction* item : actions())
            item->setEnabled(can_ask());
    });
}

void last_fit_menu::build_diagnostics()
{
    diagnostics_ = named(addMenu(tr("&Diagnostics")), "mnuDiagnostics");
    add_diagnostic(tr("Residuals over &calculated values"), "mnuResidualsCalculated", {diagnostic::calculated});
    add_diagnostic(tr("Residuals over each &variable"), "mnuResidualsVariables", {diagnostic::variables});
    add_diagnostic(tr("Residuals in the order of &rows"), "mnuResidualsRows", {diagnostic::rows});
    add_diagnostic(tr("&Normal probability plot"), "mnuNormalPlot", {diagnostic::normal});
    add_diagnostic(tr("&Leverage"), "mnuLeverage", {diagnostic::leverage});
    diagnostics_->addSeparator();
    add_diagnostic(tr("&All of them"), "mnuAllDiagnostics", {std::begin(all_diagnostics), std::end(all_diagnostics)});
}

void last_fit_menu::add_diagnostic(const QString& caption, const char* name, std::vector<diagnostic> wanted)
{
    QAction* const item = named(diagnostics_->addAction(caption), name);
    connect(item, &QAction::triggered, this, [this, wanted = std::move(wanted)] { show_diagnostics(wanted); });
}

bool last_fit_menu::can_ask() const
{
    return !runs_.empty() && !window_.is_running();
}

void last_fit_menu::add_run(std::shared_ptr<const solved_fit> run)
{
    constexpr std::size_t most_kept = 10;
    if (runs_.size() == most_kept) runs_.erase(runs_.begin());
    runs_.push_back(std::move(run));
    show_comparisons();
}

/// Offers the other fits of the data of the last one, the latest first.
void last_fit_menu::show_comparisons()
{
    comparisons_->clear();
    if (!runs_.empty()) {
        const chosen_fit newest = {last(), last()->outcome.fits.size() - 1};
        for (std::size_t i = runs_.size(); i-- > 0;) {
            for (std::size_t place = runs_[i]->outcome.fits.size(); place-- > 0;) {
                const chosen_fit other = {runs_[i], place};
                if ((other.run == newest.run && place == newest.place) || !fit_same_data(newest, other)) continue;
                connect(comparisons_->addAction(to_qstring(other.text())), &QAction::triggered, this,
                        [this, other] { compare_with(other); });
            }
        }
    }
    if (comparisons_->isEmpty()) comparisons_->addAction(tr("(no other fit of these data)"))->setEnabled(false);
}

void last_fit_menu::compare_with(const chosen_fit& other)
{
    if (!can_ask()) return;
    const fit_comparison found = compare_fits(other, {last(), last()->outcome.fits.size() - 1});
    show_new_report(window_.context(), window_, comparison_report(found, window_.context().clock.today()),
                    last()->problem.content.title,
                    tr("Comparison of models, Solution #%1").arg(last()->problem.solution_number));
}

void last_fit_menu::mnuMoreStatistics_Click()
{
    if (!can_ask()) return;
    window_.start_run([last = last()](run_listener& listener) { return examine_fits(last->outcome, listener); },
                      [this, last = last()](const details_outcome& details) {
                          if (window_.is_closing() || !window_.show_boxes(details.boxes) || !details.has_report) return;
                          show_new_report(window_.context(), window_,
                                          more_statistics_report(last->problem, last->outcome, details,
                                                                 window_.context().clock.today()),
                                          last->problem.content.title,
                                          tr("More statistics, Solution #%1").arg(last->problem.solution_number));
                      });
}

void last_fit_menu::mnuPolish_Click()
{
    if (!can_ask()) return;
    window_.start_run([last = last()](run_listener& listener) { return polish_fit(last->outcome, listener); },
                      [this, last = last()](const polished_fit& polished) {
                          if (window_.is_closing() || !window_.show_boxes(polished.boxes) || !polished.has_report)
                              return;
                          show_new_report(
                              window_.context(), window_,
                              polish_report(last->problem, last->outcome, polished, window_.context().clock.today()),
                              last->problem.content.title,
                              tr("Polished fit, Solution #%1").arg(last->problem.solution_number));
                      });
}

void last_fit_menu::show_diagnostics(const std::vector<diagnostic>& wanted)
{
    if (!can_ask()) return;
    window_.start_run(
        [last = last(), wanted](run_listener& listener) {
            return draw_diagnostics(last->problem, last->outcome, wanted, listener);
        },
        [this](const diagnostics_outcome& drawn) {
            if (window_.is_closing()) return;
            for (const graph_start& start : drawn.graphs)
                show_diagnostic_graph(start);
            window_.show_boxes(drawn.boxes);
        });
}

void last_fit_menu::show_diagnostic_graph(const graph_start& start)
{
    frmGraph* const graph = show_new_graph(window_.context(), window_,
                                           [&] { return scatter_graph_form_startup(start, window_.context().store); });
    if (!graph) return;
    connect(graph, &frmGraph::point_clicked, this,
            [this, graph](int point) { window_.select_row(row_of_point(graph->document().content(), point)); });
}

} // namespace kelvarin
