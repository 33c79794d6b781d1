// SPDX-License-Identifier: MIT
#include "app/Main.h"

#include "app/export_picture.h"
#include "app/frmMDIKelvarin.h"
#include "app/frmStartup.h"
#include "app/guarded_application.h"
#include "app/start_request.h"
#include "desktop/icons.h"
#include "desktop/qt_text.h"
#include "platform/runtime_failure.h"
#include "platform/saver.h"
#include "shell/report/rich_text.h"

#include <QApplication>

#include <clocale>
#include <csignal>
#include <iostream>
#include <variant>

namespace kelvarin
{

namespace
{

void name_program()
{
    QCoreApplication::setOrganizationName(QStringLiteral("kelvarin"));
    QCoreApplication::setApplicationName(QStringLiteral("kelvarin"));
    QCoreApplication::setApplicationVersion(to_qstring(program_version()));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.kelvarin.Kelvarin"));
    QGuiApplication::setWindowIcon(program_icon("app"));
}

std::vector<std::string> arguments_of(const QApplication& application)
{
    std::vector<std::string> arguments;
    // The toolkit has removed its own options.
    for (const QString& argument : application.arguments().mid(1))
        arguments.push_back(to_text(argument));
    return arguments;
}

bool on_a_desktop()
{
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

void show_main_window(frmMDIKelvarin& window, const start_request& request)
{
    window.show();
    // The splash would hide an opened document.
    if (request.documents.empty() && on_a_desktop()) (new frmStartup(&window))->show();
    // As an event, which may fail.
    QMetaObject::invokeMethod(
        &window,
        [&window, documents = request.documents] {
            window.offer_recovered_problems();
            window.open_documents(documents);
        },
        Qt::QueuedConnection);
}

int export_without_window(const export_request& request, int argc, char** argv)
{
    if (needs_no_toolkit(request)) return export_picture(request, std::cerr);
    // No display is needed, and none is used.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    return export_picture(request, std::cerr);
}

} // namespace

int Main(int argc, char** argv)
{
    const std::vector<std::string> typed(argv + (argc > 0 ? 1 : 0), argv + argc);
    if (const auto asked = read_export(typed)) {
        if (const auto* const wrong = std::get_if<std::string>(&*asked)) {
            std::cerr << "kelvarin: " << *wrong << "\n";
            return 2;
        }
        return export_without_window(std::get<export_request>(*asked), argc, argv);
    }
    if (const std::optional<terminal_answer> answer = answer_on_terminal(typed)) {
        (answer->status == 0 ? std::cout : std::cerr) << answer->text;
        return answer->status;
    }
    if (!has_screen(screen_of_environment())) {
        std::cerr << "kelvarin: there is no display to open a window on. kelvarin-solve solves problem files "
                     "without one.\n";
        return 1;
    }
    // A limit on the size of files is then an error of the write, like a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    guarded_application application(argc, argv);
    // Numbers have the same form in every country; the toolkit has just set the user's locale.
    std::setlocale(LC_NUMERIC, "C");
    name_program();

    file_registry registry(default_registry_file());
    settings store(registry);
    const system_clock clock;
    const auto user = make_desktop_interface();
    for (const std::filesystem::path& folder : {default_registry_file().parent_path(), default_recovery_folder()})
        remove_abandoned_files(folder);
    recovery_store recovery(default_recovery_folder());
    frmMDIKelvarin window({store, registry, clock, *user, recovery});
    QObject::connect(&window, &frmMDIKelvarin::ended, &application, &QCoreApplication::exit, Qt::QueuedConnection);
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &window, &frmMDIKelvarin::commit_session,
                     Qt::DirectConnection);
    QObject::connect(&application, &guarded_application::event_failed, &window, [&](const std::exception_ptr& failure) {
        user->show(QApplication::activeWindow(),
                   {.text = "Internal Error trapped. " + failure_reason(failure), .icon = box_icon::critical});
    });

    const start_request request = read_arguments(arguments_of(application));
    if (request.tool)
        window.show_tool(*request.tool);
    else
        show_main_window(window, request);
    const int status = QApplication::exec();
    // A tool that ran alone has stored its position, and no main window has flushed it.
    static_cast<void>(registry.flush());
    return status;
}

} // namespace kelvarin
