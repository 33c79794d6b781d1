// SPDX-License-Identifier: MIT
#include "batch/kinds/regression_action.h"

#include "batch/kinds/analysis_actions.h"
#include "batch/kinds/graph_outputs.h"
#include "graph/axis_limits.h"
#include "graph/graph_entries.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "reg/fit_failures.h"
#include "reg/fit_json.h"
#include "reg/fit_report.h"
#include "reg/fit_run.h"
#include "reg/nonlinear_model.h"
#include "reg/regression_lists.h"
#include "reg/table/table_edits.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr const char* regress_option = "--regress";
constexpr const char* degree_option = "--degree";
constexpr const char* origin_option = "--origin";
constexpr const char* derivative_option = "--derivative";
constexpr const char* integral_option = "--integral";
constexpr const char* model_option = "--model";
constexpr const char* guess_option = "--guess";
constexpr const char* store_option = "--store";
constexpr const char* graphs_option = "--graphs";

constexpr int most_digits_of_degree = 5;

std::vector<std::string> parts_of(std::string_view text)
{
    std::vector<std::string> parts;
    std::size_t from = 0;
    for (std::size_t at = text.find(','); at != std::string_view::npos; at = text.find(',', from)) {
        parts.emplace_back(trimmed(text.substr(from, at - from)));
        from = at + 1;
    }
    parts.emplace_back(trimmed(text.substr(from)));
    return parts;
}

std::optional<regression> regression_named(std::string_view name)
{
    if (name == "polynomial") return regression::polynomial;
    if (name == "linear") return regression::multiple;
    if (name == "nonlinear") return regression::nonlinear;
    return std::nullopt;
}

std::optional<nonlinear_method> nonlinear_method_named(std::string_view name)
{
    if (name == "mrqmin" || name == "0") return nonlinear_method::mrqmin;
    if (name == "L-M" || name == "1") return nonlinear_method::lm;
    return std::nullopt;
}

std::optional<std::string> regression_refusal(std::string_view value)
{
    if (regression_named(value)) return std::nullopt;
    return "--regress: polynomial, linear or nonlinear is expected, not '" + std::string(value) + "'.";
}

bool is_degree(std::string_view text)
{
    return !text.empty() && text.size() <= most_digits_of_degree &&
           text.find_first_not_of("0123456789") == std::string_view::npos && text.front() != '0';
}

std::optional<std::string> degree_refusal(std::string_view value)
{
    if (std::ranges::all_of(parts_of(value), is_degree)) return std::nullopt;
    return "--degree: numbers from 1 on are expected, not '" + std::string(value) + "'.";
}

std::optional<std::string> integral_refusal(std::string_view value)
{
    if (parts_of(value).size() == 2) return std::nullopt;
    return "--integral: two bounds are expected, A,B, not '" + std::string(value) + "'.";
}

std::optional<std::string> guess_refusal(std::string_view value)
{
    for (const std::string& part : parts_of(value))
        if (part.find('=') == std::string::npos) return "--guess: NAME=VALUE is expected, not '" + part + "'.";
    return std::nullopt;
}

constexpr std::array<kind_option, 11> options = {
    {{regress_option, "NAME",
      "polynomial, linear (multiple linear regression) or nonlinear, which is what is done without an action if "
      "the table has a model",
      regression_refusal},
     {degree_option, "N[,N]", "The degrees of a polynomial, 1 by default", degree_refusal},
     {origin_option, "", "Fit through the origin, without a constant term"},
     {derivative_option, "X", "Tell the derivative of the polynomial there"},
     {integral_option, "A,B", "Tell the integral of the polynomial between these bounds", integral_refusal},
     {model_option, "TEXT", "The nonlinear model, 'y = a*x^b'; by default the table's own"},
     {guess_option, "NAME=VALUE[,..]", "Initial guesses of a nonlinear model; by default the table's own",
      guess_refusal},
     {store_option, "NAME", "Turn this empty column into the fitted model"},
     {graphs_option, "", "Add the graphs of fit and residuals to the JSON answer"},
     graph_option,
     plot_option}};

constexpr std::array<const char*, 13> details = {
    dependent_option, independent_option,  degree_option,   origin_option, derivative_option,
    integral_option,  table_method_option, model_option,    guess_option,  store_option,
    graphs_option,    graph_option.name,   plot_option.name};

/// The options of one regression alone.
struct special_option
{
    const char* name;
    bool polynomial, multiple, nonlinear;
};

