// SPDX-License-Identifier: MIT
// Shows a window and ends as soon as it was painted: "kelvarin" the program's main window, with all that is built and
// read before it; "bare" an empty one of the toolkit, which is the least that any program with windows takes.
#include "app/frmMDIKelvarin.h"
#include "desktop/qt_text.h"

#include <QApplication>
#include <QLabel>

#include <cstring>

namespace
{

using namespace kelvarin;

/// Ends the program behind the first painting of a window.
class painting_watch : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        return QObject::eventFilter(watched, event);
    }
};

int show_until_painted(QMainWindow& window)
{
    painting_watch watch;
    window.installEventFilter(&watch);
    window.show();
    return QApplication::exec();
}

int show_bare()
{
    QMainWindow window;
    window.setCentralWidget(new QLabel(QStringLiteral("Kelvarin")));
    window.resize(1088, 680);
    return show_until_painted(window);
}

int show_kelvarin()
{
    file_registry registry(default_registry_file());
    settings store(registry);
    const system_clock clock;
    const auto user = make_desktop_interface();
    recovery_store recovery(default_recovery_folder());
    frmMDIKelvarin window({store, registry, clock, *user, recovery});
    return show_until_painted(window);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    return argc == 2 && std::strcmp(argv[1], "bare") == 0 ? show_bare() : show_kelvarin();
}
