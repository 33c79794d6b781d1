// SPDX-License-Identifier: MIT
#include "compiled_formula.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "sections.h"
#include "table.h"
#include "values.h"
#include "yardsticks.h"

namespace kelvarin::bench
{

namespace
{

constexpr int size = 100;

/// The elements of the band, column by column.
std::vector<double> band_of(const matrix& df)
{
    std::vector<double> band;
    for (int j = 0; j < df.columns(); ++j) {
        for (int i = std::max(0, j - 1); i < std::min(j + 2, df.rows()); ++i)
            band.push_back(df(i, j));
    }
    return band;
}

} // namespace

void measure_jacobian()
{
    broyden_system broyden(size);
    nle_system& system = broyden.system();
    const std::vector<double>& x = broyden.start();
    std::vector<double> moved(x.size());
    std::vector<double> divisors(x.size());
    for (std::size_t j = 0; j < x.size(); ++j) {
        moved[j] = x[j] + 1e-07;
        divisors[j] = moved[j] - x[j];
    }
    std::vector<double> f(x.size());
    system.evaluate(x, f);

    matrix grouped(size, size);
    matrix dense(size, size);
    // As in a method: into the matrix of the iteration before.
    const sparsity_pattern* pattern = nullptr;
    const contender ours = {"grouped",
                            [&] { pattern = system.difference_quotients(x, f, moved, divisors, grouped, pattern); }};
    const contender loop = {"dense",
                            [&] { system.nonlinear_system::difference_columns(x, f, moved, divisors, dense); }};
    function_system native(size, broyden_native);
    matrix by_native(size, size);
    native.difference_columns(x, f, moved, divisors, by_native);
    ours.run();
    ours.run();
    loop.run();
    require_same_bits(grouped.values(), dense.values(), "Jacobian, grouped and dense");
    require_same_bits(grouped.values(), by_native.values(), "Jacobian, grouped and native");

    print_line("100 equations: dense loop / grouped columns", ratios({loop}, ours).front(), at_least(15.0));
    const yardstick parsed = parsed_band_columns(size, x, moved, divisors);
    if (!parsed) return print_note("no muParser to compare with");
    parsed.run();
    require_close(*parsed.values, band_of(grouped), 1e-6, "Jacobian, muParser and grouped");
    print_line("100 equations: muParser, dependent rows alone / grouped",
               ratios({{"muParser", parsed.run}}, ours).front(), at_least(5.0));
}

void measure_newton()
{
    const newt_options options;
    const auto measure = [&](int n, double wanted) {
        broyden_system broyden(n);
        std::vector<double> x(broyden.start().size());
        std::vector<double> residuals(x.size());
        const contender ours = {"newt", [&] {
                                    x = broyden.start();
                                    newt(broyden.system(), x, residuals, options);
                                }};
        ours.run();
        const yardstick hybrids = hybrids_on_broyden(n, options.TOLF);
        if (!hybrids) return print_note("no muParser and GSL to compare with");
        hybrids.run();
        require_close(x, *hybrids.values, 1e-6, "Newton and hybrids");
        print_line("n = " + std::to_string(n) + ": GSL hybrids with muParser / newt",
                   ratios({{"hybrids", hybrids.run}}, ours).front(), at_least(wanted));
    };
    measure(10, 3.0);
    measure(100, 6.0);
    measure(200, 9.0);
}

} // namespace kelvarin::bench
