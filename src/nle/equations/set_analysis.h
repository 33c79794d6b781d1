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

/// How a list of equation rows reads: counts, names, and what is missing. The steps are shared by all
/// kinds of equation problems.
struct equation_set
{
    int implicit_count = 0;
    int explicit_count = 0;
    /// In row order, duplicates kept.
    std::vector<std::string> implicit_names;
    std::vector<std::string> explicit_names;
    /// Distinct valid names of the implicit rows.
    int unique_implicit = 0;
    /// Distinct valid names of implicit and explicit rows together.
    int unique_defined = 0;
    /// Names that are defined without a row: 0 or 1.
    int given_count = 0;
    /// Distinct valid names that are given or defined by rows.
    int unique_known = 0;
    /// Distinct valid names of all, known or used.
    int total_vars = 0;
    /// Used and defined nowhere, in order of first appearance in the table of names.
    std::vector<std::string> undefined;
    /// Defined twice or more, each once: by first appearance in implicit names, then explicit ones.
    std::vector<std::string> duplicates;

    /// Every place at which an undefined name is used, in row order.
    std::vector<text_place> undefined_places;
    /// Every row's name that is defined more than once.
    std::vector<text_place> duplicate_places;

    int equation_count() const { return implicit_count + explicit_count; }
    /// There are equations, every name is defined, and the names are as many as the rows and what is given. The sum
    /// takes distinct implicit names, but rows of explicit ones: a name defined twice spoils it unless both definitions
    /// are implicit.
    bool is_complete() const;

    bool has_duplicate_implicit() const { return unique_implicit < implicit_count; }
    bool has_duplicate_explicit() const { return unique_defined - unique_implicit < explicit_count; }
    bool has_more_equations_than_variables() const;

    /// The place of the first undefined name, else of the first name that is defined twice.
    std::optional<text_place> first_fault() const;
};

/// Reads the rows; rows without text are no equations. `given` is a name that is defined without a row, the independent
/// variable of differential equations.
equation_set analyse_rows(std::span<const equation_row> rows, const row_form& form = nle_row_form,
                          std::optional<std::string_view> given = std::nullopt);

} // namespace kelvarin
