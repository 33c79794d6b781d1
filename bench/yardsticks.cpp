// SPDX-License-Identifier: MIT
#include "yardsticks.h"

#include "parsed_system.h"
#include "values.h"

#include <gsl/gsl_linalg.h>

#include <algorithm>

namespace kelvarin::bench
{

namespace
{

struct slots_and_parsers
{
    std::vector<double> slots;
    std::deque<mu::Parser> parsers;
};

/// A formula's variables as slots that every parser of `count` ones knows.
std::shared_ptr<slots_and_parsers> parsers_for(const formula& source, std::size_t count)
{
    auto made = std::make_shared<slots_and_parsers>();
    for (const named_value& input : source.inputs)
        made->slots.push_back(input.value);
    made->slots.resize(source.slot_count(), 0.0);
    for (std::size_t p = 0; p < count; ++p) {
        mu::Parser& parser = made->parsers.emplace_back();
        double* slot = made->slots.data();
        for (const named_value& input : source.inputs)
            parser.DefineVar(input.name, slot++);
        for (const named_text& equation : source.equations)
            parser.DefineVar(equation.name, slot++);
    }
    return made;
}

/// The residuals that change with unknown j of the tridiagonal system.
std::pair<std::size_t, std::size_t> rows_of_column(std::size_t j, std::size_t n)
{
    return {j == 0 ? 0 : j - 1, std::min(j + 2, n)};
}

} // namespace

yardstick parsed_evaluation(const formula& source)
{
    const auto made = parsers_for(source, source.equations.size());
    for (std::size_t i = 0; i < source.equations.size(); ++i)
        made->parsers[i].SetExpr(source.equations[i].text);
    yardstick result;
    result.values = std::make_shared<std::vector<double>>(1);
    result.run = [made, values = result.values, first = source.inputs.size()] {
        double* slot = made->slots.data() + first;
        for (mu::Parser& parser : made->parsers)
            *slot++ = parser.Eval();
        values->front() = made->slots.back();
    };
    return result;
}

yardstick parsed_compiling(const formula& source)
{
    const auto made = parsers_for(source, 1);
    yardstick result;
    result.values = std::make_shared<std::vector<double>>(1);
    result.run = [made, values = result.values, equations = source.equations, first = source.inputs.size()] {
        double* slot = made->slots.data() + first;
        mu::Parser& parser = made->parsers.front();
        for (const named_text& equation : equations) {
            parser.SetExpr(equation.text);
            *slot++ = parser.Eval();
        }
        values->front() = made->slots.back();
    };
    return result;
}

yardstick parsed_band_columns(int n, std::span<const double> x, std::span<const double> moved,
                              std::span<const double> divisors)
{
    const auto system =
        std::make_shared<parsed_system>(broyden_unknowns(n), std::span<const named_text>(), broyden_texts(n));
    std::vector<double> residuals(x.size());
    system->evaluate(x, residuals);
    yardstick result;
    result.values = std::make_shared<std::vector<double>>();
    result.run = [=, values = result.values, point = std::vector<double>(x.begin(), x.end()),
                  to = std::vector<double>(moved.begin(), moved.end()),
                  by = std::vector<double>(divisors.begin(), divisors.end())] {
        values->clear();
        for (std::size_t j = 0; j < point.size(); ++j) {
            system->unknown(j) = to[j];
            const auto [first, last] = rows_of_column(j, point.size());
            for (std::size_t i = first; i < last; ++i)
                values->push_back((system->residual(i) - residuals[i]) / by[j]);
            system->unknown(j) = point[j];
        }
    };
    return result;
}

yardstick lu_solve(const matrix& a, std::span<const double> b)
{
    struct workspace
    {
        matrix original;
        std::vector<double> right_side;
        matrix decomposed;
        std::vector<std::size_t> permutation;
    };
    const auto work =
        std::make_shared<workspace>(workspace{a, {b.begin(), b.end()}, a, std::vector<std::size_t>(b.size())});
    yardstick result;
    result.values = std::make_shared<std::vector<double>>(b.size());
    result.run = [work, values = result.values] {
        const std::size_t n = values->size();
        work->decomposed = work->original;
        gsl_matrix_view lu = gsl_matrix_view_array(work->decomposed.values().data(), n, n);
        gsl_vector_view right_side = gsl_vector_view_array(work->right_side.data(), n);
        gsl_vector_view solution = gsl_vector_view_array(values->data(), n);
        gsl_permutation permutation = {n, work->permutation.data()};
        int sign = 0;
        gsl_linalg_LU_decomp(&lu.matrix, &permutation, &sign);
        gsl_linalg_LU_solve(&lu.matrix, &permutation, &right_side.vector, &solution.vector);
    };
    return result;
}

yardstick hybrids_on_broyden(int n, double tolerance)
{
    const auto system =
        std::make_shared<parsed_system>(broyden_unknowns(n), std::span<const named_text>(), broyden_texts(n));
    yardstick result;
    result.values = std::make_shared<std::vector<double>>(system->size());
    result.run = [system, tolerance, values = result.values] {
        std::ranges::fill(*values, -1.0);
        require(solve_by_hybrids(*system, *values, tolerance).converged, "hybrids did not converge");
    };
    return result;
}

} // namespace kelvarin::bench
