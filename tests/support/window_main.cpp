// SPDX-License-Identifier: MIT
// The main program of tests that act on windows: no screen, a home of its own, and no warning of the toolkit
// passes unseen.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>
#include <QFontDatabase>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <iostream>

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

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    // Without a variable set by hand the tests need no screen.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const own_home home;
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setQuitOnLastWindowClosed(false);
    // The core reads and writes numbers its own way; this is what the rest of a process expects.
    std::setlocale(LC_NUMERIC, "C");
    qInstallMessageHandler(fail_on_warning);
    return RUN_ALL_TESTS();
}