constexpr std::array<special_option, 9> special_options = {{{dependent_option, true, true, false},
                                                            {independent_option, true, true, false},
                                                            {degree_option, true, false, false},
                                                            {origin_option, true, true, false},
                                                            {derivative_option, true, false, false},
                                                            {integral_option, true, false, false},
                                                            {table_method_option, false, false, true},
                                                            {model_option, false, false, true},
                                                            {guess_option, false, false, true}}};

bool has(const special_option& option, regression kind)
{
    switch (kind) {
    case regression::polynomial:
        return option.polynomial;
    case regression::multiple:
        return option.multiple;
    case regression::nonlinear:
        break;
    }
    return option.nonlinear;
}

bool is_in(const std::vector<std::string>& list, std::string_view name)
{
    return std::ranges::find(list, name) != list.end();
}

/// Why an option doesn't fit the table.
struct unfit_option
{
    std::string text;
};

/// The names of a list that are asked for, in the order of the list. A name may hold a comma.
std::vector<std::string> chosen(const std::vector<std::string>& offered, const std::string& asked)
{
    if (is_in(offered, asked)) return {asked};
    const std::vector<std::string> names = parts_of(asked);
    for (const std::string& name : names)
        if (!is_in(offered, name)) throw unfit_option{"--indep: there is no variable '" + name + "' to choose."};
    std::vector<std::string> result;
    for (const std::string& name : offered)
        if (is_in(names, name) && !is_in(result, name)) result.push_back(name);
    return result;
}

/// What a page with its own defaults and the options would ask for. Throws unfit_option if it would not offer it.
class request_from_options
{
public:
    request_from_options(const table_content& content, const batch_request& request)
        : content_(content), options_(request), lists_(initialize_regression(content))
    {
        const std::string* const kind = request.option(regress_option);
        asked_.kind = kind ? *regression_named(*kind) : regression::nonlinear;
        check_special_options();
        if (asked_.kind == regression::nonlinear)
            take_model();
        else
            take_variables();
        if (asked_.kind == regression::polynomial) take_polynomial();
        asked_.graph = asked_.residuals = request.option(graphs_option) || asks_for_graphs(request);
        if (const std::string* const name = request.option(store_option)) {
            if (!is_in(lists_.model_columns, *name))
                throw unfit_option{"--store: there is no empty column '" + *name + "'."};
            asked_.model_column = *name;
        }
    }

    fit_request take() { return std::move(asked_); }

private:
    void check_special_options() const
    {
        for (const special_option& option : special_options)
            if (options_.option(option.name) && !has(option, asked_.kind))
                throw unfit_option{std::string(option.name) + ": not an option of this regression."};
    }

    void take_variables()
    {
        const std::vector<std::string>& offered = lists_.numeric_columns;
        if (const int place = default_dependent(offered.size()); place >= 0)
            asked_.dependent = offered[static_cast<std::size_t>(place)];
        if (const std::string* const name = options_.option(dependent_option)) {
            if (!is_in(offered, *name)) throw unfit_option{"--dep: there is no variable '" + *name + "' to choose."};
            asked_.dependent = *name;
        }
        const std::vector<std::string> others = without_dependent(offered, asked_.dependent);
        if (const std::string* const names = options_.option(independent_option)) {
            asked_.independents = chosen(asked_.kind == regression::multiple ? others : offered, *names);
            if (asked_.kind == regression::polynomial && asked_.independents.size() != 1)
                throw unfit_option{"--indep: a polynomial has one independent variable."};
        } else if (!others.empty()) {
            asked_.independents = {others.front()};
        }
        asked_.through_origin = options_.option(origin_option) != nullptr;
    }

    void take_polynomial()
    {
        asked_.degrees = {1};
        if (const std::string* const degrees = options_.option(degree_option)) take_degrees(*degrees);
        if (const std::string* const point = options_.option(derivative_option)) asked_.derivative_point = *point;
        if (const std::string* const bounds = options_.option(integral_option)) {
            const std::vector<std::string> parts = parts_of(*bounds);
            asked_.integral_bounds = {parts[0], parts[1]};
        }
    }

