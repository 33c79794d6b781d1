// SPDX-License-Identifier: MIT
// Renders the pictures of the help from the real windows with examples in them, without a screen:
//
// kelvarin-screenshots EXAMPLES FOLDER
//
// A test compares them with those in docs/help/pictures; `cmake --build BUILD --target kelvarin-help` makes these anew.
#include "app/frmMDIKelvarin.h"
#include "desktop/problem_window.h"
#include "desktop/qt_text.h"
#include "shell/window/frmSolution.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTreeWidget>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string>

namespace
{

using namespace kelvarin;

constexpr QSize main_size(1000, 620);

void wait_until(const std::function<bool()>& condition)
{
    constexpr int longest_ms = 60000;
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

template <class Widget> Widget& find_control(QWidget& window, const char* name)
{
    auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (!found) throw std::runtime_error(std::string("there is no ") + name);
    return *found;
}

QWidget& shown_window(const char* name)
{
    QWidget* found = nullptr;
    wait_until([&] {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->objectName() == QLatin1String(name)) found = window;
        return found != nullptr;
    });
    return *found;
}

/// The main window with services of its own: default settings, a fixed date, nothing remembered.
class stage
{
public:
    explicit stage(const QDir& examples) : examples_(examples)
    {
        window.show();
        window.resize(main_size);
        settle();
    }

    void open(const char* example)
    {
        window.open_document(to_path(examples_.filePath(QString::fromLatin1(example))));
        settle();
    }
    /// The files of optimizations are opened by their own windows alone.
    void open_optimization(const char* example)
    {
        window.action(window_command::new_opt)->trigger();
        auto* problem = dynamic_cast<problem_window*>(window.active_child());
        if (!problem || !problem->open_example(to_path(examples_.filePath(QString::fromLatin1(example)))))
            throw std::runtime_error("no optimization");
        settle();
    }
    QWidget& problem() { return *window.active_child(); }
    /// Solves what is in front, and waits for the window of its answer.
    QWidget& solve(const char* answer)
    {
        window.action(window_command::solve)->trigger();
        QWidget* found = nullptr;
        wait_until([&] { return (found = window.findChild<QWidget*>(QString::fromLatin1(answer))) != nullptr; });
        settle();
        return *found;
    }
    QWidget& tool(window_command which, const char* name)
    {
        window.show_tool(which);
        return shown_window(name);
    }

private:
    settings store_;
    memory_registry registry_;
    fixed_clock clock_;
    std::unique_ptr<user_interface> user_ = make_desktop_interface();
    QTemporaryDir folder_;
    recovery_store recovery_{to_path(folder_.path())};
    QDir examples_;

public:
    frmMDIKelvarin window{{store_, registry_, clock_, *user_, recovery_}};
};

QImage side_by_side(stage& on)
{
    on.window.action(window_command::tile_vertically)->trigger();
    settle();
    return on.window.grab().toImage();
}

QImage start_page(stage& on)
{
    return on.window.grab().toImage();
}

QImage nonlinear(stage& on)
{
    on.open("cable-sag.kvr");
    on.solve("frmSolution");
    return side_by_side(on);
}

QImage linear(stage& on)
{
    on.open("bridge-circuit.kvr");
    on.solve("frmSolution");
    return side_by_side(on);
}

QWidget& graph_of_run(stage& on, const char* example)
{
    on.open(example);
    find_control<QCheckBox>(on.problem(), "chkReport").setChecked(false);
    find_control<QCheckBox>(on.problem(), "chkGraph").setChecked(true);
    return on.solve("frmGraph");
}

QImage differential(stage& on)
{
    QWidget& graph = graph_of_run(on, "batch-reactor.kvr");
    // The temperature is too far from the concentrations.
    find_control<QListWidget>(graph, "lstCurves").item(3)->setCheckState(Qt::Unchecked);
    return side_by_side(on);
}

QImage graph(stage& on)
{
    graph_of_run(on, "epidemic.kvr").parentWidget()->showMaximized();
    settle();
    return on.window.grab().toImage();
}

QImage dark(stage& on)
{
    const QPalette light = QApplication::palette();
    QPalette colours(QColor(43, 45, 48));
    colours.setColor(QPalette::Base, QColor(30, 31, 34));
    colours.setColor(QPalette::AlternateBase, QColor(38, 40, 43));
    QApplication::setPalette(colours);
    settle();
    graph_of_run(on, "epidemic.kvr");
    QImage image = side_by_side(on);
    QApplication::setPalette(light);
    return image;
}

QImage table(stage& on)
{
    on.open("vapour-pressure.kvr");
    on.problem().parentWidget()->showMaximized();
    settle();
    return on.window.grab().toImage();
}

QImage regression(stage& on)
{
    on.open("vapour-pressure.kvr");
    find_control<QTabBar>(on.problem(), "sstMainTable").setCurrentIndex(1);
    find_control<QTabWidget>(on.problem(), "sstReg").setCurrentIndex(2);
    on.solve("frmSolution");
    return side_by_side(on);
}

QImage optimization(stage& on)
{
    on.open_optimization("least-cost-pipe.kvr");
    on.solve("frmSolution");
    return side_by_side(on);
}

QImage report(stage& on)
{
    on.open("adiabatic-flash.kvr");
    QWidget& shown = on.solve("frmSolution");
    shown.parentWidget()->showMaximized();
    settle();
    return on.window.grab().toImage();
}

QImage calculator(stage& on)
{
    QWidget& shown = on.tool(window_command::calculator, "frmCal");
    for (const char* line : {"d = 0.25", "area = 3.14159265358979*d^2/4", "q = 0.085", "v = q/area"}) {
        auto& entry = find_control<QWidget>(shown, "txtExpression");
        if (auto* rich = qobject_cast<QTextEdit*>(&entry))
            rich->setPlainText(QString::fromLatin1(line));
        else if (auto* plain = qobject_cast<QPlainTextEdit*>(&entry))
            plain->setPlainText(QString::fromLatin1(line));
        find_control<QPushButton>(shown, "cmdCalculate").click();
    }
    settle();
    return shown.grab().toImage();
}

QImage units(stage& on)
{
    QWidget& shown = on.tool(window_command::units, "frmUni");
    auto& number = find_control<QLineEdit>(shown, "txtNumToConvert");
    number.setText(QStringLiteral("26.2"));
    find_control<QPushButton>(shown, "cmdConvert").click();
    settle();
    return shown.grab().toImage();
}

QImage constants(stage& on)
{
    QWidget& shown = on.tool(window_command::constants, "frmConstant");
    settle();
    return shown.grab().toImage();
}

QImage settings_tree(stage& on)
{
    QWidget& shown = on.tool(window_command::setup, "frmInitials");
    auto& tree = find_control<QTreeWidget>(shown, "tvw");
    const auto leaves = tree.findItems(QStringLiteral("Max # of iterations"), Qt::MatchContains | Qt::MatchRecursive);
    if (!leaves.isEmpty()) tree.setCurrentItem(leaves.first());
    settle();
    return shown.grab().toImage();
}

struct picture
{
    const char* name;
    QImage (*take)(stage&);
};

constexpr picture pictures[] = {
    {"start-page", start_page}, {"nonlinear", nonlinear},
    {"linear", linear},         {"differential", differential},
    {"graph", graph},           {"dark", dark},
    {"table", table},           {"regression", regression},
    {"report", report},         {"optimization", optimization},
    {"calculator", calculator}, {"units", units},
    {"constants", constants},   {"settings", settings_tree},
};

/// Sixteen steps of each colour, and a table of them where that is enough: a third of the size.
QImage with_fewer_colours(QImage image)
{
    image = image.convertToFormat(QImage::Format_RGB32);
    QList<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const auto step = [](int part) { return (part + 8) / 17 * 17; };
            line[x] = qRgb(step(qRed(line[x])), step(qGreen(line[x])), step(qBlue(line[x])));
            if (!colours.contains(line[x])) colours.append(line[x]);
        }
    }
    constexpr int largest_table = 256;
    if (colours.size() > largest_table) return image;
    std::ranges::sort(colours);
    return image.convertToFormat(QImage::Format_Indexed8, colours, Qt::ThresholdDither);
}

