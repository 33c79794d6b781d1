// SPDX-License-Identifier: MIT
// The scripts that the help shows, run as they stand there.
#include "support/scratch_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

namespace fs = std::filesystem;

std::string text_of(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The blocks of shell on a page, in their order.
std::vector<std::string> scripts_of(const std::string& page)
{
    std::vector<std::string> scripts;
    bool inside = false;
    std::istringstream lines(page);
    for (std::string line; std::getline(lines, line);) {
        if (line == "```sh") scripts.emplace_back();
        if (line.starts_with("```"))
            inside = line == "```sh";
        else if (inside)
            scripts.back() += line + "\n";
    }
    return scripts;
}

std::string with_line(std::string problem, const std::string& begin, const std::string& line)
{
    const std::size_t from = problem.find("\n" + begin) + 1;
    return problem.replace(from, problem.find('\n', from) + 1 - from, line);
}

/// What a script prints; everything stands in the current folder.
std::string output_of(const std::string& script)
{
    std::ofstream("script.sh") << script;
    const std::string command = "PATH=" KELVARIN_BIN ":$PATH SLURM_ARRAY_TASK_ID=0 bash script.sh >out.txt 2>err.txt";
    const int status = std::system(command.c_str());
    return text_of("out.txt") + text_of("err.txt") + (status == 0 ? "" : "status " + std::to_string(status));
}

TEST(ScriptsPage, EachScriptDoesWhatThePageSays)
{
    if (std::system("command -v jq parallel >/dev/null") != 0) GTEST_SKIP() << "jq or parallel is not installed";
    const test::scratch_folder folder;
    const std::string cable = text_of(fs::path(KELVARIN_EXAMPLES) / "cable-sag.kvr");
    for (const char* inner : {"hand-ins", "cases", "results"})
        fs::create_directory(inner);
    folder.write("cable-sag.kvr", cable);
    folder.write("hand-ins/anna.kvr", cable);
    folder.write("hand-ins/bob.kvr", with_line(cable, "length", "length = 126\n"));
    folder.write("hand-ins/carl.kvr", with_line(cable, "span", ""));
    folder.write("cases/a.kvr", cable);
    folder.write("cases/b.kvr", text_of(fs::path(KELVARIN_EXAMPLES) / "gas-volume.kvr"));
    // This machine alone.
    folder.write("machines", ":\n");
    ASSERT_EQ(output_of("kelvarin-solve --clock 2026-01-02 cable-sag.kvr > expected.txt"), "");

    const std::vector<std::string> scripts = scripts_of(text_of(fs::path(KELVARIN_HELP) / "scripts.md"));
    // Sags of catenaries between masts 120 m apart, as bisection gives them.
    const std::vector<std::vector<std::string>> printed = {
        {"hand-ins/anna.kvr: right\n", "hand-ins/bob.kvr: wrong, 16.7165", "hand-ins/carl.kvr: no answer\n"},
        {"hand-ins/carl.kvr: Undefined Variable: span"},
        {"122\t9.5419", "125\t15.2170", "130\t21.8222", "140\t31.6970"},
        {},
        {},
        {},
        {}};
    ASSERT_EQ(scripts.size(), printed.size());
    for (std::size_t i = 0; i < scripts.size(); ++i) {
        SCOPED_TRACE(scripts[i]);
        fs::remove_all("results");
        fs::create_directory("results");
        const std::string said = output_of(scripts[i]);
        for (const std::string& line : printed[i])
            EXPECT_THAT(said, testing::HasSubstr(line));
        EXPECT_EQ(said.empty(), printed[i].empty()) << said;
        if (scripts[i].find("results/") == std::string::npos) continue;
        for (const char* name : {"a", "b"})
            EXPECT_NE(text_of(std::string("results/") + name + ".json").find("\"ok\": true"), std::string::npos);
    }
}

} // namespace
} // namespace kelvarin
