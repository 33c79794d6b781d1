// SPDX-License-Identifier: MIT
#include "batch_call.h"
#include "support/plain_user.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

extern char** environ;

namespace kelvarin
{
namespace
{

/// Starts the built program with its outputs going to files of the current folder.
pid_t start_program(std::vector<std::string> arguments, const char* input = "/dev/null")
{
    std::string program = KELVARIN_BIN "/kelvarin-solve";
    std::vector<char*> argv = {program.data()};
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, input, O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "out", O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "err", O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    // Ctrl+C is to reach the program even where this test was started to ignore it.
    sigset_t interrupt;
    sigemptyset(&interrupt);
    sigaddset(&interrupt, SIGINT);
    posix_spawnattr_setsigdefault(&attributes, &interrupt);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);

    pid_t child = 0;
    EXPECT_EQ(posix_spawn(&child, program.c_str(), &files, &attributes, argv.data(), environ), 0);
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&attributes);
    return child;
}

int exit_status_of(pid_t child)
{
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
    return WEXITSTATUS(status);
}

/// A large system without a solution: all iterations that the settings allow are made.
std::string endless_problem()
{
    constexpr int n = 200;
    std::string rows, guesses, all = "0";
    for (int i = 1; i <= 60; ++i)
        all += "+x" + std::to_string(i);
    for (int i = 1; i <= n; ++i) {
        const std::string name = "x" + std::to_string(i);
        rows += "f(" + name + ") = " + name + "^2+1+(" + all + ")^2\n";
        guesses += name + "(0)=" + std::to_string(i) + "\n";
    }
    return "Endless\n" + rows + guesses;
}

TEST(Program, SolvesChecksAndEndsWithItsStatus)
{
    const test::scratch_folder folder;
    folder.write("sum.kvr", test::explicit_only);
    folder.write("fails.kvr", test::failing_run);

    EXPECT_EQ(exit_status_of(start_program({"sum.kvr"})), 0);
    EXPECT_TRUE(folder.read("out").starts_with("KELVARIN Results\n")) << folder.read("out");
    EXPECT_EQ(folder.read("err"), "");
    EXPECT_EQ(exit_status_of(start_program({"sum.kvr", "fails.kvr"})), 1);
    EXPECT_EQ(exit_status_of(start_program({"missing.kvr"})), 2);
    EXPECT_EQ(exit_status_of(start_program({})), 2);
    EXPECT_EQ(exit_status_of(start_program({"--eval", "-2^2"})), 0);
    EXPECT_EQ(json::parse(folder.read("out"))[0]["value"], -4.0);
}

TEST(Program, ReadsStandardInputAndPipesAndWritesBoth)
{
    const test::scratch_folder folder;
    folder.write("sum.kvr", test::explicit_only);
    EXPECT_EQ(exit_status_of(start_program({"--format", "json", "-o", "-", "-"}, "sum.kvr")), 0);
    EXPECT_EQ(json::parse(folder.read("out"))["file"], "-");

    // The file behind standard output is added to, not replaced.
    EXPECT_EQ(exit_status_of(start_program({"-o", "/dev/fd/1", "sum.kvr"}, "/dev/null")), 0);
    EXPECT_TRUE(folder.read("out").starts_with("KELVARIN Results\n"));

    // Opening a named pipe waits for the other end, which is what makes this safe.
    ASSERT_EQ(mkfifo("problem", 0600), 0);
    ASSERT_EQ(mkfifo("report", 0600), 0);
    const pid_t child = start_program({"-o", "report", "problem"});
    std::ofstream("problem") << test::explicit_only;
    std::ifstream report("report");
    EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(report), {}).starts_with("KELVARIN Results\n"));
    EXPECT_EQ(exit_status_of(child), 0) << folder.read("err");
}

TEST(Program, CtrlCEndsLongRunsWithNothingWritten)
{
    const test::scratch_folder folder;
    folder.write("endless.kvr", endless_problem());
    std::vector<std::string> arguments = {"-o", "report.txt", "--set", "mnewt_n=300"};
    // Often enough that no machine is done before the signal comes.
    arguments.insert(arguments.end(), 100, "endless.kvr");
    const pid_t child = start_program(arguments);
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    ASSERT_EQ(waitpid(child, nullptr, WNOHANG), 0) << "the program ended before it was interrupted";
    ASSERT_EQ(kill(child, SIGINT), 0);
    EXPECT_EQ(exit_status_of(child), 130);
    EXPECT_EQ(folder.read("out"), "");
    EXPECT_EQ(folder.read("err"), "");
    EXPECT_FALSE(folder.holds("report.txt"));
}

#ifdef __SANITIZE_ADDRESS__
constexpr bool is_sanitized = true;
#else
constexpr bool is_sanitized = false;
#endif

/// Runs the program behind `limit`, as a shell takes it; returns its status.
int run_limited(const std::string& limit, const std::string& arguments)
{
    const std::string line = limit + " " KELVARIN_BIN "/kelvarin-solve " + arguments + " >out 2>err";
    const int status = std::system(line.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Program, AFileThatTakesAllMemoryLeavesTheOthersTheirAnswers)
{
    if (is_sanitized) GTEST_SKIP() << "a sanitized program takes memory and threads for itself";
    const test::scratch_folder folder;
    folder.write("small.kvr", test::explicit_only);
    std::string sum = "x = 1";
    for (int i = 0; i < 1'500'000; ++i)
        sum += "+1";
    folder.write("greedy.kvr", "Greedy\n" + sum + "\n");
    EXPECT_EQ(run_limited("ulimit -v 60000; exec", "small.kvr greedy.kvr small.kvr"), 1);
    EXPECT_EQ(folder.read("err"), "kelvarin-solve: greedy.kvr: Kelvarin Guide\nOut of memory\n");
    const std::string out = folder.read("out");
    EXPECT_NE(out.find("KELVARIN Results"), out.rfind("KELVARIN Results")) << "both small files are answered";
}

TEST(Program, WorksOnWhereNoThreadsAreLeft)
{
    if (is_sanitized) GTEST_SKIP() << "a sanitized program takes memory and threads for itself";
    const test::scratch_folder folder;
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    folder.write("small.kvr", test::explicit_only);
    EXPECT_TRUE(test::holds_for_plain_user([] {
        return run_limited("exec prlimit --nproc=0", "--jobs 2 small.kvr small.kvr") == 0;
    })) << folder.read("err");
    EXPECT_NE(folder.read("out").find("KELVARIN Results"), std::string::npos);
}

} // namespace
} // namespace kelvarin
