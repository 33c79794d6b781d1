// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"
#include "platform/text_file.h"
#include "shell/report/report_text.h"

#include <cstddef>
#include <span>
#include <vector>

namespace kelvarin
{

/// The equations with their comments for a report, numbered by their rows.
inline std::vector<commented_row> commented_rows(std::span<const equation_row> rows)
{
    std::vector<commented_row> commented;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (!rows[i].equation.empty()) commented.push_back({i + 1, trimmed(rows[i].equation), rows[i].comment});
    return commented;
}

} // namespace kelvarin
