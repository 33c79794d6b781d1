// SPDX-License-Identifier: MIT
#include "batch/kinds/matrix_action.h"

#include "reg/analysis_json.h"
#include "reg/matrix_work.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <system_error>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr const char* matrix_option = "--matrix";
constexpr const char* a_option = "--a";
constexpr const char* b_option = "--b";
constexpr std::array<const char*, 2> details = {a_option, b_option};

std::optional<matrix_operation> operation_named(std::string_view name)
{
    const auto found = std::ranges::find(matrix_operations, name, matrix_operation_name);
    if (found == matrix_operations.end()) return std::nullopt;
    return *found;
}

std::optional<std::string> operation_refusal(std::string_view value)
{
    if (operation_named(value)) return std::nullopt;
    return "--matrix: explore, add, subtract, multiply, transpose or inverse is expected, not '" + std::string(value) +
           "'.";
}

/// The range between two corners "R,C,R,C", which count from 1.
std::optional<cell_range> range_in(std::string_view text)
{
    std::array<int, 4> numbers = {};
    const char* at = text.data();
    const char* const end = text.data() + text.size();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto read = std::from_chars(at, end, numbers[i]);
        const bool is_last = i + 1 == numbers.size();
        if (read.ec != std::errc() || numbers[i] < 1 || numbers[i] > largest_table_extent) return std::nullopt;
        if (is_last ? read.ptr != end : read.ptr == end || *read.ptr != ',') return std::nullopt;
        at = read.ptr + 1;
    }
    return range_between(numbers[0] - 1, numbers[1] - 1, numbers[2] - 1, numbers[3] - 1);
}

std::optional<std::string> range_refusal(std::string_view value)
{
    if (range_in(value)) return std::nullopt;
    return "--a, --b: two corners of a selection R,C,R,C are expected, not '" + std::string(value) + "'.";
}

constexpr std::array<kind_option, 3> options = {
    {{matrix_option, "NAME", "explore, add, subtract, multiply, transpose or inverse, of selections of cells",
      operation_refusal},
     {a_option, "R,C,R,C", "Two corners of the selection that is matrix A", range_refusal},
     {b_option, "R,C,R,C", "The same for matrix B", range_refusal}}};

/// Stores the selection that an option names. Returns false, and the answer to give, if that fails.
bool store_matrix(const table_content& content, const batch_request& request, const char* option,
                  std::optional<matrix>& stored, table_answer& answer)
{
    const std::string* const corners = request.option(option);
    if (!corners) return true;
    const cell_range range = *range_in(*corners);
    if (range.row + range.rows > content.rows() || range.column + range.columns > content.columns()) {
        answer = wrong_usage(std::string(option) + ": the table has only " + std::to_string(content.rows()) +
                             " rows and " + std::to_string(content.columns()) + " columns.");
        return false;
    }
    if (std::optional<message_box> box = store_selection_as_matrix(content, range, stored))
        answer.refuse(std::move(*box));
    return stored.has_value();
}

table_answer calculate(const table_call& call)
{
    const table_content& content = call.content;
    const batch_request& request = call.request;
    const matrix_operation operation = *operation_named(*request.option(matrix_option));
    stored_matrices matrices;
    table_answer answer;
    answer.write_members = [operation](json_writer& writer) {
        writer.member("matrix", matrix_operation_name(operation));
    };
    if (!store_matrix(content, request, a_option, matrices.a, answer)) return answer;
    if (!store_matrix(content, request, b_option, matrices.b, answer)) return answer;
    if (!matrices.allows(operation))
        return wrong_usage("--matrix " + std::string(matrix_operation_name(operation)) + ": " +
                           (matrices.a ? b_option : a_option) + " is missing.");
    const matrix_outcome outcome = run_matrix(operation, std::move(matrices));
    static_cast<run_outcome&>(answer) = outcome;
    if (outcome.has_report) answer.report = matrix_report(content.title, outcome, call.surroundings.clock.today());
    answer.write_members = [outcome](json_writer& writer) { write_matrix_members(writer, outcome); };
    return answer;
}

} // namespace

std::span<const kind_option> matrix_options()
{
    return options;
}

table_action matrix_action()
{
    return {matrix_option, details, calculate};
}

} // namespace kelvarin
