// SPDX-License-Identifier: MIT
// How cells are filled, changed, copied and pasted, by mouse and by keys.

#include "leq_desk.h"

#include <QApplication>
#include <QContextMenuEvent>

#include <functional>

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
    struct row
    {
        const char* name;
        std::function<void()> keys;
        const char* cells;
    };
    const auto type = [](const char* text) { return [text] { leq_desk::keys(text); }; };
    // A 9 is typed behind all keys, and shows where they led.
    for (const row& expected : {
             row{"Enter goes down and stays in the last row", type("1\n2\n"), "1 _ _\n9 _ _\n"},
             row{"Tab goes on to the next row", type("1\t2\t3\t4\t"), "1 2 3\n4 9 _\n"},
             row{"Enter returns to where Tab began", type("\t1\t2\n"), "_ 1 2\n9 _ _\n"},
             row{"Shift and Tab goes back",
                 [] {
                     leq_desk::keys("1\t2");
                     robot::press(Qt::Key_Backtab, Qt::ShiftModifier);
                 },
                 "9 2 _\n_ _ _\n"},
             row{"Shift and Enter goes up",
                 [] {
                     leq_desk::keys("1\n2");
                     robot::press(Qt::Key_Return, Qt::ShiftModifier);
                 },
                 "9 _ _\n2 _ _\n"},
             row{"the arrow down ends the typing",
                 [] {
                     leq_desk::keys("1");
                     robot::press(Qt::Key_Down);
                 },
                 "1 _ _\n9 _ _\n"},
             row{"Esc gives the typing up",
                 [] {
                     leq_desk::keys("1\n2");
                     robot::press(Qt::Key_Escape);
                     robot::press(Qt::Key_Tab);
                 },
                 "1 _ _\n_ 9 _\n"},
             row{"F2 goes on with what is there",
                 [] {
                     leq_desk::keys("12\t");
                     robot::press(Qt::Key_Left);
                     robot::press(Qt::Key_F2);
                     robot::press(Qt::Key_End);
                 },
                 "129 _ _\n_ _ _\n"},
             row{"Delete clears what is selected",
                 [] {
                     leq_desk::keys("1\t2\t3\t4\t");
                     robot::press(Qt::Key_Up);
                     robot::press(Qt::Key_Left, Qt::ShiftModifier);
                     robot::press(Qt::Key_Delete);
                 },
                 "9 _ 3\n4 _ _\n"},
         }) {
        SCOPED_TRACE(expected.name);
        small_desk desk;
        desk.click_cell(1, 1);
        expected.keys();
        leq_desk::keys("9\n");
        EXPECT_EQ(desk.cells(), expected.cells);
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
    using choice = std::optional<user_answer>;
    struct row
    {
        const char* name;
        int at_row, at_column;
        const char* block;
        const char* cells;
        const char* box = "";
        const char* becomes = "";
        choice given = {};
    };
    for (const row& expected : {
             row{"tabs and CR LF", 1, 1, "1\t2\t3\r\n4\t5\t6\r\n", "1 2 3\n4 5 6\n"},
             row{"LF alone, empty cells, quotation marks", 1, 2, "\t\"7\"\n1e-3", "_ _ 7\n_ 1e-3 _\n"},
             row{"too wide and too high", 2, 2, "1\t2\t3\n4\t5\t6\n", "_ _ _\n_ 1 2\n",
                 "4 pasted cells lie outside the grid and were left out: '3', '4', '5', '6'."},
             row{"decimal commas that are points", 1, 1, "1,5\t-2\t3,25", "1.5 -2 3.25\n_ _ _\n", "",
                 "'1,5' becomes '1.5'", user_answer::yes},
             row{"decimal commas that stay", 1, 1, "1\t2,5", "1 2,5 _\n_ _ _\n", "", "'2,5' becomes '2.5'",
                 user_answer::no},
             row{"decimal commas, thought better of", 1, 1, "1\t2,5", nothing, "", "'2,5' becomes '2.5'",
                 user_answer::cancel},
             row{"commas and points are never guessed at", 1, 1, "1,5\t2.5", "1,5 2.5 _\n_ _ _\n"},
             row{"nothing", 1, 1, "", nothing},
         }) {
        SCOPED_TRACE(expected.name);
        small_desk desk;
        if (expected.given)
            desk.user.expect_question("The pasted numbers have decimal commas. Do you want decimal points instead ?\r" +
                                          std::string(expected.becomes),
                                      *expected.given);
        if (*expected.box) desk.user.expect_box(expected.box);
        desk.paste_at(expected.at_row, expected.at_column, expected.block);
        EXPECT_EQ(desk.cells(), expected.cells);
        EXPECT_TRUE(desk.user.is_done());
        if (std::string(expected.cells) == nothing) continue;
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

TEST(LinearGrid, KeepsBetaApartWhenTheNumberOfEquationsChanges)
{
    small_desk desk;
    desk.paste_at(1, 1, "1\t2\t3\n4\t5\t6");
    desk.person.choose("cmbNumEq", "3");
    EXPECT_EQ(desk.heads(), "x1 x2 x3 beta ");
    EXPECT_EQ(desk.cells(), "1 2 _ 3\n4 5 _ 6\n_ _ _ _\n");
    EXPECT_EQ(desk.window.caption_of(window_command::undo), "&Undo Number of equations");
    robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(desk.cells(), "1 2 3\n4 5 6\n");
    EXPECT_EQ(desk.person.text("cmbNumEq"), "2");

    desk.choose("Edit", "mnuClean");
    EXPECT_EQ(desk.cells(), nothing);
}

TEST(LinearGrid, RenamesColumnsByDoubleClickAndRefusesBadNames)
{
    struct row
    {
        const char* given;
        const char* box;
    };
    leq_desk desk;
    for (const row& expected : {row{"2x", "2x is not a valid variable name."},
                                row{"x3", "x3 is already defined for different column."}, row{"flow", ""}}) {
        SCOPED_TRACE(expected.given);
        desk.user.expect_input("Enter variable name.", expected.given);
        if (*expected.box) desk.user.expect_box(expected.box);
        desk.double_click_head(2);
        EXPECT_EQ(desk.heads(), *expected.box ? "x1 x2 x3 beta " : "x1 flow x3 beta ");
    }
    EXPECT_EQ(desk.user.proposed_input(), "x2");
    desk.user.expect_input("Enter variable name.", std::nullopt);
    desk.double_click_head(2);
    EXPECT_EQ(desk.user.proposed_input(), "flow");

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
