// SPDX-License-Identifier: MIT
#include "nle/nle_analysis.h"

#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/report/rich_text.h"

#include <span>

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

/// Bounds that descend are no fault: only equal ones span no range.
bound_faults faults_of_bounds(const nle_content& content)
{
    const std::optional<double> lower = numeric_value(content.lower_bound);
    const std::optional<double> upper = numeric_value(content.upper_bound);
    return {!lower, !upper, lower && upper && *lower == *upper};
}

std::string joined(std::span<const std::string> names)
{
    std::string text;
    for (const std::string& name : names) {
        if (!text.empty()) text += ", ";
        text += name;
    }
    return text;
}

std::string names_message(std::string_view one, std::string_view several, std::span<const std::string> names)
{
    std::string text(names.size() == 1 ? one : several);
    text += joined(names);
    text += ' ';
    return text;
}

std::string third_panel(const equation_set& set, const bound_faults& bounds)
{
    if (!set.undefined.empty()) return names_message("Undefined Variable: ", "Undefined Variables: ", set.undefined);
    if (!set.duplicates.empty()) {
        return names_message("Variable defined more than once: ", "Variables defined more than once: ", set.duplicates);
    }
    if (bounds.lower || bounds.upper) return "Warning: Lower/upper boundary guess is not a valid number";
    if (bounds.equal) return "Warning: Lower/upper boundary guess are equall or not ascending";
    return {};
}

bound_faults faults_of_single(const equation_set& set, const nle_content& content)
{
    return set.implicit_count == 1 ? faults_of_bounds(content) : bound_faults{};
}

/// The texts of the listing's warnings behind the word "Warning:".
std::vector<std::string_view> warnings_of(const equation_set& set, const bound_faults& bounds)
{
    std::vector<std::string_view> warnings;
    const int unique_explicit = set.unique_defined - set.unique_implicit;
    if (set.unique_implicit < set.implicit_count) warnings.push_back("Duplicate implicit variable/s exist/s.");
    if (unique_explicit < set.explicit_count) warnings.push_back("Duplicate explicit variable/s exist/s.");
    if (set.total_vars < set.implicit_count + set.explicit_count) {
        warnings.push_back("More equations than variables exist.");
    }
    if (bounds.lower) warnings.push_back(lower_not_numeric);
    if (bounds.upper) warnings.push_back(upper_not_numeric);
    if (bounds.equal) warnings.push_back(bounds_equal);
    if (!set.undefined.empty()) warnings.push_back("Undefined variable/s exist.");
    return warnings;
}

void add_section(std::string& listing, std::string_view head, std::span<const std::string> names)
{
    listing += head;
    listing += " (" + std::to_string(names.size()) + ")\\par ";
    if (!names.empty()) listing += escape_rich_text(joined(names)) + "\\par ";
    listing += "\\par ";
}

/// The first place at which the analysis found fault.
std::optional<text_place> place_of_fault(const equation_set& set)
{
    if (!set.undefined_places.empty()) return set.undefined_places.front();
    if (!set.duplicate_places.empty()) return set.duplicate_places.front();
    return std::nullopt;
}

} // namespace

nle_analysis analyse_nle(const nle_content& content)
{
    nle_analysis analysis;
    analysis.set = analyse_rows(content.rows);
    const equation_set& set = analysis.set;
    const bound_faults bounds = faults_of_single(set, content);

    analysis.bounds_ok = !bounds.any();
    analysis.single_controls_visible = set.implicit_count == 1;
    // Distinct implicit names, but rows of explicit ones: a name defined twice turns the light red unless
    // both definitions are implicit.
    analysis.green = set.implicit_count + set.explicit_count > 0 &&
                     set.total_vars == set.unique_implicit + set.explicit_count && set.undefined.empty() &&
                     analysis.bounds_ok;
    analysis.panels = {"Nonlinear Equations: " + std::to_string(set.implicit_count) + " ",
                       "Auxiliary Equations: " + std::to_string(set.explicit_count) + " ", third_panel(set, bounds)};
    return analysis;
}

std::string show_all_vars(const nle_content& content)
{
    const equation_set set = analyse_rows(content.rows);
    std::string listing;
    add_section(listing, R"({\cf1\b Implicit variables})", set.implicit_names);
    add_section(listing, R"({\cf1\b Explicit variables })", set.explicit_names);
    add_section(listing, R"({\b\cf1 Undefined variables})", set.undefined);
    for (const std::string_view warning : warnings_of(set, faults_of_single(set, content))) {
        listing += R"({\cf7{\b Warning:} )";
        listing += warning;
        listing += R"(}\par )";
    }
    return listing;
}

std::vector<std::string> listing_warnings(const nle_content& content)
{
    const equation_set set = analyse_rows(content.rows);
    std::vector<std::string> texts;
    for (const std::string_view warning : warnings_of(set, faults_of_single(set, content))) {
        texts.push_back("Warning: " + std::string(warning));
    }
    return texts;
}

message_box red_light_box(const nle_content& content)
{
    const nle_analysis analysis = analyse_nle(content);
    const bound_faults bounds = faults_of_single(analysis.set, content);
    const auto critical = [&](std::string_view text) {
        return message_box{std::string(text), box_icon::critical, guide_title, place_of_fault(analysis.set)};
    };

    if (analysis.set.implicit_count + analysis.set.explicit_count == 0) {
        return {"No nonlinear equations (Implicit equations) have been entered. Solution aborted.",
                box_icon::exclamation};
    }
    if (bounds.lower) return critical(lower_not_numeric);
    if (bounds.upper) return critical(upper_not_numeric);
    if (bounds.equal) return critical(bounds_equal);
    if (!analysis.panels[2].empty()) return critical(trimmed(analysis.panels[2]));

    std::string text;
    for (const std::string_view warning : warnings_of(analysis.set, bounds)) {
        if (!text.empty()) text += '\r';
        text += "Warning: ";
        text += warning;
    }
    return critical(text);
}

} // namespace kelvarin
