// SPDX-License-Identifier: MIT
#include "help/window/frmHelp.h"

#include "help/window/help_view.h"
#include "support/robot.h"
#include "support/window_walk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QListWidget>
#include <QScrollBar>
#include <QTest>
#include <QTreeWidget>

#include <memory>

namespace kelvarin::test
{
namespace
{

const help_library& pages()
{
    static const help_library library({
        read_help_page("contents", "# Contents\n\n- [Graphs](graphs.md)\n- [Reports](reports.md)\n"),
        read_help_page("graphs", "# Graphs\n\nSee [printing](reports.md#printing), "
                                 "[a cable](../../examples/cable-sag.kvr).\n"),
        read_help_page(
            "reports", "# Reports\n\n" + std::string(3000, 'x') +
                           [] {
                               std::string lines;
                               for (int i = 0; i < 100; ++i)
                                   lines += "A line.\n\n";
                               return lines + "## Printing\n\nA printer.\n\n" + lines;
                           }()),
    });
    return library;
}

struct help_desk
{
    std::unique_ptr<frmHelp> window = std::make_unique<frmHelp>(pages());
    robot person{*window};
    help_view& page{person.find<help_view>("txtPage")};

    help_desk()
    {
        window->show();
        window->activateWindow();
        settle();
    }
    QString current_line()
    {
        const QTreeWidgetItem* item = person.find<QTreeWidget>("tvwContents").currentItem();
        return item ? item->text(0) : QString();
    }
};

TEST(HelpWindow, FollowsLinksToHeadingsAndGoesBackWithTheKeyboard)
{
    help_desk desk;
    EXPECT_EQ(desk.window->page_name(), "contents");
    EXPECT_TRUE(faults_of(*desk.window).empty()) << testing::PrintToString(faults_of(*desk.window));
    desk.window->show_target("graphs");
    EXPECT_EQ(desk.current_line(), QStringLiteral("Graphs"));
    EXPECT_TRUE(desk.page.hasFocus());
    robot::press(Qt::Key_Tab);
    robot::press(Qt::Key_Return);
    EXPECT_EQ(desk.window->page_name(), "reports");
    EXPECT_EQ(desk.current_line(), QStringLiteral("Reports"));
    EXPECT_GT(desk.page.verticalScrollBar()->value(), 500);
    EXPECT_EQ(desk.page.cursorForPosition({20, 20}).block().text(), QStringLiteral("Printing"));
    robot::press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(desk.window->page_name(), "graphs");
    robot::press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(desk.window->page_name(), "reports");
    robot::press(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(desk.window->page_name(), "contents");
}

TEST(HelpWindow, ALinkToAnExampleAsksForIt)
{
    help_desk desk;
    QString asked;
    QObject::connect(desk.window.get(), &frmHelp::example_asked, [&](const QString& file) { asked = file; });
    desk.window->show_target("graphs");
    robot::press(Qt::Key_Tab);
    robot::press(Qt::Key_Tab);
    robot::press(Qt::Key_Return);
    EXPECT_EQ(asked, QStringLiteral("cable-sag.kvr"));
    EXPECT_EQ(desk.window->page_name(), "graphs");
}

TEST(HelpWindow, SearchesAllPagesAndMarksTheWords)
{
    help_desk desk;
    robot::press(Qt::Key_F, Qt::ControlModifier);
    robot::keys("printer");
    auto& found = desk.person.find<QListWidget>("lstFound");
    ASSERT_EQ(found.count(), 1);
    robot::press(Qt::Key_Return);
    EXPECT_EQ(desk.window->page_name(), "reports");
    ASSERT_EQ(desk.page.extraSelections().size(), 1);
    EXPECT_EQ(desk.page.extraSelections().front().cursor.selectedText(), QStringLiteral("printer"));
    // Esc leaves the search, then the window.
    robot::press(Qt::Key_Escape);
    EXPECT_FALSE(found.isVisible());
    EXPECT_TRUE(desk.page.extraSelections().isEmpty());
    EXPECT_TRUE(desk.window->isVisible());
    robot::press(Qt::Key_Escape);
    EXPECT_FALSE(desk.window->isVisible());
}

TEST(HelpWindow, ZoomsWithinBounds)
{
    help_desk desk;
    const double size = desk.page.document()->begin().begin().fragment().charFormat().fontPointSize();
    robot::press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(desk.page.document()->begin().begin().fragment().charFormat().fontPointSize(), size);
    for (int i = 0; i < 40; ++i)
        robot::press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(desk.page.zoom(), -5);
    robot::press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(desk.page.document()->begin().begin().fragment().charFormat().fontPointSize(), size);
}

} // namespace
} // namespace kelvarin::test