void take_pictures(const QDir& examples, const QDir& folder)
{
    for (const picture& each : pictures) {
        stage on(examples);
        const QImage image = with_fewer_colours(each.take(on));
        constexpr int smallest_file = 0;
        const QString file = folder.filePath(QString::fromLatin1(each.name) + QStringLiteral(".png"));
        if (!image.save(file, "PNG", smallest_file)) throw std::runtime_error("can not write " + to_text(file));
    }
}

/// A screen that is large enough, the same for everybody.
void use_screen_of_its_own(const QTemporaryDir& folder)
{
    QFile screen(folder.filePath(QStringLiteral("screen.json")));
    if (!screen.open(QIODevice::WriteOnly)) throw std::runtime_error("can not write the description of a screen");
    screen.write(R"({"screens": [{"name": "one", "x": 0, "y": 0, "width": 1280, "height": 800,
                     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toLocal8Bit());
    qputenv("QT_SCALE_FACTOR", "1");
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("QT_QPA_PLATFORMTHEME");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("usage: kelvarin-screenshots EXAMPLES FOLDER\n", stderr);
        return 2;
    }
    try {
        const QTemporaryDir own;
        use_screen_of_its_own(own);
        QApplication application(argc, argv);
        QApplication::setStyle(QStringLiteral("Fusion"));
        QApplication::setFont(QFont(QStringLiteral("sans-serif"), 9));
        take_pictures(QDir(QString::fromLocal8Bit(argv[1])), QDir(QString::fromLocal8Bit(argv[2])));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "kelvarin-screenshots: %s\n", failure.what());
        return 1;
    }
    return 0;
}
