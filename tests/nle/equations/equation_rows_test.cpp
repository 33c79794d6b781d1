// SPDX-License-Identifier: MIT
#include "nle/equations/equation_rows.h"
#include "support/equation_rows.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{

TEST(EquationRows, ReadsKindNameAndRightSide)
{
    const row_form differential = {"d("};
    const row_form start_value = {"", "(0)"};
    const table<row_form, const char*, bool, const char*, const char*> rows = {
        {f_rows, "f(x) = x^2 - 2", true, "x", "x^2 - 2"},
        {f_rows, "f( x )=x", true, "x", "x"},
        {f_rows, "f(x) = (x)", true, "x", "(x)"},
        {f_rows, "x = y", false, "x", "y"},
        {f_rows, "  x  =  y  ", false, "x", "y"},
        {f_rows, "f = 3", false, "f", "3"},
        {f_rows, "fx(1) = 3", false, "fx(1)", "3"},
        {f_rows, " f(x) = 1", false, "f(x)", "1"},
        {f_rows, "F(x) = 1", false, "F(x)", "1"},
        {f_rows, "a = b == c", false, "a", "b == c"},
        {f_rows, "a", false, "a", ""},
        {f_rows, "a =", false, "a", ""},
        {f_rows, "= 2", false, "", "2"},
        {f_rows, "f(", true, "", ""},
        {f_rows, "f(x = 2", true, "", "2"},
        {f_rows, "f()) = 2", true, "", "2"},
        {differential, "d(y)/d(t) = -y", true, "y", "-y"},
        {differential, "d( y )/d(t)=k*(y)", true, "y", "k*(y)"},
        {differential, "f(y) = 1", false, "f(y)", "1"},
        {differential, "d = 2", false, "d", "2"},
        {start_value, "x(0) = 2", true, "x", "2"},
        {start_value, " x ( 0 ) = 2", true, "x", "2"},
        {start_value, "x = (0)==b", false, "x", "(0)==b"},
        {start_value, "x(1) = 2", false, "x(1)", "2"},
        {start_value, "f(x) = 2", false, "f(x)", "2"},
        {start_value, "x(0)", false, "x(0)", ""},
    };
    for (const auto& [form, equation, implicit, name, right_side] : rows) {
        SCOPED_TRACE(equation);
        const equation_parts parts = parts_of(equation, form);
        EXPECT_EQ(parts.implicit, implicit);
        EXPECT_EQ(parts.name, name);
        EXPECT_EQ(parts.right_side, right_side);
    }
}

TEST(EquationRows, PartsKnowTheirOffsets)
{
    const equation_parts implicit = parts_of("f( xy ) =  x+1", test::f_rows);
    EXPECT_EQ(implicit.name_offset, 3U);
    EXPECT_EQ(implicit.right_side_offset, 11U);
    const equation_parts bare = parts_of(" a", test::f_rows);
    EXPECT_EQ(bare.name_offset, 1U);
    EXPECT_EQ(bare.right_side_offset, 2U);
}

} // namespace kelvarin::test
