// SPDX-License-Identifier: MIT
// How cells are filled, changed, copied and pasted, by mouse and by keys.

#include "leq_desk.h"
#include "support/table.h"

#include <QApplication>
#include <QContextMenuEvent>

namespace
{

using namespace kelvarin;
using kelvarin::test::leq_desk;
using kelvarin::test::robot;
using kelvarin::test::three_equations_block;

constexpr const char* nothing = "_ _ _\n_ _ _\n";

struct small_desk : leq_desk
{
    small_desk() { person.choose("cmbNumEq", "2"); }
};

TEST(LinearGrid, MovesByKeysAsASpreadsheetDoes)
{
    using presses = std::vector<std::pair<Qt::Key, Qt::KeyboardModifiers>>;
    constexpr auto shift = Qt::ShiftModifier;
    // Letters typed, keys pressed, and a 9 behind them all, which shows where they led.
    const test::table<const char*, const char*, presses, const char*> cases = {
        {"Enter goes down and stays in the last row", "1\n2\n", {}, "1 _ _\n9 _ _\n"},
        {"Tab goes on to the next row", "1\t2\t3\t4\t", {}, "1 2 3\n4 9 _\n"},
        {"Enter returns to where Tab began", "\t1\t2\n", {}, "_ 1 2\n9 _ _\n"},
        {"Shift and Tab goes back", "1\t2", {{Qt::Key_Backtab, shift}}, "9 2 _\n_ _ _\n"},
        {"Shift and Enter goes up", "1\n2", {{Qt::Key_Return, shift}}, "9 _ _\n2 _ _\n"},
        {"the arrow down ends the typing", "1", {{Qt::Key_Down, {}}}, "1 _ _\n9 _ _\n"},
        {"Esc gives the typing up", "1\n2", {{Qt::Key_Escape, {}}, {Qt::Key_Tab, {}}}, "1 _ _\n_ 9 _\n"},
        {"F2 goes on with what is there",
         "12\t",
         {{Qt::Key_Left, {}}, {Qt::Key_F2, {}}, {Qt::Key_End, {}}},
         "129 _ _\n_ _ _\n"},
        {"Delete clears what is selected",
         "1\t2\t3\t4\t",
         {{Qt::Key_Up, {}}, {Qt::Key_Left, shift}, {Qt::Key_Delete, {}}},
         "9 _ 3\n4 _ _\n"},
    };
    for (const auto& [name, typed, pressed, cells] : cases) {
        SCOPED_TRACE(name);
        small_desk desk;
        desk.click_cell(1, 1);
        leq_desk::keys(typed);
        for (const auto& [key, modifiers] : pressed)
            robot::press(key, modifiers);
        leq_desk::keys("9\n");
        EXPECT_EQ(desk.cells(), cells);
    }
}

TEST(LinearGrid, LetsTheKeyboardOutAtBothEnds)
{
    small_desk desk;
    desk.click_cell(2, 3);
    robot::press(Qt::Key_Tab);
    EXPECT_TRUE(desk.person.find("cmdRun").hasFocus());
    desk.click_cell(1, 1);
    robot::press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(desk.person.find("cmbNumEq").hasFocus());
    robot::press(Qt::Key_Tab);
    EXPECT_TRUE(desk.grid().hasFocus());
}

TEST(LinearGrid, PastesBlocksOfSpreadsheetsInOneStep)
{
    const std::string outside = "4 pasted cells lie outside the grid and were left out: '3', '4', '5', '6'.";
    const test::table<int, const char*, const char*, std::string, std::optional<user_answer>> cases = {
        {1, "1\t2\t3\r\n4\t5\t6\r\n", "1 2 3\n4 5 6\n", "", {}},
        {2, "1\t2\t3\n4\t5\t6\n", "_ _ _\n_ 1 2\n", outside, {}},
        {1, "1,5\t-2\t3,25", "1.5 -2 3.25\n_ _ _\n", "'1,5' becomes '1.5'", user_answer::yes},
        {1, "1\t2,5", "1 2,5 _\n_ _ _\n", "'2,5' becomes '2.5'", user_answer::no},
        {1, "1\t2,5", nothing, "'2,5' becomes '2.5'", user_answer::cancel},
        {1, "", nothing, "", {}},
    };
    for (const auto& [at, block, cells, told, given] : cases) {
        SCOPED_TRACE(block);
        small_desk desk;
        if (given)
            desk.user.expect_question(
                "The pasted numbers have decimal commas. Do you want decimal points instead ?\r" + told, *given);
        else if (!told.empty())
            desk.user.expect_box(told);
        desk.paste_at(at, at, block);
        EXPECT_EQ(desk.cells(), cells);
        EXPECT_TRUE(desk.user.is_done());
        if (std::string(cells) == nothing) continue;
        EXPECT_EQ(desk.window.caption_of(window_command::undo), "&Undo Paste");
        robot::press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(desk.cells(), nothing);
    }
}

TEST(LinearGrid, CutsCopiesAndFillsSelectedBlocks)
{
    leq_desk desk;
    desk.paste_at(1, 1, three_equations_block);
    const std::string filled = desk.cells();
    // What was pasted is selected, as one block.
    robot::press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(desk.user.copied_text(), "2\t1\t-1\t8\n-3\t-1\t2\t-11\n-2\t1\t2\t-3");

    desk.click_cell(1, 2);
    desk.click_cell(2, 3, Qt::ShiftModifier);
    robot::press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(desk.user.copied_text(), "1\t-1\n-1\t2");
    EXPECT_EQ(desk.cells(), "2 _ _ 8\n-3 _ _ -11\n-2 1 2 -3\n");
    EXPECT_EQ(desk.window.caption_of(window_command::undo), "&Undo Cut");

    // One cell fills the block.
    desk.put_on_clipboard("9\r\n");
    desk.choose("Edit", "paste");
    EXPECT_EQ(desk.cells(), "2 9 9 8\n-3 9 9 -11\n-2 1 2 -3\n");
    desk.choose("Edit", "mnuClear");
    EXPECT_EQ(desk.window.caption_of(window_command::undo), "&Undo Clear");
    EXPECT_EQ(desk.cells(), "2 _ _ 8\n-3 _ _ -11\n-2 1 2 -3\n");
    desk.choose("Edit", "mnuFill");
    EXPECT_EQ(desk.cells(), "2 0 0 8\n-3 0 0 -11\n-2 1 2 -3\n");
    robot::press(Qt::Key_A, Qt::ControlModifier);
    robot::press(Qt::Key_Delete);
    EXPECT_EQ(desk.cells(), "_ _ _ _\n_ _ _ _\n_ _ _ _\n");

    for (int step = 0; step < 5; ++step)
        robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(desk.cells(), filled);
    robot::press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(desk.cells(), "2 _ _ 8\n-3 _ _ -11\n-2 1 2 -3\n");
}

TEST(LinearGrid, FollowsTheNumberOfEquationsBackAndForth)
{
    small_desk desk;
    desk.paste_at(1, 1, "1\t2\t3\n4\t5\t6");
    desk.person.choose("cmbNumEq", "3");
    EXPECT_EQ(desk.cells(), "1 2 _ 3\n4 5 _ 6\n_ _ _ _\n");
    robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(desk.cells(), "1 2 3\n4 5 6\n");
    EXPECT_EQ(desk.person.text("cmbNumEq"), "2");
    desk.choose("Edit", "mnuClean");
    EXPECT_EQ(desk.cells(), nothing);
}

TEST(LinearGrid, RenamesColumnsByDoubleClickAndRefusesBadNames)
{
    leq_desk desk;
    desk.user.expect_input("Enter variable name.", "2x");
    desk.user.expect_box("2x is not a valid variable name.");
    desk.double_click_head(2);
    EXPECT_EQ(desk.heads(), "x1 x2 x3 beta ");
    EXPECT_EQ(desk.user.proposed_input(), "x2");
    desk.user.expect_input("Enter variable name.", "flow");
    desk.double_click_head(2);
    EXPECT_EQ(desk.heads(), "x1 flow x3 beta ");
    // The right sides have no name of their own.
    desk.double_click_head(4);
    desk.click_cell(1, 4);
    EXPECT_FALSE(robot::item_of(desk.menu("Edit"), "mnuRename")->isEnabled());
    desk.click_cell(1, 1);
    EXPECT_TRUE(robot::item_of(desk.menu("Edit"), "mnuRename")->isEnabled());
}

TEST(LinearGrid, OffersItsCommandsAtTheCell)
{
    leq_desk desk;
    desk.click_cell(2, 2);
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(desk.grid().viewport(), &asked);
    auto& menu = desk.person.find<QMenu>("mnuCell");
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    desk.put_on_clipboard("4");
    desk.person.trigger(menu, "paste");
    EXPECT_EQ(desk.content().cell(1, 1), "4");
}

} // namespace
