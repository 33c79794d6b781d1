// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/problem_window.h"
#include "nle/equations/equation_table.h"
#include "nle/equations/set_analysis.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QToolButton>

#include <array>
#include <memory>
#include <string>
#include <vector>

class QBoxLayout;

namespace kelvarin
{

class entry_dialog;
class equation_grid;
enum class cell_answer;
struct given_up_text;
struct typed_cell;
class link_label;
class problem_status;
class editable_title;
class traffic_light;

/// What differs between the windows of equation problems: names of controls, captions and heads.
struct equation_window_parts
{
    const char* icon_name = "";
    const char* grid_name = "";
    const char* status_name = "";
    /// Object name of the button, and of the item of the Edit menu, that add an implicit row.
    const char* new_implicit_name = "";
    QString new_implicit_caption;
    QString new_implicit_tip;
    const char* new_implicit_item_name = "";
    QString new_implicit_item;
    /// Heads of the columns, as in equation_grid_words.
    QStringList heads;
    row_form form;
    /// Shown in the grid while there is no equation.
    QString hint;
    /// The title of the listing of variables.
    QString listing_caption;
    /// Widgets of the kind between the buttons and the grid, and below the grid; may be null.
    QWidget* above_grid = nullptr;
    QWidget* below_grid = nullptr;
    /// A widget of the kind above the status bar; may be null.
    QWidget* below_options = nullptr;
    /// Whether a solution makes guesses for the next run.
    bool offers_guesses = false;
};

/// The results of a problem's analysis that its window shows.
struct equation_status
{
    equation_set set;
    /// The traffic light is green: the problem may run.
    bool green = false;
    std::array<std::string, 3> panels;
    /// Why the traffic light of a problem with equations is red, in one line.
    std::string missing;
};

/// The base of the windows of equation problems: title, method, traffic light, grid with its gestures, entry dialogs,
/// listing, panels and menus. The operations on equations are those of equation_table; the derived window supplies the
/// analysis, shows the fields of its kind, and runs the problem.
class equation_window : public problem_window
{
    Q_OBJECT

public:
    equation_window(desktop_context& context, const problem_kind& kind);
    ~equation_window() override;

    QList<QMenu*> menus() override;
    bool can(window_command which) const override;
    void perform(window_command which) override;

    /// Replaces the problem by an example (from 1), asking first if unsaved work would be lost.
    void load_sample(int number);

    void use_solution(const std::vector<solved_value>& solution) override;

    QSize sizeHint() const override;

protected:
    /// To be called once by the derived window's constructor, after it has made its own controls.
    void build_ui(const equation_window_parts& parts);

    virtual equation_table& equations() = 0;
    virtual equation_status analyse() const = 0;
    /// The listing of variables as rich text.
    virtual std::string variable_listing() const = 0;
    virtual int method_index() const = 0;
    virtual void choose_method(int index) = 0;
    virtual void put_example(int number) = 0;
    /// The dialog for a new row (row 0) or for the change of a row.
    virtual entry_dialog* make_entry_dialog(bool implicit, int row) = 0;
    /// Updates the fields of the kind, after each analysis.
    virtual void show_fields() {}

    /// Analyses the problem and shows what was found.
    void update_num_vars();
    /// Shows a line of advice below the grid until the next change of the problem; the words in `links`, behind its
    /// first ": ", are links, which advice_taken is told about. An empty text hides the line.
    void show_advice(const QString& text, const QStringList& links = {});
    virtual void advice_taken(const QString&) {}
    /// Why a problem without equations can't be solved: what comes first.
    virtual QString first_step() const { return tr("Add an equation to begin."); }
    /// Keeps the unknowns of a run's solution, to be used as guesses.
    void keep_solution(std::vector<solved_value> solution);
    /// Starts typing the initial guess or value of the first implicit row.
    void edit_first_value();
    /// Registers a control of the kind to be disabled while the problem runs.
    void switch_off_in_run(QWidget* control) { run_controls_.append(control); }
    const equation_status& status() const { return status_; }
    const equation_table& equations() const { return const_cast<equation_window*>(this)->equations(); }
    int shown_empty_rows() const;
    int equation_count() const { return static_cast<int>(equations().rows().size()); }
    bool comments_shown() const { return chkComments_->isChecked(); }
    QMenu* solution_menu() const { return solution_menu_; }

