// SPDX-License-Identifier: MIT
#pragma once

#include "help/help_library.h"

class QWidget;

namespace kelvarin
{

/// The pages that the program carries, read once.
const help_library& program_help();

/// The page of the help for the control that has the keyboard in `front`, a window or a window inside the main window.
std::string help_target_in_front(const QWidget* front);

} // namespace kelvarin
