// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/problem_window.h"
#include "leq/leq_problem.h"
#include "leq/leq_run.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

class QBoxLayout;
class QStatusBar;

namespace kelvarin
{

class cell_grid;
class elided_label;
class leq_grid_model;

/// "Linear Equations Solver": the window of a problem of linear equations. The operations are those of leq_problem; the
/// window shows it and forwards gestures.
class frmLEQ : public problem_window
{
    Q_OBJECT

public:
    explicit frmLEQ(desktop_context& context);
    ~frmLEQ() override;

    using problem_window::document;
    leq_problem& document() override { return problem_; }
    QList<QMenu*> menus() override;
    bool can(window_command which) const override;
    void perform(window_command which) override;

    /// Replaces the problem by a random one, asking first if unsaved work would be lost.
    void load_sample();

    QSize sizeHint() const override;

protected:
    void show_document() override;
    /// A run ends before a control could be used.
    void enable_controls_for_run(bool) override {}
    /// The run itself says what is missing.
    bool can_solve() const override { return true; }
    void solve() override;
    void take_over_typing() override;

    void changeEvent(QEvent* event) override;

private:
    void build_ui();
    QBoxLayout* build_title_row();
    QStatusBar* build_status();
    void build_edit_menu();
    QMenu* build_program_menu();
    QMenu* build_help_menu();
    QMenu* build_cell_menu();
    void connect_controls();
    void apply_colours();

    void show_current_cell();
    QStringList column_heads() const;
    QString count_of_cells_to_fill() const;

    void cmbNumEq_Click(int index);
    void cell_edited(int row, int column, const QString& text);
    void fill_with_zeros();
    void clean_grid();
    void rename_variable(int column);
    void cut();
    void copy();
    void paste();
    void clear_cells();

    void show_solution(const leq_run_problem& problem, const leq_outcome& outcome, int number);

    leq_problem problem_;

    elided_label* lblTitle_ = nullptr;
    QComboBox* cmbNumEq_ = nullptr;
    QPushButton* cmdRun_ = nullptr;
    leq_grid_model* cells_ = nullptr;
    cell_grid* grdMatrix_ = nullptr;
    elided_label* lblCell_ = nullptr;
    QLabel* lblEmpty_ = nullptr;

    QMenu* program_menu_ = nullptr;
    QMenu* help_menu_ = nullptr;
    QMenu* cell_menu_ = nullptr;
    QAction* clear_item_ = nullptr;
    QAction* rename_item_ = nullptr;
};

} // namespace kelvarin
