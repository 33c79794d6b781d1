// SPDX-License-Identifier: MIT
#include "nle_desk.h"

#include "desktop/expression_edit.h"
#include "desktop/link_label.h"

#include <gmock/gmock.h>

#include <QLineEdit>

namespace kelvarin::test
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

const char* const two_rows = "Two |KVRVER05_0\nf(x) = x^2 - a #\na = 2 #two\nx(min)=1, x(max)=2\n";

std::string advice_of(const nle_desk& desk)
{
    const auto& line = desk.person.find<link_label>("lblAdvice");
    return line.isVisible() ? line.whole_text().toStdString() : std::string();
}

TEST(TypingRows, BeginsInTheFirstFreeRowAsksForTheGuessAndProposesTheNextName)
{
    nle_desk desk;
    desk.grid().setFocus();
    for (const char* line : {"f(x) = x^2 - a", "1.5", "2*b", "3"}) {
        robot::keys(line);
        robot::press(Qt::Key_Return);
    }
    EXPECT_THAT(desk.equations(), ElementsAre("f(x) = x^2 - a", "a = 2*b", "b = 3"));
    EXPECT_EQ(desk.cell(1, 2), "1.5");
    EXPECT_EQ(desk.grid().current_row(), 4);
    for (int step = 0; step < 3; ++step)
        robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(desk.content().rows, IsEmpty());

    // A proposal, or an equation without its guess, is given up by Esc.
    robot::keys("f(y) = y - c");
    robot::press(Qt::Key_Return);
    robot::press(Qt::Key_Escape);
    EXPECT_EQ(desk.cell(1, 1), "");
    robot::keys("k = c");
    robot::press(Qt::Key_Return);
    robot::press(Qt::Key_Escape);
    EXPECT_THAT(desk.equations(), ElementsAre("k = c"));
    EXPECT_EQ(desk.grid().findChild<expression_edit*>(), nullptr);
    EXPECT_EQ(advice_of(desk), "") << "a proposal is no loss";
}

TEST(TypingRows, EscLeavesTheCellAsItWasAndALinkBringsTheTextBack)
{
    struct edit
    {
        int row, column;
        const char* typed;
    };
    for (const edit& each : {edit{1, 1, " + a"}, edit{1, 2, "25"}, edit{2, 3, " cm"}, edit{3, 1, "b = 3*a"}}) {
        SCOPED_TRACE(each.typed);
        nle_desk desk;
        ASSERT_NO_FATAL_FAILURE(desk.open_text(two_rows));
        const std::vector<equation_row> before = desk.content().rows;
        desk.grid().setFocus();
        desk.grid().setCurrentIndex(desk.grid().model()->index(each.row - 1, each.column - 1));
        robot::press(Qt::Key_F2);
        robot::keys(each.typed);
        robot::press(Qt::Key_Escape);
        EXPECT_EQ(desk.content().rows, before);
        EXPECT_TRUE(desk.grid().hasFocus());
        EXPECT_EQ(advice_of(desk),
                  "What was typed in row " + std::to_string(each.row) + " was given up: bring it back");
        emit desk.person.find<link_label>("lblAdvice").linkActivated(QStringLiteral("0"));
        robot::press(Qt::Key_Return);
        EXPECT_THAT(desk.cell(each.row, each.column), testing::EndsWith(each.typed));
    }

    // The list of names is closed before the edit is.
    nle_desk desk;
    desk.grid().setFocus();
    robot::keys("b = sq");
    robot::press(Qt::Key_Escape);
    ASSERT_NE(desk.grid().findChild<expression_edit*>(), nullptr);
    robot::keys("rt(4)");
    robot::press(Qt::Key_Return);
    EXPECT_THAT(desk.equations(), ElementsAre("b = sqrt(4)"));
    // An equation goes with the value that it waits for.
    robot::keys("f(y) = y - b");
    robot::press(Qt::Key_Return);
    robot::press(Qt::Key_Escape);
    emit desk.person.find<link_label>("lblAdvice").linkActivated(QStringLiteral("0"));
    robot::press(Qt::Key_Return);
    robot::keys("1");
    robot::press(Qt::Key_Return);
    EXPECT_EQ(desk.content().rows.back(), (equation_row{"f(y) = y - b", "1", ""}));
}

