// SPDX-License-Identifier: MIT
#include "shell/window/frmSolution.h"

#include "desktop/away_job.h"
#include "desktop/icons.h"
#include "desktop/link_label.h"
#include "desktop/qt_text.h"
#include "platform/letter_case.h"
#include "platform/saver.h"
#include "platform/text_file.h"
#include "shell/document/file_places.h"
#include "shell/window/report_cells.h"
#include "shell/window/report_document.h"

#include <QApplication>
#include <QMenu>
#include <QPagedPaintDevice>
#include <QProgressDialog>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace kelvarin
{

namespace
{

constexpr const char* report_title = "KELVARIN Report ";
/// Under this key the folder of reports is remembered.
constexpr const char* folder_key = "report";
constexpr int problem_line_margin = 4;
constexpr const char* rich_text_mark = R"({\rtf)";

/// Shows progress with a button that stops, if the work takes long.
print_progress progress_box(QWidget& parent, const QString& text)
{
    constexpr int whole = 1000;
    constexpr int milliseconds_before = 400;
    QWidget* const over = QApplication::activeModalWidget();
    const auto box =
        std::make_shared<QProgressDialog>(text, frmSolution::tr("Stop"), 0, whole, over ? over : parent.window());
    box->setObjectName(QStringLiteral("frmPages"));
    box->setWindowModality(Qt::WindowModal);
    box->setMinimumDuration(milliseconds_before);
    return [box](double part) {
        box->setValue(static_cast<int>(std::min(part, 1.0) * whole));
        return !box->wasCanceled();
    };
}

} // namespace

frmSolution::frmSolution(desktop_context& context) : document_window(context, "frmSolution")
{
    setWindowIcon(program_icon("report"));
    build_ui();
    build_menus();
}

void frmSolution::build_ui()
{
    txtSolution_ = new report_view(this);
    txtSolution_->setObjectName(QStringLiteral("txtSolution"));
    txtSolution_->setAccessibleName(tr("Report"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    lblProblem_ = new link_label(this);
    lblProblem_->setObjectName(QStringLiteral("lblProblem"));
    lblProblem_->setMargin(problem_line_margin);
    lblProblem_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lblProblem_->hide();
    layout->addWidget(lblProblem_);
    layout->addWidget(txtSolution_);
    connect(lblProblem_, &link_label::name_clicked, this, [this] { context().frame.open_as_problem(file_); });
    setFocusProxy(txtSolution_);
    setWindowTitle(tr("Solution"));
    connect(txtSolution_, &QTextBrowser::copyAvailable, this, &frmSolution::state_changed);
    connect(txtSolution_, &report_view::copy_asked, this, &frmSolution::copy);
    connect(txtSolution_, &report_view::menu_asked, this, &frmSolution::show_menu);
}

void frmSolution::build_menus()
{
    main_frame& frame = context().frame;
    report_menu_ = new QMenu(tr("&Report"), this);
    report_menu_->addAction(tr("&Refresh"), this, &frmSolution::mnuRefresh_Click)
        ->setObjectName(QStringLiteral("mnuRefresh"));
    report_menu_->addAction(frame.action(window_command::save_as));
    for (const window_command which : {window_command::print, window_command::print_preview, window_command::close,
                                       window_command::close_all, window_command::exit}) {
        report_menu_->addAction(frame.action(which));
    }

    edit_menu_ = new QMenu(tr("&Edit"), this);
    for (const window_command which : {window_command::copy, window_command::select_all})
        edit_menu_->addAction(frame.action(which));
    edit_menu_->addSeparator();
    QList<QKeySequence> larger = QKeySequence::keyBindings(QKeySequence::ZoomIn);
    // The plus sign without Shift.
    larger.append(QKeySequence(Qt::CTRL | Qt::Key_Equal));
    connect(add_zoom_action(tr("Zoom &In"), "mnuZoomIn", larger), &QAction::triggered, txtSolution_,
            [this] { txtSolution_->step_zoom(true); });
    connect(add_zoom_action(tr("Zoom &Out"), "mnuZoomOut", QKeySequence::keyBindings(QKeySequence::ZoomOut)),
            &QAction::triggered, txtSolution_, [this] { txtSolution_->step_zoom(false); });
    connect(add_zoom_action(tr("Actual &Size"), "mnuActualSize", {QKeySequence(Qt::CTRL | Qt::Key_0)}),
            &QAction::triggered, txtSolution_, [this] { txtSolution_->set_zoom(1.0); });
}

QAction* frmSolution::add_zoom_action(const QString& caption, const char* name, const QList<QKeySequence>& keys)
{
    auto* action = new QAction(caption, this);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcuts(keys);
    // Every report has these keys; the focused one receives them.
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(action);
    edit_menu_->addAction(action);
    return action;
}

void frmSolution::show_menu(const QPoint& global_position)
{
    edit_menu_->popup(global_position);
}

QList<QMenu*> frmSolution::menus()
{
    main_frame& frame = context().frame;
    return {report_menu_, edit_menu_, frame.window_menu(), frame.help_menu()};
}

void frmSolution::set_problem(problem_window& problem, const std::vector<solved_value>& solution)
{
    problem_ = &problem;
    solution_ = solution;
    if (!solution_.empty()) {
        mnuUseSolution_ = new QAction(tr("Use solution as &guesses"), this);
        mnuUseSolution_->setObjectName(QStringLiteral("mnuUseSolution"));
        connect(mnuUseSolution_, &QAction::triggered, this, &frmSolution::use_solution);
        report_menu_->insertAction(report_menu_->actions().at(1), mnuUseSolution_);
    }
    // Whether it can be solved again depends on the problem.
    connect(&problem, &problem_window::state_changed, this, &frmSolution::state_changed);
    // Queued: the windows around both may be in the middle of their destruction.
    connect(&problem, &QObject::destroyed, this, &frmSolution::state_changed, Qt::QueuedConnection);
}

void frmSolution::use_solution()
{
    if (!problem_ || problem_->is_running()) return;
    problem_->use_solution(solution_);
    context().frame.bring_to_front(*problem_);
}

void frmSolution::update_prog_sol(bool changed, const std::filesystem::path& file, const std::string& title)
{
    changed_ = changed;
    file_ = file;
    file_format_ = format_of_report(file, 0);
    title_ = title;
    show_title();
}

void frmSolution::show_report(std::string rich_text, const QString& caption)
{
    rich_text_ = std::move(rich_text);
    given_text_.reset();
    caption_ = caption;
    mnuRefresh_Click();
    show_title();
}

void frmSolution::offer_as_problem()
{
    const QString open = tr("Open as a problem");
    lblProblem_->show_text(tr("This text is a problem: %1").arg(open), {open});
    lblProblem_->show();
}

void frmSolution::show_title()
{
    show_caption(caption_);
    emit state_changed();
}

std::string frmSolution::rich_text() const
{
    return given_text_ ? rich_text_of(styled_plain_text(*given_text_)) : rich_text_;
}

std::string frmSolution::plain_text() const
{
    return given_text_ ? *given_text_ : plain_text_of(txtSolution_->lines());
}

void frmSolution::mnuRefresh_Click()
{
    txtSolution_->set_lines(given_text_ ? styled_plain_text(*given_text_) : read_rich_text(rich_text_));
}

bool frmSolution::can(window_command which) const
{
    switch (which) {
    case window_command::select_all:
        return true;
    case window_command::copy:
        return txtSolution_->textCursor().hasSelection();
    case window_command::solve:
        return problem_ && problem_->can(which);
    default:
        return document_window::can(which);
    }
}

void frmSolution::perform(window_command which)
{
    switch (which) {
    case window_command::copy:
        copy();
        break;
    case window_command::select_all:
        txtSolution_->selectAll();
        break;
    case window_command::solve:
        context().frame.bring_to_front(*problem_);
        problem_->perform(which);
        break;
    default:
        document_window::perform(which);
    }
}

QString frmSolution::title_panel() const
{
    return title_.empty() ? QString::fromLatin1(report_title) : to_qstring(title_);
}

void frmSolution::copy()
{
    const std::vector<styled_line> marked = txtSolution_->marked_lines();
    if (!marked.empty()) context().user.copy(clipboard_content(marked));
}

bool frmSolution::print_pages(QPagedPaintDevice& device) const
{
    return print_lines(device, txtSolution_->lines(), progress_box(*txtSolution_, tr("Making pages...")));
}

std::optional<std::string> frmSolution::content_as(report_format format)
{
    switch (format) {
    case report_format::plain_text:
        return plain_text();
    case report_format::pdf:
        return pdf_of(txtSolution_->lines(), caption_, progress_box(*txtSolution_, tr("Making pages...")));
    case report_format::html:
        return html_of(txtSolution_->lines(), to_text(caption_));
    case report_format::rich_text:
        break;
    }
    return rich_text();
}

file_question frmSolution::save_question() const
{
    return {.caption = tr("Save As"),
            .filter = std::string(report_save_filter),
            .proposed = file_.empty() ? last_folder(context().registry, folder_key) / file_name_of_title(title_, ".rtf")
                                      : file_,
            .default_extension = QStringLiteral("rtf")};
}

bool frmSolution::write_file(const std::filesystem::path& path, int filter_index)
{
    const report_format format = filter_index == 0 ? file_format_ : format_of_report(path, filter_index);
    const std::optional<std::string> content = content_as(format);
    if (!content) return false;
    if (const auto failure = save_file(path, *content)) {
        context().user.show(this, {"Error\r" + failure->reason, box_icon::critical});
        return false;
    }
    remember_folder(context().registry, folder_key, path);
    file_ = path;
    file_format_ = format;
    changed_ = false;
    show_title();
    return true;
}

void show_new_report(desktop_context& context, problem_window& problem, std::string rich_text, const std::string& title,
                     const QString& caption, std::vector<solved_value> solution)
{
    problem.reports().push_back({caption, title, std::move(rich_text), nullptr, std::move(solution)});
    show_report_again(context, problem, problem.reports().size() - 1);
}

void show_report_again(desktop_context& context, problem_window& problem, std::size_t index)
{
    problem_report& report = problem.reports().at(index);
    if (report.window) return context.frame.bring_to_front(*report.window);
    auto* solution = new frmSolution(context);
    report.window = solution;
    solution->set_problem(problem, report.solution);
    solution->update_prog_sol(true, {}, report.title);
    solution->show_report(report.rich_text, report.caption);
    context.frame.show_child(solution, &problem);
}

void close_older_reports(problem_window& problem)
{
    bool is_last = true;
    const auto& reports = problem.reports();
    for (auto report = reports.rbegin(); report != reports.rend(); ++report) {
        if (!report->window) continue;
        if (!is_last) report->window->close_with_frame();
        is_last = false;
    }
}

report_reading frmSolution::read(const std::filesystem::path& path)
{
    struct read_file
    {
        text_file file;
        std::vector<styled_line> lines;
    };
    const std::optional<file_stamp> stamp = stamp_of(path);
    const bool rich = lower_case(path.extension().string()) == ".rtf";
    auto read =
        wait_for(this, tr("Reading %1...").arg(path_text(path.filename())), [path, rich](const run_listener& listener) {
            read_file done;
            done.file = read_text_file(path, bounds_of_reports, [&listener] { return listener.stop_asked(); });
            if (done.file.ok()) done.lines = rich ? read_rich_text(done.file.text) : styled_plain_text(done.file.text);
            return done;
        });
    if (!read) return {};
    text_file& file = read->file;
    message_box failed = {"Error while trying to open file.", box_icon::critical};
    if (file.is_too_large) failed.text += "\rThe file can not be read: " + file.failure.reason + ".";
    if (!file.ok() || (rich && !file.text.starts_with(rich_text_mark))) return {false, failed};

    note_file(path, stamp);
    given_text_.reset();
    rich_text_.clear();
    if (rich)
        rich_text_ = std::move(file.text);
    else
        given_text_ = std::move(file.text);
    caption_ = QString::fromLatin1(report_title) + QStringLiteral("- ") + path_text(path.filename());
    txtSolution_->set_lines(std::move(read->lines));
    update_prog_sol(false, path, report_title);
    return {true, std::nullopt};
}

void frmSolution::reload()
{
    if (const auto refused = read(std::filesystem::path(file_)).refused) context().user.show(this, *refused);
}

std::optional<message_box> open_report(desktop_context& context, const std::filesystem::path& path, bool holds_problem)
{
    auto window = std::make_unique<frmSolution>(context);
    if (report_reading reading = window->read(path); !reading.is_shown) return reading.refused;
    remember_folder(context.registry, folder_key, path);
    if (holds_problem) window->offer_as_problem();
    context.frame.show_child(window.release());
    return std::nullopt;
}

} // namespace kelvarin
