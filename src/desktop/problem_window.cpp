// SPDX-License-Identifier: MIT
#include "desktop/problem_window.h"

#include "desktop/away_job.h"
#include "desktop/qt_text.h"
#include "desktop/text_printing.h"
#include "platform/text_file.h"
#include "shell/document/file_places.h"
#include "shell/document/recent_files.h"
#include "shell/document/recognition.h"

#include <QCloseEvent>
#include <QMenu>
#include <QPointer>

#include <ctime>

namespace kelvarin
{

problem_window::problem_window(desktop_context& context, const problem_kind& kind)
    : document_window(context, kind.window_name), kind_(&kind), run_(this),
      recovery_(
          context.recovery, [this] { return recovery_snapshot(); }, this)
{
    connect(&recovery_, &recovery_keeper::failed, this, [this](const QString& reason) {
        this->context().frame.say_once(tr("Unsaved work can not be kept against a crash: %1.").arg(reason));
    });
    connect(&run_, &run_controller::started, this, &problem_window::run_started);
    connect(&run_, &run_controller::progressed, this, &problem_window::state_changed);
    connect(&run_, &run_controller::finished, this, &problem_window::run_finished);
    connect(&run_, &run_controller::failed, this, [this](const QString& reason) {
        this->context().user.show(this, {.text = "The run failed: " + to_text(reason), .icon = box_icon::critical});
    });
    connect(&run_, &run_controller::handed_over, this, &problem_window::close_if_asked);
    build_menus();
}

problem_window::~problem_window() = default;

void problem_window::build_menus()
{
    main_frame& frame = context().frame;
    file_menu_ = new QMenu(tr("&File"), this);
    file_menu_->addMenu(frame.new_menu());
    // Opens into this window, whatever the file's extension; the main window's command opens the right kind of window.
    open_here_ = file_menu_->addAction(tr("&Open..."), this, &problem_window::open_by_dialog);
    open_here_->setObjectName(QStringLiteral("mnuOpen"));
    for (const window_command which : {window_command::save, window_command::save_as})
        file_menu_->addAction(frame.action(which));
    file_menu_->addSeparator();
    for (const window_command which : {window_command::print, window_command::print_preview})
        file_menu_->addAction(frame.action(which));
    file_menu_->addSeparator();
    behind_recent_ = file_menu_->addSeparator();
    for (const window_command which : {window_command::close, window_command::close_all, window_command::exit})
        file_menu_->addAction(frame.action(which));
    connect(file_menu_, &QMenu::aboutToShow, this, &problem_window::show_recent_files);

    // The captions of recent files are shortened; their tool tips have the whole paths.
    file_menu_->setToolTipsVisible(true);

    edit_menu_ = new QMenu(tr("&Edit"), this);
    for (const window_command which : {window_command::undo, window_command::redo})
        edit_menu_->addAction(frame.action(which));
    edit_menu_->addSeparator();
    show_recent_files();
}

void problem_window::show_recent_files()
{
    qDeleteAll(recent_actions_);
    recent_actions_.clear();
    recent_files_ = load_recent_files(context().registry, kind_->recent_suffix);
    for (std::size_t i = 0; i < recent_files_.size(); ++i) {
        auto* entry = new QAction(to_qstring(recent_file_caption(i + 1, recent_files_[i])), this);
        entry->setObjectName(QStringLiteral("mnuFileItem_%1").arg(i + 1));
        entry->setToolTip(tip_text(path_text(recent_files_[i])));
        connect(entry, &QAction::triggered, this, [this, i] { open_recent_file(i); });
        file_menu_->insertAction(behind_recent_, entry);
        recent_actions_.append(entry);
    }
}

void problem_window::open_recent_file(std::size_t index)
{
    if (index >= recent_files_.size()) return;
    if (kind_->opened_by_own_windows)
        open(std::filesystem::path(recent_files_[index]));
    else
        context().frame.open_document(recent_files_[index]);
}

void problem_window::remember_file()
{
    remember_recent_file(context().registry, kind_->recent_suffix, document().path());
    remember_folder(context().registry, kind_->key, document().path());
    store_settings(context());
    show_recent_files();
}

bool problem_window::can(window_command which) const
{
    const problem_document& shown = document();
    switch (which) {
    case window_command::undo:
        return !is_running() && !shown.undo_step().empty();
    case window_command::redo:
        return !is_running() && !shown.redo_step().empty();
    case window_command::solve:
        return !is_running() && can_solve();
    case window_command::stop:
        return is_running();
    default:
        return document_window::can(which);
    }
}

void problem_window::perform(window_command which)
{
    switch (which) {
    case window_command::undo:
        step_back_or_forth(true);
        break;
    case window_command::redo:
        step_back_or_forth(false);
        break;
    case window_command::solve:
        solve();
        break;
    case window_command::stop:
        run_.stop();
        break;
    default:
        document_window::perform(which);
    }
}

QString problem_window::caption_of(window_command which) const
{
    const std::string step = which == window_command::undo   ? document().undo_step()
                             : which == window_command::redo ? document().redo_step()
                                                             : std::string();
    if (step.empty()) return {};
    return (which == window_command::undo ? tr("&Undo %1") : tr("&Redo %1")).arg(to_qstring(step));
}

QString problem_window::title_panel() const
{
    const std::string& title = document().title();
    return title.empty() ? child_window::title_panel() : to_qstring(title);
}

void problem_window::step_back_or_forth(bool back)
{
    if (is_running()) return;
    if (back ? document().undo() : document().redo()) document_changed();
}

void problem_window::document_changed()
{
    show_title();
    show_document();
    recovery_.document_changed();
    emit state_changed();
}

void problem_window::changed_or_refused(const problem_document::refusal& refused)
{
    if (refused)
        context().user.show(this, *refused);
    else
        document_changed();
}

void problem_window::change_title()
{
    const auto title = context().user.input(this, QStringLiteral("Kelvarin"), QStringLiteral("Enter problem title."),
                                            to_qstring(document().title()));
    if (!title) return;
    document().set_title(to_text(*title));
    document_changed();
}

bool problem_window::show_boxes(const std::vector<message_box>& boxes)
{
    const QPointer<problem_window> self(this);
    for (const message_box& box : boxes) {
        context().user.show(this, box);
        // This window may have been closed while the box was shown.
        if (!self) return false;
        if (!box.rows.empty())
            mark_rows(box.rows);
        else if (box.place)
            mark_place(*box.place);
        if (box.fatal) context().frame.end_program();
    }
    return true;
}

QString problem_window::document_caption() const
{
    const QString caption = to_qstring(kind_->caption);
    const QString title = to_qstring(document().title());
    return title.isEmpty() ? caption : QStringLiteral("%1 - %2").arg(caption, title);
}

void problem_window::show_title()
{
    show_caption(document_caption());
}

bool problem_window::open(const std::filesystem::path& path)
{
    if (is_running() || !may_replace(kind_->unsaved_on_open)) return false;
    return read(path);
}

bool problem_window::read(const std::filesystem::path& path)
{
    const std::optional<file_stamp> stamp = stamp_of(path);
    const QPointer<problem_window> self(this);
    const auto taker = wait_for(this, tr("Reading %1...").arg(path_text(path.filename())),
                                [read = document().reader_of(path)](const run_listener& listener) {
                                    return read([&listener] { return listener.stop_asked(); });
                                });
    // Stopped, or the program has ended meanwhile.
    if (!taker || !self) return false;
    if (const auto refused = (*taker)()) {
        context().user.show(this, *refused);
        return false;
    }
    note_file(path, stamp);
    keeps_older_format_ = false;
    recovery_.drop();
    remember_file();
    document_replaced();
    document_changed();
    return true;
}

bool problem_window::open_example(const std::filesystem::path& path)
{
    if (const auto refused = document().open_example(path)) {
        context().user.show(this, *refused);
        return false;
    }
    document_replaced();
    document_changed();
    return true;
}

bool problem_window::open_by_dialog()
{
    if (is_running() || !may_replace(kind_->unsaved_on_open)) return false;
    const auto chosen = context().user.choose_file_to_open(
        this,
        {.caption = to_qstring(kind_->open_caption), .filter = kind_->open_filter, .proposed = proposed_file({})});
    if (!chosen) return false;
    if (!is_foreign(chosen->path)) return read(chosen->path);
    context().frame.open_document(chosen->path);
    return false;
}

bool problem_window::is_foreign(const std::filesystem::path& path) const
{
    if (!kind_->passes_on_other_files) return false;
    const text_file file = read_text_file(path);
    // Decided by the content, not the extension: a problem may be stored in a text file.
    return file.ok() && !holds_problem(file.text, *kind_) && context().frame.recognises(path);
}

std::filesystem::path problem_window::proposed_file(const std::string& name) const
{
    if (!document().path().empty()) return document().path();
    return last_folder(context().registry, kind_->key) / name;
}

file_question problem_window::save_question() const
{
    return {.caption = to_qstring(kind_->save_caption),
            .filter = kind_->save_filter,
            .proposed = proposed_file(file_name_of_title(document().title(), ".kvr")),
            .default_extension = QStringLiteral("kvr")};
}

bool problem_window::write_file(const std::filesystem::path& path, int filter_index)
{
    const bool older = filter_index == 0 ? keeps_older_format_ : filter_index == kind_->older_format_filter;
    if (older && context().user.ask(this, {.text = kind_->older_format_question}) != user_answer::yes) return false;
    if (const auto refused = document().save(path, older)) {
        context().user.show(this, *refused);
        return false;
    }
    keeps_older_format_ = older;
    recovery_.drop();
    remember_file();
    document_changed();
    return true;
}

bool problem_window::recover(int slot, const recovery_entry& entry)
{
    if (!document().restore(entry.content, entry.path)) return false;
    recovery_.take_over(slot);
    // What was written after the copy was kept is news to this document.
    const std::optional<file_stamp> stamp = stamp_of(entry.path);
    constexpr std::int64_t nanoseconds = 1'000'000'000;
    const bool is_older = stamp && stamp->written_at / nanoseconds <= entry.kept_at;
    note_file(entry.path, is_older ? stamp : std::nullopt);
    document_changed();
    return true;
}

std::optional<recovery_keeper::entry_maker> problem_window::recovery_snapshot() const
{
    const problem_document& kept = document();
    if (!kept.needs_recovery()) return std::nullopt;
    recovery_entry entry = {.kind = std::string(kept.kind()),
                            .title = kept.title(),
                            .path = kept.path(),
                            .kept_at = std::time(nullptr),
                            .content = {}};
    return [entry, make_text = kept.recovery_text_maker()] {
        recovery_entry whole = entry;
        whole.content = make_text();
        return whole;
    };
}

QString problem_window::printed_name() const
{
    return to_qstring(document().title().empty() ? std::string(kind_->caption) : document().title());
}

bool problem_window::print_pages(QPagedPaintDevice& device) const
{
    print_text(device, document().printed_listing());
    return true;
}

void problem_window::run_started()
{
    // Controls that are switched off for the run lose the keyboard to others.
    focus_before_run_ = focus_in_window();
    enable_controls_for_run(true);
    open_here_->setEnabled(false);
    setCursor(Qt::BusyCursor);
    emit state_changed();
}

void problem_window::run_finished()
{
    unsetCursor();
    enable_controls_for_run(false);
    open_here_->setEnabled(true);
    give_focus_to(focus_before_run_);
    emit state_changed();
}

void problem_window::close_if_asked()
{
    if (!close_after_run_) return;
    close_after_run_ = false;
    QMetaObject::invokeMethod(this, &child_window::close_with_frame, Qt::QueuedConnection);
}

void problem_window::closeEvent(QCloseEvent* event)
{
    if (is_running()) {
        close_after_run_ = true;
        run_.stop();
        event->ignore();
        return;
    }
    document_window::closeEvent(event);
    if (event->isAccepted()) recovery_.drop();
}

} // namespace kelvarin
