// SPDX-License-Identifier: MIT
#include "nle/nle_solve.h"

#include "nle/nle_options.h"
#include "numeric/arithmetic_check.h"

#include <cmath>

namespace kelvarin
{

nle_solver_result solve_nle(nle_method method, nle_system& system, std::span<double> x, std::span<double> fvec,
                            const settings& store, const iteration_hook& on_iteration)
{
    const auto with_hook = [&](auto options) {
        options.on_iteration = on_iteration;
        return options;
    };
    switch (method) {
    case nle_method::fastnewt:
        return {mnewt(system, x, fvec, with_hook(mnewt_options_from(store))).iterations};
    case nle_method::safenewt:
        return {newt(system, x, fvec, with_hook(newt_options_from(store))).iterations};
    case nle_method::safebroydn:
        return {broydn(system, x, fvec, with_hook(broydn_options_from(store))).iterations};
    case nle_method::constrained:
        break;
    }
    cnle_options options = with_hook(cnle_options_from(store));
    options.give_up = [&] { return system.context().eval_error_flag(); };
    const cnle_result solved = solve_cnle(system, x, system.constraints(), fvec, options);
    return {solved.iterations, solved.code};
}

double sum_of_absolutes(std::span<const double> values)
{
    double sum = 0.0;
    for (const double value : values)
        sum += std::fabs(value);
    return finite(sum);
}

nle_solution solution_of(nle_system& system, std::span<const double> x, std::span<const double> fvec,
                         std::span<const double> guesses)
{
    nle_solution solution;
    const std::vector<std::string>& unknowns = system.implicit_equations().names;
    for (std::size_t i = 0; i < unknowns.size(); ++i) {
        solution.implicit.push_back({unknowns[i], finite(x[i]), finite(fvec[i]), guesses[i]});
    }
    const std::vector<double> values = system.explicit_values(x);
    const std::vector<std::string>& names = system.explicit_equations().names;
    for (std::size_t i = 0; i < names.size(); ++i)
        solution.explicit_values.push_back({names[i], finite(values[i])});
    return solution;
}

message_box evaluation_box(nle_system& system, std::string_view title)
{
    return {system.context().eval_error_message(), box_icon::critical, std::string(title), system.failed_place()};
}

} // namespace kelvarin
