// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kelvarin
{

/// Where the help speaks of a control or window.
struct help_place
{
    std::string_view window;
    /// The object name of the control; empty for the window as a whole.
    std::string_view control;
    std::string_view target;
};

std::span<const help_place> help_places();

/// The target for the control that has the keyboard, given by the object names from it outward to its window and the
/// windows around that. The innermost name with a place decides; "contents" if none has one.
std::string_view help_target_of(std::span<const std::string> names);

} // namespace kelvarin
