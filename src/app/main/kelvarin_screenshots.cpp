// SPDX-License-Identifier: MIT
// Renders the pictures of the documentation from the real windows, without a screen:
//
// kelvarin-screenshots PROBLEM.kvr FOLDER       those of the first page, light and dark
// kelvarin-screenshots --help-pages EXAMPLES FOLDER     those of the help
#include "app/frmMDIKelvarin.h"
#include "desktop/problem_window.h"
#include "desktop/qt_text.h"
#include "shell/window/frmSolution.h"
#include "tools/window/frmCal.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTreeWidget>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string_view>

namespace
{

using namespace kelvarin;

constexpr QSize main_size(1280, 800);

QPalette dark_palette()
{
    QPalette dark(QColor(43, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 31, 34));
    dark.setColor(QPalette::AlternateBase, QColor(38, 40, 43));
    return dark;
}

void wait_until(const std::function<bool()>& condition)
{
    constexpr int longest_ms = 20000;
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > longest_ms) throw std::runtime_error("a window did not come");
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    }
}

void settle()
{
    QElapsedTimer timer;
    timer.start();
    wait_until([&] { return timer.elapsed() > 300; });
}

QWidget* shown_window(const char* name)
{
    QWidget* found = nullptr;
    wait_until([&] {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->objectName() == QLatin1String(name)) found = window;
        return found != nullptr;
    });
    return found;
}

template <class Widget> Widget& find_control(QWidget& window, const char* name)
{
    auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (!found) throw std::runtime_error(std::string("there is no ") + name);
    return *found;
}

/// The services for the windows of one picture: default settings, a fixed date.
struct picture_services
{
    settings store;
    memory_registry registry;
    fixed_clock clock;
    std::unique_ptr<user_interface> user = make_desktop_interface();
    QTemporaryDir folder;
    recovery_store recovery{to_path(folder.path())};
};

class picture_taker
{
public:
    picture_taker(QString folder, QString ending) : folder_(std::move(folder)), ending_(std::move(ending)) {}

    void take(QWidget& window, const char* name) const
    {
        settle();
        const QString file = QStringLiteral("%1/%2-%3.png").arg(folder_, QString::fromLatin1(name), ending_);
        if (!window.grab().save(file)) throw std::runtime_error("can not write " + to_text(file));
    }

private:
    QString folder_;
    QString ending_;
};

void take_problem(frmMDIKelvarin& window, const picture_taker& camera, const QString& problem)
{
    window.open_document(to_path(problem));
    settle();
    window.action(window_command::solve)->trigger();
    wait_until([&] { return window.findChild<frmSolution*>() != nullptr; });
    window.action(window_command::tile_vertically)->trigger();
    camera.take(window, "main-window");
    auto* report = window.findChild<frmSolution*>();
    report->parentWidget()->showMaximized();
    camera.take(*report, "report");
}

void take_graph(frmMDIKelvarin& window, const picture_taker& camera, const QString& differential_problem)
{
    window.close_all();
    window.open_document(to_path(differential_problem));
    settle();
    find_control<QCheckBox>(*window.active_child(), "chkReport").setChecked(false);
    find_control<QCheckBox>(*window.active_child(), "chkGraph").setChecked(true);
    window.action(window_command::solve)->trigger();
    wait_until([&] { return window.findChild<QWidget*>(QStringLiteral("frmGraph")) != nullptr; });
    window.findChild<QWidget*>(QStringLiteral("frmGraph"))->parentWidget()->showMaximized();
    camera.take(window, "graph");
    window.close_all();
}

void take_calculator(frmMDIKelvarin& window, const picture_taker& camera)
{
    window.show_tool(window_command::calculator);
    QWidget& calculator = *shown_window("frmCal");
    for (const char* line :
         {"d = 0.25", "area = 3.14159265358979*d^2/4", "q = 0.085", "v = q/area", "if v > 1.5 then 1 else 0"}) {
        find_control<QWidget>(calculator, "txtExpression").setFocus();
        if (auto* entry = calculator.findChild<QTextEdit*>(QStringLiteral("txtExpression")))
            entry->setPlainText(QString::fromLatin1(line));
        else
            find_control<QPlainTextEdit>(calculator, "txtExpression").setPlainText(QString::fromLatin1(line));
        find_control<QPushButton>(calculator, "cmdCalculate").click();
    }
    camera.take(calculator, "calculator");
    calculator.close();
}

