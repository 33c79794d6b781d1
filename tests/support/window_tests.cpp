// SPDX-License-Identifier: MIT
#include "support/window_tests.h"

#include "support/own_screen.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QSize>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <optional>

namespace
{

void fail_on_warning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    // Notices of the platform without a screen about itself: no raise(), no propagateSizeHints().
    if (text.contains(QLatin1String("This plugin does not support"))) return;
    ADD_FAILURE() << "the toolkit warns: " << text.toStdString();
}

/// A home without anybody's settings, and gone afterwards.
class own_home
{
public:
    own_home()
    {
        std::string name = (std::filesystem::temp_directory_path() / "kelvarin-home-XXXXXX").string();
        folder_ = mkdtemp(name.data());
        setenv("HOME", folder_.c_str(), 1);
        for (const char* variable : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
            setenv(variable, (folder_ / variable).c_str(), 1);
        std::filesystem::create_directory(folder_ / "run");
        std::filesystem::permissions(folder_ / "run", std::filesystem::perms::owner_all);
        setenv("XDG_RUNTIME_DIR", (folder_ / "run").c_str(), 1);
    }
    ~own_home()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    own_home(const own_home&) = delete;
    own_home& operator=(const own_home&) = delete;

private:
    std::filesystem::path folder_;
};

} // namespace

namespace kelvarin::test
{

int run_window_tests(int argc, char** argv, where_windows_are where)
{
    testing::InitGoogleTest(&argc, argv);
    // Neither fonts nor services of the user's desktop reach the tests.
    setenv("FONTCONFIG_FILE", KELVARIN_TEST_FONTS, 0);
    setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    const own_home home;
    std::optional<own_screen> screen;
    // Who only asks for the names of the tests needs no screen.
    if (where == where_windows_are::on_screen && !testing::GTEST_FLAG(list_tests)) {
        screen.emplace(QSize(1024, 700));
        setenv("DISPLAY", screen->name().c_str(), 1);
        setenv("QT_QPA_PLATFORM", "xcb", 1);
    } else {
        // Without a variable set by hand the tests need no screen.
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
    }
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setQuitOnLastWindowClosed(false);
    // The core reads and writes numbers its own way; this is what the rest of a process expects.
    std::setlocale(LC_NUMERIC, "C");
    qInstallMessageHandler(fail_on_warning);
    return RUN_ALL_TESTS();
}

} // namespace kelvarin::test
