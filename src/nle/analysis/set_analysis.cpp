// SPDX-License-Identifier: MIT
#include "nle/analysis/set_analysis.h"

#include "expr/basParse.h"
#include "expr/clsParse.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace kelvarin
{

namespace
{

/// A row that holds an equation, as it reads.
struct read_row
{
    int number = 0;
    equation_parts parts;

    text_place name_place() const { return {number, parts.name_offset, parts.name.size()}; }
};

/// A variable in a right side.
struct name_use
{
    std::string_view name;
    text_place place;
};

std::vector<read_row> read_rows(std::span<const equation_row> rows)
{
    std::vector<read_row> read;
    read.reserve(rows.size());
    int number = 0;
    for (const equation_row& row : rows) {
        ++number;
        if (!row.equation.empty()) read.push_back({number, parts_of(row.equation)});
    }
    return read;
}

/// The names of one kind of row in row order; the valid ones go to the table of distinct names.
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

void find_duplicates(std::span<const read_row> rows, const name_counts& counts, equation_set& set)
{
    std::unordered_set<std::string_view> told;
    for (const std::vector<std::string>* names : {&set.implicit_names, &set.explicit_names}) {
        for (const std::string& name : *names) {
            if (counts.at(name) > 1 && told.insert(name).second) set.duplicates.push_back(name);
        }
    }
    if (set.duplicates.empty()) return;
    for (const read_row& row : rows) {
        if (counts.at(row.parts.name) > 1) set.duplicate_places.push_back(row.name_place());
    }
}

/// The variables of all right sides; those the table does not hold yet are added to it.
std::vector<name_use> collect_uses(std::span<const read_row> rows, clsParse& table)
{
    std::vector<name_use> uses;
    for (const read_row& row : rows) {
        for (const token& word : scan_tokens(row.parts.right_side)) {
            if (word.kind != token_kind::tokName || is_equation_word(word.text)) continue;
            // The table refuses what is no valid name, so such a word counts nowhere.
            table.Add_new_var(word.text, 0.0);
            const std::size_t offset = row.parts.right_side_offset + word.offset;
            uses.push_back({word.text, {row.number, offset, word.length}});
        }
    }
    return uses;
}

void find_undefined(std::vector<std::string> known, std::span<const name_use> uses, const name_counts& definitions,
                    equation_set& set)
{
    for (std::string& name : known) {
        if (!definitions.contains(name)) set.undefined.push_back(std::move(name));
    }
    if (set.undefined.empty()) return;
    const std::unordered_set<std::string_view> undefined(set.undefined.begin(), set.undefined.end());
    for (const name_use& use : uses) {
        if (undefined.contains(use.name)) set.undefined_places.push_back(use.place);
    }
}

} // namespace

equation_set analyse_rows(std::span<const equation_row> rows)
{
    const std::vector<read_row> read = read_rows(rows);
    equation_set set;
    clsParse table;

    set.implicit_names = collect_names(read, true, table);
    set.unique_implicit = table.count_variables();
    set.explicit_names = collect_names(read, false, table);
    set.unique_defined = table.count_variables();
    set.implicit_count = static_cast<int>(set.implicit_names.size());
    set.explicit_count = static_cast<int>(set.explicit_names.size());

    const name_counts definitions = count_definitions(read);
    find_duplicates(read, definitions, set);

    const std::vector<name_use> uses = collect_uses(read, table);
    set.total_vars = table.count_variables();
    find_undefined(table.get_all_vars(), uses, definitions, set);
    return set;
}

} // namespace kelvarin
