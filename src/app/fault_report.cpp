// SPDX-License-Identifier: MIT
#include "app/fault_report.h"

#include "desktop/qt_text.h"
#include "shell/report/rich_text.h"

#include <QApplication>
#include <QLocale>
#include <QScreen>
#include <QStyle>
#include <QSysInfo>

#ifdef __GLIBC__
#include <gnu/libc-version.h>
#endif

namespace kelvarin
{

namespace
{

#ifdef __clang__
constexpr const char* compiler_name = "clang " __clang_version__;
#else
constexpr const char* compiler_name = "g++ " __VERSION__;
#endif

#ifdef _GLIBCXX_RELEASE
constexpr int cpp_library_release = _GLIBCXX_RELEASE;
#else
constexpr int cpp_library_release = 0;
#endif

} // namespace

QString fault_report()
{
    QString text = QStringLiteral("Kelvarin %1, compiled by %2\n")
                       .arg(to_qstring(program_version()), QString::fromLatin1(compiler_name));
    text += QStringLiteral("Qt %1 (built with %2), platform %3, style %4\n")
                .arg(QString::fromLatin1(qVersion()), QStringLiteral(QT_VERSION_STR), QGuiApplication::platformName(),
                     QApplication::style()->name());
#ifdef __GLIBC__
    text += QStringLiteral("C library %1, C++ library %2\n")
                .arg(QString::fromLatin1(gnu_get_libc_version()))
                .arg(cpp_library_release);
#endif
    text += QStringLiteral("%1, %2 %3, %4\n")
                .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
                     QSysInfo::currentCpuArchitecture());
    text += QStringLiteral("Language %1").arg(QLocale::system().name());
    for (const QScreen* screen : QGuiApplication::screens())
        text += QStringLiteral(", screen %1x%2 at %3 dpi, scale %4")
                    .arg(screen->size().width())
                    .arg(screen->size().height())
                    .arg(qRound(screen->logicalDotsPerInch()))
                    .arg(screen->devicePixelRatio());
    return text + QLatin1Char('\n');
}

} // namespace kelvarin
