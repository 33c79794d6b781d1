// SPDX-License-Identifier: MIT
#include "main_desk.h"

#include <QApplication>
#include <QImage>

#include <algorithm>

namespace kelvarin
{

namespace
{

/// The difference between the lightest and the darkest pixel, out of 255.
int contrast(const QImage& image)
{
    int lightest = 0;
    int darkest = 255;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int grey = qGray(image.pixel(x, y));
            lightest = std::max(lightest, grey);
            darkest = std::min(darkest, grey);
        }
    }
    return lightest - darkest;
}

TEST(ChildButtons, AreSeenOnLightAndDarkGround)
{
    const QPalette before = QApplication::palette();
    for (const QColor& ground : {QColor(239, 239, 239), QColor(43, 45, 48)}) {
        SCOPED_TRACE(ground.name().toStdString());
        QApplication::setPalette(QPalette(ground));
        test::main_desk desk;
        desk.new_problem();
        desk.new_problem();
        desk.run(window_command::tile_vertically);
        for (const child_window* child : desk.children()) {
            const QImage frame = child->parentWidget()->grab().toImage();
            // From right to left: close, maximise, minimise.
            for (int button = 1; button <= 3; ++button)
                EXPECT_GT(contrast(frame.copy(frame.width() - 1 - 20 * button, 6, 18, 14)), 90) << "button " << button;
        }
        desk.front_problem().parentWidget()->showMaximized();
        test::settle();
        QWidget* controls = desk.window->menuBar()->cornerWidget();
        ASSERT_NE(controls, nullptr);
        const QImage buttons = controls->grab().toImage();
        for (int button = 0; button < 3; ++button)
            EXPECT_GT(contrast(buttons.copy(buttons.width() * button / 3, 0, buttons.width() / 3, buttons.height())),
                      90)
                << "button " << button;
    }
    QApplication::setPalette(before);
}

} // namespace
} // namespace kelvarin
