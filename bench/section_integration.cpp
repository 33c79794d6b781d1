// SPDX-License-Identifier: MIT
#include "deq/deq_methods.h"
#include "deq/deq_points.h"
#include "formulas.h"
#include "numeric/ode/ode_system.h"
#include "platform/run_time_text.h"
#include "sections.h"
#include "support/published_problems.h"
#include "table.h"
#include "values.h"
#include "yardsticks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>

namespace kelvarin::bench
{

namespace
{

/// A differential problem, read from its texts and compiled as a run does it.
class timed_problem
{
public:
    explicit timed_problem(deq_content content) : content_(std::move(content)), system_(content_, listener_)
    {
        system_.sort();
        require(!system_.compile_deq_expressions(), "the differential equations are refused");
    }

    deq_system& system() { return system_; }

    /// The same equations for others, explicit ones in the order of their evaluation.
    initial_values texts()
    {
        initial_values made;
        made.unknowns = {content_.independent};
        const equation_list& differential = system_.differential_equations();
        made.unknowns.insert(made.unknowns.end(), differential.names.begin(), differential.names.end());
        made.derivatives = differential.right_sides;
        const equation_list& given = system_.explicit_equations();
        for (std::size_t i = 0; i < given.names.size(); ++i)
            made.explicit_equations.push_back({given.names[i], given.right_sides[i]});
        made.start = system_.initial_values();
        made.x2 = val(content_.final_value);
        return made;
    }

    /// A run with its points; the end in `values`.
    integration by(deq_method method, double tolerance, int points)
    {
        settings store;
        const auto set = [&](std::string_view key, double value) { store.set_value(key, plain_text(value)); };
        set("deq_Intermediate_data_points", points);
        set(tolerance_keys[static_cast<std::size_t>(method)], tolerance);
        integration made;
        made.values = std::make_shared<std::vector<double>>();
        made.evaluations = std::make_shared<std::int64_t>(0);
        made.run = [this, method, store, values = made.values, evaluations = made.evaluations] {
            *values = system_.initial_values();
            const double x2 = val(content_.final_value);
            const ode_range range = {0.0, x2, output_step_from(store, 0.0, x2)};
            std::atomic<bool> suspected = false;
            deq_points kept(content_.independent, system_, range, method, listener_, suspected);
            *evaluations = integrate_by(method, system_, *values, range, store, kept).evaluations;
        };
        return made;
    }

private:
    static constexpr std::array<const char*, 5> tolerance_keys = {"RKF45_TETOL", "RKF56_TETOL", "bs_eps", "stiff_eps",
                                                                  "stiffbs_eps"};

    recording_listener listener_;
    deq_content content_;
    deq_system system_;
};

/// The digits of the end that are right: of the largest error, in units of the largest variable.
double digits_of(const std::vector<double>& found, const std::vector<double>& end)
{
    double error = 0.0;
    double size = 0.0;
    for (std::size_t i = 0; i < end.size(); ++i) {
        error = std::fmax(error, std::fabs(found.at(i) - end[i]));
        size = std::fmax(size, std::fabs(end[i]));
    }
    return -std::log10(error / size);
}

using by_tolerance = std::function<integration(double)>;

/// The first of ever smaller tolerances by which the end has so many digits; nothing if there is none.
std::optional<integration> loosest(const by_tolerance& make, const std::vector<double>& end, double digits)
{
    for (int step = 4; step <= 48; ++step) {
        integration made = make(std::pow(10.0, -0.25 * step));
        try {
            made.run();
        } catch (const std::exception&) {
            continue;
        }
        if (digits_of(*made.values, end) >= digits) return made;
    }
    return std::nullopt;
}

/// The same for a yardstick whose absolute tolerance is a part of the relative one: that part which is best for it.
std::optional<integration> loosest_yardstick(integration (*make)(const initial_values&, double, double),
                                             const initial_values& problem, const std::vector<double>& end,
                                             double digits)
{
    std::optional<integration> best;
    for (const double part : {1.0, 1e-2, 1e-4, 1e-6}) {
        const auto found =
            loosest([&](double tolerance) { return make(problem, tolerance, tolerance * part); }, end, digits);
        if (found && (!best || *found->evaluations < *best->evaluations)) best = found;
    }
    return best;
}

std::string effort(const integration& done, const std::vector<double>& end)
{
    char text[80];
    std::snprintf(text, sizeof text, "%lld evaluations for %.1f digits", static_cast<long long>(*done.evaluations),
                  digits_of(*done.values, end));
    return text;
}

/// Lines of a problem at equal digits, each with what the contenders took.
class comparison
{
public:
    comparison(std::string name, deq_content content, std::vector<double> end, double digits)
        : name_(std::move(name)), problem_(std::move(content)), end_(std::move(end)), digits_(digits)
    {
    }

    /// Time of GSL's method over that of RKF45.
    void with_rkf45_of_gsl(const goal& wanted)
    {
        const auto other = loosest_yardstick(parsed_rkf45, problem_.texts(), end_, digits_);
        if (!other) return print_note("no muParser and GSL to compare with");
        for (const int points : {20, 500}) {
            const auto ours = method(deq_method::rkf45, points);
            require(ours.has_value(), name_ + ": RKF45 does not reach the digits");
            print_line(caption(points, "GSL rkf45 / RKF45"), ratios({{"GSL", other->run}}, {"ours", ours->run}).front(),
                       points == 20 ? wanted : goal());
            print_note("GSL: " + effort(*other, end_) + "; RKF45: " + effort(*ours, end_));
        }
    }

