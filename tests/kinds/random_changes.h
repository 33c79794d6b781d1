// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_problem.h"
#include "deq/deq_samples.h"
#include "leq/leq_problem.h"
#include "nle/nle_problem.h"
#include "nle/nle_samples.h"
#include "opt/opt_problem.h"
#include "opt/opt_samples.h"
#include "reg/table/table_document.h"

#include <rapidcheck.h>

#include <array>
#include <cstdint>
#include <string>

/// What a property needs to know of each kind of document: `change_at_random` is one operation with random arguments,
/// where a refusal is as good as a change, and `put_example` another example each time.
namespace kelvarin::test
{

/// A text as a person may type or paste it.
inline std::string any_text()
{
    const auto piece = rc::gen::element<std::string>("a", " ", "#", "=", "\"", "\\", "\n", "\r", "\t", "\x01", "{", "&",
                                                     "\xC3\xA9", "\xF0\x9F\x98\x80", "x(0)=1", "1,5");
    std::string text;
    for (int pieces = *rc::gen::inRange(0, 5); pieces > 0; --pieces)
        text += *piece;
    return text;
}

/// One of the edits of rows that every kind has, in a third of the calls; false if none was made.
inline bool change_rows_at_random(equation_table& problem, int row)
{
    switch (*rc::gen::inRange(0, 9)) {
    case 0:
        problem.remove(std::array{row});
        return true;
    case 1:
        problem.move(std::array{row}, *rc::gen::arbitrary<bool>());
        return true;
    case 2:
        if (row <= static_cast<int>(problem.rows().size())) problem.set_comment(row, any_text());
        return true;
    default:
        return false;
    }
}

inline void put_example(nle_problem& problem)
{
    problem.load_example(nle_samples()[*rc::gen::inRange<std::size_t>(0, nle_sample_count)]);
}

inline void change_at_random(nle_problem& problem)
{
    const int row = *rc::gen::inRange(1, 5);
    const auto name = *rc::gen::element<std::string>("x", "y", "a", "f", "2x");
    const auto bound = rc::gen::element<std::string>("", "1", "-2.5", "1E-07", "p");
    if (change_rows_at_random(problem, row)) return;
    switch (*rc::gen::inRange(0, 6)) {
    case 0:
        problem.put_implicit(name, "x + 1", "2", *rc::gen::inRange(0, 3), any_text());
        break;
    case 1:
        problem.put_explicit(name, "3*x", any_text());
        break;
    case 2:
        if (row <= problem.equation_count()) problem.put_explicit(name, "if (0)==x then 1 else 2", any_text(), row);
        break;
    case 3:
        problem.set_bounds(*bound, *bound);
        break;
    case 4:
        problem.choose_method(static_cast<nle_method>(*rc::gen::inRange(0, 4)));
        break;
    default:
        problem.rename_variable(name, *rc::gen::element<std::string>("x", "z", "a", "min", "2x"));
    }
}

inline void put_example(deq_problem& problem)
{
    problem.load_example(deq_samples()[*rc::gen::inRange<std::size_t>(0, deq_sample_count)]);
}

inline void change_at_random(deq_problem& problem)
{
    const int row = *rc::gen::inRange(1, 5);
    const auto name = rc::gen::element<std::string>("t", "y", "a", "d", "f", "2x");
    const auto bound = rc::gen::element<std::string>("", "1", " -2.5 ", "1E-07", "a=(0)#");
    if (change_rows_at_random(problem, row)) return;
    switch (*rc::gen::inRange(0, 7)) {
    case 0:
        problem.put_differential(*name, "y + 1", "2", any_text());
        break;
    case 1:
        problem.put_explicit(*name, "3*t", any_text());
        break;
    case 2:
        if (row <= problem.equation_count()) problem.put_differential(*name, "if (0)==y then 1 else 2", "3", "", row);
        break;
    case 3:
        problem.set_range(*bound, *bound);
        break;
    case 4:
        problem.set_independent(*rc::gen::arbitrary<bool>() ? *name : any_text());
        break;
    case 5:
        problem.choose_method(static_cast<deq_method>(*rc::gen::inRange(0, 5)));
        break;
    default:
        problem.rename_variable(*name, *name);
    }
}

inline void put_example(opt_problem& problem)
{
    problem.load_example(opt_samples()[*rc::gen::inRange<std::size_t>(0, opt_sample_count)]);
}

inline void change_at_random(opt_problem& problem)
{
    const int row = *rc::gen::inRange(1, 5);
    const auto name = *rc::gen::element<std::string>("x", "y", "a", "h", "2x");
    if (change_rows_at_random(problem, row)) return;
    switch (*rc::gen::inRange(0, 6)) {
    case 0:
        problem.put_row_text(name + " (0) = -1.5", any_text());
        break;
    case 1:
        problem.put_row_text(name + " = if (0)==x then 1 else 2", any_text());
        break;
    case 2:
        if (row <= problem.equation_count()) problem.put_row_text(any_text(), any_text(), row);
        break;
    case 3:
        problem.set_target(any_text());
        break;
    case 4:
        problem.choose_method(static_cast<opt_method>(*rc::gen::inRange(0, 3)));
        break;
    default:
        problem.rename_variable(name, *rc::gen::element<std::string>("x", "z", "t", "min", "2x"));
    }
}

inline void put_example(leq_problem& problem)
{
    problem.load_sample(*rc::gen::arbitrary<std::uint32_t>());
}

inline void change_at_random(leq_problem& problem)
{
    const auto cell = rc::gen::inRange(0, problem.equation_count());
    switch (*rc::gen::inRange(0, 8)) {
    case 0:
        problem.set_cell(*cell, *cell + 1, *rc::gen::element<std::string>("", "1", "-2.5", "1E-07", "abc"));
        break;
    case 1:
        problem.set_cell(*cell, *cell, any_text());
        break;
    case 2:
        problem.init_grids(*rc::gen::inRange(2, 6));
        break;
    case 3:
        problem.fill_empty_cells_with_zeros();
        break;
    case 4:
        problem.rename_variable(*cell, *rc::gen::element<std::string>("a", "x1", "x_", "3"));
        break;
    case 5:
        problem.paste({*cell, *cell, 1, 1}, {{"1", "2"}, {"3", any_text()}});
        break;
    case 6:
        problem.cut({*cell, 0, 1, 2});
        break;
    default:
        problem.clean_grid();
    }
}

inline void put_example(table_document& table)
{
    table.load_sample_table(*rc::gen::inRange(0, 4), *rc::gen::arbitrary<std::uint32_t>());
}

inline void change_at_random(table_document& table)
{
    const int row = *rc::gen::inRange(0, 5);
    const int column = *rc::gen::inRange(0, 4);
    const auto cell = rc::gen::element<std::string>("", "1", "-2.5", "1E-07", "abc", "*");
    switch (*rc::gen::inRange(0, 12)) {
    case 0:
        table.set_cell(row, column, any_text());
        break;
    case 1:
        // Reading rewrites calculated numbers: this column has none in another form.
        table.store_model_column(3, *rc::gen::element<std::string>("", "2*C01", "if C01 == 1 then 2 else 3"),
                                 {*cell, *cell});
        break;
    case 2:
        table.set_model("y = a^2", {{"a", *cell}});
        break;
    case 3:
        table.insert_row(row);
        break;
    case 4:
        table.delete_row(row);
        break;
    case 5:
        table.paste(row, column, {{*cell, any_text()}, {*cell}});
        break;
    case 6:
        table.rename_column(column, *rc::gen::element<std::string>("x", "e", "C02", "2x"));
        break;
    case 7:
        table.define_column(3, *rc::gen::element<std::string>("2*C01", "C02/C01", "x+1", "(", "C04"));
        break;
    case 8:
        table.type_cell(row, column, *cell, true);
        table.finish_typing(row, column);
        break;
    case 9:
        table.cut({row, column, 2, 1});
        break;
    case 10:
        table.add_columns(1);
        break;
    default:
        table.set_cell(row, column, *cell);
    }
}

} // namespace kelvarin::test
