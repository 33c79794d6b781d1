// SPDX-License-Identifier: MIT
#include "desktop/accent_keeper.h"
#include "desktop/look.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetricsF>

namespace kelvarin
{

namespace
{

TEST(Look, AFontIsFixedByItsLettersAndNotByItsName)
{
    const QFont proportional(QStringLiteral("Liberation Sans"), 11);
    const QFont fixed(QStringLiteral("Liberation Mono"), 11);
    EXPECT_FALSE(has_equal_widths(proportional));
    EXPECT_TRUE(has_equal_widths(fixed));
    EXPECT_EQ(of_equal_widths(fixed), fixed);

    // What a theme without a fixed font proposes.
    const QFont found = of_equal_widths(proportional);
    EXPECT_EQ(found.pointSize(), 11);
    const QFontMetricsF letters(found);
    EXPECT_EQ(letters.horizontalAdvance(QStringLiteral("illl..")), letters.horizontalAdvance(QStringLiteral("MWM@W8")));
}

TEST(Look, SelectionsLinksAndTheSolvingButtonHaveOneAccent)
{
    const QPalette before = QApplication::palette();
    for (const QColor& ground : {QColor(239, 239, 239), QColor(43, 45, 48)}) {
        QApplication::setPalette(QPalette(ground));
        const accent_keeper keeper(*qApp);
        const QPalette palette = QApplication::palette();
        EXPECT_EQ(palette.color(QPalette::Window), ground);
        EXPECT_EQ(palette.color(QPalette::Link), accent(palette));
        EXPECT_EQ(palette.color(QPalette::Highlight), solving_palette(palette).color(QPalette::Button));
        EXPECT_NEAR(palette.color(QPalette::Highlight).hue(), palette.color(QPalette::Link).hue(), 12);
    }
    {
        // A desktop that turns dark while the program is open.
        const accent_keeper keeper(*qApp);
        QApplication::setPalette(QPalette(QColor(43, 45, 48)));
        QCoreApplication::sendPostedEvents();
        EXPECT_EQ(QApplication::palette().color(QPalette::Link), accent(QApplication::palette()));
    }
    QApplication::setPalette(before);
}

} // namespace
} // namespace kelvarin
