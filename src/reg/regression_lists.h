// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_content.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// `initialize_regression`: what the pages of regressions offer for a table.
struct regression_lists
{
    /// Names of the columns usable as variables.
    std::vector<std::string> numeric_columns;
    /// Names of the columns that can take a model.
    std::vector<std::string> model_columns;
};

/// Throws runtime_failure 9 if there are more than 200 numeric columns.
regression_lists initialize_regression(const table_content& content);

/// The place of the dependent variable that a page selects by itself, the second, in a list of so many; -1 if it
/// selects none.
int default_dependent(std::size_t offered);

/// The independent variables that a multiple regression offers: all but the dependent one.
std::vector<std::string> without_dependent(const std::vector<std::string>& numeric_columns, std::string_view dependent);

/// `fill_degree_list`: the highest degree offered for two columns, at least 1. With a constant term it is one less than
/// the number of leading rows, of which the table's last row is none.
int highest_degree(const table_content& content, std::string_view dependent, std::string_view independent,
                   bool through_origin);

} // namespace kelvarin
