// SPDX-License-Identifier: MIT
#include "nle/equations/set_analysis.h"

#include "expr/basParse.h"
#include "expr/clsParse.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace kelvarin
{

namespace
{

/// A row that holds an equation, with its parsed parts.
struct read_row
{
    int number = 0;
    equation_parts parts;

    text_place name_place() const { return {number, parts.name_offset, parts.name.size()}; }
};

std::vector<read_row> read_rows(std::span<const equation_row> rows, const row_form& form)
{
    std::vector<read_row> read;
    read.reserve(rows.size());
    int number = 0;
    for (const equation_row& row : rows) {
        ++number;
        if (!row.equation.empty()) read.push_back({number, parts_of(row.equation, form)});
    }
    return read;
}

/// The names of the implicit or the explicit rows in row order; the valid ones are added to the table of distinct
/// names.
std::vector<std::string> collect_names(std::span<const read_row> rows, bool implicit, clsParse& table)
{
    std::vector<std::string> names;
    for (const read_row& row : rows) {
        if (row.parts.implicit != implicit) continue;
        table.Add_new_var(row.parts.name, 0.0);
        names.emplace_back(row.parts.name);
    }
    return names;
}

using name_counts = std::unordered_map<std::string_view, int>;

/// How often each name is defined.
name_counts count_definitions(std::span<const read_row> rows)
{
    name_counts counts;
    counts.reserve(rows.size());
    for (const read_row& row : rows)
        ++counts[row.parts.name];
    return counts;
}

void find_duplicates(std::span<const read_row> rows, equation_set& set)
{
    const name_counts counts = count_definitions(rows);
    std::unordered_set<std::string_view> listed;
    for (const std::vector<std::string>* names : {&set.implicit_names, &set.explicit_names}) {
        for (const std::string& name : *names) {
            if (counts.at(name) > 1 && listed.insert(name).second) set.duplicates.push_back(name);
        }
    }
    if (set.duplicates.empty()) return;
    for (const read_row& row : rows) {
        if (counts.at(row.parts.name) > 1) set.duplicate_places.push_back(row.name_place());
    }
}

/// Calls `visit` with each variable of the right sides and its row.
template <class Visit> void for_each_variable(std::span<const read_row> rows, Visit visit)
{
    for (const read_row& row : rows) {
        for (const token& word : scan_tokens(row.parts.right_side)) {
            if (word.kind == token_kind::tokName && !is_equation_word(word.text)) visit(row, word);
        }
    }
}

/// The names in the table after the first unique_known ones are used but not defined.
void find_undefined(std::span<const read_row> rows, const clsParse& table, equation_set& set)
{
    if (set.total_vars == set.unique_known) return;
    const std::vector<std::string> names = table.get_all_vars();
    set.undefined.assign(names.begin() + set.unique_known, names.end());
    const std::unordered_set<std::string_view> undefined(set.undefined.begin(), set.undefined.end());
    for_each_variable(rows, [&](const read_row& row, const token& word) {
        if (!undefined.contains(word.text)) return;
        set.undefined_places.push_back({row.number, row.parts.right_side_offset + word.offset, word.length});
    });
}

} // namespace

bool equation_set::has_more_equations_than_variables() const
{
    const int given_only = unique_known - unique_defined;
    return total_vars - given_only < equation_count();
}

std::optional<text_place> equation_set::first_fault() const
{
    if (!undefined_places.empty()) return undefined_places.front();
    if (!duplicate_places.empty()) return duplicate_places.front();
    return std::nullopt;
}

equation_set analyse_rows(std::span<const equation_row> rows, const row_form& form,
                          std::optional<std::string_view> given)
{
    const std::vector<read_row> read = read_rows(rows, form);
    equation_set set;
    clsParse table;

    set.implicit_names = collect_names(read, true, table);
    set.unique_implicit = table.count_variables();
    set.explicit_names = collect_names(read, false, table);
    set.unique_defined = table.count_variables();
    set.implicit_count = static_cast<int>(set.implicit_names.size());
    set.explicit_count = static_cast<int>(set.explicit_names.size());
    if (given) table.Add_new_var(*given, 0.0);
    set.given_count = given ? 1 : 0;
    set.unique_known = table.count_variables();

    // The table holds each valid name once, so fewer names than equations mean duplicates or invalid names.
    if (set.unique_defined < set.equation_count()) find_duplicates(read, set);

    // The table rejects invalid names, so they are not counted.
    for_each_variable(read, [&](const read_row&, const token& word) { table.Add_new_var(word.text, 0.0); });
    set.total_vars = table.count_variables();
    find_undefined(read, table, set);
    return set;
}

} // namespace kelvarin
