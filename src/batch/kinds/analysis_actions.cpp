// SPDX-License-Identifier: MIT
#include "batch/kinds/analysis_actions.h"

#include "platform/run_time_text.h"
#include "reg/analysis_json.h"
#include "reg/column_analysis.h"
#include "shell/document/method_items.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr const char* interpolate_option = "--interpolate";
constexpr const char* differentiate_option = "--differentiate";
constexpr const char* integrate_option = "--integrate";
constexpr std::array<const char*, 3> details = {dependent_option, independent_option, table_method_option};

std::optional<std::string> number_refusal(std::string_view value)
{
    if (is_numeric(value)) return std::nullopt;
    return "--interpolate, --differentiate: a number is expected, not '" + std::string(value) + "'.";
}

/// The texts in front of and behind the first comma.
std::pair<std::string_view, std::string_view> bounds_in(std::string_view value)
{
    const std::size_t comma = std::min(value.find(','), value.size());
    return {value.substr(0, comma), value.substr(std::min(comma + 1, value.size()))};
}

std::optional<std::string> bounds_refusal(std::string_view value)
{
    const auto [lower, upper] = bounds_in(value);
    if (is_numeric(lower) && is_numeric(upper)) return std::nullopt;
    return "--integrate: two numbers A,B are expected, not '" + std::string(value) + "'.";
}

constexpr std::array<kind_option, 3> options = {
    {{interpolate_option, "X", "The value at X of a column that depends on another", number_refusal},
     {differentiate_option, "X", "Its derivative at X", number_refusal},
     {integrate_option, "A,B", "Its integral from A to B", bounds_refusal}}};

/// Replaces `column` by the one that an option names. Returns what is wrong if the page does not offer it.
std::optional<std::string> take_column(const table_reader& table, const batch_request& request, const char* option,
                                       std::optional<int>& column)
{
    const std::string* const name = request.option(option);
    if (!name) return std::nullopt;
    for (const int offered : table.started_columns())
        if (table.name(offered) == *name) {
            column = offered;
            return std::nullopt;
        }
    return std::string(option) + ": there is no column '" + *name + "' that holds something in its first row.";
}

/// The columns by the command line; those left out are the second one, and the first one that is not the other.
std::optional<std::string> take_columns(const table_reader& table, const batch_request& request,
                                        analysis_columns& columns)
{
    columns.dependent = default_analysis_columns(table).dependent;
    if (auto refused = take_column(table, request, dependent_option, columns.dependent)) return refused;
    for (const int offered : table.started_columns())
        if (!columns.independent && offered != columns.dependent) columns.independent = offered;
    return take_column(table, request, independent_option, columns.independent);
}

table_answer analyse(const table_call& call, analysis_request asked)
{
    const table_content& content = call.content;
    const batch_request& request = call.request;
    if (auto refused = take_columns(table_reader(content), request, asked.columns)) return wrong_usage(*refused);
    if (const std::string* const method = request.option(table_method_option)) {
        const std::optional<std::size_t> index = method_item_named(*method, analysis_methods(asked.kind));
        if (!index)
            return wrong_usage("--method: the " + std::string(analysis_name(asked.kind)) + " has no method '" +
                               *method + "'.");
        asked.method = *index;
    }
    const analysis_outcome outcome = solve_analysis(content, asked, call.listener);
    table_answer answer;
    static_cast<run_outcome&>(answer) = outcome;
    if (outcome.has_report) answer.text = analysis_text(outcome);
    answer.write_members = [outcome](json_writer& writer) { write_analysis_members(writer, outcome); };
    return answer;
}

table_answer interpolate(const table_call& call)
{
    return analyse(call, {analysis_kind::interpolation, {}, 0, *call.request.option(interpolate_option), {}});
}

table_answer differentiate(const table_call& call)
{
    return analyse(call, {analysis_kind::differentiation, {}, 0, *call.request.option(differentiate_option), {}});
}

table_answer integrate(const table_call& call)
{
    const auto [lower, upper] = bounds_in(*call.request.option(integrate_option));
    return analyse(call, {analysis_kind::integration, {}, 0, std::string(lower), std::string(upper)});
}

} // namespace

std::optional<std::string> analysis_method_refusal(std::string_view value)
{
    for (const analysis_kind kind :
         {analysis_kind::interpolation, analysis_kind::differentiation, analysis_kind::integration})
        if (method_item_named(value, analysis_methods(kind))) return std::nullopt;
    return "--method: there is no method '" + std::string(value) + "'.";
}

std::span<const kind_option> analysis_options()
{
    return options;
}

std::span<const table_action> analysis_actions()
{
    static constexpr std::array<table_action, 3> actions = {{{interpolate_option, details, interpolate},
                                                             {differentiate_option, details, differentiate},
                                                             {integrate_option, details, integrate}}};
    return actions;
}

} // namespace kelvarin
