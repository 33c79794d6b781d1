// SPDX-License-Identifier: MIT
#include "tools/window/frmCal.h"

#include "desktop/look.h"
#include "support/alone_program.h"
#include "tool_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

using test::robot;

class Calculator_window : public test::tool_window<frmCal>
{
protected:
    Calculator_window() { open(); }

    void solve(const std::string& line)
    {
        person.type("txtExpression", line);
        robot::press(Qt::Key_Return);
    }
    std::string answer_shown() const { return person.text("txtAnswer"); }
    std::string history() const { return person.text("txtHistory"); }
    std::vector<std::string> variables() const { return items("lstVars"); }
    void select_variable(int row)
    {
        person.find("lstVars").setFocus();
        person.find<QListWidget>("lstVars").setCurrentRow(row);
    }
    void show_page(int page)
    {
        person.find<QCheckBox>("chkMore").setChecked(true);
        person.find<QTabWidget>("tabMore").setCurrentIndex(page);
        test::settle();
    }
    /// Clicks in the middle of an entry of the history.
    void click_entry(int entry)
    {
        auto& view = person.find<QTextEdit>("txtHistory");
        QTextCursor cursor(view.document()->findBlockByNumber(entry));
        cursor.movePosition(QTextCursor::Right);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, view.cursorRect(cursor).center());
        test::settle();
    }
};

TEST_F(Calculator_window, SolvesLinesThatBuildOnEachOther)
{
    solve("x = 2*3");
    EXPECT_EQ(answer_shown(), "6");
    solve("x+1");
    EXPECT_EQ(answer_shown(), "7");
    EXPECT_EQ(history(), "> x = 2*3\t = 6\n> x+1\t = 7");
    EXPECT_EQ(variables(), std::vector<std::string>{"x =  6"});
    solve("y = 1");
    solve("x = x + 1");
    EXPECT_EQ(variables(), (std::vector<std::string>{"y =  1", "x =  7"})) << "the new line replaces the old one";
    EXPECT_EQ(person.text("lblNum_vars"), "2");
}

TEST_F(Calculator_window, SolvesByButtonAndByF5FromAnywhere)
{
    person.type("txtExpression", "1+1");
    person.click("cmdCalculate");
    EXPECT_EQ(answer_shown(), "2");
    for (const char* control : {"txtExpression", "txtHistory", "lstVars", "cmbformat", "cmdExit"}) {
        SCOPED_TRACE(control);
        person.type("txtExpression", "3*3");
        person.click("cmdCleanExpr");
        EXPECT_EQ(person.text("txtExpression"), "");
        person.type("txtExpression", "3*3");
        person.find(control).setFocus();
        const std::string before = history();
        robot::press(Qt::Key_F5);
        EXPECT_EQ(history(), before + "\n> 3*3\t = 9");
    }
}

TEST_F(Calculator_window, ShowsTheToldBoxAndChangesNothing)
{
    solve("a = 4");
    const std::string before = history();
    desk.user.expect_box("Error: Zero denominator not allowed.\r1 / 0", "Expression Parsing Error");
    solve("a = 1/0");
    EXPECT_EQ(history(), before);
    EXPECT_EQ(answer_shown(), "4");
    EXPECT_EQ(variables(), std::vector<std::string>{"a =  4"});
    EXPECT_EQ(person.text("txtExpression"), "a = 1/0");
    EXPECT_EQ(desk.frame.ended(), 0);
}

TEST_F(Calculator_window, EndsTheProgramBehindTheFatalBox)
{
    calculator elsewhere;
    const std::string message = elsewhere.solve_line("(1) (2)").refusal.value().text;
    desk.user.expect_box(message, "Fatal Error");
    solve("(1) (2)");
    EXPECT_EQ(desk.frame.ended(), 1);
}

TEST_F(Calculator_window, ShowsTheAnswerByTheChosenMask)
{
    EXPECT_EQ(person.find<QComboBox>("cmbformat").count(), 25);
    solve("2/3");
    EXPECT_EQ(answer_shown(), "0.666666666666667");
    person.choose("cmbformat", "0.00");
    EXPECT_EQ(answer_shown(), "0.67") << "the present answer is shown anew";
    person.choose("cmbformat", "0.000E+00");
    EXPECT_EQ(answer_shown(), "6.667E-01");
    solve("1000*2");
    EXPECT_EQ(history(), "> 2/3\t = 0.666666666666667\n> 1000*2\t = 2.000E+03");
    person.find<QComboBox>("cmbformat").clearEditText();
    EXPECT_EQ(answer_shown(), "2000");
}

