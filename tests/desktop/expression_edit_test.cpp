// SPDX-License-Identifier: MIT
#include "desktop/expression_edit.h"

#include "support/robot.h"
#include "support/table.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QLineEdit>
#include <QTextBlock>
#include <QTextLayout>
#include <QVBoxLayout>

#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

using test::robot;
using testing::ElementsAre;

class desk
{
public:
    desk()
    {
        auto* layout = new QVBoxLayout(&window);
        edit = new expression_edit;
        edit->set_names({"temperature", "T", "v"});
        next = new QLineEdit;
        layout->addWidget(edit);
        layout->addWidget(next);
        QObject::connect(edit, &expression_edit::done_asked, edit, [this] { ++done; });
        QObject::connect(edit, &expression_edit::paused, edit, [this] { ++pauses; });
        window.show();
        window.activateWindow();
        edit->setFocus();
        test::settle();
    }

    bool offers() const { return edit->findChild<QCompleter*>()->popup()->isVisible(); }
    std::vector<std::string> offered() const
    {
        const QAbstractItemModel* list = edit->findChild<QCompleter*>()->completionModel();
        std::vector<std::string> names;
        for (int row = 0; offers() && row < list->rowCount(); ++row)
            names.push_back(list->index(row, 0).data().toString().toStdString());
        return names;
    }
    std::string marked() const
    {
        std::string text;
        for (const QTextEdit::ExtraSelection& mark : edit->extraSelections())
            text += mark.cursor.selectedText().toStdString();
        return text;
    }

    QWidget window;
    expression_edit* edit = nullptr;
    QLineEdit* next = nullptr;
    int done = 0;
    int pauses = 0;
};

TEST(ExpressionEdit, CompletesFunctionsAndVariables)
{
    const test::table<const char*, std::vector<std::string>, const char*> entries = {
        {"2*te", {"temperature"}, "2*temperature"},
        {"arcta", {"arctan", "arctanh"}, "arctan("},
        {"v + ARCSI", {"arcsin", "arcsinh"}, "v + arcsin("},
        // A function of the calculator, and a variable in equations.
        {"v + fac", {}, nullptr},
        {"v", {}, nullptr},
        {"3e", {}, nullptr},
        {"ln", {}, nullptr},
        {"2*x1y", {}, nullptr},
    };
    for (const auto& [typed, offered, chosen] : entries) {
        SCOPED_TRACE(typed);
        desk at;
        robot::keys(typed);
        EXPECT_EQ(at.offered(), offered);
        if (!chosen) continue;
        robot::press(Qt::Key_Down);
        robot::press(Qt::Key_Return);
        EXPECT_EQ(at.edit->expression(), chosen);
        EXPECT_FALSE(at.offers());
    }
}

TEST(ExpressionEdit, OffersAllNamesOnDemand)
{
    desk at;
    robot::press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_THAT(at.offered(), testing::IsSupersetOf({"sin", "arctanh", "T", "temperature", "v"}));
    robot::press(Qt::Key_Escape);
    EXPECT_FALSE(at.offers());
    EXPECT_TRUE(at.window.isVisible());
    EXPECT_EQ(at.edit->expression(), "");
}

TEST(ExpressionEdit, LeavesANameAloneThatOthersContinue)
{
    struct key
    {
        Qt::Key code;
        Qt::KeyboardModifiers modifiers;
        const char* text;
        bool left;
        int done;
    };
    const key keys[] = {{Qt::Key_Tab, {}, "x*tan", true, 0},
                        {Qt::Key_Return, {}, "x*tan", false, 1},
                        {Qt::Key_Enter, Qt::KeypadModifier, "x*tan", false, 1},
                        {Qt::Key_Return, Qt::ShiftModifier, "x*tan ", false, 0},
                        {Qt::Key_Return, Qt::ControlModifier, "x*tan", false, 1}};
    for (const key& pressed : keys) {
        SCOPED_TRACE(pressed.text);
        desk at;
        robot::keys("x*tan");
        ASSERT_THAT(at.offered(), ElementsAre("tan", "tanh"));
        robot::press(pressed.code, pressed.modifiers);
        EXPECT_FALSE(at.offers());
        EXPECT_EQ(at.edit->expression(), pressed.text);
        EXPECT_EQ(at.next->hasFocus(), pressed.left);
        EXPECT_EQ(at.done, pressed.done);
    }
}