    /// Takes over what is being typed. Returns false if a run is under way.
    bool ready_to_run();
    /// Shows that a run was stopped, or its boxes. Returns true if the run was not stopped and the window still exists.
    bool show_end_of_run(bool stopped, const std::vector<message_box>& boxes);

    void show_document() override;
    void document_replaced() override;
    void enable_controls_for_run(bool running) override;
    bool can_solve() const override { return status_.green; }
    void take_over_typing() override;
    void mark_place(const text_place& place) override;
    void mark_rows(const std::vector<int>& rows) override;

    void changeEvent(QEvent* event) override;

private:
    QBoxLayout* build_title_row();
    QLayout* build_button_row(const equation_window_parts& parts);
    QWidget* build_run_place();
    QLayout* build_options_row(const equation_window_parts& parts);
    void build_edit_menu(const equation_window_parts& parts);
    QMenu* build_solution_menu();
    QMenu* build_examples_menu();
    void connect_controls();
    void apply_colours();

    void enable_controls();
    /// Why the traffic light is red, in one line; empty if it is green.
    QString what_is_missing() const;

    void cmdNewImplicit_Click();
    void cmdNewEquation_Click();
    void cmdEdit_Click();
    void cmdRemove_Click();
    void cmdUpDwn_Click(bool up);
    void cmdShowallvars_Click();
    void cmbMethod_Click(int index);
    void comment_edited(int row, const QString& comment);
    cell_answer take_cell(const typed_cell& cell);
    void offer_given_up(const given_up_text& text);
    void cell_entered(int row, bool added);
    void check_typing(int row, const QString& text);
    void add_rows();
    void ask_new_name();
    void name_clicked(const QString& name);
    void copy_rows();
    void paste_rows();
    void tell_of_paste(const pasted_rows& pasted);
    void show_left_out();
    /// Takes over the equations of a text behind the selected rows.
    void put_in(const std::string& text);
    void follow_advice(const QString& link);

    /// Returns false after a refusal if no equation may be added; else selects the first empty row.
    bool ready_for_new_row();
    void new_explicit(const QString& name);
    void edit_row(int row, entry_field start);
    /// Opens the dialog for the next undefined name, if there is one and another equation may be added.
    void offer_next_name();
    void show_dialog(entry_dialog* dialog, int row);
    void show_listing(QWidget* parent, bool with_links);
    QStringList variables() const;

    equation_status status_;
    QString listing_caption_;
    row_form form_;
    /// What the last paste left out, for the window that lists it.
    std::vector<left_out_line> left_out_;
    /// What Esc gave up while it was typed, for the link that brings it back.
    std::unique_ptr<given_up_text> given_up_;
    /// The unknowns at the last solution.
    std::vector<solved_value> solution_;
    /// Number of empty rows at the end of the grid.
    int empty_rows_ = 0;

    editable_title* title_ = nullptr;
    QComboBox* cmbMethod_ = nullptr;
    QPushButton* cmdNewImplicit_ = nullptr;
    QPushButton* cmdNewEquation_ = nullptr;
    QPushButton* cmdEdit_ = nullptr;
    QPushButton* cmdRemove_ = nullptr;
    std::array<QToolButton*, 2> cmdUpDwn_{};
    traffic_light* light_ = nullptr;
    QPushButton* cmdRun_ = nullptr;
    link_label* lblMissing_ = nullptr;
    equation_grid* grid_ = nullptr;
    QCheckBox* chkComments_ = nullptr;
    QPushButton* cmdShowallvars_ = nullptr;
    link_label* lblAdvice_ = nullptr;
    problem_status* panels_ = nullptr;

    QMenu* solution_menu_ = nullptr;
    QMenu* examples_menu_ = nullptr;
    QWidgetList run_controls_;
    /// Menu items that change the document: all, and those that need a current row.
    QList<QAction*> changing_items_;
    QList<QAction*> row_items_;
    QAction* item_remove_ = nullptr;
    QAction* item_up_ = nullptr;
    QAction* item_down_ = nullptr;
    /// Null if the kind has no guesses.
    QAction* item_use_solution_ = nullptr;
};

} // namespace kelvarin
