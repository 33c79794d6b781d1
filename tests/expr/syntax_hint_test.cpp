// SPDX-License-Identifier: MIT
#include "expr/basParse.h"
#include "expr/syntax_hint.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

TEST(SyntaxHint, NamesTheHabitBehindARefusedText)
{
    struct row
    {
        const char* typed;
        const char* hint;
    };
    for (const row& each :
         {row{"x**2", "Powers are written with ^: x^2"}, row{"1+(a+b) ** 2", "Powers are written with ^, as in x^2."},
          row{"2x+1", "A product needs its sign: 2*x"}, row{"1.5rho", "A product needs its sign: 1.5*rho"},
          row{"5,2*x", "Decimals stand behind a point: 5.2"}, row{"x + 0,25", "Decimals stand behind a point: 0.25"},
          row{"v0 = 100", "Only the right side is written here: what stands behind \"v0 =\"."},
          row{"a \u2212 b", "In place of \"\u2212\" write -"}, row{"r\u00b2*3", "In place of \"\u00b2\" write ^2"},
          row{"2*[a+b]", "Only ( and ) are parentheses."}, row{"(a+b", ""}, row{"a b", ""},
          row{"2e", "A product needs its sign: 2*e"}}) {
        EXPECT_FALSE(check_expression(each.typed).ok) << each.typed;
        EXPECT_EQ(syntax_hint(each.typed), each.hint) << each.typed;
    }
}

} // namespace
} // namespace kelvarin
