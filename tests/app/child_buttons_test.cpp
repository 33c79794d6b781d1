// SPDX-License-Identifier: MIT
#include "main_desk.h"

#include <QApplication>
#include <QImage>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <vector>

namespace kelvarin
{

namespace
{

/// The number of pixels that are much lighter or darker than the mean.
int standing_out(const QImage& image)
{
    std::vector<int> tones;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            tones.push_back(qGray(image.pixel(x, y)));
    const int mean = std::accumulate(tones.begin(), tones.end(), 0) / static_cast<int>(tones.size());
    // Of 255; the edges of buttons differ less.
    constexpr int clearly = 80;
    return static_cast<int>(std::ranges::count_if(tones, [&](int tone) { return std::abs(tone - mean) > clearly; }));
}

TEST(ChildButtons, AreSeenOnLightAndDarkGround)
{
    const QPalette before = QApplication::palette();
    // Those of the smallest sign, a short line.
    constexpr int least = 5;
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
                EXPECT_GE(standing_out(frame.copy(frame.width() - 1 - 20 * button, 6, 18, 14)), least)
                    << "button " << button;
        }
        desk.front_problem().parentWidget()->showMaximized();
        test::settle();
        QWidget* controls = desk.window->menuBar()->cornerWidget();
        ASSERT_NE(controls, nullptr);
        const QImage buttons = controls->grab().toImage();
        for (int button = 0; button < 3; ++button)
            EXPECT_GE(
                standing_out(buttons.copy(buttons.width() * button / 3, 0, buttons.width() / 3, buttons.height())),
                least)
                << "button " << button;
    }
    QApplication::setPalette(before);
}

} // namespace
} // namespace kelvarin
