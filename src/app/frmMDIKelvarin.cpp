// SPDX-License-Identifier: MIT
#include "app/frmMDIKelvarin.h"

#include "app/child_area.h"
#include "app/child_button_style.h"
#include "app/file_drop.h"
#include "app/focused_field.h"
#include "app/frmAbout.h"
#include "app/main_menus.h"
#include "app/main_status_bar.h"
#include "app/main_toolbar.h"
#include "app/problem_kinds.h"
#include "app/start_page.h"
#include "app/tool_windows.h"
#include "desktop/accent_keeper.h"
#include "desktop/icons.h"
#include "desktop/length_guard.h"
#include "desktop/wheel_guard.h"
#include "desktop/window_memory.h"
#include "help/window/frmHelp.h"
#include "help/window/help_key.h"
#include "help/window/help_pages.h"

#include <QApplication>
#include <QMenuBar>
#include <QScreen>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace kelvarin
{

namespace
{

rectangle rectangle_of(const QRect& place)
{
    return {.left = place.x(), .top = place.y(), .width = place.width(), .height = place.height()};
}

} // namespace

frmMDIKelvarin::frmMDIKelvarin(const program_services& services)
    : context_{services.store, services.registry, services.clock, services.user, services.recovery, *this},
      commands_(std::make_unique<command_actions>(nullptr)), tools_(std::make_unique<tool_windows>(context_))
{
    setObjectName(QStringLiteral("frmMDIKelvarin"));
    setWindowTitle(tr("Kelvarin"));
    setWindowIcon(program_icon("app"));
    // All of these apply to all windows of the program.
    if (!qApp->findChild<wheel_guard*>()) new wheel_guard(*qApp);
    if (!qApp->findChild<length_guard*>()) new length_guard(*qApp);
    if (!qApp->findChild<accent_keeper*>()) new accent_keeper(*qApp);
    child_button_style::install();
    build_ui();
    connect_parts();
    restore_window_placement();
    apply_settings();
    show_front_child();
}

frmMDIKelvarin::~frmMDIKelvarin()
{
    // The base class would delete the children after the members that they use.
    disconnect(area_, nullptr, this, nullptr);
    disconnect(field_, nullptr, this, nullptr);
    delete takeCentralWidget();
}

void frmMDIKelvarin::build_ui()
{
    for (const window_command which : all_commands())
        addAction(action(which));

    auto* centre = new QWidget(this);
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    pages_ = new QStackedWidget(centre);
    area_ = new child_area(pages_);
    start_page_ = new start_page(*commands_, context_.registry, pages_);
    pages_->addWidget(start_page_);
    pages_->addWidget(area_);
    layout->addWidget(pages_, 1);
    setCentralWidget(centre);

    addToolBar(new main_toolbar(*commands_, this));
    menus_ = new main_menus(*this, context_, *commands_, *area_);
    StbMDI_ = new main_status_bar(action(window_command::stop), this);
    setStatusBar(StbMDI_);
    field_ = new focused_field(*this);
}

void frmMDIKelvarin::connect_parts()
{
    connect(commands_.get(), &command_actions::triggered, this, &frmMDIKelvarin::run_command);
    connect(findChild<main_toolbar*>(), &main_toolbar::new_window_asked, this,
            [this](const problem_window_kind& kind) { new_window(kind); });
    connect(menus_, &main_menus::new_window_asked, this, &frmMDIKelvarin::new_window_of_this_kind);
    connect(area_, &child_area::front_changed, this, &frmMDIKelvarin::show_front_child);
    connect(area_, &child_area::child_changed, this, [this](const child_window* changed) {
        if (changed == active_child()) {
            refresh_commands();
            refresh_panels();
        }
        close_when_runs_have_stopped();
    });
    connect(StbMDI_, &main_status_bar::has_said, this, &frmMDIKelvarin::refresh_panels);
    connect(field_, &focused_field::changed, this, &frmMDIKelvarin::refresh_commands);
    connect(start_page_, &start_page::document_chosen, this, &frmMDIKelvarin::open_document);
    connect(start_page_, &start_page::problem_chosen, this,
            [this](const problem_kind* kind, const std::filesystem::path& path) {
                open_problem(*kind_of_row(kind), path, false);
            });
    connect(start_page_, &start_page::example_chosen, this, &frmMDIKelvarin::open_example);
    connect(tools_.get(), &tool_windows::settings_changed, this, &frmMDIKelvarin::apply_settings);
    connect(tools_.get(), &tool_windows::example_asked, this, &frmMDIKelvarin::open_example_by_name);
    new help_key(*this, [this] { show_contents(); });
    connect(new file_drop(*this), &file_drop::dropped, this, &frmMDIKelvarin::open_documents);
}

void frmMDIKelvarin::restore_window_placement()
{
    const QScreen* main_screen = QGuiApplication::primaryScreen();
    const rectangle screen = main_screen ? rectangle_of(main_screen->availableGeometry()) : rectangle{};
    const placement placed =
        restore_placement(context_.registry, first_placement(screen), screen_places(), usual_frame(context_.registry));
    appear_at(context_.registry, *this, placed.normal);
    store_settings(context_);
    move(placed.normal.left, placed.normal.top);
    resize(placed.normal.width, placed.normal.height);
    if (placed.state == window_state::maximised) setWindowState(Qt::WindowMaximized);
}

placement frmMDIKelvarin::present_placement() const
{
    const window_state state = isMinimized()   ? window_state::minimised
                               : isMaximized() ? window_state::maximised
                                               : window_state::normal;
    return {present_place(*this), state};
}

void frmMDIKelvarin::apply_settings()
{
    refresh_panels();
    const bool pictures = context_.store.is_true("general_show_background_pictures");
    area_->show_background_picture(pictures);
    start_page_->show_background_picture(pictures);
}

QMenu* frmMDIKelvarin::new_menu()
{
    return menus_->new_menu();
}

QMenu* frmMDIKelvarin::tools_menu()
{
    return menus_->tools_menu();
}

QMenu* frmMDIKelvarin::window_menu()
{
    return menus_->window_menu();
}

QMenu* frmMDIKelvarin::help_menu()
{
    return menus_->help_menu();
}

void frmMDIKelvarin::show_child(child_window* window, child_window* beside)
{
    pages_->setCurrentWidget(area_);
    // Immediate layout: the placement of a new window depends on the available space.
    pages_->parentWidget()->layout()->activate();
    area_->add(std::unique_ptr<child_window>(window), beside);
}

void frmMDIKelvarin::bring_to_front(child_window& window)
{
    area_->bring_to_front(window);
}

child_window* frmMDIKelvarin::active_child() const
{
    return area_->front();
}

void frmMDIKelvarin::show_front_child()
{
    child_window* front = active_child();
    // The start page is shown only if there are no children, not if they are all inactive.
    pages_->setCurrentWidget(area_->subWindowList().isEmpty() ? static_cast<QWidget*>(start_page_) : area_);
    menuBar()->clear();
    const QList<QMenu*> bar = front ? front->menus() : menus_->bar();
    for (QMenu* menu : bar)
        menuBar()->addMenu(menu);
    refresh_commands();
    refresh_panels();
    // Queued until the frames have settled: a closing one would take the modified mark of the next one with it.
    QMetaObject::invokeMethod(
        this,
        [this] {
            const child_window* shown = active_child();
            setWindowModified(shown && shown->parentWidget()->isMaximized() && shown->isWindowModified());
        },
        Qt::QueuedConnection);
}

void frmMDIKelvarin::refresh_panels()
{
    const child_window* front = active_child();
    StbMDI_->show_panels(front ? front->file_panel() : tr("No File  "), front ? front->title_panel() : tr("No Title "));
    const bool running = front && front->is_running();
    StbMDI_->show_run(running);
    // Progress and Stop, and what has to be said, are shown even if the status bar is switched off.
    StbMDI_->setVisible(running || StbMDI_->is_saying() || context_.store.is_true("general_show_status_bar"));
    if (running) set_progress(front->fraction_done(), 0.0, 1.0);
}

void frmMDIKelvarin::set_progress(double x, double x_start, double x_end)
{
    StbMDI_->show_fraction((x - x_start) / (x_end - x_start));
}

void frmMDIKelvarin::say_once(const QString& text)
{
    if (said_.contains(text)) return;
    said_.insert(text);
    StbMDI_->say(text);
    refresh_panels();
}

void frmMDIKelvarin::refresh_commands()
{
    const child_window* front = active_child();
    for (const window_command which : all_commands()) {
        QAction* shown = action(which);
        shown->setEnabled(can(which));
        const QString caption = front && !field_->can(which) ? front->caption_of(which) : QString();
        if (caption.isEmpty())
            commands_->restore_caption(which);
        else
            shown->setText(caption);
    }
}

bool frmMDIKelvarin::can(window_command which) const
{
    switch (which) {
    case window_command::close_all:
    case window_command::cascade:
    case window_command::tile_horizontally:
    case window_command::tile_vertically:
    case window_command::arrange_icons:
        return !area_->subWindowList().isEmpty();
    case window_command::save:
    case window_command::save_as:
    case window_command::print:
    case window_command::print_preview:
    case window_command::close:
    case window_command::solve:
    case window_command::stop:
    case window_command::undo:
    case window_command::redo:
    case window_command::cut:
    case window_command::copy:
    case window_command::paste:
    case window_command::select_all: {
        const child_window* front = active_child();
        return field_->can(which) || (front && front->can(which));
    }
    default:
        return true;
    }
}

void frmMDIKelvarin::run_command(window_command which)
{
    if (const problem_window_kind* kind = kind_of_command(which))
        show_default_window(*kind);
    else if (!run_window_command(which))
        run_child_command(which);
}

bool frmMDIKelvarin::run_window_command(window_command which)
{
    switch (which) {
    case window_command::open:
        open_file_dialog();
        return true;
    case window_command::exit:
        close();
        return true;
    case window_command::close_all:
        close_all();
        return true;
    case window_command::calculator:
    case window_command::units:
    case window_command::antoine:
    case window_command::constants:
    case window_command::setup:
        show_tool(which);
        return true;
    case window_command::cascade:
        area_->cascade();
        return true;
    case window_command::tile_horizontally:
        area_->tile(tiling_direction::horizontal);
        return true;
    case window_command::tile_vertically:
        area_->tile(tiling_direction::vertical);
        return true;
    case window_command::arrange_icons:
        area_->arrange_icons();
        return true;
    case window_command::contents:
        show_contents();
        return true;
    case window_command::about:
        (new frmAbout(context_.user, this))->open();
        return true;
    default:
        return false;
    }
}

void frmMDIKelvarin::run_child_command(window_command which)
{
    if (field_->can(which))
        field_->perform(which);
    else if (child_window* front = active_child(); front && front->can(which))
        front->perform(which);
}

void frmMDIKelvarin::new_window_of_this_kind()
{
    const child_window* front = active_child();
    for (const problem_window_kind& kind : problem_window_kinds())
        if (front && front->objectName() == QLatin1String(kind.row->window_name)) return void(new_window(kind));
    // With a report or nothing active: the most frequent kind of problem.
    new_window(*kind_of_command(window_command::new_nle));
}

void frmMDIKelvarin::show_contents()
{
    const QWidget* front = QApplication::focusWidget();
    const child_window* child = active_child();
    // The keyboard may be nowhere, or on the main window's own frame around the window in front.
    if (child && (!front || (front->window() == this && !child->isAncestorOf(front)))) front = child;
    const std::string target = help_target_in_front(front ? front : this);
    tools_->show(window_command::contents);
    tools_->help()->show_target(target);
}

void frmMDIKelvarin::show_tool(window_command tool)
{
    tools_->show(tool);
}

void frmMDIKelvarin::show_message(const char* text)
{
    // The active window may be a tool, which gets the focus back when the box is closed.
    context_.user.show(QApplication::activeWindow(), {text, box_icon::exclamation});
}

} // namespace kelvarin
