// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_reader.h"

#include <optional>
#include <vector>

class QComboBox;

namespace kelvarin
{

/// A page lists so many columns at most.
inline constexpr std::size_t most_listed_columns = 200;

/// The columns that the pages of analysis and graph list: those that hold something in their first row.
std::vector<int> listed_columns(const table_reader& table);

/// Fills a list with the names of columns. The name that was chosen stays, else `proposed` is chosen, an index of
/// `columns`, if there are at least two. Sends no signal.
void fill_column_list(QComboBox& list, const table_reader& table, const std::vector<int>& columns, int proposed);

/// The chosen column of such a list.
std::optional<int> chosen_column(const QComboBox& list);

} // namespace kelvarin
