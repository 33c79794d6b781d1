// SPDX-License-Identifier: MIT
#pragma once

namespace kelvarin::test
{

enum class where_windows_are
{
    /// Nowhere: windows are drawn into memory, and become active when they are shown.
    offscreen,
    /// On an X server with a window manager, both started for this process.
    on_screen
};

/// The main program of tests that act on windows: a home and fonts of its own, and no warning of the toolkit passes
/// unseen.
int run_window_tests(int argc, char** argv, where_windows_are where);

} // namespace kelvarin::test
