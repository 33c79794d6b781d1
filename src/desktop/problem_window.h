// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/document_window.h"
#include "desktop/recovery_keeper.h"
#include "desktop/run_controller.h"
#include "shell/document/problem_document.h"
#include "shell/document/problem_kind.h"
#include "shell/document/solved_value.h"

#include <QPointer>
#include <QString>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

class QCloseEvent;

namespace kelvarin
{

/// The report of a run. Its text is kept when its window is closed.
struct problem_report
{
    QString caption;
    std::string title;
    std::string rich_text;
    /// The window that shows it; null if it is closed.
    QPointer<child_window> window = nullptr;
    /// The unknowns at the solution, if they can be guesses of the next run.
    std::vector<solved_value> solution = {};
};

/// The common base of the problem windows: the File and Edit menus, opening, recent files, title, recovery copy, undo,
/// and the run. It uses its document only through problem_document.
class problem_window : public document_window
{
    Q_OBJECT

public:
    /// `kind` must outlive the window.
    problem_window(desktop_context& context, const problem_kind& kind);
    ~problem_window() override;

    bool can(window_command which) const override;
    void perform(window_command which) override;
    QString caption_of(window_command which) const override;
    QString title_panel() const override;
    bool is_running() const override { return run_.running(); }
    double fraction_done() const override { return run_.fraction(); }

    virtual problem_document& document() = 0;
    const problem_document& document() const { return const_cast<problem_window*>(this)->document(); }

    /// Reads a file into this window, asking first if unsaved work would be lost. Shows a refusal. Returns true if the
    /// file was read.
    bool open(const std::filesystem::path& path);
    /// Reads an example into this window, which is new; it gets no file. Returns true if the example was read.
    bool open_example(const std::filesystem::path& path);
    /// Shows the dialog of this kind's File, Open, then reads the chosen file.
    bool open_by_dialog();
    problem_window* its_problem() override { return this; }
    /// The reports of this window's runs, oldest first. They don't belong to the problem: neither its file nor undo
    /// contains them.
    std::vector<problem_report>& reports() { return reports_; }

    /// Takes the values of a solution as guesses of the problem.
    virtual void use_solution(const std::vector<solved_value>&) {}

    /// Takes over the problem of a recovery file.
    bool recover(int slot, const recovery_entry& entry);

    /// Writes unsaved work to its recovery file now, or removes the file if there is none.
    void keep_recovery_copy() { recovery_.keep_now(); }

protected:
    /// Updates the window after any change of the document.
    virtual void show_document() = 0;
    /// Disables, during a run, all controls that could start or change it.
    virtual void enable_controls_for_run(bool running) = 0;
    /// Whether the problem may be solved now, and the command that solves it.
    virtual bool can_solve() const = 0;
    virtual void solve() = 0;

    /// The window's caption: by default that of the kind with the document's title.
    virtual QString document_caption() const;

    /// Shows the place that a box of the run is about.
    virtual void mark_place(const text_place&) {}
    /// Another problem was read into the document: what is known of the last run belongs to the one before.
    virtual void document_replaced() {}
    /// Shows the rows that a box is about.
    virtual void mark_rows(const std::vector<int>&) {}

    /// To be called after every change of the document: updates title, marks, recovery copy and commands, and calls
    /// show_document.
    void document_changed();
    /// Shows the refusal if there is one, else calls document_changed.
    void changed_or_refused(const problem_document::refusal& refused);
    void change_title();
    /// Shows the boxes of a run one after the other. Returns false if the window was closed meanwhile.
    bool show_boxes(const std::vector<message_box>& boxes);

    /// Whether the window closes as soon as the run has ended.
    bool is_closing() const { return close_after_run_; }

    /// Starts a job of this window and manages progress, Stop, closing and controls. `done` receives the outcome while
    /// the window still exists.
    template <class Job, class Done> void start_run(Job job, Done done) { run_.start(std::move(job), std::move(done)); }

    /// File: new, open, save, save as, print, recent files, close, exit. Edit begins with undo and redo; a window
    /// appends its own items. Both are owned by this window.
    QMenu* file_menu() const { return file_menu_; }
    QMenu* edit_menu() const { return edit_menu_; }
    const problem_kind& kind() const { return *kind_; }

    const std::filesystem::path& file_path() const override { return document().path(); }
    bool is_saved() const override { return document().problem_saved(); }
    file_question save_question() const override;
    bool write_file(const std::filesystem::path& path, int filter_index) override;
    void reload() override { read(std::filesystem::path(file_path())); }
    QString printed_name() const override;
    bool print_pages(QPagedPaintDevice& device) const override;
    std::string question_on_close() const override { return kind_->unsaved_on_close; }
    void closeEvent(QCloseEvent* event) override;

private:
    void build_menus();
    void show_recent_files();
    void open_recent_file(std::size_t index);
    void remember_file();
    bool read(const std::filesystem::path& path);
    /// Whether a file is of another kind by its content, and one that the main window opens.
    bool is_foreign(const std::filesystem::path& path) const;
    /// The document's file, else `name` in the folder that was last used for this kind.
    std::filesystem::path proposed_file(const std::string& name) const;
    void show_title();
    std::optional<recovery_keeper::entry_maker> recovery_snapshot() const;
    void step_back_or_forth(bool back);
    void run_started();
    void run_finished();
    void close_if_asked();

    const problem_kind* kind_;
    run_controller run_;
    QMenu* file_menu_ = nullptr;
    QMenu* edit_menu_ = nullptr;
    QAction* open_here_ = nullptr;
    QList<QAction*> recent_actions_;
    QAction* behind_recent_ = nullptr;
    std::vector<std::filesystem::path> recent_files_;
    std::vector<problem_report> reports_;
    recovery_keeper recovery_;
    bool close_after_run_ = false;
    /// The file was written in the kind's older format, in which Save keeps it.
    bool keeps_older_format_ = false;
    /// Where the keyboard was when the run began.
    QPointer<QWidget> focus_before_run_;
};

} // namespace kelvarin
