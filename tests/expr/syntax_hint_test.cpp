// SPDX-License-Identifier: MIT
#include "expr/basParse.h"
#include "expr/syntax_hint.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{

TEST(SyntaxHint, NamesTheHabitBehindARefusedText)
{
    for (const auto& [typed, hint] : table<const char*, const char*>{
             {"x**2", "Powers are written with ^: x^2"},
             {"1+(a+b) ** 2", "Powers are written with ^, as in x^2."},
             {"2x+1", "A product needs its sign: 2*x"},
             {"1.5rho", "A product needs its sign: 1.5*rho"},
             {"5,2*x", "Decimals stand behind a point: 5.2"},
             {"x + 0,25", "Decimals stand behind a point: 0.25"},
             {"v0 = 100", "Only the right side is written here: what stands behind \"v0 =\"."},
             {"a \u2212 b", "In place of \"\u2212\" write -"},
             {"r\u00b2*3", "In place of \"\u00b2\" write ^2"},
             {"2*[a+b]", "Only ( and ) are parentheses."},
             {"(a+b", ""},
             {"a b", ""},
             {"2e", "A product needs its sign: 2*e"}}) {
        EXPECT_FALSE(check_expression(typed).ok) << typed;
        EXPECT_EQ(syntax_hint(typed), hint) << typed;
    }
}

} // namespace kelvarin::test
