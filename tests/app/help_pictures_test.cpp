// SPDX-License-Identifier: MIT
// The pictures of the help against the windows as they are now.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdlib>

namespace
{

/// The share of points that differ by more than a shade; all of them if the sizes differ.
double different_share(const QImage& one, const QImage& other)
{
    if (one.size() != other.size() || one.isNull()) return 1;
    constexpr int shade = 64;
    int different = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            different += std::abs(qRed(a) - qRed(b)) > shade || std::abs(qGreen(a) - qGreen(b)) > shade ||
                         std::abs(qBlue(a) - qBlue(b)) > shade;
        }
    return static_cast<double>(different) / (one.width() * one.height());
}

// Stale pictures are made anew by: cmake --build BUILD --target kelvarin-help.
TEST(HelpPictures, ShowTheWindowsAsTheyAreNow)
{
    const QTemporaryDir folder;
    QProcess program;
    program.setWorkingDirectory(QStringLiteral(KELVARIN_SOURCE));
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(QStringLiteral(KELVARIN_BIN "/kelvarin-screenshots"), {QStringLiteral("examples"), folder.path()});
    constexpr int longest_ms = 200000;
    ASSERT_TRUE(program.waitForFinished(longest_ms));
    ASSERT_EQ(program.exitCode(), 0) << program.readAll().toStdString();

    const QStringList shown{QStringLiteral("*.png")};
    const QDir kept(QStringLiteral(KELVARIN_HELP "/pictures"));
    const QDir taken(folder.path());
    EXPECT_EQ(kept.entryList(shown), taken.entryList(shown));
    // Times that runs take, and the rounding of edges by another version of a library.
    constexpr double largest_share = 0.002;
    for (const QString& name : taken.entryList(shown))
        EXPECT_LE(different_share(QImage(kept.filePath(name)), QImage(taken.filePath(name))), largest_share)
            << name.toStdString();
}

} // namespace
