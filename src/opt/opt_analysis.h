// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/set_analysis.h"
#include "opt/opt_content.h"
#include "platform/message_box.h"

#include <array>
#include <string>
#include <vector>

namespace kelvarin
{

/// What the window shows about a problem after every edit. A place in the target has row 0.
struct opt_analysis
{
    /// Distinct names in order of first appearance, of the rows up to the first that is refused.
    std::vector<std::string> initialized;
    std::vector<std::string> explicit_names;
    std::vector<std::string> target_names;
    /// Used, but neither initialized nor explicit: those of the explicit rows, then those of the target.
    std::vector<std::string> undefined;
    /// Names that several rows define. They leave the light green: the first start value counts, and one goes before an
    /// explicit equation.
    std::vector<std::string> duplicates;

    /// The boxes of the refused row and of the refused target.
    std::vector<message_box> failures;
    std::vector<text_place> undefined_places;
    std::vector<text_place> duplicate_places;
    /// The rows whose start value is not a number; a run refuses them.
    std::vector<int> rows_without_start;

    /// The traffic light is green: the problem may run.
    bool green = false;
    std::array<std::string, 3> panels;
};

/// `update_opt_status`
opt_analysis analyse_opt(const opt_content& content);

/// The listing of variables with its warnings, as rich text without prolog.
std::string show_all_vars(const opt_content& content);
/// The listing's warnings as plain text, each beginning with "Warning: ".
std::vector<std::string> listing_warnings(const opt_analysis& analysis);

/// The boxes that say why a problem with a red traffic light does not run.
std::vector<message_box> red_light_boxes(const opt_analysis& analysis);

} // namespace kelvarin
