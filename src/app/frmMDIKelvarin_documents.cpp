// SPDX-License-Identifier: MIT
// The main window: new windows and their limits, opening of documents, recovered problems.
#include "app/child_area.h"
#include "app/frmMDIKelvarin.h"
#include "app/frmRecovery.h"
#include "app/problem_kinds.h"
#include "desktop/away_job.h"
#include "desktop/qt_text.h"
#include "graph/graph_kind.h"
#include "graph/window/frmGraph.h"
#include "kinds/kinds.h"
#include "platform/data_files.h"
#include "platform/runtime_failure.h"
#include "platform/text_file.h"
#include "shell/document/file_places.h"
#include "shell/document/recognition.h"
#include "shell/window/frmSolution.h"

#include <QVBoxLayout>

#include <algorithm>
#include <new>
#include <string>
#include <system_error>

namespace kelvarin
{

namespace
{

constexpr int most_problem_windows = 10;
constexpr int most_regressions = 3;

constexpr const char* open_error = "Error while trying to open file.";

/// Under this key the folder of the main window's File, Open is remembered.
constexpr const char* folder_key = "all";

constexpr const char* open_filter = "All Kelvarin files (*.kvr; *.kvg; *.rtf)|*.kvr; *.kvg; *.rtf|"
                                    "Kelvarin Problems (*.kvr)|*.kvr|"
                                    "Kelvarin Graphs (*.kvg)|*.kvg|"
                                    "Kelvarin Reports (*.rtf)|*.rtf";

/// The kind of the problem that a text holds; null if it holds none.
const problem_kind* kind_of_lines(std::string_view text)
{
    // Without an extension only the lines count.
    return recognise_document("", text, kinds_of_main_window()).kind;
}

} // namespace

problem_window_counts frmMDIKelvarin::count_problem_windows() const
{
    problem_window_counts counts;
    for (const child_window* child : area_->children())
        for (const problem_window_kind& kind : problem_window_kinds()) {
            if (child->objectName() != QLatin1String(kind.row->window_name)) continue;
            ++counts.all;
            if (kind.fresh == window_command::new_reg) ++counts.regressions;
        }
    return counts;
}

std::optional<message_box> frmMDIKelvarin::no_room_for(window_command fresh) const
{
    const problem_window_counts counts = count_problem_windows();
    if (counts.all >= most_problem_windows)
        return message_box{"Only " + std::to_string(most_problem_windows) + " concurrent problem forms are allowed. "};
    if (fresh == window_command::new_reg && counts.regressions >= most_regressions) {
        return message_box{"Only " + std::to_string(most_regressions) +
                           " concurrent table regression and analysis problem forms are allowed. "};
    }
    return std::nullopt;
}

problem_window* frmMDIKelvarin::new_window(const problem_window_kind& kind)
{
    if (const std::optional<message_box> refused = no_room_for(kind.fresh)) {
        context_.user.show(this, *refused);
        return nullptr;
    }
    problem_window* window = kind.make(context_).release();
    show_child(window);
    return window;
}

void frmMDIKelvarin::show_default_window(const problem_window_kind& kind)
{
    QPointer<problem_window>& window = default_windows_[kind.fresh];
    const std::vector<child_window*> open = area_->children();
    // A closed window may not be deleted yet.
    if (std::ranges::find(open, window) == open.end()) window = nullptr;
    if (window) return area_->bring_to_front(*window);
    window = kind.make(context_).release();
    show_child(window);
}

void frmMDIKelvarin::open_file_dialog()
{
    const problem_window_counts counts = count_problem_windows();
    if (counts.all >= most_problem_windows || counts.regressions >= most_regressions) {
        context_.user.show(this, {"Please remove some Kelvarin problem documents before choosing this option."});
        return;
    }
    try {
        const auto chosen = context_.user.choose_file_to_open(
            this,
            {.caption = tr("Open"), .filter = open_filter, .proposed = last_folder(context_.registry, folder_key)});
        if (!chosen || chosen->path.empty()) return;
        remember_folder(context_.registry, folder_key, chosen->path);
        open_document(chosen->path);
    } catch (const runtime_failure&) {
        show_message(open_error);
    }
}

void frmMDIKelvarin::open_document(const std::filesystem::path& path)
{
    open_in(path, false);
}

void frmMDIKelvarin::open_documents(const std::vector<std::filesystem::path>& paths)
{
    bool in_new_window = false;
    for (const std::filesystem::path& path : paths) {
        open_in(path, in_new_window);
        in_new_window = true;
    }
}

void frmMDIKelvarin::open_in(const std::filesystem::path& path, bool in_new_window)
try {
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) return;
    struct document_look
    {
        bool is_readable = false;
        bool has_two_lines = false;
        recognised_document found;
        const problem_kind* kind_of_lines = nullptr;
    };
    const auto look =
        wait_for(this, tr("Reading %1...").arg(path_text(path.filename())), [path](const run_listener& listener) {
            const text_file file = read_text_file(path, widest_bounds, [&listener] { return listener.stop_asked(); });
            if (!file.ok()) return document_look();
            return document_look{true, split_lines(file.text, 2).size() == 2,
                                 recognise_document(path.string(), file.text, kinds_of_main_window()),
                                 kind_of_lines(file.text)};
        });
    // Stopped.
    if (!look) return;
    if (!look->is_readable) return show_message(open_error);
    switch (look->found.form) {
    case document_form::graph:
        return open_graph(context_, path);
    case document_form::report:
    case document_form::text:
        if (const auto refused = open_report(context_, path, look->kind_of_lines != nullptr))
            context_.user.show(this, *refused);
        return;
    case document_form::unknown:
        // A file without a second line is no problem of any kind.
        if (!look->has_two_lines) return show_message(open_error);
        context_.user.show(this, {unknown_format_text(path.string()), box_icon::exclamation});
        return;
    case document_form::problem:
        open_problem(*kind_of_row(look->found.kind), path, in_new_window);
    }
} catch (const std::bad_alloc&) {
    show_message(open_error);
}