TEST_F(Calculator_window, ReturnMakesLinesWhereItIsToldTo)
{
    show_page(2);
    person.click("optReturnLineFeed");
    person.type("txtExpression", "1\n+\n1");
    EXPECT_EQ(person.text("txtExpression"), "1\n+\n1");
    EXPECT_EQ(answer_shown(), "");
    robot::press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(answer_shown(), "2");
    EXPECT_EQ(history(), "> 1 + 1\t = 2");
    person.click("optReturnSolve");
    person.type("txtExpression", "2");
    robot::press(Qt::Key_Return, Qt::ShiftModifier);
    robot::keys("+2\n");
    EXPECT_EQ(answer_shown(), "4");
}

TEST_F(Calculator_window, DeletesAVariableOnlyAfterYes)
{
    solve("a = 1");
    solve("b = 2");
    EXPECT_FALSE(person.is_enabled("cmdDeleteVar"));
    select_variable(0);
    desk.user.expect_question("Are you sure you want to remove the variable 'a' ?", user_answer::no);
    person.click("cmdDeleteVar");
    EXPECT_EQ(person.text("lblNum_vars"), "2");
    desk.user.expect_question("Are you sure you want to remove the variable 'a' ?", user_answer::yes);
    select_variable(0);
    robot::press(Qt::Key_Delete);
    EXPECT_EQ(variables(), std::vector<std::string>{"b =  2"});
    EXPECT_EQ(person.text("lblNum_vars"), "1");
    desk.user.expect_box("Syntax Error: variable name not defined 'a'");
    solve("a + 1");
}

TEST_F(Calculator_window, ModifiesAVariableByNumbersOnly)
{
    solve("a = 1/3");
    select_variable(0);
    desk.user.expect_input("Enter new value for a = ", "2.5");
    person.click("cmdModifyVar");
    EXPECT_EQ(desk.user.proposed_input(), "0.333333333333333");
    EXPECT_EQ(variables(), std::vector<std::string>{"a =  2.5"});
    desk.user.expect_input("Enter new value for a = ", std::nullopt);
    person.click("cmdModifyVar");
    desk.user.expect_input("Enter new value for a = ", "two");
    desk.user.expect_box("'two' is not a number: the variable 'a' keeps its value.");
    person.find("lstVars").setFocus();
    robot::press(Qt::Key_Return);
    EXPECT_EQ(variables(), std::vector<std::string>{"a =  2.5"});
    solve("a*2");
    EXPECT_EQ(answer_shown(), "5");
}

TEST_F(Calculator_window, CopiesPlainText)
{
    solve("x = 2*3");
    solve("(x+1)^2");
    show_page(1);
    EXPECT_FALSE(person.is_enabled("cmdCopy"));
    person.click("cmdCopyAll");
    EXPECT_EQ(desk.user.copied_text(), "> x = 2*3\t = 6\n> (x+1)^2\t = 49\n");
    EXPECT_FALSE(desk.user.clipboard()->hasHtml());
    auto& view = person.find<QTextEdit>("txtHistory");
    view.setFocus();
    QTextCursor cursor(view.document()->firstBlock());
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    view.setTextCursor(cursor);
    robot::press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(desk.user.copied_text(), "> x = 2*3\t = 6");
    robot::press(Qt::Key_F9);
    EXPECT_EQ(desk.user.copied_text(), "49");
    person.click("cmdCopy");
    EXPECT_EQ(desk.user.copied_text(), "> x = 2*3\t = 6");
}

TEST_F(Calculator_window, ClearsTheHistoryOnlyAfterYes)
{
    solve("x = 1");
    show_page(1);
    const std::string text = "This action will clear the history. Do you want to continue ?";
    desk.user.expect_question(text, user_answer::no);
    person.click("cmdClearHistory");
    EXPECT_EQ(history(), "> x = 1\t = 1");
    desk.user.expect_question(text, user_answer::yes);
    person.click("cmdClearHistory");
    EXPECT_EQ(history(), "");
    EXPECT_FALSE(person.is_enabled("cmdClearHistory"));
    EXPECT_EQ(variables().size(), 1U) << "variables stay";
    solve("x+1");
    EXPECT_EQ(history(), "> x+1\t = 2");
}

