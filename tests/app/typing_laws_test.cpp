// SPDX-License-Identifier: MIT
// What typing into the grid does, in the windows of all kinds of equations.

#include "deq/window/deq_desk.h"
#include "desktop/expression_edit.h"
#include "desktop/link_label.h"
#include "nle/window/nle_desk.h"
#include "opt/window/opt_desk.h"

#include <gmock/gmock.h>

namespace kelvarin::test
{
namespace
{

/// A kind's rows as they are typed.
template <class Desk> struct typed_lines;

template <> struct typed_lines<nle_desk>
{
    static constexpr const char* equation = "f(x) = x^2 - a";
    static constexpr const char* value = "1.5";
    /// The row of a name that the equation uses; what is typed when it was proposed, or when nothing was.
    static constexpr const char* next = "2*b";
};
template <> struct typed_lines<deq_desk>
{
    static constexpr const char* equation = "d(x)/d(t) = -a*x";
    static constexpr const char* value = "1.5";
    static constexpr const char* next = "2*b";
};
template <> struct typed_lines<opt_desk>
{
    static constexpr const char* equation = "x(0) = 1.5";
    static constexpr const char* value = nullptr;
    static constexpr const char* next = "a = 2*b";
};

template <class Desk> struct TypingInEveryKind : testing::Test
{
    using lines = typed_lines<Desk>;
    Desk kind;

    void SetUp() override { kind.grid().setFocus(); }
    static void enter(const char* text)
    {
        robot::keys(text);
        robot::press(Qt::Key_Return);
    }
    void type_all()
    {
        enter(lines::equation);
        if (lines::value) enter(lines::value);
        enter(lines::next);
        enter("3");
    }
    std::vector<std::string> typed() const { return {lines::equation, "a = 2*b", "b = 3"}; }
    void edit(int row, int column) const
    {
        kind.grid().setCurrentIndex(kind.grid().model()->index(row - 1, column - 1));
        robot::press(Qt::Key_F2);
    }
};

using kinds = testing::Types<nle_desk, deq_desk, opt_desk>;
TYPED_TEST_SUITE(TypingInEveryKind, kinds);

TYPED_TEST(TypingInEveryKind, RowsComeOneAfterTheOtherAndGoAsSteps)
{
    auto& desk = this->kind;
    this->type_all();
    EXPECT_EQ(desk.equations(), this->typed());
    if (TestFixture::lines::value) {
        EXPECT_EQ(desk.cell(1, 2), TestFixture::lines::value);
    }
    EXPECT_EQ(desk.grid().current_row(), 4);
    for (std::size_t rows = 3; rows-- > 0;) {
        robot::press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(desk.content().rows.size(), rows);
    }
}

TYPED_TEST(TypingInEveryKind, ARefusalSelectsWhatIsAtFault)
{
    auto& desk = this->kind;
    this->type_all();
    robot::keys("c = 2*");
    desk.user.expect_box("Syntax Error: extra operator at the end of the expression; *");
    robot::press(Qt::Key_Return);
    this->enter("5");
    EXPECT_EQ(desk.equations().back(), "c = 25");
}

TYPED_TEST(TypingInEveryKind, F2EditsACellAndEscLeavesItAsItWas)
{
    auto& desk = this->kind;
    this->type_all();
    this->edit(2, 1);
    robot::keys("+1");
    robot::press(Qt::Key_Escape);
    EXPECT_EQ(desk.equations(), this->typed());
    EXPECT_TRUE(desk.grid().hasFocus());
    auto& advice = desk.person.template find<link_label>("lblAdvice");
    EXPECT_EQ(advice.whole_text(), "What was typed in row 2 was given up: bring it back");
    emit advice.linkActivated(QStringLiteral("0"));
    robot::press(Qt::Key_Return);
    EXPECT_EQ(desk.equations()[1], "a = 2*b+1");
    this->edit(1, 3);
    this->enter("why");
    EXPECT_EQ(desk.content().rows[0].comment, "why");
    EXPECT_EQ(desk.equations()[0], TestFixture::lines::equation);
    if (TestFixture::lines::value) {
        EXPECT_EQ(desk.content().rows[0].guess, TestFixture::lines::value);
    }
}

TYPED_TEST(TypingInEveryKind, WhatIsTypedIsTakenOverBeforeTheKeyboardLeaves)
{
    auto& desk = this->kind;
    robot::keys("b = 3");
    desk.person.click("chkComments");
    EXPECT_THAT(desk.equations(), testing::ElementsAre("b = 3"));
    desk.grid().setFocus();
    robot::press(Qt::Key_Down);
    robot::keys("c = 3x");
    desk.person.click("chkComments");
    EXPECT_THAT(desk.equations(), testing::ElementsAre("b = 3"));
    EXPECT_TRUE(desk.person.template find<link_label>("lblAdvice")
                    .whole_text()
                    .startsWith(QStringLiteral("c = 3x was not taken over. Syntax Error: ")));
}

} // namespace
} // namespace kelvarin::test
