// SPDX-License-Identifier: MIT
#include "reg/window/frmRGT.h"

#include "desktop/elided_label.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "reg/reg_kind.h"
#include "reg/table/column_statistics.h"
#include "reg/table/table_of_points.h"
#include "reg/table/table_reader.h"
#include "reg/table/typing_rules.h"
#include "reg/window/cell_line.h"
#include "reg/window/table_grid.h"
#include "reg/window/table_grid_model.h"
#include "reg/window/table_page.h"

#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>

#include <random>

namespace kelvarin
{

namespace
{

table_size size_of_new(const settings& store)
{
    return {store.whole_number("table_rows"), store.whole_number("table_cols")};
}

QString three_digits(int number)
{
    return QStringLiteral("%1").arg(number, 3, 10, QLatin1Char('0'));
}

} // namespace

frmRGT::frmRGT(desktop_context& context) : problem_window(context, reg_kind()), table_(size_of_new(context.store))
{
    build_ui();
    connect_controls();
    document_changed();
    grdMain_->set_current_cell(0, 0);
    // The grid has the focus first, so that typing can begin at once.
    setFocusProxy(grdMain_);
    grdMain_->setFocus();
}

frmRGT::~frmRGT()
{
    // The grid and the line outlive this part of the window for a moment.
    grdMain_->disconnect(this);
    txtGridCell_->disconnect(this);
}

void frmRGT::connect_controls()
{
    connect(sstMainTable_, &QTabBar::currentChanged, this, &frmRGT::sstMainTable_Click);
    connect(cmdSolve_, &QPushButton::clicked, this, &frmRGT::solve);
    connect(grdMain_, &table_grid::key_typed, this, &frmRGT::grdMain_KeyPress);
    connect(grdMain_, &table_grid::enter_typed, this, &frmRGT::enter_in_grid);
    connect(grdMain_, &table_grid::escape_typed, this, &frmRGT::cancel_line);
    connect(grdMain_, &table_grid::line_asked, this, &frmRGT::edit_in_line);
    connect(grdMain_, &table_grid::current_cell_changed, this, &frmRGT::grdMain_EnterCell);
    connect(grdMain_, &table_grid::selection_changed, this, &frmRGT::show_selection);
    connect(grdMain_, &table_grid::clear_asked, this, [this] { edit_cells(3); });
    connect(grdMain_, &table_grid::head_chosen, this, &frmRGT::rename_column);
    connect(grdMain_, &table_grid::menu_asked, this, [this](const QPoint& place) { cell_menu_->popup(place); });
    connect(txtGridCell_, &QLineEdit::textEdited, this, &frmRGT::txtGridCell_edited);
    connect(txtGridCell_, &cell_line::accepted, this, &frmRGT::accept_line);
    connect(txtGridCell_, &cell_line::cancelled, this, &frmRGT::cancel_line);
    connect(txtGridCell_, &cell_line::begun, this, [this] { show_images(true); });
    connect(imgXV_[0], &QToolButton::clicked, this, &frmRGT::cancel_line);
    connect(imgXV_[1], &QToolButton::clicked, this, [this] { accept_line(0); });
}

QString frmRGT::document_caption() const
{
    return results_caption_.isEmpty() ? problem_window::document_caption() : results_caption_;
}

void frmRGT::show_document()
{
    QStringList heads;
    for (const std::string& name : table_.content().names)
        heads.append(to_qstring(name));
    cells_->show_cells(table_.content().cells.texts(), heads);
    cells_->show_formulas(table_.content().formulas);
    show_current_cell();
    show_selection();
    if (table_page* const page = page_in_front()) page->show_table();
    cmdSolve_->setEnabled(can_solve());
}

// ------------------------------------------------------------------------------------------------ the present cell

int frmRGT::row() const
{
    return std::max(grdMain_->currentIndex().row(), 0);
}

int frmRGT::column() const
{
    return std::max(grdMain_->currentIndex().column(), 0);
}

void frmRGT::show_current_cell()
{
    if (!table_.content().cells.is_inside(row(), column())) return;
    lblGridCellPos_->setText(QStringLiteral(" R%1 : C%2 = ").arg(three_digits(row() + 1), three_digits(column() + 1)));
    const bool calculated = table_.content().has_formula(column());
    txtGridCell_->setVisible(!calculated);
    lblFormula_->setVisible(calculated);
    lblFormula_->show_text(calculated ? to_qstring(table_.content().formula(column())).trimmed()
                                      : QStringLiteral("  "));
    if (!line_typed_) txtGridCell_->setText(to_qstring(table_.content().cells.text(row(), column())));
    lblHint_->show_text(hint());
}

QString frmRGT::hint() const
{
    const QString fault = grdMain_->fault_of_current_cell();
    if (!fault.isEmpty()) return fault;
    if (table_.is_blank())
        return tr("Type numbers, paste cells of a spreadsheet, open or import a file, or take one of the samples.");
    return {};
}

void frmRGT::show_selection()
{
    const cell_range block = grdMain_->selected_block();
    // A selection may be older than the table.
    const bool inside = table_.content().cells.is_inside(block.row, block.column) &&
                        table_.content().cells.is_inside(block.row + block.rows - 1, block.column + block.columns - 1);
    const selection_statistics found = inside && block.rows * block.columns > 1
                                           ? statistics_of_selection(table_.content(), block)
                                           : selection_statistics();
    lblSelection_->setText(found.count == 0
                               ? QString()
                               : tr("Count: %1   Sum: %2   Mean: %3")
                                     .arg(found.count)
                                     .arg(QString::number(found.sum, 'g', 7), QString::number(found.mean(), 'g', 7)));
}

void frmRGT::show_images(bool shown)
{
    for (QToolButton* image : imgXV_)
        image->setVisible(shown);
}

void frmRGT::begin_editing()
{
    if (cell_editing_) return;
    cell_editing_ = true;
    cell_old_row_ = row();
    cell_old_col_ = column();
    cell_old_text_ = table_.content().cells.text(cell_old_row_, cell_old_col_);
    show_images(true);
}

/// Leaves the cell that is being typed in: the formula columns of its row follow.
void frmRGT::end_editing()
{
    line_typed_ = false;
    if (!cell_editing_) return;
    cell_editing_ = false;
    show_images(false);
    if (table_.content().cells.is_inside(cell_old_row_, cell_old_col_))
        table_.finish_typing(cell_old_row_, cell_old_col_);
    document_changed();
}

void frmRGT::take_over_typing()
{
    if (table_page* const page = page_in_front()) page->take_over_typing();
    end_editing();
}

void frmRGT::grdMain_EnterCell()
{
    end_editing();
    show_current_cell();
}

void frmRGT::grdMain_KeyPress(char key)
{
    if (table_.content().has_formula(column())) return;
    const bool first = !cell_editing_;
    begin_editing();
    const auto typed = typed_key(table_.content().cells.text(row(), column()), key, first);
    if (!typed) return;
    line_typed_ = false;
    table_.type_cell(row(), column(), typed->text, typed->clears_saved);
    document_changed();
}

void frmRGT::enter_in_grid()
{
    if (!cell_editing_) return;
    const std::string& text = table_.content().cells.text(row(), column());
    table_.type_cell(row(), column(), entered_text(text), false);
    end_editing();
}

void frmRGT::edit_in_line()
{
    if (!table_.content().has_formula(column()) && txtGridCell_->isVisible()) txtGridCell_->setFocus();
}

void frmRGT::txtGridCell_edited(const QString& text)
{
    begin_editing();
    line_typed_ = true;
    // The line itself is unsaved work, also while it holds no number or the number that the cell has.
    table_.mark_table_unsaved();
    if (const auto followed = followed_text(to_text(text))) table_.type_cell(row(), column(), *followed, true);
    document_changed();
}

void frmRGT::put_text(const std::string& text)
{
    table_.type_cell(row(), column(), text, true);
    end_editing();
    txtGridCell_->setText(to_qstring(table_.content().cells.text(row(), column())));
    grdMain_->setFocus();
    show_images(false);
}

void frmRGT::accept_line(int row_step)
{
    if (table_.content().has_formula(column())) return;
    begin_editing();
    const std::string line = to_text(txtGridCell_->text());
    std::optional<std::string> text = accepted_text(line);
    if (!text) {
        const user_question asked = {.text = not_numeric_question,
                                     .title = not_numeric_title,
                                     .ok_or_cancel = true,
                                     .icon = box_icon::information,
                                     .default_answer = user_answer::cancel};
        if (context().user.ask(this, asked) == user_answer::yes) text = converted_text(line);
    }
    put_text(text.value_or(cell_old_text_));
    const int next = row() + row_step;
    if (next >= 0 && next < table_.content().rows()) grdMain_->set_current_cell(next, column());
}

void frmRGT::cancel_line()
{
    if (cell_editing_) {
        table_.type_cell(cell_old_row_, cell_old_col_, cell_old_text_, false);
        end_editing();
    }
    line_typed_ = false;
    show_current_cell();
    grdMain_->setFocus();
    show_images(false);
}

// ------------------------------------------------------------------------------------------------ commands

bool frmRGT::can(window_command which) const
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

void frmRGT::perform(window_command which)
{
    // In the editing line these commands are the line's own.
    const bool in_line = txtGridCell_->hasFocus();
    switch (which) {
    case window_command::cut:
        return in_line ? txtGridCell_->cut() : edit_cells(0);
    case window_command::copy:
        return in_line ? txtGridCell_->copy() : edit_cells(1);
    case window_command::paste:
        return in_line ? txtGridCell_->paste() : edit_cells(2);
    case window_command::select_all:
        return in_line ? txtGridCell_->selectAll() : grdMain_->selectAll();
    default:
        take_over_typing();
        problem_window::perform(which);
    }
}

void frmRGT::load_sample_table(int index)
{
    take_over_typing();
    if (!may_replace(kind().unsaved_on_open)) return;
    table_.load_sample_table(index, std::random_device{}());
    document_replaced();
    cells_->clear_formats();
    document_changed();
    grdMain_->set_current_cell(0, 0);
}

void frmRGT::select_row(int row)
{
    if (is_running() || row < 0 || row >= table_.content().rows()) return;
    take_over_typing();
    grdMain_->select_block({row, 0, 1, table_.content().columns()});
}

void frmRGT::show_points(const named_columns& points, const std::string& title, const QString& caption)
{
    table_.start_with(table_of_points(points, title));
    results_caption_ = caption;
    document_changed();
    grdMain_->set_current_cell(0, 0);
}

void frmRGT::enable_controls_for_run(bool running)
{
    for (QWidget* control : std::initializer_list<QWidget*>{grdMain_, pages_, sstMainTable_})
        control->setEnabled(!running);
    cmdSolve_->setEnabled(!running && can_solve());
}

table_page* frmRGT::page_in_front() const
{
    return page_of_tab_[static_cast<std::size_t>(std::max(sstMainTable_->currentIndex(), 0))];
}

/// Pages differ in height; only the one in front counts, so that the grid gets the rest.
void frmRGT::show_page(int page)
{
    for (int i = 0; i < pages_->count(); ++i)
        pages_->widget(i)->setSizePolicy(QSizePolicy::Preferred,
                                         i == page ? QSizePolicy::Maximum : QSizePolicy::Ignored);
    pages_->setCurrentIndex(page);
}

void frmRGT::sstMainTable_Click(int page)
{
    take_over_typing();
    const bool alone = page == 0;
    show_page(page);
    cmdSolve_->setVisible(!alone);
    for (const QMenu* menu : table_menus_)
        menu->menuAction()->setVisible(alone);
    show_page_menus();
    if (table_page* const shown = page_in_front()) shown->show_table();
    cmdSolve_->setEnabled(can_solve());
    emit state_changed();
}

void frmRGT::show_page_menus()
{
    for (const table_page* const each : page_of_tab_)
        if (each && each->menu()) each->menu()->menuAction()->setVisible(each == page_in_front());
}

bool frmRGT::can_solve() const
{
    const table_page* const page = page_in_front();
    return page && page->can_solve();
}

void frmRGT::solve()
{
    take_over_typing();
    if (!can_solve()) return;
    const std::array first_two = {0, 1};
    if (table_.content().columns() < 2 || table_reader(table_.content()).numeric_rows(first_two) < 2) {
        context().user.show(this, {"Data has not been entered properly to the table.\rYou must fill in at least two "
                                   "columns starting the first row, without leaving blank cells between rows.",
                                   box_icon::exclamation});
        return;
    }
    page_in_front()->solve();
}

QSize frmRGT::sizeHint() const
{
    return QSize(60, 34) * line_unit(*this);
}

} // namespace kelvarin
