// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// A row of an example, as a literal.
struct sample_row
{
    std::string_view equation;
    std::string_view comment;
    /// Empty for an explicit row.
    std::string_view guess = {};
};

inline std::vector<equation_row> rows_of_sample(std::initializer_list<sample_row> sample)
{
    std::vector<equation_row> rows;
    for (const sample_row& row : sample) {
        const std::string_view guess = row.guess.empty() ? no_guess : row.guess;
        rows.push_back({std::string(row.equation), std::string(guess), std::string(row.comment)});
    }
    return rows;
}

} // namespace kelvarin
