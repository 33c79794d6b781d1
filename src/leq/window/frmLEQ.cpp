// SPDX-License-Identifier: MIT
#include "leq/window/frmLEQ.h"

#include "desktop/cell_grid.h"
#include "desktop/decimal_comma_question.h"
#include "desktop/elided_label.h"
#include "desktop/qt_text.h"
#include "leq/leq_kind.h"
#include "leq/leq_report.h"
#include "leq/leq_text.h"
#include "leq/window/leq_grid_model.h"
#include "shell/document/cell_block.h"
#include "shell/window/frmSolution.h"

#include <QMenu>
#include <QMimeData>

#include <random>

namespace kelvarin
{

namespace
{

/// Counts the started runs of all windows, including failed ones; it is the number of a solution.
int solution_counter = 0;

} // namespace

frmLEQ::frmLEQ(desktop_context& context) : problem_window(context, leq_kind())
{
    build_ui();
    connect_controls();
    document_changed();
    // The grid has the focus first, so that typing can begin at once.
    setFocusProxy(grdMatrix_);
    grdMatrix_->setFocus();
}

frmLEQ::~frmLEQ()
{
    // An open editor reports its text when it is destroyed, after this window's part is gone.
    grdMatrix_->disconnect(this);
}

void frmLEQ::connect_controls()
{
    connect(cmbNumEq_, &QComboBox::activated, this, &frmLEQ::cmbNumEq_Click);
    connect(cmdRun_, &QPushButton::clicked, this, &frmLEQ::solve);
    connect(grdMatrix_, &cell_grid::cell_edited, this, &frmLEQ::cell_edited);
    connect(grdMatrix_, &cell_grid::current_cell_changed, this, &frmLEQ::show_current_cell);
    connect(grdMatrix_, &cell_grid::clear_asked, this, &frmLEQ::clear_cells);
    connect(grdMatrix_, &cell_grid::head_chosen, this, &frmLEQ::rename_variable);
    connect(grdMatrix_, &cell_grid::menu_asked, this, [this](const QPoint& place) { cell_menu_->popup(place); });
}

void frmLEQ::show_document()
{
    lblTitle_->show_text(problem_.title().empty() ? tr("Untitled problem") : to_qstring(problem_.title()));
    cmbNumEq_->setCurrentIndex(problem_.equation_count() - least_leq_count);
    cells_->show_cells(problem_.content().cells, column_heads());
    grdMatrix_->fit_columns();
    lblEmpty_->setText(count_of_cells_to_fill());
    apply_colours();
    show_current_cell();
}

QStringList frmLEQ::column_heads() const
{
    const leq_content& content = problem_.content();
    QStringList heads;
    for (int column = 0; column <= content.count(); ++column)
        heads.append(to_qstring(column_head(content, column)));
    return heads;
}

QString frmLEQ::count_of_cells_to_fill() const
{
    const int empty = count_empty_cells(problem_.content());
    if (empty == 0) return {};
    return empty == 1 ? tr("1 empty cell") : tr("%1 empty cells").arg(empty);
}

void frmLEQ::show_current_cell()
{
    const leq_content& content = problem_.content();
    const QModelIndex cell = grdMatrix_->currentIndex();
    rename_item_->setEnabled(cell.column() >= 0 && cell.column() < content.count());
    const QString fault = grdMatrix_->fault_of_current_cell();
    if (!fault.isEmpty())
        lblCell_->show_text(fault);
    else if (problem_.is_blank())
        lblCell_->show_text(tr("Type a number and press Tab for the next cell, or paste cells of a spreadsheet."));
    else if (cell.isValid())
        lblCell_->show_text(QStringLiteral("[%1] %2").arg(QString::number(cell.row() + 1),
                                                          to_qstring(equation_text(content, cell.row()))));
}

bool frmLEQ::can(window_command which) const
{
    switch (which) {
    case window_command::cut:
    case window_command::copy:
    case window_command::paste:
    case window_command::select_all:
        return true;
    default:
        return problem_window::can(which);
    }
}

void frmLEQ::perform(window_command which)
{
    take_over_typing();
    switch (which) {
    case window_command::cut:
        cut();
        break;
    case window_command::copy:
        copy();
        break;
    case window_command::paste:
        paste();
        break;
    case window_command::select_all:
        grdMatrix_->selectAll();
        break;
    default:
        problem_window::perform(which);
    }
}

void frmLEQ::take_over_typing()
{
    grdMatrix_->take_over_typing();
}

void frmLEQ::cmbNumEq_Click(int index)
{
    take_over_typing();
    problem_.init_grids(index + least_leq_count);
    document_changed();
}

void frmLEQ::cell_edited(int row, int column, const QString& text)
{
    problem_.set_cell(row, column, to_text(text));
    document_changed();
}

void frmLEQ::fill_with_zeros()
{
    take_over_typing();
    problem_.fill_empty_cells_with_zeros();
    document_changed();
}

void frmLEQ::clean_grid()
{
    take_over_typing();
    problem_.clean_grid();
    document_changed();
}

void frmLEQ::rename_variable(int column)
{
    take_over_typing();
    const leq_content& content = problem_.content();
    if (column < 0 || column >= content.count()) return;
    const auto name = context().user.input(this, QStringLiteral("Kelvarin"), QStringLiteral("Enter variable name."),
                                           to_qstring(column_head(content, column)));
    if (name) changed_or_refused(problem_.rename_variable(column, to_text(*name)));
}

void frmLEQ::cut()
{
    context().user.copy_text(to_qstring(problem_.cut(grdMatrix_->selected_block())));
    document_changed();
}

void frmLEQ::copy()
{
    context().user.copy_text(to_qstring(problem_.copy(grdMatrix_->selected_block())));
}

void frmLEQ::clear_cells()
{
    take_over_typing();
    problem_.clear_cells(grdMatrix_->selected_block());
    document_changed();
}

void frmLEQ::paste()
{
    const std::optional<cell_block> block =
        with_decimal_points(context().user, this, read_block(to_text(context().user.clipboard()->text())));
    if (!block || block->empty()) return;
    const cell_range range = grdMatrix_->selected_block();
    const std::optional<message_box> left_out = problem_.paste(range, *block);
    document_changed();
    grdMatrix_->select_block(pasted_range(problem_.content().cells, range, *block));
    if (left_out) context().user.show(this, *left_out);
}

void frmLEQ::load_sample()
{
    if (!may_replace("Previous problem was not saved. Do you wish to save it now ?")) return;
    problem_.load_sample(std::random_device{}());
    document_changed();
    grdMatrix_->set_current_cell(0, 0);
}

void frmLEQ::solve()
{
    take_over_typing();
    const leq_run_problem problem = {problem_.content(), problem_.path()};
    const leq_outcome outcome = run_leq(problem.content);
    if (outcome.fault) {
        grdMatrix_->set_current_cell(outcome.fault->row, outcome.fault->column);
        grdMatrix_->setFocus();
    }
    // A run that is refused before it starts is not counted.
    const int number = outcome.fault ? 0 : ++solution_counter;
    if (show_boxes(outcome.boxes) && outcome.has_report) show_solution(problem, outcome, number);
}

void frmLEQ::show_solution(const leq_run_problem& problem, const leq_outcome& outcome, int number)
{
    show_new_report(context(), *this, leq_report(problem, outcome, context().clock.today()), problem.content.title,
                    QStringLiteral("Linear Equations Solution #%1").arg(number));
}

} // namespace kelvarin