TEST(ExpressionEdit, ClosesItsListWithTheFocus)
{
    desk at;
    robot::keys("ta");
    ASSERT_TRUE(at.offers());
    at.next->setFocus();
    test::settle();
    EXPECT_FALSE(at.offers());
}

TEST(ExpressionEdit, GivesLinesAndTabsAsBlanksOfOneByte)
{
    desk at;
    at.edit->setPlainText(QStringLiteral("if x > 1\nthen\t2 else 3"));
    EXPECT_EQ(at.edit->expression(), "if x > 1 then 2 else 3");
    at.edit->mark_place(text_place{0, 9, 4});
    EXPECT_EQ(at.marked(), "then");
}

TEST(ExpressionEdit, BreaksLinesByEnterOnceItHasSeveral)
{
    desk at;
    robot::keys("if x");
    robot::press(Qt::Key_Return, Qt::ShiftModifier);
    robot::keys("then 1");
    robot::press(Qt::Key_Return);
    robot::keys("else 2");
    EXPECT_EQ(at.done, 0);
    EXPECT_EQ(at.edit->toPlainText(), "if x\nthen 1\nelse 2");
    robot::press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(at.done, 1);
}

TEST(ExpressionEdit, MarksBytesAsLettersUntilTheTextChanges)
{
    const test::table<const char*, text_place, const char*> marks = {
        {"\xC3\xA9 + sin x", {0, 5, 3}, "sin"},
        {"x + ", {0, 4, 0}, " "},
        {"x + y", {0, 4, 99}, "y"},
        {"x", {0, 99, 1}, "x"},
    };
    for (const auto& [text, place, marked] : marks) {
        SCOPED_TRACE(text);
        desk at;
        at.edit->set_expression(text);
        at.edit->mark_place(place);
        EXPECT_EQ(at.marked(), marked);
        robot::keys("1");
        EXPECT_EQ(at.marked(), "");
    }
}

TEST(ExpressionEdit, UnderlinesNamesUntilOthersAreNamed)
{
    desk at;
    at.edit->set_expression("a + b*c");
    at.edit->mark_undefined({{0, 0, 1}, {0, 6, 1}});
    at.edit->mark_place(text_place{0, 4, 1});
    EXPECT_EQ(at.marked(), "acb");
    robot::press(Qt::Key_End);
    robot::keys("^2");
    EXPECT_EQ(at.marked(), "ac");
    at.edit->mark_undefined({});
    EXPECT_EQ(at.marked(), "");
}

TEST(ExpressionEdit, PausesOnceAfterATextAndNotForItsColours)
{
    desk at;
    robot::keys("x^2");
    EXPECT_EQ(at.pauses, 0);
    EXPECT_TRUE(test::wait_until([&] { return at.pauses > 0; }));
    QPalette dark = at.edit->palette();
    dark.setColor(QPalette::Base, Qt::black);
    at.edit->setPalette(dark);
    test::wait_until([&] { return at.pauses > 1; }, 600);
    EXPECT_EQ(at.pauses, 1);
}

TEST(ExpressionEdit, TintsWordsOfTheLanguage)
{
    desk at;
    at.edit->set_expression("if sinx > sin(x) then 1 else b");
    test::settle();
    const QTextBlock line = at.edit->document()->firstBlock();
    std::vector<std::string> tinted;
    for (const QTextLayout::FormatRange& range : line.layout()->formats())
        tinted.push_back(line.text().mid(range.start, range.length).toStdString());
    EXPECT_THAT(tinted, ElementsAre("if", "sin", "then", "else"));
}

} // namespace
} // namespace kelvarin
