// SPDX-License-Identifier: MIT
#include "child_process.h"

#include "values.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace kelvarin::bench
{

finished_process run_process(const std::vector<std::string>& arguments, const std::filesystem::path& output)
{
    std::vector<char*> words;
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t child = 0;
    const int refused = posix_spawn(&child, words.front(), &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    require(refused == 0, arguments.front() + " does not start");

    int status = 0;
    rusage used = {};
    require(wait4(child, &status, 0, &used) == child, arguments.front() + " was lost");
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, static_cast<double>(used.ru_maxrss) / 1024.0};
}

std::string program_beside(const std::string& name)
{
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / name;
}

scratch_folder::scratch_folder()
{
    std::string pattern = std::filesystem::temp_directory_path() / "kelvarin-bench-XXXXXX";
    require(mkdtemp(pattern.data()) != nullptr, "no scratch folder");
    path_ = pattern;
}

scratch_folder::~scratch_folder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

} // namespace kelvarin::bench
