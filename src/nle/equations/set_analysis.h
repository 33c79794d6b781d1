// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"
#include "platform/message_box.h"

#include <span>
#include <string>
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
    /// Distinct names of all, defined or used.
    int total_vars = 0;
    /// Used and defined nowhere, in order of first appearance in the table of names.
    std::vector<std::string> undefined;
    /// Defined twice or more, each once: by first appearance in implicit names, then explicit ones.
    std::vector<std::string> duplicates;

    /// Every place at which an undefined name is used, in row order.
    std::vector<text_place> undefined_places;
    /// Every row's name that is defined more than once.
    std::vector<text_place> duplicate_places;
};

/// Reads the rows; rows without text are no equations.
equation_set analyse_rows(std::span<const equation_row> rows);

} // namespace kelvarin
