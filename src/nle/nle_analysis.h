// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/set_analysis.h"
#include "nle/nle_content.h"
#include "platform/message_box.h"

#include <array>
#include <string>
#include <vector>

namespace kelvarin
{

/// What the window shows about a problem after every edit.
struct nle_analysis
{
    equation_set set;
    bool bounds_ok = true;
    /// The traffic light is green: the problem may run.
    bool green = false;
    std::array<std::string, 3> panels;
};

nle_analysis analyse_nle(const nle_content& content);

/// The listing of variables with its warnings, as rich text without prolog.
std::string show_all_vars(const nle_content& content);
/// The listing's warnings as plain text, each beginning with "Warning: ".
std::vector<std::string> listing_warnings(const nle_content& content);

/// What is to be done next while the light is red, in one line: what the third panel says, with missing bounds as an
/// invitation, else the listing's warnings. Empty if the light is green or there is no equation.
std::string next_step(const nle_content& content);

/// The box that says why a problem with a red traffic light does not run.
message_box red_light_box(const nle_content& content);

} // namespace kelvarin
