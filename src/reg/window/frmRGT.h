// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/problem_window.h"
#include "reg/table/import_form.h"
#include "reg/table/table_document.h"
#include "shell/document/named_columns.h"

#include <array>
#include <filesystem>

class QAbstractButton;
class QBoxLayout;
class QLabel;
class QPushButton;
class QStackedWidget;
class QStatusBar;
class QTabBar;
class QToolButton;

namespace kelvarin
{

class cell_line;
class elided_label;
class table_grid;
class table_grid_model;
class table_page;

/// "Data Table": the window of a data table. Page 0 is the table alone with its editing line; the other pages stand
/// above the same grid. The operations are those of table_document; the window shows it and forwards gestures.
class frmRGT : public problem_window
{
    Q_OBJECT

public:
    explicit frmRGT(desktop_context& context);
    ~frmRGT() override;

    using problem_window::document;
    table_document& document() override { return table_; }
    QList<QMenu*> menus() override;
    bool can(window_command which) const override;
    void perform(window_command which) override;

    /// Takes over the points of a run, in a table of just their size, which needs no saving. To be called on a new
    /// window.
    void show_points(const named_columns& points, const std::string& title, const QString& caption);
    /// Replaces the table by an example, from 0, asking first if unsaved work would be lost.
    void load_sample_table(int index);
    /// Selects a row, from 0; a row that the table does not have is left alone.
    void select_row(int row);

    QSize sizeHint() const override;

    // What the pages need of their window.
    using problem_window::context;
    using problem_window::document_changed;
    using problem_window::is_closing;
    using problem_window::show_boxes;
    using problem_window::start_run;

protected:
    void show_document() override;
    QString document_caption() const override;
    void document_replaced() override { results_caption_.clear(); }
    void enable_controls_for_run(bool running) override;
    bool can_solve() const override;
    void solve() override;
    void take_over_typing() override;
    std::string print_failure() const override { return "Error while printing."; }
    void changeEvent(QEvent* event) override;

private:
    void build_ui();
    void build_tabs(QBoxLayout& column);
    table_page* build_analysis_page();
    QWidget* build_line();
    QStatusBar* build_status();
    void build_table_menus();
    void build_file_menu();
    void build_edit_menu();
    QMenu* build_rows_menu();
    QMenu* build_columns_menu();
    QMenu* build_align_menu();
    QMenu* build_format_menu();
    QMenu* build_matrix_menu();
    QMenu* build_samples_menu();
    QMenu* build_cell_menu();
    void connect_controls();
    void apply_colours();

    // The present cell and what is typed into it.
    int row() const;
    int column() const;
    void show_current_cell();
    void show_selection();
    void show_images(bool shown);
    QString hint() const;
    void grdMain_KeyPress(char key);
    void grdMain_EnterCell();
    void enter_in_grid();
    void edit_in_line();
    void txtGridCell_edited(const QString& text);
    void begin_editing();
    void end_editing();
    void accept_line(int row_step);
    void cancel_line();
    void put_text(const std::string& text);

    // Menus.
    void file_new();
    void import_table();
    void import_file_as(const std::filesystem::path& path, const import_form& form);
    void export_table();
    void copy_table();
    void edit_cells(int action);
    void edit_selection(int action);
    void paste();
    void insert_row();
    void delete_row();
    void add_columns();
    void define_column();
    void rename_column(int column);
    void show_statistics();
    void set_calc_digits();
    void format_selection(const std::string& mask);
    void choose_font();
    void choose_colour(bool back);
    void limit_commands(bool limited);

    void show_page(int page);
    void sstMainTable_Click(int page);
    void show_page_menus();
    table_page* page_in_front() const;

    table_document table_;
    /// The caption of a table of results, which it keeps until another table takes its place.
    QString results_caption_;
    bool cell_editing_ = false;
    /// The text line has been typed in and is not to be overwritten.
    bool line_typed_ = false;
    std::string cell_old_text_;
    int cell_old_row_ = 0;
    int cell_old_col_ = 0;

    QTabBar* sstMainTable_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    std::array<table_page*, 4> page_of_tab_{};
    QPushButton* cmdSolve_ = nullptr;
    std::array<QToolButton*, 2> imgXV_{};
    QLabel* lblGridCellPos_ = nullptr;
    cell_line* txtGridCell_ = nullptr;
    elided_label* lblFormula_ = nullptr;
    table_grid_model* cells_ = nullptr;
    table_grid* grdMain_ = nullptr;
    elided_label* lblHint_ = nullptr;
    QLabel* lblSelection_ = nullptr;

    QList<QMenu*> table_menus_;
    QMenu* samples_menu_ = nullptr;
    QMenu* cell_menu_ = nullptr;
    QAction* clear_item_ = nullptr;
};

} // namespace kelvarin
