// SPDX-License-Identifier: MIT
#include "deq/deq_accuracy.h"

#include "platform/run_time_text.h"
#include "shell/general_lib.h"
#include "shell/report/rich_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>

namespace kelvarin
{

namespace
{

constexpr double most_digits = 15.0;
constexpr int runs = 3;

/// The setting of each method's tolerance, in the order of deq_method.
constexpr std::array<std::string_view, 5> tolerance_keys = {"RKF45_TETOL", "RKF56_TETOL", "bs_eps", "stiff_eps",
                                                            "stiffbs_eps"};

/// The listener of one run among several.
class part_listener final : public run_listener
{
public:
    part_listener(run_listener& whole, int run) : whole_(whole), run_(run) {}

    void fraction_done(double fraction) override { whole_.fraction_done((run_ + fraction) / runs); }
    bool stop_asked() const override { return whole_.stop_asked(); }

private:
    run_listener& whole_;
    int run_;
};

double agreeing_digits(double a, double b)
{
    if (a == b) return most_digits;
    const double difference = std::fabs(a - b) / std::max(std::fabs(a), std::fabs(b));
    return std::clamp(-std::log10(difference), 0.0, most_digits);
}

settings with_tenth_of_tolerance(const settings& store, deq_method method)
{
    settings tighter = store;
    const std::string_view key = tolerance_keys[static_cast<std::size_t>(method)];
    tighter.set_value(key, plain_text(store.number(key) / 10.0));
    return tighter;
}

} // namespace

deq_method checking_method(deq_method method)
{
    switch (method) {
    case deq_method::rkf45:
        return deq_method::bs;
    case deq_method::stiff:
        return deq_method::stiffbs;
    case deq_method::stiffbs:
        return deq_method::stiff;
    case deq_method::rkf56:
    case deq_method::bs:
        break;
    }
    return deq_method::rkf45;
}

deq_accuracy check_accuracy(const deq_run_problem& problem, const settings& store, run_listener& listener)
{
    deq_accuracy accuracy;
    accuracy.method = problem.content.method;
    accuracy.other = checking_method(accuracy.method);
    deq_run_problem by_other = problem;
    by_other.content.method = accuracy.other;
    const settings tighter = with_tenth_of_tolerance(store, accuracy.method);

    std::array<deq_outcome, runs> outcomes;
    for (int run = 0; run < runs; ++run) {
        part_listener part(listener, run);
        deq_outcome& outcome = outcomes[static_cast<std::size_t>(run)];
        outcome = run_deq(run == 2 ? by_other : problem, run == 1 ? tighter : store, part);
        accuracy.elapsed_seconds += outcome.elapsed_seconds;
        if (outcome.has_report) continue;
        accuracy.stopped = outcome.stopped;
        accuracy.boxes = outcome.boxes;
        return accuracy;
    }
    for (std::size_t i = 0; i < outcomes[0].differential_names.size(); ++i) {
        const auto final_value = [&](std::size_t run) { return outcomes[run].summary[i + 1].final; };
        accuracy.variables.push_back({outcomes[0].differential_names[i], final_value(0),
                                      agreeing_digits(final_value(0), final_value(1)),
                                      agreeing_digits(final_value(0), final_value(2))});
    }
    accuracy.has_report = true;
    return accuracy;
}

std::string accuracy_text(const deq_accuracy& accuracy)
{
    const std::string method(method_text(accuracy.method));
    std::string text = R"({\b\cf1 Digits of the final values that agree}\par \par )";
    text += R"({\f6 variable   value        )" + method + " at a tenth of the tolerance, by " +
            std::string(method_text(accuracy.other)) + R"(}\par )";
    for (const variable_accuracy& each : accuracy.variables) {
        text += R"({\f6 )" + escape_rich_text(each.name);
        text.append(each.name.size() < 11 ? 11 - each.name.size() : 1, ' ');
        text += format_number(each.value) + "   " + std::to_string(static_cast<int>(each.digits_at_tenth)) + ", " +
                std::to_string(static_cast<int>(each.digits_by_other)) + R"(}\par )";
    }
    text += R"(\par The smaller number is the one to trust: where the spacing of the points holds the steps down, )"
            R"(a tighter tolerance changes nothing.\par )";
    return text;
}

} // namespace kelvarin
