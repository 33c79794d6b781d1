// SPDX-License-Identifier: MIT
#include "support/window_tests.h"

int main(int argc, char** argv)
{
    return kelvarin::test::run_window_tests(argc, argv, kelvarin::test::where_windows_are::on_screen);
}
