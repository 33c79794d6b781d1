// SPDX-License-Identifier: MIT
#include "batch/interrupt_watch.h"
#include "batch/solve_files.h"

#include <unistd.h>

#include <iostream>

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    const kelvarin::system_clock clock;
    const kelvarin::file_registry saved(kelvarin::default_registry_file());
    kelvarin::recording_listener listener;
    const kelvarin::interrupt_watch watch(listener);
    return kelvarin::run_batch(arguments, std::cout, std::cerr, {clock, saved, listener, isatty(STDERR_FILENO) != 0});
}
