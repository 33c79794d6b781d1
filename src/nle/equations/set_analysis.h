// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"
#include "platform/message_box.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// Analysis of a list of equation rows: counts, names, and what is missing. Shared by all kinds of equation problems.
struct equation_set
{
    int implicit_count = 0;
    int explicit_count = 0;
    /// In row order, including duplicates.
    std::vector<std::string> implicit_names;
    std::vector<std::string> explicit_names;
    /// Distinct valid names of the implicit rows.
    int unique_implicit = 0;
    /// Distinct valid names of implicit and explicit rows together.
    int unique_defined = 0;
    /// Number of names that are defined without a row: 0 or 1.
    int given_count = 0;
    /// Number of distinct valid names that are given or defined by rows.
    int unique_known = 0;
    /// Number of distinct valid names, defined or used.
    int total_vars = 0;
    /// Names that are used but not defined, in order of first appearance in the table of names.
    std::vector<std::string> undefined;
    /// Names defined twice or more, each once: in order of first appearance in implicit names, then in explicit ones.
    std::vector<std::string> duplicates;

    /// Every use of an undefined name, in row order.
    std::vector<text_place> undefined_places;
    /// The name in every row whose name is defined more than once.
    std::vector<text_place> duplicate_places;
    /// The implicit rows whose value is not a number; only found for kinds that start from it whatever it is.
    std::vector<int> rows_without_value;

    int equation_count() const { return implicit_count + explicit_count; }
    /// Whether there are as many names as rows and given names. The sum counts distinct implicit names but all explicit
    /// rows, so a name defined twice spoils it unless both definitions are implicit.
    bool counts_agree() const { return total_vars == unique_implicit + explicit_count + given_count; }
    /// Whether there are equations, every name is defined, and the counts agree.
    bool is_complete() const { return equation_count() > 0 && undefined.empty() && counts_agree(); }

    bool has_duplicate_implicit() const { return unique_implicit < implicit_count; }
    bool has_duplicate_explicit() const { return unique_defined - unique_implicit < explicit_count; }
    bool has_more_equations_than_variables() const;

    /// The place of the first undefined name, or else of the first name that is defined twice. Returns nullopt if there
    /// is neither.
    std::optional<text_place> first_fault() const;
};

/// Analyses the rows; empty rows are not counted as equations. `given` is a name that is defined without a row: the
/// independent variable of differential equations.
equation_set analyse_rows(std::span<const equation_row> rows, const row_form& form,
                          std::optional<std::string_view> given = std::nullopt);

} // namespace kelvarin
