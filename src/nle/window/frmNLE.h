// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/problem_window.h"
#include "nle/nle_analysis.h"
#include "nle/nle_problem.h"
#include "nle/nle_run.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include <array>
#include <memory>

class QBoxLayout;

namespace kelvarin
{

class entry_dialog;
class equation_grid;
class link_label;
class problem_status;
class traffic_light;

/// "Nonlinear Equations Solver": the window of a nonlinear problem. What may be done and what it means is the
/// matter of nle_problem; the window shows it and forwards gestures.
class frmNLE : public problem_window
{
    Q_OBJECT

public:
    explicit frmNLE(desktop_context& context);
    ~frmNLE() override;

    using problem_window::document;
    nle_problem& document() override { return problem_; }
    QList<QMenu*> menus() override;
    bool can(window_command which) const override;
    void perform(window_command which) override;

    /// Puts example 1 to 4 in place of the problem, asking first where one would be lost.
    void load_sample(int number);

    QSize sizeHint() const override;

protected:
    void show_document() override;
    void enable_controls_for_run(bool running) override;
    bool can_solve() const override { return analysis_.green; }
    void solve() override;
    void take_over_typing() override;
    void mark_place(const text_place& place) override;

    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build_ui();
    QBoxLayout* build_title_row();
    QBoxLayout* build_button_row();
    QWidget* build_run_place();
    QBoxLayout* build_bounds_row();
    QWidget* build_bounds();
    void build_menu_bar();
    QMenu* build_edit_menu();
    QMenu* build_solution_menu();
    QMenu* build_examples_menu();
    void connect_controls();
    void apply_colours();

    void update_num_vars();
    void enable_controls();
    /// Why the light is red, in one line; empty where it is green.
    QString what_is_missing() const;

    void cmdNewRoot_Click();
    void cmdNewEquation_Click();
    void cmdEdit_Click();
    void cmdRemove_Click();
    void cmdUpDwn_Click(bool up);
    void cmdShowallvars_Click();
    void cmbMethod_Click(int index);
    void bound_Change();
    void comment_edited(int row, const QString& comment);
    void add_rows();
    void rename_variable();
    void name_clicked(const QString& name);
    void copy_rows();

    /// Refuses where no equation may be added; else readies the first empty row for one.
    bool ready_for_new_row();
    void new_explicit(const QString& name);
    void edit_row(int row);
    void show_dialog(entry_dialog* dialog, int row);
    void show_listing(QWidget* parent, bool with_links);
    QStringList variables() const;

    void show_outcome(const nle_run_problem& problem, const nle_outcome& outcome, const settings& store, int number);

    nle_problem problem_;
    nle_analysis analysis_;
    /// Empty rows at the end of the grid.
    int empty_rows_ = 0;
    std::filesystem::path shown_path_;

    link_label* lblTitle_ = nullptr;
    QComboBox* cmbMethod_ = nullptr;
    QPushButton* cmdNewRoot_ = nullptr;
    QPushButton* cmdNewEquation_ = nullptr;
    QPushButton* cmdEdit_ = nullptr;
    QPushButton* cmdRemove_ = nullptr;
    std::array<QToolButton*, 2> cmdUpDwn_{};
    traffic_light* light_ = nullptr;
    QPushButton* cmdRun_ = nullptr;
    link_label* lblMissing_ = nullptr;
    equation_grid* grdRoots_ = nullptr;
    QWidget* bounds_ = nullptr;
    QLineEdit* txtnle_min_ini_guess_ = nullptr;
    QLineEdit* txtnle_max_ini_guess_ = nullptr;
    QCheckBox* chkGraph_ = nullptr;
    QCheckBox* chkComments_ = nullptr;
    QPushButton* cmdShowallvars_ = nullptr;
    problem_status* stbNLE_ = nullptr;

    QMenu* solution_menu_ = nullptr;
    QMenu* examples_menu_ = nullptr;
    /// Items that change the document, by what they need.
    QList<QAction*> changing_items_;
    QList<QAction*> row_items_;
    QAction* item_up_ = nullptr;
    QAction* item_down_ = nullptr;
};

} // namespace kelvarin