    void take_degrees(const std::string& degrees)
    {
        const std::string x = asked_.independents.empty() ? std::string() : asked_.independents.front();
        const int highest = highest_degree(content_, asked_.dependent, x, asked_.through_origin);
        asked_.degrees.clear();
        for (const std::string& text : parts_of(degrees)) {
            const int degree = static_cast<int>(val(text));
            if (degree > highest)
                throw unfit_option{"--degree: the degrees to choose end at " + std::to_string(highest) + ", not at " +
                                   text + "."};
            asked_.degrees.push_back(degree);
        }
        std::ranges::sort(asked_.degrees);
        asked_.degrees.erase(std::unique(asked_.degrees.begin(), asked_.degrees.end()), asked_.degrees.end());
    }

    void take_model()
    {
        const std::string* const model = options_.option(model_option);
        asked_.model = model ? *model : content_.model;
        asked_.guesses = content_.guesses;
        if (const std::string* const method = options_.option(table_method_option))
            asked_.method = *nonlinear_method_named(*method);
        const std::string* const guesses = options_.option(guess_option);
        if (!guesses) return;
        for (const std::string& part : parts_of(*guesses)) {
            const std::size_t equals = part.find('=');
            const std::string name(trimmed(part.substr(0, equals)));
            std::erase_if(asked_.guesses, [&](const table_guess& known) { return known.name == name; });
            asked_.guesses.push_back({name, std::string(trimmed(part.substr(equals + 1)))});
        }
    }

    const table_content& content_;
    const batch_request& options_;
    regression_lists lists_;
    fit_request asked_;
};

/// The box that entering a model of the command line in its dialog would give.
std::optional<message_box> entry_refusal(const fit_problem& problem, const batch_request& request)
{
    if (!request.option(model_option)) return std::nullopt;
    const nonlinear_model model = parts_of_model(problem.request.model, table_reader(problem.content));
    if (!model.has_equals || model.dependent.empty()) return std::nullopt;
    std::optional<message_box> refused = entry_fault(model.dependent, model.expression);
    // The other faults are told by the run, in its order.
    if (refused && !refused->text.starts_with("Dependent variable ")) refused.reset();
    return refused;
}

/// The files of the graphs that can be drawn; the others add their boxes.
std::vector<output_file> graph_files(const std::string& file, const batch_request& request, fit_outcome& outcome)
{
    std::vector<graph_content> graphs;
    std::vector<message_box> refused;
    for (const graph_start& start : outcome.graphs) {
        graph_content graph = scatter_graph_form_startup(start, request.store);
        if (std::optional<message_box> box = drawing_refusal(find_axis_limits(graph)))
            refused.push_back(std::move(*box));
        else
            graphs.push_back(std::move(graph));
    }
    outcome.boxes.insert(outcome.boxes.begin(), refused.begin(), refused.end());
    return graph_outputs(graphs, file, request);
}

table_answer answer_of(const fit_problem& problem, fit_outcome outcome, const table_call& call)
{
    table_answer answer;
    if (asks_for_graphs(call.request)) answer.outputs = graph_files(call.file, call.request, outcome);
    if (const auto& stored = outcome.stored) {
        answer.changed = problem.content;
        store_model_column(*answer.changed, stored->column, stored->formula, stored->cells);
    }
    if (outcome.has_report)
        answer.report = fit_report(problem, outcome, call.request.store, call.surroundings.clock.today());
    static_cast<run_outcome&>(answer) = outcome;
    const bool with_graphs = call.request.option(graphs_option) != nullptr;
    answer.write_members = [problem, outcome = std::move(outcome), with_graphs](json_writer& writer) {
        write_fit_members(writer, problem, outcome, with_graphs);
    };
    return answer;
}

table_answer regress(const table_call& call)
{
    try {
        const fit_problem problem = {call.content, request_from_options(call.content, call.request).take()};
        if (std::optional<message_box> refused = entry_refusal(problem, call.request))
            return outcome_refused<table_answer>(*refused);
        return answer_of(problem,
                         solve_regression(problem, call.request.store, call.listener, call.surroundings.seconds), call);
    } catch (const unfit_option& unfit) {
        return wrong_usage(unfit.text);
    } catch (const runtime_failure& failure) {
        // The page could not be filled.
        return outcome_refused<table_answer>(regression_failure_box(failure));
    }
}

} // namespace

bool is_regression_method(std::string_view value)
{
    return nonlinear_method_named(value).has_value();
}

std::span<const kind_option> regression_options()
{
    return options;
}

table_action regression_action()
{
    return {regress_option, details, regress};
}

} // namespace kelvarin
