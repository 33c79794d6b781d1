// SPDX-License-Identifier: MIT
// Windows under a window manager, which gives them frames: where they come, and whether all of them is in sight.
#include "desktop/window_memory.h"

#include "support/robot.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <memory>
#include <optional>

namespace kelvarin
{

namespace
{

using test::wait_until;

std::unique_ptr<QWidget> shown_window(registry_store& registry, std::unique_ptr<QWidget> window,
                                      std::optional<rectangle> place = std::nullopt)
{
    window->setObjectName(QStringLiteral("frmTest"));
    if (place)
        appear_at(registry, *window, *place);
    else
        remember_place(registry, *window);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_TRUE(wait_until([&] { return window->windowHandle()->frameMargins().top() > 0; })) << "it has a title bar";
    QTest::qWait(100);
    return window;
}

/// As the window manager sees it; the widget's own answer may be older.
QRect outer_place(const QWidget& window)
{
    return window.windowHandle()->frameGeometry();
}

QRect screen()
{
    return QApplication::primaryScreen()->availableGeometry();
}

TEST(PlacesOnScreen, WindowsDialogsAndToolsNeverDrift)
{
    for (const bool is_dialog : {true, false}) {
        memory_registry registry;
        QWidget parent;
        parent.setGeometry(100, 100, 500, 400);
        parent.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&parent));
        QRect first;
        for (int use = 0; use < 4; ++use) {
            std::unique_ptr<QWidget> made;
            if (is_dialog)
                made = std::make_unique<QDialog>(&parent);
            else
                made = std::make_unique<QWidget>();
            made->resize(300, 200);
            const auto window = shown_window(registry, std::move(made));
            if (use == 0) {
                window->windowHandle()->setFramePosition({180, 140});
                EXPECT_TRUE(wait_until([&] { return outer_place(*window).topLeft() == QPoint(180, 140); }));
                first = outer_place(*window);
            }
            EXPECT_EQ(outer_place(*window), first) << "use " << use << (is_dialog ? " of a dialog" : " of a window");
            // A window that only hides comes back where it was as well.
            window->hide();
            QTest::qWait(50);
            window->show();
            EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
            QTest::qWait(100);
            EXPECT_EQ(outer_place(*window), first) << "shown again in use " << use;
            window->close();
        }
    }
}

TEST(PlacesOnScreen, TheFrameOfALargeWindowIsOnTheScreenToo)
{
    memory_registry registry;
    const std::string key = std::string(registry_root) + "\\windows\\frmTest";
    for (const char* name : {"width", "height"})
        registry.write(key, name, "5000");
    for (const char* name : {"left", "top"})
        registry.write(key, name, "40");
    // The first one finds out how wide frames are here, the second one knows it.
    for (int use = 0; use < 2; ++use) {
        const auto window = shown_window(registry, std::make_unique<QWidget>());
        EXPECT_TRUE(wait_until([&] { return screen().contains(outer_place(*window)); }))
            << outer_place(*window).height() << " of " << screen().height();
        EXPECT_GT(outer_place(*window).height(), screen().height() - 10);
        window->close();
        for (const char* name : {"width", "height"})
            registry.write(key, name, "5000");
    }
    EXPECT_GT(usual_frame(registry).top, 10);
}

TEST(PlacesOnScreen, AWindowThatNeedsMoreRoomThanItWasGivenIsMovedIn)
{
    memory_registry registry;
    auto window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(window.get());
    auto* content = new QPlainTextEdit(window.get());
    content->setMinimumSize(600, 560);
    layout->addWidget(content);
    const auto shown = shown_window(registry, std::move(window), rectangle{300, 250, 400, 300});
    EXPECT_TRUE(wait_until([&] { return screen().contains(outer_place(*shown)); })) << outer_place(*shown).bottom();
}

TEST(PlacesOnScreen, AWindowThatShowsMoreDoesNotGrowOutOfTheScreen)
{
    memory_registry registry;
    const auto window = shown_window(registry, std::make_unique<QWidget>());
    // Small enough that every window manager leaves it there.
    window->resize(300, 100);
    window->windowHandle()->setFramePosition({200, 300});
    EXPECT_TRUE(wait_until([&] { return outer_place(*window).topLeft() == QPoint(200, 300); }));
    for (const int height : {500, 2000}) {
        window->resize(300, height);
        EXPECT_TRUE(wait_until([&] { return screen().contains(outer_place(*window)); }))
            << outer_place(*window).bottom();
        EXPECT_GE(window->height(), std::min(height, screen().height() - 60));
    }
}

} // namespace
} // namespace kelvarin
