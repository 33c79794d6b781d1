// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/named_columns.h"

#include <string>
#include <vector>

namespace kelvarin
{

/// A variable in the summary of a run.
struct deq_summary_row
{
    std::string name;
    double initial = 0.0;
    double minimal = 0.0;
    double maximal = 0.0;
    double final = 0.0;
};

/// `deq_summary`: one row for each column of stored points, of which there is at least one. Extremes between the points
/// are not found.
std::vector<deq_summary_row> build_deq_summary(const named_columns& points);

} // namespace kelvarin