TEST_F(Calculator_window, BringsEarlierLinesBack)
{
    solve("1+1");
    solve("2+2");
    click_entry(0);
    EXPECT_EQ(person.text("txtExpression"), "1+1");
    robot::keys("0\n");
    EXPECT_EQ(answer_shown(), "11") << "the entry has the focus and the caret is behind the line";

    person.type("txtExpression", "draft");
    robot::press(Qt::Key_Up);
    EXPECT_EQ(person.text("txtExpression"), "1+10");
    robot::press(Qt::Key_Up);
    EXPECT_EQ(person.text("txtExpression"), "2+2");
    robot::press(Qt::Key_Down);
    robot::press(Qt::Key_Down);
    EXPECT_EQ(person.text("txtExpression"), "draft");
    robot::press(Qt::Key_Return, Qt::ShiftModifier);
    robot::press(Qt::Key_Up);
    EXPECT_EQ(person.text("txtExpression"), "draft\n") << "in several lines the keys move the caret";
}

TEST_F(Calculator_window, InsertsFunctionsAtTheCaret)
{
    show_page(0);
    auto& functions = person.find<QListWidget>("lstFuncs");
    EXPECT_EQ(functions.count(), 43);
    EXPECT_EQ(functions.item(0)->text(), "sqr");
    EXPECT_EQ(functions.item(42)->text(), "psi");
    person.type("txtExpression", "1+");
    functions.setFocus();
    functions.setCurrentItem(functions.findItems("sqrt", Qt::MatchExactly).front());
    robot::press(Qt::Key_Return);
    EXPECT_EQ(person.text("txtExpression"), "1+sqrt()");
    robot::keys("16\n");
    EXPECT_EQ(answer_shown(), "5") << "the caret stands between the parentheses";
    person.click("cmdCleanExpr");
    const QPoint first = functions.visualItemRect(functions.item(0)).center();
    QTest::mouseClick(functions.viewport(), Qt::LeftButton, Qt::NoModifier, first);
    QTest::mouseDClick(functions.viewport(), Qt::LeftButton, Qt::NoModifier, first);
    EXPECT_EQ(person.text("txtExpression"), "sqr()");
}

TEST_F(Calculator_window, TellsQuietlyWhatIsWrongWithWhatIsTyped)
{
    person.type("txtExpression", "1 + nobody");
    EXPECT_EQ(person.text("lblCheck"), "");
    EXPECT_TRUE(test::wait_until([&] { return !person.text("lblCheck").empty(); }, 2000));
    EXPECT_EQ(person.text("lblCheck"), "Syntax Error: variable name not defined 'nobody'");
    const auto marks = person.find<QTextEdit>("txtExpression").extraSelections();
    ASSERT_EQ(marks.size(), 1);
    EXPECT_EQ(marks[0].cursor.selectedText(), "nobody");
    person.click("cmdCleanExpr");
    EXPECT_TRUE(test::wait_until([&] { return person.text("lblCheck").empty(); }, 2000));
}

TEST_F(Calculator_window, KeepsItsColoursApartOnADarkGround)
{
    solve("(1+2)*3");
    auto& view = person.find<QTextEdit>("txtHistory");
    const auto colours = [&] {
        std::vector<QColor> found;
        const QTextBlock block = view.document()->firstBlock();
        for (auto part = block.begin(); !part.atEnd(); ++part)
            found.push_back(part.fragment().charFormat().foreground().color());
        return found;
    };
    // "> ", "(", "1", "+" and so on: green, red, the text's own, dark blue; the value is purple.
    ASSERT_EQ(colours().size(), 9U);
    EXPECT_EQ(colours()[0], QColor(0, 128, 0));
    EXPECT_EQ(colours()[1], QColor(254, 0, 0));
    EXPECT_EQ(colours()[3], QColor(0, 0, 160));
    EXPECT_EQ(colours()[8], QColor(128, 0, 128));

    QPalette dark;
    for (const auto role : {QPalette::Window, QPalette::Base})
        dark.setColor(role, QColor(35, 38, 41));
    for (const auto role : {QPalette::WindowText, QPalette::Text})
        dark.setColor(role, QColor(230, 230, 230));
    window.setPalette(dark);
    test::settle();
    for (const QColor& colour : colours())
        EXPECT_GT(colour.lightness(), 110) << colour.name().toStdString();
}

