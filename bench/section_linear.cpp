// SPDX-License-Identifier: MIT
#include "numeric/linear/gauss_jordan.h"
#include "sections.h"
#include "table.h"
#include "values.h"
#include "yardsticks.h"

#include <random>

namespace kelvarin::bench
{

namespace
{

void measure(int n)
{
    std::mt19937_64 generator(static_cast<std::uint64_t>(n));
    std::uniform_real_distribution<double> element(-1.0, 1.0);
    matrix a(n, n);
    for (double& value : a.values())
        value = element(generator);
    std::vector<double> b(static_cast<std::size_t>(n));
    for (double& value : b)
        value = element(generator);

    std::vector<double> solution;
    std::vector<double> beside_inverse;
    const contender ours = {"solve", [&] {
                                solution = b;
                                gauss_jordan_solve(a, solution);
                            }};
    matrix inverse;
    const contender with_inverse = {"inverse", [&] {
                                        inverse = a;
                                        beside_inverse = b;
                                        gauss_jordan_inverse(inverse, beside_inverse);
                                    }};
    ours.run();
    with_inverse.run();
    require_same_bits(solution, beside_inverse, "elimination with and without inverse");

    const std::string name = "n = " + std::to_string(n) + ": ";
    print_line(name + "elimination with inverse / solution alone", ratios({with_inverse}, ours).front(), at_least(5.0));
    const yardstick lu = lu_solve(a, b);
    if (!lu) return print_note("no GSL to compare with");
    lu.run();
    require_close(solution, *lu.values, 1e-9, "elimination and LU");
    print_line(name + "solution alone / LU of GSL", ratios({ours}, {"LU", lu.run}).front(), at_most(1.5));
}

} // namespace

void measure_linear_solve()
{
    measure(100);
    measure(200);
}

} // namespace kelvarin::bench