    /// Times of the stiff methods over that of CVODE; the goal is for the better of both.
    void with_bdf_of_cvode(const goal& wanted)
    {
        const auto other = loosest_yardstick(parsed_bdf, problem_.texts(), end_, digits_);
        if (!other) return print_note("no muParser and CVODE to compare with");
        for (const int points : {20, 500}) {
            std::vector<std::string> notes = {"CVODE: " + effort(*other, end_)};
            double best = std::numeric_limits<double>::infinity();
            std::vector<std::pair<std::string, spread>> lines;
            for (const deq_method which : {deq_method::stiff, deq_method::stiffbs}) {
                const std::string text(method_text(which));
                const auto ours = method(which, points);
                notes.push_back(text + ": " + (ours ? effort(*ours, end_) : "does not reach the digits"));
                if (!ours) continue;
                lines.emplace_back(text + " / CVODE BDF", ratios({{text, ours->run}}, {"CVODE", other->run}).front());
                best = std::fmin(best, lines.back().second.median);
            }
            for (const auto& [what, seen] : lines)
                print_line(caption(points, what), seen, points == 20 && seen.median == best ? wanted : goal());
            for (const std::string& note : notes)
                print_note(note);
        }
    }

private:
    std::optional<integration> method(deq_method which, int points)
    {
        return loosest([&](double tolerance) { return problem_.by(which, tolerance, points); }, end_, digits_);
    }

    std::string caption(int points, const std::string& what) const
    {
        return name_ + ", " + std::to_string(points) + " points: " + what;
    }

    std::string name_;
    timed_problem problem_;
    std::vector<double> end_;
    double digits_;
};

test::published_problem published(const std::string& name)
{
    for (test::published_problem& each : test::published_problems(KELVARIN_TEST_DATA))
        if (each.name.starts_with(name)) return each;
    throw std::runtime_error("no problem " + name);
}

/// Five substances that react one after the other, by 20 explicit equations.
deq_content chain_of_reactions()
{
    std::vector<equation_row> rows;
    std::vector<equation_row> given;
    for (int i = 1; i <= 5; ++i) {
        const std::string n = std::to_string(i);
        const std::string before = std::to_string(i - 1);
        const std::string feed = i == 1 ? "2+sin(t)" : "f" + before;
        rows.push_back(test::differential_row("c" + n, feed + "-f" + n, "0.5"));
        given.push_back(test::explicit_row("g" + n, "c" + n + "/(1+c" + n + "*c" + n + ")"));
        given.push_back(test::explicit_row("k" + n, "(1+0.2*g" + n + ")*exp(-0.1*g" + n + ")"));
        given.push_back(test::explicit_row("r" + n, "k" + n + "*c" + n));
        given.push_back(test::explicit_row("f" + n, i == 1 ? "r1" : "r" + n + "+0.1*f" + before));
    }
    rows.insert(rows.end(), given.begin(), given.end());
    return test::integrated(std::move(rows), "0", "20");
}

/// Derivatives of the reactions, and the Jacobian of a hundred equations of Broyden's tridiagonal form.
void measure_right_sides()
{
    timed_problem chain(chain_of_reactions());
    deq_system& system = chain.system();
    const std::vector<double> y = system.initial_values();
    std::vector<double> dydx(y.size());
    const contender ours = {"ours", [&] { system.derivatives(0.5, y, dydx); }};
    ours.run();
    if (const yardstick parsed = parsed_derivatives(chain.texts(), 0.5)) {
        parsed.run();
        require_close(*parsed.values, dydx, 1e-12, "derivatives, muParser and ours");
        print_line("derivatives with 20 explicit equations: muParser / ours",
                   ratios({{"muParser", parsed.run}}, ours).front(), at_least(3.5));
    }

    constexpr int size = 100;
    std::vector<equation_row> rows;
    const std::vector<std::string> names = broyden_unknowns(size);
    const std::vector<std::string> texts = broyden_texts(size);
    for (std::size_t i = 0; i < names.size(); ++i)
        rows.push_back(test::differential_row(names[i], texts[i], "-1"));
    timed_problem band(test::integrated(std::move(rows)));
    const std::vector<double> x = band.system().initial_values();
    ode_jacobian grouped(size);
    ode_jacobian dense(size);
    evaluate_jacobian(band.system(), 0.5, x, dense);
    evaluate_jacobian(band.system(), 0.5, x, grouped);
    const contender by_groups = {"grouped", [&] { band.system().differences(0.5, x, grouped); }};
    const contender loop = {"dense", [&] { band.system().ode_system::differences(0.5, x, dense); }};
    by_groups.run();
    loop.run();
    require_same_bits(grouped.dfdy.values(), dense.dfdy.values(), "Jacobian, grouped and dense");
    print_line("Jacobian of 100 equations: dense loop / grouped", ratios({loop}, by_groups).front(), at_least(15.0));
}

} // namespace

void measure_integration()
{
    measure_right_sides();

    const auto compare = [](const std::string& name, const std::string& caption, double digits) {
        test::published_problem problem = published(name);
        return comparison(caption, std::move(problem.content), std::move(problem.end), digits);
    };
    compare("Arenstorf", "Arenstorf, 6 digits", 6.0).with_rkf45_of_gsl(at_least(2.0));
    const deq_content chain = chain_of_reactions();
    if (integration reference = parsed_reference(timed_problem(chain).texts())) {
        reference.run();
        comparison("reactions, 6 digits", chain, *reference.values, 6.0).with_rkf45_of_gsl(at_least(2.0));
    }
    compare("HIRES", "HIRES, 4 digits", 4.0).with_bdf_of_cvode(at_most(1.5));
    compare("Robertson", "Robertson, 4 digits", 4.0).with_bdf_of_cvode(at_most(1.5));
    compare("van der Pol, mu = 100", "van der Pol 100, 4 digits", 4.0).with_bdf_of_cvode({});
}

} // namespace kelvarin::bench
