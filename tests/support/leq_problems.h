// SPDX-License-Identifier: MIT
#pragma once

#include "leq/leq_content.h"

#include <string>
#include <vector>

/// Problems of linear equations, written short.
namespace kelvarin::test
{

/// One row of texts for each equation, beta the last.
inline leq_content equations(const std::vector<std::vector<std::string>>& rows)
{
    leq_content content(static_cast<int>(rows.size()));
    for (int row = 0; row < content.count(); ++row)
        for (int column = 0; column <= content.count(); ++column)
            content.cells.set_cell(row, column, rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
    return content;
}

} // namespace kelvarin::test
