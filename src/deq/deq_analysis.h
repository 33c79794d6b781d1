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

/// The faults in the fields of the independent variable.
struct range_faults
{
    bool name_empty = false;
    /// Not a valid name, or empty.
    bool name_invalid = false;
    bool initial_not_numeric = false;
    bool final_not_numeric = false;
    /// Both are numbers, but the final one is not greater.
    bool not_ascending = false;

    bool any() const { return name_invalid || initial_not_numeric || final_not_numeric || not_ascending; }
};

/// What the window shows about a problem after every edit.
struct deq_analysis
{
    /// With the rows whose initial value is not a number: a run uses the number that the text begins with, or 0.
    equation_set set;
    range_faults range;
    /// The traffic light is green: the problem may run. It may be green with explicit equations alone; the run refuses
    /// them.
    bool green = false;
    std::array<std::string, 3> panels;
};

deq_analysis analyse_deq(const deq_content& content);

/// The listing of variables with its warnings, as rich text without prolog.
std::string show_all_vars(const deq_content& content);
/// The listing's warnings as plain text, each beginning with "Warning: ".
std::vector<std::string> listing_warnings(const deq_content& content);

/// What is to be done next while the light is red, in one line: what the third panel says, with an empty range as an
/// invitation. Empty if the light is green or there is no equation.
std::string next_step(const deq_content& content);

/// The box that says why a problem with a red traffic light does not run.
message_box red_light_box(const deq_content& content);
/// The box that refuses a problem without differential equations.
message_box no_differential_box();

} // namespace kelvarin
