// SPDX-License-Identifier: MIT
#include "deq/deq_analysis.h"

#include "expr/basParse.h"
#include "nle/equations/set_texts.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/report/rich_text.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace kelvarin
{

namespace
{

range_faults faults_of_range(const deq_content& content)
{
    const std::string_view name = trimmed(content.independent);
    const std::optional<double> initial = numeric_value(content.initial_value);
    const std::optional<double> final = numeric_value(content.final_value);
    range_faults faults;
    faults.name_empty = name.empty();
    faults.name_invalid = !is_valid_name(name);
    faults.initial_not_numeric = !initial;
    faults.final_not_numeric = !final;
    faults.not_ascending = initial && final && !(*final > *initial);
    return faults;
}

bool holds(const std::vector<std::string>& names, std::string_view name)
{
    return std::ranges::find(names, name) != names.end();
}

/// The panel's text if a row defines the independent variable; else empty.
std::string second_definition_panel(const equation_set& set, std::string_view independent)
{
    if (set.counts_agree()) return {};
    if (holds(set.explicit_names, independent))
        return "Warning: Independent variable symbol is also defined as an explicit variable";
    if (holds(set.implicit_names, independent))
        return "Warning: Independent variable symbol is also defined as an implicit variable";
    return {};
}

std::string range_panel(const range_faults& range)
{
    if (range.initial_not_numeric) return "Warning: Initial integration value is empty or is not numeric";
    if (range.final_not_numeric) return "Warning: Final integration value is empty or is not numeric";
    if (range.not_ascending)
        return "Warning: Final value of the integration variable must be greater than the initial value";
    if (range.name_invalid) return "Warning: Independent variable symbol is not a valid variable name";
    return {};
}

std::string third_panel(const equation_set& set, const range_faults& range, std::string_view independent)
{
    if (!set.undefined.empty()) return undefined_panel(set.undefined);
    if (std::string twice = second_definition_panel(set, independent); !twice.empty()) return twice;
    // Also if the counts agree, as they do with two differential rows of one name, so that a red light has a reason.
    if (!set.duplicates.empty()) return duplicates_panel(set.duplicates);
    return range_panel(range);
}

/// The listing's warnings in their order.
std::vector<std::string> warnings_of(const equation_set& set, const range_faults& range, std::string_view independent)
{
    std::vector<std::string> warnings;
    if (set.has_duplicate_implicit()) warnings.emplace_back(duplicate_implicit_warning);
    if (set.has_duplicate_explicit()) warnings.emplace_back(duplicate_explicit_warning);
    if (range.name_empty)
        warnings.emplace_back("Independent variable field empty");
    else if (range.name_invalid)
        warnings.push_back("Independent variable field '" + std::string(independent) +
                           "' contains invalid variable name");
    if (range.initial_not_numeric)
        warnings.emplace_back("Initial integration data variable is empty or is not numeric");
    if (range.final_not_numeric) warnings.emplace_back("Final integration data variable is empty or is not numeric");
    if (!set.undefined.empty()) warnings.emplace_back(undefined_warning);
    if (!set.duplicates.empty()) warnings.emplace_back("Multiply defined variable/s exist.");
    if (set.has_more_equations_than_variables()) warnings.emplace_back(more_equations_warning);
    if (range.not_ascending)
        warnings.emplace_back("Final value of the integration variable must be greater than the initial value.");
    return warnings;
}

std::vector<int> rows_without_value(const std::vector<equation_row>& rows)
{
    std::vector<int> found;
    int number = 0;
    for (const equation_row& row : rows) {
        ++number;
        if (is_implicit(row.equation, deq_row_form) && !is_numeric(row.guess)) found.push_back(number);
    }
    return found;
}

/// The first left side that is no name, as only a file can bring it; such rows have no place in the table of names, so
/// they make the light red without a line of the panel. Returns nullopt if there is none.
std::optional<std::string> invalid_name(const std::vector<equation_row>& rows)
{
    for (const equation_row& row : rows) {
        if (row.equation.empty()) continue;
        const std::string_view name = parts_of(row.equation, deq_row_form).name;
        if (!is_valid_name(name)) return std::string(name);
    }
    return std::nullopt;
}

} // namespace

deq_analysis analyse_deq(const deq_content& content)
{
    const std::string_view independent = trimmed(content.independent);
    deq_analysis analysis;
    analysis.set = analyse_rows(content.rows, deq_row_form, independent);
    analysis.set.rows_without_value = rows_without_value(content.rows);
    analysis.range = faults_of_range(content);
    const equation_set& set = analysis.set;
    analysis.green = set.is_complete() && set.duplicates.empty() && !analysis.range.any();
    analysis.panels = {count_panel("Differential Equations", set.implicit_count),
                       count_panel("Auxiliary Equations", set.explicit_count),
                       third_panel(set, analysis.range, independent)};
    return analysis;
}

std::string show_all_vars(const deq_content& content)
{
    const std::string_view independent = trimmed(content.independent);
    const equation_set set = analyse_rows(content.rows, deq_row_form, independent);
    std::string listing;
    add_names_section(listing, R"({\b\cf1 Differential variables})", set.implicit_names);
    add_names_section(listing, R"({\b\cf1 Explicit variables})", set.explicit_names);
    add_names_section(listing, R"({\b\cf1 Undefined variables})", set.undefined);
    add_names_section(listing, R"({\b\cf1 Multiply defined variables})", set.duplicates);
    listing.append(R"({\b\cf1 Independent variable} = )").append(escape_rich_text(independent));
    listing += R"(\par \par )";
    add_warnings(listing, warnings_of(set, faults_of_range(content), independent));
    return listing;
}

std::vector<std::string> listing_warnings(const deq_content& content)
{
    const std::string_view independent = trimmed(content.independent);
    const equation_set set = analyse_rows(content.rows, deq_row_form, independent);
    return plain_warnings(warnings_of(set, faults_of_range(content), independent));
}

message_box no_differential_box()
{
    return {"No differential equations have been entered. Solution aborted.", box_icon::exclamation,
            "Kelvarin Guide Guide"};
}

std::string next_step(const deq_content& content)
{
    const deq_analysis analysis = analyse_deq(content);
    if (analysis.green || analysis.set.equation_count() == 0) return {};
    const std::string& panel = analysis.panels[2];
    if (panel == range_panel(analysis.range)) {
        const std::string_view name = trimmed(content.independent);
        if (name.empty()) return "Name the independent variable and give its range.";
        if (trimmed(content.initial_value).empty() || trimmed(content.final_value).empty())
            return "Give the initial and the final value of " + std::string(name) + '.';
    }
    if (!panel.empty()) return std::string(trimmed(panel));
    const std::optional<std::string> invalid = invalid_name(content.rows);
    return invalid ? '\'' + *invalid + "' is no valid name of a variable." : no_differential_box().text;
}

message_box red_light_box(const deq_content& content)
{
    const deq_analysis analysis = analyse_deq(content);
    const std::string_view reason = trimmed(analysis.panels[2]);
    if (reason.empty()) return no_differential_box();
    return {std::string(reason), box_icon::critical, guide_title, analysis.set.first_fault()};
}

} // namespace kelvarin
