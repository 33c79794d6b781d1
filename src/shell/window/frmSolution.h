// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/document_window.h"
#include "desktop/link_label.h"
#include "desktop/problem_window.h"
#include "shell/report/rich_text.h"
#include "shell/window/report_format.h"
#include "shell/window/report_view.h"

#include <QPointer>

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kelvarin
{

/// What came of reading a report. Where it isn't shown and nothing is refused, reading was stopped.
struct report_reading
{
    bool is_shown = false;
    std::optional<message_box> refused;
};

/// The result window: shows a report, prints it, copies it and saves it. It keeps the report's original text; opened
/// files are shown unchanged.
class frmSolution : public document_window
{
    Q_OBJECT

public:
    explicit frmSolution(desktop_context& context);

    /// To be called before the window is shown: whether the report is unsaved work, its file (empty if there is none)
    /// and the title for the status bar.
    void update_prog_sol(bool changed, const std::filesystem::path& file, const std::string& title);
    /// Shows a rich-text document. `caption` is the window's: "Nonlinear Equations Solution #1".
    void show_report(std::string rich_text, const QString& caption);
    /// Shows a report file, or the text of another file in the fixed-width font.
    report_reading read(const std::filesystem::path& path);
    /// Shows a line that opens the file of this report as the problem that it holds.
    void offer_as_problem();

    /// The problem that the report is about, and the unknowns at its solution, which the problem may take as guesses.
    void set_problem(problem_window& problem, const std::vector<solved_value>& solution);
    problem_window* its_problem() override { return problem_; }

    /// The rich text as it is saved.
    std::string rich_text() const;
    std::string plain_text() const;

    QList<QMenu*> menus() override;
    bool can(window_command which) const override;
    void perform(window_command which) override;
    QString title_panel() const override;

protected:
    const std::filesystem::path& file_path() const override { return file_; }
    bool is_saved() const override { return !changed_; }
    file_question save_question() const override;
    bool write_file(const std::filesystem::path& path, int filter_index) override;
    void reload() override;
    QString printed_name() const override { return caption_; }
    bool print_pages(QPagedPaintDevice& device) const override;

private:
    void build_ui();
    void build_menus();
    QAction* add_zoom_action(const QString& caption, const char* name, const QList<QKeySequence>& keys);
    void show_menu(const QPoint& global_position);
    void show_title();
    void mnuRefresh_Click();
    void use_solution();
    void copy();
    /// The report in a form; nullopt if making it was stopped.
    std::optional<std::string> content_as(report_format format);

    QPointer<problem_window> problem_;
    std::vector<solved_value> solution_;
    /// Empty for a text.
    std::string rich_text_;
    /// The text of a file that was opened as plain text; nullopt for rich text.
    std::optional<std::string> given_text_;
    QString caption_;
    std::filesystem::path file_;
    report_format file_format_ = report_format::rich_text;
    std::string title_;
    bool changed_ = false;

    report_view* txtSolution_ = nullptr;
    link_label* lblProblem_ = nullptr;
    QMenu* report_menu_ = nullptr;
    QAction* mnuUseSolution_ = nullptr;
    QMenu* edit_menu_ = nullptr;
};

/// Shows the report of a run in a new window beside its problem; the frame owns the window.
void show_new_report(desktop_context& context, problem_window& problem, std::string rich_text, const std::string& title,
                     const QString& caption, std::vector<solved_value> solution = {});

/// Shows a report of `problem` (an index of its list) again: activates its window, or opens a new one.
void show_report_again(desktop_context& context, problem_window& problem, std::size_t index);

/// Closes the windows of all reports of `problem` but the last open one.
void close_older_reports(problem_window& problem);

/// Opens a report or text file in a new window, which the frame owns. Returns the box if the file can't be read. With
/// `holds_problem` the window offers to open the file as a problem.
std::optional<message_box> open_report(desktop_context& context, const std::filesystem::path& path,
                                       bool holds_problem = false);

} // namespace kelvarin