TEST_F(Calculator_window, StaysOpenWhenItGoesInFront)
{
    robot::press(Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    const QPoint place = window.pos();
    for (const bool in_front : {true, false}) {
        EXPECT_FALSE(test::ends_program([this] { person.click("chkOnTop"); }));
        EXPECT_EQ(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint), in_front);
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(window.pos(), place);
    }
    EXPECT_TRUE(test::ends_program([this] { person.click("cmdExit"); }));
    EXPECT_FALSE(window.isVisible());
}

TEST_F(Calculator_window, ChangesWrapAndFontOfItsTexts)
{
    show_page(1);
    auto& view = person.find<QTextEdit>("txtHistory");
    EXPECT_EQ(view.lineWrapMode(), QTextEdit::WidgetWidth);
    person.click("chkWordWrap");
    EXPECT_EQ(view.lineWrapMode(), QTextEdit::NoWrap);
    EXPECT_EQ(person.find("txtExpression").font().family(), "Courier New");
    desk.user.expect_font(QFont("DejaVu Serif", 20));
    person.click("cmdFont");
    EXPECT_EQ(view.font().pointSize(), 20);
    EXPECT_EQ(person.find("txtExpression").font().family(), "DejaVu Serif");
}

TEST_F(Calculator_window, GrowsBelowWhenMoreIsShown)
{
    solve("1");
    const int history_height = person.find("txtHistory").height();
    const int height = window.height();
    person.click("chkMore");
    EXPECT_TRUE(person.is_shown("tabMore"));
    EXPECT_EQ(person.find("txtHistory").height(), history_height);
    person.click("chkMore");
    EXPECT_FALSE(person.is_shown("tabMore"));
    EXPECT_EQ(window.height(), height);
}

TEST_F(Calculator_window, TabsDoNotMoveUnderThePointer)
{
    // Narrow and wide: lines of the help page are broken or not.
    for (const int width : {0, 900}) {
        window.resize(std::max(width, window.minimumSizeHint().width()), 700);
        if (!person.is_shown("tabMore")) person.click("chkMore");
        QTabBar& tabs = *person.find<QTabWidget>("tabMore").tabBar();
        const QPoint place = tabs.mapTo(&window, QPoint());
        const QSize size = window.size();
        for (int tab : {0, 1, 2, 3, 2, 1, 0}) {
            QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
            test::settle();
            EXPECT_EQ(tabs.currentIndex(), tab);
            EXPECT_EQ(tabs.mapTo(&window, QPoint()), place) << "tab " << tab << " in " << size.width() << " pixels";
            EXPECT_EQ(window.size(), size);
        }
    }
}

TEST_F(Calculator_window, DrawsItsRandomNumbersFromTheClock)
{
    const auto first_number = [](std::int64_t seconds) {
        test::test_desk other;
        const fixed_clock clock({2026, 1, 2}, seconds);
        desktop_context context{other.store, other.registry, clock, other.user, other.recovery, other.frame};
        frmCal fresh(context);
        fresh.show();
        robot(fresh).type("txtExpression", "rand(1)");
        robot::press(Qt::Key_Return);
        return robot(fresh).text("txtAnswer");
    };
    EXPECT_NE(first_number(1000), first_number(1001));
    EXPECT_EQ(first_number(1000), first_number(1000));
}

TEST_F(Calculator_window, CanBeNamedReadAndReached)
{
    for (int page = 0; page < 4; ++page) {
        SCOPED_TRACE(page);
        show_page(page);
        EXPECT_THAT(test::faults_of(window), testing::IsEmpty());
    }
    expect_no_fault_down_to_the_least_size();
    EXPECT_LE(window.width(), QFontMetrics(window.font()).averageCharWidth() * 60);
}

} // namespace
} // namespace kelvarin
