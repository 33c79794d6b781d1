// SPDX-License-Identifier: MIT
#include "desktop/document_window.h"

#include "desktop/qt_text.h"
#include "shell/general_lib.h"

#include <QCloseEvent>
#include <QDateTime>
#include <QPagedPaintDevice>

namespace kelvarin
{

namespace
{

std::string time_text(const file_stamp& stamp)
{
    constexpr std::int64_t nanoseconds_per_millisecond = 1'000'000;
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(stamp.written_at / nanoseconds_per_millisecond);
    return to_text(time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
}

} // namespace

bool document_window::can(window_command which) const
{
    switch (which) {
    case window_command::save:
    case window_command::save_as:
    case window_command::print:
    case window_command::print_preview:
    case window_command::close:
        return true;
    default:
        return false;
    }
}

void document_window::perform(window_command which)
{
    switch (which) {
    case window_command::save:
        save();
        break;
    case window_command::save_as:
        save_as();
        break;
    case window_command::print:
        print(false);
        break;
    case window_command::print_preview:
        print(true);
        break;
    case window_command::close:
        close_with_frame();
        break;
    default:
        break;
    }
}

QString document_window::file_panel() const
{
    const std::filesystem::path& path = file_path();
    return path.empty() ? child_window::file_panel() : to_qstring(shorten_path(path.string()));
}

bool document_window::save()
{
    take_over_typing();
    return file_path().empty() ? save_as() : write(file_path(), 0);
}

bool document_window::save_as()
{
    take_over_typing();
    const auto chosen = context().user.choose_file_to_save(this, save_question());
    return chosen && write(chosen->path, chosen->filter_index);
}

void document_window::note_file(const std::filesystem::path& path, const std::optional<file_stamp>& stamp)
{
    known_file_ = {path, stamp};
}

bool document_window::was_changed_elsewhere(const std::filesystem::path& path) const
{
    if (path.empty() || path != known_file_.path) return false;
    const std::optional<file_stamp> present = stamp_of(path);
    return present && present != known_file_.stamp;
}

bool document_window::write(const std::filesystem::path& path, int filter_index)
{
    if (was_changed_elsewhere(path)) {
        constexpr std::size_t answer_save = 0;
        constexpr std::size_t answer_save_as = 1;
        const std::string known =
            known_file_.stamp ? "Read or saved here: " + time_text(*known_file_.stamp) + "\r" : std::string();
        const std::optional<std::size_t> answer = context().user.choose(
            this, {.text = path.string() + "\rwas changed by another program or window.\r\r" + known +
                           "Changed there: " + time_text(*stamp_of(path)) + "\r\rSave replaces it by this window's \"" +
                           to_text(printed_name()) + "\"; Reload gives up what was changed here.",
                   .captions = {tr("&Save"), tr("Save &As..."), tr("&Reload")}});
        if (!answer) return false;
        if (*answer == answer_save_as) return save_as();
        if (*answer != answer_save) {
            reload();
            return false;
        }
    }
    if (!write_file(path, filter_index)) return false;
    note_file(file_path(), stamp_of(file_path()));
    return true;
}

bool document_window::may_replace(const std::string& text)
{
    take_over_typing();
    if (is_saved()) return true;
    switch (context().user.ask(this, {.text = text, .with_cancel = true})) {
    case user_answer::yes:
        return save();
    case user_answer::no:
        return true;
    case user_answer::cancel:
        break;
    }
    return false;
}

void document_window::show_caption(QString caption)
{
    // The user's text must not be read as the placeholder of the modified mark.
    caption.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
    setWindowTitle(caption + QStringLiteral("[*]"));
    // A window that closes without a question has nothing that would be lost.
    setWindowModified(!is_saved() && !question_on_close().empty());
}

void document_window::print(bool preview)
{
    user_interface& user = context().user;
    const page_painter paint = [this](QPagedPaintDevice& device) { return print_pages(device); };
    const print_outcome outcome =
        preview ? user.print_preview(this, printed_name(), paint) : user.print(this, printed_name(), paint);
    if (outcome == print_outcome::failed)
        context().user.show(this, {.text = print_failure(), .icon = box_icon::critical});
}

void document_window::closeEvent(QCloseEvent* event)
{
    const std::string question = question_on_close();
    event->setAccepted(question.empty() || may_replace(question));
}

} // namespace kelvarin
