// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_content.h"
#include "nle/equations/set_analysis.h"
#include "platform/message_box.h"

#include <array>
#include <string>
#include <vector>

namespace kelvarin
{

/// What is wrong with the fields of the independent variable.
struct range_faults
{
    bool name_empty = false;
    /// No valid name, or empty.
    bool name_invalid = false;
    bool initial_not_numeric = false;
    bool final_not_numeric = false;
    /// Both are numbers, and the final one is not the greater.
    bool not_ascending = false;

    bool any() const { return name_invalid || initial_not_numeric || final_not_numeric || not_ascending; }
};

/// What the window says of a problem after every edit.
struct deq_analysis
{
    equation_set set;
    range_faults range;
    /// The light: the problem may run. Explicit equations alone may be green, though there is nothing to integrate.
    bool green = false;
    std::array<std::string, 3> panels;
    /// The differential rows whose initial value is no number; they start from what it begins with, or from 0.
    std::vector<int> rows_without_start;
};

deq_analysis analyse_deq(const deq_content& content);

/// The listing of variables with its warnings, as rich text without prolog.
std::string show_all_vars(const deq_content& content);
/// The listing's warnings as plain text, from "Warning: " on.
std::vector<std::string> listing_warnings(const deq_content& content);

/// Why a problem whose light is red does not run, as one box.
message_box red_light_box(const deq_content& content);
/// The refusal of a problem in which there is nothing to integrate.
message_box no_differential_box();

} // namespace kelvarin
