// SPDX-License-Identifier: MIT
#include "nle/nle_analysis.h"

#include "nle/equations/set_texts.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"

namespace kelvarin
{

namespace
{

constexpr std::string_view lower_not_numeric = "Lower boundary guess for NLE is not a valid number.";
constexpr std::string_view upper_not_numeric = "Upper boundary guess for NLE is not a valid number.";
constexpr std::string_view bounds_equal = "Upper boundary guess is equall to Lower boundary guess.";

/// What is wrong with the two bounds of a single equation.
struct bound_faults
{
    bool lower = false;
    bool upper = false;
    bool equal = false;

    bool any() const { return lower || upper || equal; }
};

/// Descending bounds are valid: only equal ones span no range.
bound_faults faults_of_bounds(const nle_content& content)
{
    const std::optional<double> lower = numeric_value(content.lower_bound);
    const std::optional<double> upper = numeric_value(content.upper_bound);
    return {!lower, !upper, lower && upper && *lower == *upper};
}

std::string third_panel(const equation_set& set, const bound_faults& bounds)
{
    if (!set.undefined.empty()) return undefined_panel(set.undefined);
    if (!set.duplicates.empty()) return duplicates_panel(set.duplicates);
    if (bounds.lower || bounds.upper) return "Warning: Lower/upper boundary guess is not a valid number";
    if (bounds.equal) return "Warning: Lower/upper boundary guess are equall or not ascending";
    return {};
}

bound_faults faults_of_single(const equation_set& set, const nle_content& content)
{
    return set.implicit_count == 1 ? faults_of_bounds(content) : bound_faults{};
}

/// The listing's warnings in their order.
std::vector<std::string> warnings_of(const equation_set& set, const bound_faults& bounds)
{
    std::vector<std::string> warnings;
    if (set.has_duplicate_implicit()) warnings.emplace_back(duplicate_implicit_warning);
    if (set.has_duplicate_explicit()) warnings.emplace_back(duplicate_explicit_warning);
    if (set.has_more_equations_than_variables()) warnings.emplace_back(more_equations_warning);
    if (bounds.lower) warnings.emplace_back(lower_not_numeric);
    if (bounds.upper) warnings.emplace_back(upper_not_numeric);
    if (bounds.equal) warnings.emplace_back(bounds_equal);
    if (!set.undefined.empty()) warnings.emplace_back(undefined_warning);
    return warnings;
}

} // namespace

nle_analysis analyse_nle(const nle_content& content)
{
    nle_analysis analysis;
    analysis.set = analyse_rows(content.rows, nle_row_form);
    const equation_set& set = analysis.set;
    const bound_faults bounds = faults_of_single(set, content);

    analysis.bounds_ok = !bounds.any();
    analysis.green = set.is_complete() && analysis.bounds_ok;
    analysis.panels = {count_panel("Nonlinear Equations", set.implicit_count),
                       count_panel("Auxiliary Equations", set.explicit_count), third_panel(set, bounds)};
    return analysis;
}

std::string show_all_vars(const nle_content& content)
{
    const equation_set set = analyse_rows(content.rows, nle_row_form);
    std::string listing;
    add_names_section(listing, R"({\cf1\b Implicit variables})", set.implicit_names);
    add_names_section(listing, R"({\cf1\b Explicit variables })", set.explicit_names);
    add_names_section(listing, R"({\b\cf1 Undefined variables})", set.undefined);
    add_warnings(listing, warnings_of(set, faults_of_single(set, content)));
    return listing;
}

std::vector<std::string> listing_warnings(const nle_content& content)
{
    const equation_set set = analyse_rows(content.rows, nle_row_form);
    return plain_warnings(warnings_of(set, faults_of_single(set, content)));
}

std::string next_step(const nle_content& content)
{
    const nle_analysis analysis = analyse_nle(content);
    if (analysis.green || analysis.set.equation_count() == 0) return {};
    const std::string& panel = analysis.panels[2];
    const bool about_bounds = analysis.set.undefined.empty() && analysis.set.duplicates.empty() && !analysis.bounds_ok;
    if (about_bounds && (trimmed(content.lower_bound).empty() || trimmed(content.upper_bound).empty()))
        return "Give a lower and an upper bound, or add equations.";
    if (!panel.empty()) return std::string(trimmed(panel));
    std::string all;
    for (const std::string& warning : listing_warnings(content))
        all += (all.empty() ? "" : " ") + warning;
    return all;
}

message_box red_light_box(const nle_content& content)
{
    const nle_analysis analysis = analyse_nle(content);
    const bound_faults bounds = faults_of_single(analysis.set, content);
    const auto critical = [&](std::string_view text) {
        return message_box{std::string(text), box_icon::critical, guide_title, analysis.set.first_fault()};
    };

    if (analysis.set.equation_count() == 0) {
        return {"No nonlinear equations (Implicit equations) have been entered. Solution aborted.",
                box_icon::exclamation};
    }
    if (bounds.lower) return critical(lower_not_numeric);
    if (bounds.upper) return critical(upper_not_numeric);
    if (bounds.equal) return critical(bounds_equal);
    if (!analysis.panels[2].empty()) return critical(trimmed(analysis.panels[2]));

    std::string text;
    for (const std::string& warning : plain_warnings(warnings_of(analysis.set, bounds))) {
        if (!text.empty()) text += '\r';
        text += warning;
    }
    return critical(text);
}

} // namespace kelvarin
