// SPDX-License-Identifier: MIT
#include "nle/equations/equation_rows.h"
#include "support/equation_rows.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

TEST(EquationRows, ReadsKindNameAndRightSide)
{
    struct row
    {
        const char* equation;
        bool implicit;
        const char* name;
        const char* right_side;
    };
    const row rows[] = {
        {"f(x) = x^2 - 2", true, "x", "x^2 - 2"},
        {"f( x )=x", true, "x", "x"},
        {"f(x) = (x)", true, "x", "(x)"},
        {"x = y", false, "x", "y"},
        {"  x  =  y  ", false, "x", "y"},
        {"f = 3", false, "f", "3"},
        {"fx(1) = 3", false, "fx(1)", "3"},
        {" f(x) = 1", false, "f(x)", "1"},
        {"F(x) = 1", false, "F(x)", "1"},
        {"a = b == c", false, "a", "b == c"},
        {"a", false, "a", ""},
        {"a =", false, "a", ""},
        {"= 2", false, "", "2"},
        {"f(", true, "", ""},
        {"f(x = 2", true, "", "2"},
        {"f()) = 2", true, "", "2"},
    };
    for (const row& r : rows) {
        SCOPED_TRACE(r.equation);
        const equation_parts parts = parts_of(r.equation, test::f_rows);
        EXPECT_EQ(parts.implicit, r.implicit);
        EXPECT_EQ(parts.name, r.name);
        EXPECT_EQ(parts.right_side, r.right_side);
    }
}

TEST(EquationRows, OtherKindsMarkTheirImplicitRowsOtherwise)
{
    struct row
    {
        const char* equation;
        row_form form;
        bool implicit;
        const char* name;
        const char* right_side;
    };
    const row_form differential = {"d("};
    const row_form start_value = {"", "(0)"};
    const row rows[] = {
        {"d(y)/d(t) = -y", differential, true, "y", "-y"}, {"d( y )/d(t)=k*(y)", differential, true, "y", "k*(y)"},
        {"f(y) = 1", differential, false, "f(y)", "1"},    {"d = 2", differential, false, "d", "2"},
        {"x(0) = 2", start_value, true, "x", "2"},         {" x ( 0 ) = 2", start_value, true, "x", "2"},
        {"x = (0)==b", start_value, false, "x", "(0)==b"}, {"x(1) = 2", start_value, false, "x(1)", "2"},
        {"f(x) = 2", start_value, false, "f(x)", "2"},     {"x(0)", start_value, false, "x(0)", ""},
    };
    for (const row& r : rows) {
        SCOPED_TRACE(r.equation);
        const equation_parts parts = parts_of(r.equation, r.form);
        EXPECT_EQ(parts.implicit, r.implicit);
        EXPECT_EQ(parts.name, r.name);
        EXPECT_EQ(parts.right_side, r.right_side);
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

} // namespace
} // namespace kelvarin
