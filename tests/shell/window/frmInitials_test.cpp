// SPDX-License-Identifier: MIT
#include "shell/window/frmInitials.h"

#include "support/golden.h"
#include "support/robot.h"
#include "support/table.h"
#include "support/test_desk.h"
#include "support/window_walk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QSignalSpy>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace kelvarin
{

using test::robot;
using testing::IsEmpty;

namespace
{

class SettingsWindow : public testing::Test
{
protected:
    SettingsWindow()
    {
        window.show();
        window.activateWindow();
        test::settle();
    }
    QTreeWidget& tree() const { return *window.findChild<QTreeWidget*>("tvw"); }
    /// The item at a path of texts, of which the last may be the beginning of one.
    QTreeWidgetItem& item(const QStringList& path) const
    {
        QTreeWidgetItem* found = tree().invisibleRootItem();
        for (const QString& text : path) {
            QTreeWidgetItem* next = nullptr;
            for (int i = 0; i < found->childCount() && next == nullptr; ++i) {
                if (found->child(i)->text(0).startsWith(text)) next = found->child(i);
            }
            if (next == nullptr) throw std::runtime_error("no item " + text.toStdString());
            found = next;
        }
        return *found;
    }
    void choose(const QStringList& path) { tree().setCurrentItem(&item(path)); }
    /// The tree as lines, indented by depth.
    std::string whole_tree() const
    {
        std::string lines;
        for (QTreeWidgetItemIterator each(&tree()); *each != nullptr; ++each) {
            if ((*each)->isHidden()) continue;
            for (const QTreeWidgetItem* up = (*each)->parent(); up != nullptr; up = up->parent())
                lines += "  ";
            lines += (*each)->text(0).toStdString() + "|\n";
        }
        return lines;
    }

    test::test_desk desk;
    frmInitials window{desk.context};
    robot at{window};
};

} // namespace

TEST_F(SettingsWindow, ShowsEverySettingInItsFolder)
{
    test::expect_golden("shell/settings_tree.txt", whole_tree());
    EXPECT_THAT(test::faults_of(window), IsEmpty());
}

TEST_F(SettingsWindow, ChecksWhatIsEntered)
{
    const QStringList columns = {"Data table", "Initial # Columns"};
    const QStringList tolerance = {"Nonlinear equations", "Fast Newton", "Tolerance total x"};
    const QStringList title = {"Graph", "Default title"};
    // Of what is entered the refusal, if there is one, what is kept, and how often the window beeps.
    const test::table<QStringList, const char*, const char*, const char*, const char*, int> cases = {
        {columns, "table_cols", "121", "Value must be between 2 & 120", "30", 1},
        {columns, "table_cols", "1.5", "Only integer input is allowed.", "30", 0},
        {columns, "table_cols", "120", "", "120", 0},
        {tolerance, "mnewt_tolx", "0.2", "Value must be between 0 & 0.1", "1E-07", 1},
        {tolerance, "mnewt_tolx", "0.1", "", "0.1", 0},
        {title, "Graph_default_title", "a = b", "", "a = b", 0},
        {title, "Graph_default_title", "", "", "", 0}};
    for (const auto& [leaf, key, entered, refusal, kept, beeps] : cases) {
        SCOPED_TRACE(testing::Message() << key << " " << entered);
        choose(leaf);
        const int before = desk.user.beeps();
        if (*refusal) desk.user.expect_box(refusal);
        at.type("txtTreeData", entered);
        at.click("cmdSet");
        EXPECT_TRUE(desk.user.is_done());
        EXPECT_EQ(desk.user.beeps() - before, beeps);
        EXPECT_EQ(desk.store.value(key), kept);
        EXPECT_TRUE(item(leaf).text(0).endsWith(QStringLiteral(" = ") + kept));
        // A refused text stays, to be mended.
        EXPECT_EQ(at.text("txtTreeData"), entered);
    }
}

TEST_F(SettingsWindow, SetsAChosenTextWithoutChangingIt)
{
    choose({"Graph", "Default title"});
    EXPECT_EQ(at.text("lblEq"), "Default title  ");
    EXPECT_EQ(at.text("txtTreeData"), "Graph Title");
    at.click("cmdSet");
    at.click("cmdSet");
    EXPECT_EQ(desk.store.value("Graph_default_title"), "Graph Title");
    choose({"Graph", "Default sub title"});
    EXPECT_EQ(at.text("txtTreeData"), " ");
}

TEST_F(SettingsWindow, RestoresOneValueAndAll)
{
    QSignalSpy changed(&window, &frmInitials::settings_changed);
    const QStringList trials = {"Nonlinear equations", "Fast Newton", "N Trial"};
    const QStringList rows = {"Data table", "Initial # Rows"};
    choose(rows);
    at.type("txtTreeData", "400");
    choose(trials);
    EXPECT_EQ(at.text("lblHint"), "A whole number, 10 to 300");
    EXPECT_EQ(at.text("lblDefault"), "Default: 150");
    at.type("txtTreeData", "200");
    robot::press(Qt::Key_Return);
    // What was typed for the other one was never set.
    EXPECT_EQ(desk.store.value("table_rows"), "300");
    EXPECT_EQ(item(trials).text(0), QStringLiteral("N Trial = 200"));
    EXPECT_TRUE(item(trials).font(0).bold());
    EXPECT_FALSE(at.is_shown("lblRead"));
    at.type("txtTreeData", "many");
    EXPECT_EQ(at.text("lblRead"), "read as 0");
    at.type("txtTreeData", "20x");
    EXPECT_TRUE(at.is_shown("lblRead"));
    EXPECT_EQ(at.text("lblRead"), "read as 20");
    at.click("cmdRestore");
    EXPECT_EQ(desk.store.value("mnewt_n"), "150");
    EXPECT_EQ(at.text("txtTreeData"), "150");
    EXPECT_FALSE(item(trials).font(0).bold());

    const std::string before = whole_tree();
    for (const char* key : {"mnewt_n", "table_rows", "opt_cg_MAXITER"})
        EXPECT_FALSE(desk.store.set_value(key, "99"));
    at.click("cmdRestoreAll");
    EXPECT_EQ(whole_tree(), before);
    for (const setting_row& row : settings_table())
        EXPECT_EQ(desk.store.value(row.key), row.default_value) << row.key;
    EXPECT_EQ(changed.size(), 3);
}

TEST_F(SettingsWindow, ClearsTheValueOnAFolder)
{
    choose({"General", "Show status bar"});
    EXPECT_TRUE(at.is_enabled("cmdSet"));
    choose({"General"});
    EXPECT_EQ(at.text("txtTreeData"), "");
    EXPECT_EQ(at.text("lblEq"), "");
    for (const char* name : {"txtTreeData", "cmdSet", "cmdRestore"})
        EXPECT_FALSE(at.is_enabled(name)) << name;
    EXPECT_TRUE(at.is_enabled("cmdRestoreAll"));
}

TEST_F(SettingsWindow, MovesNothingWhenASettingIsChosen)
{
    const auto places = [&] {
        test::settle();
        QList<QRect> found;
        for (const char* name : {"txtTreeData", "lblHint", "cmdSet", "cmdRestore"})
            found.append(window.findChild<QWidget*>(name)->geometry());
        return found;
    };
    const QList<QRect> at_first = places();
    choose({"General", "Show status bar"});
    EXPECT_EQ(places(), at_first);
    choose({"General"});
    EXPECT_EQ(places(), at_first);
}

TEST_F(SettingsWindow, FindsByPartOfANameAndGoesBack)
{
    tree().expandItem(&item({"Graph"}));
    const std::string before = whole_tree();
    at.type("txtFind", "STEPSIZE");
    EXPECT_EQ(whole_tree(), R"(Ordinary differential equations|
  BS|
    Minimum allowed stepsize = 1E-15|
  Stiff|
    Minimum allowed stepsize = 1E-08|
  Stiff-BS|
    Minimum allowed stepsize / range = 1E-05|
)");
    EXPECT_TRUE(item({"Ordinary differential equations", "BS"}).isExpanded());
    at.type("txtFind", "regress");
    EXPECT_TRUE(whole_tree().starts_with("Regression|\n  Nonlinear|\n    mrqmin|\n      Max # iterations = 64|"));
    at.type("txtFind", "");
    EXPECT_EQ(whole_tree(), before);
    EXPECT_TRUE(item({"Graph"}).isExpanded());
    EXPECT_FALSE(item({"Ordinary differential equations"}).isExpanded());
}

TEST_F(SettingsWindow, ASearchIsTakenOnByKeysAndSaysWhenItFindsNothing)
{
    at.find("txtFind").setFocus();
    robot::keys("no such thing");
    EXPECT_EQ(at.text("lblTree"), "No setting has this in its name.");
    robot::press(Qt::Key_Return);
    EXPECT_TRUE(at.find("txtFind").hasFocus()) << "there is nothing to go to";

    at.type("txtFind", "max # of iter");
    EXPECT_EQ(at.text("lblTree"), "Settings &tree");
    robot::press(Qt::Key_Return);
    EXPECT_TRUE(at.find("txtTreeData").hasFocus());
    EXPECT_EQ(tree().currentItem(), &item({"Nonlinear equations", "Safe Newton", "Max # of iterations"}));

    at.find("txtFind").setFocus();
    robot::press(Qt::Key_Down);
    EXPECT_TRUE(tree().hasFocus());

    window.close();
    window.show();
    window.activateWindow();
    test::settle();
    EXPECT_EQ(at.text("txtFind"), "") << "who comes back looks for something else";
}

TEST_F(SettingsWindow, ResetAllCanBeUndone)
{
    EXPECT_FALSE(at.is_enabled("cmdUndoReset"));
    choose({"Data table", "Initial # Rows"});
    at.type("txtTreeData", "123");
    at.click("cmdSet");
    const settings before = desk.store;
    at.click("cmdRestoreAll");
    EXPECT_EQ(at.text("txtTreeData"), "300");
    const QSignalSpy told(&window, &frmInitials::settings_changed);
    at.click("cmdUndoReset");
    EXPECT_EQ(at.text("txtTreeData"), "123");
    EXPECT_TRUE(tree().currentItem()->font(0).bold());
    EXPECT_EQ(told.count(), 1) << "the main window looks again";
    EXPECT_FALSE(at.is_enabled("cmdUndoReset"));
    for (const setting_row& row : settings_table())
        EXPECT_EQ(desk.store.value(row.key), before.value(row.key));
}

TEST_F(SettingsWindow, IsHiddenAndKeepsItsPlace)
{
    choose({"Graph", "Default marker size"});
    robot::press(Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(desk.store.set_value("Graph_default_marker_size", "50"));
    window.show();
    EXPECT_EQ(at.text("txtTreeData"), "50");
    EXPECT_EQ(item({"Graph", "Default marker size"}).text(0), QStringLiteral("Default marker size  = 50"));
}

} // namespace kelvarin