void take_settings(frmMDIKelvarin& window, const picture_taker& camera)
{
    window.show_tool(window_command::setup);
    QWidget& shown = *shown_window("frmInitials");
    auto& tree = find_control<QTreeWidget>(shown, "tvw");
    const auto leaves = tree.findItems(QStringLiteral("Max # of iterations"), Qt::MatchContains | Qt::MatchRecursive);
    if (!leaves.isEmpty()) tree.setCurrentItem(leaves.first());
    camera.take(shown, "settings");
    shown.close();
}

/// A solved example beside its report, or beside its graph where it is a differential problem.
void take_help_picture(const QString& examples, const QString& folder, const char* example, const char* name)
{
    constexpr QSize help_size(1000, 620);
    picture_services used;
    frmMDIKelvarin window({used.store, used.registry, used.clock, *used.user, used.recovery});
    window.resize(help_size);
    window.show();
    const auto file = to_path(QStringLiteral("%1/%2").arg(examples, QString::fromLatin1(example)));
    // The files of optimizations are opened by their own windows alone.
    window.action(window_command::new_opt)->trigger();
    auto* optimization = dynamic_cast<problem_window*>(window.active_child());
    if (std::string_view(name) != "optimization") {
        window.close_all();
        window.open_document(file);
    } else if (!optimization || !optimization->open_example(file)) {
        throw std::runtime_error("no optimization");
    }
    settle();
    QWidget& problem = *window.active_child();
    if (auto* graph = problem.findChild<QCheckBox*>(QStringLiteral("chkGraph"));
        graph && std::string_view(name) == "differential") {
        find_control<QCheckBox>(problem, "chkReport").setChecked(false);
        graph->setChecked(true);
    }
    if (window.action(window_command::solve)->isEnabled()) {
        window.action(window_command::solve)->trigger();
        settle();
    }
    window.action(window_command::tile_vertically)->trigger();
    settle();
    if (!window.grab().save(QStringLiteral("%1/%2.png").arg(folder, QString::fromLatin1(name))))
        throw std::runtime_error(std::string("can not write ") + name);
}

void take_help_pictures(const QString& examples, const QString& folder)
{
    take_help_picture(examples, folder, "cable-sag.kvr", "nonlinear");
    take_help_picture(examples, folder, "bridge-circuit.kvr", "linear");
    take_help_picture(examples, folder, "batch-reactor.kvr", "differential");
    take_help_picture(examples, folder, "indicator-diagram.kvr", "table");
    take_help_picture(examples, folder, "least-cost-pipe.kvr", "optimization");
}

void take_all(const QString& problem, const picture_taker& camera)
{
    picture_services used;
    frmMDIKelvarin window({used.store, used.registry, used.clock, *used.user, used.recovery});
    window.resize(main_size);
    window.show();
    camera.take(window, "start-page");
    take_problem(window, camera, problem);
    // Another of the examples.
    take_graph(window, camera, QFileInfo(problem).dir().filePath(QStringLiteral("enzyme-kinetics.kvr")));
    take_calculator(window, camera);
    take_settings(window, camera);
}

} // namespace

int main(int argc, char** argv)
{
    const bool for_help = argc == 4 && std::string(argv[1]) == "--help-pages";
    if (argc != 3 && !for_help) {
        std::fputs("usage: kelvarin-screenshots PROBLEM.kvr FOLDER\n"
                   "       kelvarin-screenshots --help-pages EXAMPLES FOLDER\n",
                   stderr);
        return 2;
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    const QString problem = QString::fromLocal8Bit(argv[argc - 2]);
    const QString folder = QString::fromLocal8Bit(argv[argc - 1]);
    try {
        if (for_help) return take_help_pictures(problem, folder), 0;
        take_all(problem, {folder, QStringLiteral("light")});
        QApplication::setPalette(dark_palette());
        take_all(problem, {folder, QStringLiteral("dark")});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "kelvarin-screenshots: %s\n", failure.what());
        return 1;
    }
    return 0;
}
