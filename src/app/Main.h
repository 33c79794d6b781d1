// SPDX-License-Identifier: MIT
#pragma once

namespace kelvarin
{

/// Starts the program with windows, and gives its exit status when it ends: 0, or 1 where there is no display or a
/// state that must not be has ended it.
int Main(int argc, char** argv);

} // namespace kelvarin
