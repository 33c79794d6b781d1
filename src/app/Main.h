// SPDX-License-Identifier: MIT
#pragma once

namespace kelvarin
{

/// Runs the program with windows. Returns its exit status: 0, or 1 if there is no display or an internal error ended
/// it.
int Main(int argc, char** argv);

} // namespace kelvarin
