// SPDX-License-Identifier: MIT
#include "nle/equations/window/equation_window.h"

#include "desktop/editable_title.h"
#include "desktop/link_label.h"
#include "desktop/qt_text.h"
#include "nle/equations/window/equation_grid.h"
#include "nle/equations/window/problem_status.h"

#include <algorithm>
#include <utility>

namespace kelvarin
{

equation_window::equation_window(desktop_context& context, const problem_kind& kind) : problem_window(context, kind) {}

equation_window::~equation_window()
{
    // A field with the focus emits the end of editing when it is destroyed, after this window's part is gone.
    const auto children = findChildren<QObject*>();
    for (QObject* child : children)
        child->disconnect(this);
}

void equation_window::connect_controls()
{
    connect(cmdNewImplicit_, &QPushButton::clicked, this, &equation_window::cmdNewImplicit_Click);
    connect(cmdNewEquation_, &QPushButton::clicked, this, &equation_window::cmdNewEquation_Click);
    connect(cmdEdit_, &QPushButton::clicked, this, &equation_window::cmdEdit_Click);
    connect(cmdRemove_, &QPushButton::clicked, this, &equation_window::cmdRemove_Click);
    connect(cmdUpDwn_[0], &QToolButton::clicked, this, [this] { cmdUpDwn_Click(true); });
    connect(cmdUpDwn_[1], &QToolButton::clicked, this, [this] { cmdUpDwn_Click(false); });
    connect(cmdRun_, &QPushButton::clicked, this, [this] { solve(); });
    connect(cmdShowallvars_, &QPushButton::clicked, this, &equation_window::cmdShowallvars_Click);
    // `activated` comes only from the user; a file's method must not change rows.
    connect(cmbMethod_, &QComboBox::activated, this, &equation_window::cmbMethod_Click);
    connect(chkComments_, &QCheckBox::toggled, this, [this](bool shown) { grid_->show_comments(shown); });

    connect(grid_, &equation_grid::current_row_changed, this, &equation_window::enable_controls);
    connect(grid_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &equation_window::enable_controls);
    connect(lblAdvice_, &link_label::name_clicked, this, &equation_window::follow_advice);
    connect(grid_, &equation_grid::edit_asked, this, &equation_window::edit_row);
    connect(grid_, &equation_grid::remove_asked, this, &equation_window::cmdRemove_Click);
    connect(grid_, &equation_grid::move_asked, this, &equation_window::cmdUpDwn_Click);
    connect(grid_, &equation_grid::new_implicit_asked, this, &equation_window::cmdNewImplicit_Click);
    connect(grid_, &equation_grid::new_explicit_asked, this, &equation_window::cmdNewEquation_Click);
    connect(grid_, &equation_grid::comment_edited, this, &equation_window::comment_edited);
    grid_->set_cell_taker([this](const typed_cell& cell) { return take_cell(cell); });
    connect(grid_, &equation_grid::cell_entered, this, &equation_window::cell_entered);
    connect(grid_, &equation_grid::typing_paused, this, &equation_window::check_typing);
    connect(grid_, &equation_grid::solve_asked, this, [this] {
        if (can(window_command::solve)) perform(window_command::solve);
    });
    connect(grid_, &equation_grid::typing_given_up, this, &equation_window::offer_given_up);
    connect(title_, &editable_title::title_edited, this, [this](const QString& title) {
        document().set_title(to_text(title));
        document_changed();
    });
    connect(panels_, &problem_status::name_clicked, this, &equation_window::name_clicked);
}

void equation_window::document_replaced()
{
    empty_rows_ = 0;
    solution_.clear();
}

void equation_window::show_document()
{
    const std::string& title = document().title();
    title_->show_title(to_qstring(title), tr("Untitled problem"));
    cmbMethod_->setCurrentIndex(method_index());
    cmbMethod_->setToolTip(cmbMethod_->itemData(method_index(), Qt::ToolTipRole).toString());
    apply_colours();
    update_num_vars();
}

void equation_window::update_num_vars()
{
    status_ = analyse();
    const equation_set& set = status_.set;
    show_advice({});
    grid_->show_rows(equations().rows(), set, shown_empty_rows());
    grid_->set_names(variables());
    panels_->show_panels(status_.panels, set.undefined.empty() ? set.duplicates : set.undefined);
    show_fields();

    const QString missing = what_is_missing();
    light_->set_green(status_.green, status_.green ? tr("The problem may be solved.") : missing);
    lblMissing_->show_text(missing, {});
    lblMissing_->setVisible(!status_.green);
    cmdRun_->setVisible(status_.green);
    enable_controls();
}

int equation_window::shown_empty_rows() const
{
    // One is always there to be typed into.
    return std::max(empty_rows_, equation_count() < equation_limit ? 1 : 0);
}

QString equation_window::what_is_missing() const
{
    if (status_.green) return {};
    return equation_count() == 0 ? first_step() : to_qstring(status_.missing);
}

void equation_window::enable_controls()
{
    const int count = equation_count();
    const int row = grid_->current_row();
    const std::vector<int> rows = grid_->selected_rows();
    const bool on_row = !is_running() && row >= 1 && row <= count;
    const bool on_rows = !is_running() && !rows.empty();
    cmdEdit_->setEnabled(on_row);
    cmdRemove_->setEnabled(on_rows);
    for (QAction* item : row_items_)
        item->setEnabled(on_row);
    item_remove_->setEnabled(on_rows);
    cmdUpDwn_[0]->setEnabled(on_rows && rows.front() > 1);
    cmdUpDwn_[1]->setEnabled(on_rows && rows.back() < count);
    item_up_->setEnabled(cmdUpDwn_[0]->isEnabled());
    item_down_->setEnabled(cmdUpDwn_[1]->isEnabled());
    if (item_use_solution_) item_use_solution_->setEnabled(!is_running() && !solution_.empty());
    emit state_changed();
}

void equation_window::enable_controls_for_run(bool running)
{
    for (QWidget* control : run_controls_)
        control->setEnabled(!running);
    for (QAction* item : changing_items_)
        item->setEnabled(!running);
    grid_->set_editable(!running);
    title_->set_editable(!running);
    light_->set_solving(running);
    enable_controls();
}

bool equation_window::can(window_command which) const
{
    switch (which) {
    case window_command::copy:
        return !grid_->selected_rows().empty();
    case window_command::paste:
        return !is_running();
    case window_command::select_all:
        return equation_count() > 0;
    default:
        return problem_window::can(which);
    }
}

void equation_window::perform(window_command which)
{
    switch (which) {
    case window_command::copy:
        copy_rows();
        break;
    case window_command::paste:
        paste_rows();
        break;
    case window_command::select_all:
        grid_->selectAll();
        break;
    default:
        problem_window::perform(which);
    }
}

void equation_window::load_sample(int number)
{
    if (is_running() || !may_replace("Previous problem was not saved. Do you wish to save it now ?")) return;
    put_example(number);
    document_replaced();
    document_changed();
    grid_->set_current_row(1);
}

bool equation_window::ready_to_run()
{
    if (is_running()) return false;
    take_over_typing();
    panels_->show_notice({});
    return true;
}

bool equation_window::show_end_of_run(bool stopped, const std::vector<message_box>& boxes)
{
    if (stopped) panels_->show_notice(tr("Solution stopped."));
    return !stopped && show_boxes(boxes);
}

void equation_window::keep_solution(std::vector<solved_value> solution)
{
    solution_ = std::move(solution);
    enable_controls();
}

void equation_window::use_solution(const std::vector<solved_value>& solution)
{
    if (!is_running() && equations().use_as_guesses(solution)) document_changed();
}

void equation_window::take_over_typing()
{
    // Locking the grid takes over what is being typed.
    grid_->set_editable(false);
    grid_->set_editable(!is_running());
    title_->end_edit();
}

void equation_window::mark_place(const text_place& place)
{
    grid_->mark_place(place);
}

void equation_window::mark_rows(const std::vector<int>& rows)
{
    grid_->mark_rows(rows);
}

} // namespace kelvarin
