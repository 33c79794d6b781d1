// SPDX-License-Identifier: MIT
#include "numeric/minimize/NR_OPT.h"
#include "opt/opt_system.h"
#include "sections.h"
#include "table.h"
#include "values.h"
#include "yardsticks.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelvarin::bench
{

namespace
{

/// The error of the worst variable that both sides are to reach; the minimum is at 1 in each.
constexpr double wanted_error = 1e-6;

struct problem
{
    std::string name;
    typed_target target;
};

double error_of(std::span<const double> x)
{
    double worst = x.empty() ? HUGE_VAL : 0.0;
    for (const double value : x)
        worst = std::max(worst, std::fabs(value - 1.0));
    return worst;
}

/// The problem, compiled.
class compiled_problem
{
public:
    explicit compiled_problem(const typed_target& source) : system_(content_of(source), listener_)
    {
        system_.opt_sort_explicit();
        require(!system_.opt_compile(), source.expression + " does not compile");
    }

    const std::vector<double>& run(conmin_method method, double eps)
    {
        x_ = system_.start_values();
        conmin(system_, x_, {.method = method, .eps = eps, .mxfun = 300});
        return x_;
    }

private:
    static opt_content content_of(const typed_target& source)
    {
        opt_content content;
        content.target = source.expression;
        for (std::size_t i = 0; i < source.variables.size(); ++i)
            content.rows.push_back({source.variables[i] + "(0) = " + std::to_string(source.start[i]), "", ""});
        return content;
    }

    recording_listener listener_;
    opt_system system_;
    std::vector<double> x_;
};

/// The loosest tolerance, in decades, with which a solution has the wanted error; nullopt if none has.
std::optional<double> loosest(const std::function<std::vector<double>(double)>& solve)
{
    for (int decade = 0; decade < 12; ++decade)
        if (const double tolerance = std::pow(10.0, -decade); error_of(solve(tolerance)) <= wanted_error)
            return tolerance;
    return std::nullopt;
}

void measure(const problem& tried, conmin_method method, gsl_minimizer other, const std::string& names)
{
    const auto compiled = std::make_shared<compiled_problem>(tried.target);
    const std::optional<double> eps = loosest([&](double tolerance) { return compiled->run(method, tolerance); });
    require(eps.has_value(), tried.name + ": no minimum");
    const contender ours = {"conmin", [compiled, method, eps] { keep(compiled->run(method, *eps)); }};

    if (!minimize_by_gsl(tried.target, other, 1.0)) return print_note("no muParser and GSL to compare with");
    const auto by_gsl = [&](double tolerance) {
        const yardstick run = minimize_by_gsl(tried.target, other, tolerance);
        run.run();
        return *run.values;
    };
    const std::optional<double> tolerance = loosest(by_gsl);
    if (!tolerance) return print_note(tried.name + ", " + names + ": GSL does not reach the error");
    const yardstick run = minimize_by_gsl(tried.target, other, *tolerance);
    print_line(tried.name + ": " + names, ratios({{"GSL", run.run}}, ours).front(), at_least(1.5));
}

} // namespace

void measure_minimizers()
{
    const problem problems[] = {
        {"Rosenbrock", {"100*(y-x^2)^2+(1-x)^2", {"x", "y"}, {-1.2, 1.0}}},
        {"Wood",
         {"100*(b-a^2)^2+(1-a)^2+90*(d-c^2)^2+(1-c)^2+10*(b+d-2)^2+0.1*(b-d)^2",
          {"a", "b", "c", "d"},
          {-3.0, -1.0, -3.0, -1.0}}},
    };
    for (const problem& each : problems) {
        measure(each, conmin_method::conjugate_gradient, gsl_minimizer::conjugate_fr,
                "GSL conjugate_fr with muParser / Conjugate Grad");
        measure(each, conmin_method::variable_metric, gsl_minimizer::vector_bfgs2,
                "GSL vector_bfgs2 with muParser / Quasi-Newton");
    }
}

} // namespace kelvarin::bench
