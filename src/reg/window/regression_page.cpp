// SPDX-License-Identifier: MIT
#include "reg/window/regression_page.h"

#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/wrapping_row.h"
#include "graph/window/frmGraph.h"
#include "reg/fit_failures.h"
#include "reg/fit_report.h"
#include "reg/polynomial_bands.h"
#include "reg/window/frmRGT.h"
#include "reg/window/last_fit_menu.h"
#include "reg/window/multiple_panel.h"
#include "reg/window/nonlinear_panel.h"
#include "reg/window/polynomial_panel.h"
#include "shell/window/frmSolution.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <atomic>
#include <memory>
#include <utility>

namespace kelvarin
{

namespace
{

/// Counts the started regressions of all windows, including failed ones; it is the number of a solution.
std::atomic<int> solution_number = 0;

/// The input of a run in a thread: copies, so that nothing changes during the run.
struct run_input
{
    fit_problem problem;
    settings store;
};

} // namespace

regression_page::regression_page(table_document& table, frmRGT& window, QWidget* parent)
    : table_page(table, parent), window_(window)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(line_unit(*this) / 2);
    sstReg_ = named(new QTabWidget, "sstReg");
    nonlinear_ = new nonlinear_panel(window.context(), table);
    panels_ = {new polynomial_panel, new multiple_panel, nonlinear_};
    const QStringList captions = {tr("Polynomial"), tr("Multiple linear"), tr("Nonlinear")};
    for (std::size_t i = 0; i < panels_.size(); ++i)
        sstReg_->addTab(panels_[i], captions[static_cast<qsizetype>(i)]);
    connect(nonlinear_, &nonlinear_panel::table_changed, this, [this] { window_.document_changed(); });
    column->addWidget(sstReg_);
    column->addWidget(build_options());
    menu_ = new last_fit_menu(window, this);
}

QWidget* regression_page::build_options()
{
    auto* options = new QWidget;
    auto* row = new wrapping_row(line_unit(*this));
    options->setLayout(row);
    const auto make_box = [&](const QString& caption, const char* name, const QString& tip) {
        auto* box = named(new QCheckBox(caption), name);
        box->setToolTip(tip);
        return box;
    };
    chkGraph_ = make_box(tr("&Graph"), "chkGraph", tr("Show a graph of each fit"));
    chkResiduals_ = make_box(tr("Residu&als"), "chkResiduals", tr("Show a graph of the residuals of each fit"));
    chkReport_ = make_box(tr("&Report"), "chkReport", tr("Make a report of each run"));
    chkReport_->setChecked(true);
    for (QCheckBox* box : {chkGraph_, chkResiduals_, chkReport_})
        row->addWidget(box);
    chkAddModelCol_ = make_box(tr("Store Mo&del in column"), "chkAddModelCol", tr("Store calculated model in column"));
    cmbModelCol_ = named(new QComboBox, "cmbModelCol");
    cmbModelCol_->setAccessibleName(tr("Column of the model"));
    cmbModelCol_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbModelCol_->setMinimumContentsLength(8);
    QSizePolicy policy = cmbModelCol_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    cmbModelCol_->setSizePolicy(policy);
    cmbModelCol_->hide();
    row->add_together({chkAddModelCol_, cmbModelCol_});
    connect(chkAddModelCol_, &QCheckBox::toggled, cmbModelCol_, &QWidget::setVisible);
    return options;
}

void regression_page::show_table()
{
    regression_lists lists;
    try {
        lists = initialize_regression(table().content());
        too_many_columns_ = false;
    } catch (const runtime_failure& failure) {
        if (!too_many_columns_) {
            too_many_columns_ = true;
            window_.context().user.show(&window_, regression_failure_box(failure));
        }
    }
    for (regression_panel* const panel : panels_)
        panel->show_lists(table().content(), lists);
    const QString chosen = cmbModelCol_->currentText();
    QStringList columns;
    for (const std::string& name : lists.model_columns)
        columns.append(to_qstring(name));
    cmbModelCol_->clear();
    cmbModelCol_->addItems(columns);
    if (const int place = cmbModelCol_->findText(chosen); place >= 0) cmbModelCol_->setCurrentIndex(place);
}

void regression_page::take_over_typing()
{
    nonlinear_->take_over_typing();
}

QMenu* regression_page::menu() const
{
    return menu_;
}

fit_request regression_page::asked() const
{
    fit_request request;
    panels_[static_cast<std::size_t>(sstReg_->currentIndex())]->fill(request);
    request.graph = chkGraph_->isChecked();
    request.residuals = chkResiduals_->isChecked();
    if (chkAddModelCol_->isChecked() && cmbModelCol_->currentIndex() >= 0)
        request.model_column = to_text(cmbModelCol_->currentText());
    return request;
}

void regression_page::solve()
{
    const fit_request request = asked();
    if (const auto refused = check_regression_input(table().content(), request)) {
        window_.context().user.show(&window_, *refused);
        return;
    }
    const auto input = std::make_shared<const run_input>(
        run_input{{table().content(), request, ++solution_number}, window_.context().store});
    const bool with_report = chkReport_->isChecked();
    window_.start_run(
        [input](run_listener& listener) { return solve_regression(input->problem, input->store, listener); },
        [this, input, with_report](const fit_outcome& outcome) {
            show_outcome(input->problem, outcome, input->store, with_report);
        });
}

void regression_page::show_outcome(const fit_problem& problem, const fit_outcome& outcome, const settings& store,
                                   bool with_report)
{
    // The run was stopped in order to close the window.
    if (window_.is_closing()) return;
    desktop_context& context = window_.context();
    if (outcome.has_report) menu_->add_run(std::make_shared<const solved_fit>(solved_fit{problem, outcome}));
    show_graphs(problem, outcome, store);
    if (const auto& stored = outcome.stored) {
        table().store_model_column(stored->column, stored->formula, stored->cells);
        window_.document_changed();
    }
    if (!window_.show_boxes(outcome.boxes) || !outcome.has_report || !with_report) return;
    show_new_report(context, window_, fit_report(problem, outcome, store, context.clock.today()), problem.content.title,
                    to_qstring(report_caption(problem)));
}

void regression_page::show_graphs(const fit_problem& problem, const fit_outcome& outcome, const settings& store)
{
    const bool fits_drawn = outcome.kind == regression::polynomial && problem.request.graph;
    const std::size_t graphs_of_fit = problem.request.residuals ? 2 : 1;
    for (std::size_t i = 0; i < outcome.graphs.size(); ++i) {
        frmGraph* const graph = show_new_graph(window_.context(), window_,
                                               [&] { return scatter_graph_form_startup(outcome.graphs[i], store); });
        const std::size_t fit = i / graphs_of_fit;
        if (!graph || !fits_drawn || i % graphs_of_fit != 0 || fit >= outcome.fits.size()) continue;
        if (auto bands = polynomial_bands(outcome, outcome.fits[fit]))
            graph->offer_curves(tr("Show &bands"), "mnuShowBands", std::move(*bands), band_styles());
    }
}

} // namespace kelvarin
