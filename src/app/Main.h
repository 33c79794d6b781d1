// SPDX-License-Identifier: MIT
#pragma once

namespace kelvarin
{

/// Starts the program with windows, and gives its exit status when it ends: 0, or 1 where it could not do what it
/// was started for.
int Main(int argc, char** argv);

} // namespace kelvarin
