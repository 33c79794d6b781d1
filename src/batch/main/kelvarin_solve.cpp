// SPDX-License-Identifier: MIT
#include "batch/interrupt_watch.h"
#include "batch/run_batch.h"

#include <malloc.h>
#include <unistd.h>

#include <csignal>
#include <iostream>

namespace
{

/// Keeps freed memory for the next file: otherwise the large blocks of a run are returned to the system after each file
/// and must be allocated again.
void keep_memory_between_files()
{
    constexpr int most_kept = 64 << 20;
    mallopt(M_MMAP_THRESHOLD, most_kept);
    mallopt(M_TRIM_THRESHOLD, most_kept);
}

} // namespace

int main(int argc, char** argv)
{
    keep_memory_between_files();
    // A limit on the size of files is then an error of the write, like a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    const kelvarin::system_clock clock;
    const kelvarin::file_registry saved(kelvarin::default_registry_file());
    kelvarin::recording_listener listener;
    const kelvarin::interrupt_watch watch(listener);
    return kelvarin::run_batch(arguments, std::cout, std::cerr, {clock, saved, listener, isatty(STDERR_FILENO) != 0});
}