TEST(TypingRows, RefusesAsTheDialogsDoAndSelectsWhatIsAtFault)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(two_rows));
    desk.grid().setFocus();
    desk.grid().set_current_row(3);
    robot::keys("b = 2*");
    desk.user.expect_box("Syntax Error: extra operator at the end of the expression; *");
    robot::press(Qt::Key_Return);
    robot::keys("5");
    robot::press(Qt::Key_Return);
    EXPECT_THAT(desk.equations(), ElementsAre("f(x) = x^2 - a", "a = 2", "b = 25"));

    robot::keys("f(y) = y");
    robot::press(Qt::Key_Return);
    robot::keys("one");
    desk.user.expect_box("Please enter a valid numeric value for initial guess.");
    robot::press(Qt::Key_Return);
    robot::press(Qt::Key_A, Qt::ControlModifier);
    robot::keys("1");
    robot::press(Qt::Key_Return);
    EXPECT_EQ(desk.content().rows.back(), (equation_row{"f(y) = y", "1", ""}));
}

TEST(TypingRows, TellsAFaultWhileTypingAndWhatLeavingDidNotTakeOver)
{
    nle_desk desk;
    desk.grid().setFocus();
    robot::keys("b = 3x");
    EXPECT_TRUE(wait_until([&] {
        return advice_of(desk) == "Syntax Error: invalid number '3x' – A product needs its sign: 3*x";
    })) << advice_of(desk);
    EXPECT_EQ(desk.grid().findChild<expression_edit*>()->extraSelections().size(), 1);
    desk.person.click("chkComments");
    EXPECT_EQ(advice_of(desk), "b = 3x was not taken over. Syntax Error: invalid number '3x'");
    EXPECT_THAT(desk.content().rows, IsEmpty());
}

TEST(TypingRows, F5TakesOverWhatIsTypedAndSolves)
{
    nle_desk desk;
    desk.grid().setFocus();
    // The light is still red.
    robot::keys("a = 2*");
    desk.user.expect_box("Syntax Error: extra operator at the end of the expression; *");
    robot::press(Qt::Key_F5);
    robot::keys("3");
    desk.solve_by_key();
    EXPECT_THAT(desk.equations(), ElementsAre("a = 23"));
    desk.to_front();
    desk.grid().setFocus();
    desk.grid().setCurrentIndex(desk.grid().model()->index(0, 0));
    robot::press(Qt::Key_F2);
    robot::keys("+1");
    desk.solve_by_key();
    EXPECT_THAT(desk.equations(), ElementsAre("a = 23+1"));
}

TEST(TypingRows, EditsTheCellItStandsOnByF2)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(two_rows));
    desk.grid().setFocus();
    desk.grid().set_current_row(1);
    robot::press(Qt::Key_F2);
    robot::keys(" - 1");
    robot::press(Qt::Key_Return);
    robot::press(Qt::Key_Right);
    robot::press(Qt::Key_F2);
    robot::press(Qt::Key_A, Qt::ControlModifier);
    robot::keys("7\t");
    robot::press(Qt::Key_Right);
    robot::press(Qt::Key_F2);
    robot::keys("root");
    robot::press(Qt::Key_Return);
    EXPECT_THAT(desk.content().rows,
                ElementsAre(equation_row{"f(x) = x^2 - a - 1", "7", "root"}, equation_row{"a = 2", "n.a.", "two"}));
    // An explicit row has no guess to edit.
    robot::press(Qt::Key_Left);
    robot::press(Qt::Key_Down);
    robot::press(Qt::Key_F2);
    EXPECT_EQ(desk.grid().findChild<QLineEdit*>("txtCellValue"), nullptr);
}

} // namespace
} // namespace kelvarin::test