void frmMDIKelvarin::open_as_problem(const std::filesystem::path& path)
{
    const text_file file = read_text_file(path);
    const problem_kind* kind = file.ok() ? kind_of_lines(file.text) : nullptr;
    if (!kind) return show_message(open_error);
    open_problem(*kind_of_row(kind), path, true);
}

bool frmMDIKelvarin::recognises(const std::filesystem::path& path) const
{
    const text_file file = read_text_file(path);
    if (!file.ok()) return false;
    const document_form form = recognise_document(path.string(), file.text, kinds_of_main_window()).form;
    if (form == document_form::text) return kind_of_lines(file.text) != nullptr;
    return form != document_form::unknown;
}

void frmMDIKelvarin::open_problem(const problem_window_kind& kind, const std::filesystem::path& path,
                                  bool in_new_window)
{
    auto* target = qobject_cast<problem_window*>(active_child());
    const bool takes_it = target && !in_new_window && !target->is_running() &&
                          target->objectName() == QLatin1String(kind.row->window_name);
    if (takes_it) return void(target->open(path));
    target = new_window(kind);
    // A refused file must not leave an empty window.
    const QPointer<problem_window> opened = target;
    if (target && !target->open(path) && opened) opened->close_with_frame();
}

void frmMDIKelvarin::open_example(const std::filesystem::path& path)
{
    const text_file file = read_text_file(path);
    const problem_kind* kind = file.ok() ? recognise_document(path.string(), file.text, problem_kinds()).kind : nullptr;
    if (!kind) return show_message(open_error);
    if (problem_window* window = new_window(*kind_of_row(kind)); window && !window->open_example(path))
        window->close_with_frame();
}

void frmMDIKelvarin::open_example_by_name(const QString& file)
{
    const auto folder = find_data_folder("examples");
    if (!folder) return show_message(open_error);
    show();
    raise();
    activateWindow();
    open_example(*folder / to_path(file));
}

void frmMDIKelvarin::offer_recovered_problems()
{
    auto found = context_.recovery.claim_orphans();
    if (found.empty()) return;
    recovery_bar_ = new frmRecovery(std::move(found), centralWidget());
    connect(recovery_bar_, &frmRecovery::open_asked, this, &frmMDIKelvarin::open_recovered);
    connect(recovery_bar_, &frmRecovery::discard_asked, this, &frmMDIKelvarin::discard_recovered);
    static_cast<QVBoxLayout*>(centralWidget()->layout())->insertWidget(0, recovery_bar_);
}

void frmMDIKelvarin::open_recovered(const recovery_store::found_problem& problem)
{
    const problem_window_kind* kind = kind_of_key(problem.entry.kind);
    if (problem.entry.kind == graph_kind().key) {
        if (!recover_graph(context_, problem.slot, problem.entry))
            return show_message("The kept problem can not be read.");
        if (recovery_bar_) recovery_bar_->remove(problem.slot);
        return;
    }
    if (!kind) return show_message("This version does not know problems of this kind.");
    problem_window* window = new_window(*kind);
    if (!window) return;
    if (!window->recover(problem.slot, problem.entry)) {
        window->close_with_frame();
        return show_message("The kept problem can not be read.");
    }
    if (recovery_bar_) recovery_bar_->remove(problem.slot);
}

void frmMDIKelvarin::discard_recovered(const recovery_store::found_problem& problem)
{
    const user_question asked{.text = "Discard this problem? It can not be brought back afterwards.",
                              .default_answer = user_answer::no};
    if (context_.user.ask(this, asked) != user_answer::yes) return;
    context_.recovery.drop(problem.slot);
    if (recovery_bar_) recovery_bar_->remove(problem.slot);
}

} // namespace kelvarin
