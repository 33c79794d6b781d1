// SPDX-License-Identifier: MIT
#include "child_process.h"
#include "problem_files.h"
#include "sections.h"
#include "table.h"
#include "values.h"

#include <nlohmann/json.hpp>

#include <sched.h>

#include <cstdlib>
#include <fstream>
#include <map>

namespace kelvarin::bench
{

namespace
{

constexpr int files_per_call = 40;
constexpr int rounds = 15;
constexpr double seconds_per_round = 0.1;
/// Both stop at residuals of 1e-7; in the largest slab these leave so much open in x, and the cubes more.
constexpr double value_tolerance = 2e-3;

/// A folder for problems, in which the programs find no settings of a user.
class batch_folder : public scratch_folder
{
public:
    batch_folder() { setenv("XDG_CONFIG_HOME", path().c_str(), 1); }
};

std::vector<std::string> command(std::vector<std::string> words, const std::vector<std::string>& files)
{
    words.insert(words.end(), files.begin(), files.end());
    return words;
}

std::vector<std::string> solve_command(const std::vector<std::string>& files, const std::string& jobs = "1")
{
    return command({program_beside("kelvarin-solve"), "--format", "json", "--jobs", jobs}, files);
}

std::vector<std::string> yardstick_command(const std::vector<std::string>& files)
{
    return command({program_beside("yardstick-solver")}, files);
}

nlohmann::json output_of(const std::vector<std::string>& words, const std::filesystem::path& folder)
{
    const std::filesystem::path output = folder / "output.json";
    require(run_process(words, output).status == 0, words.front() + " failed");
    std::ifstream file(output);
    return nlohmann::json::parse(file);
}

std::map<std::string, double> values_of(const nlohmann::json& solved)
{
    std::map<std::string, double> values;
    for (const char* kind : {"implicit", "explicit"}) {
        for (const auto& row : solved.at(kind))
            values[row.at("name").get<std::string>()] = row.at("value").get<double>();
    }
    return values;
}

void compare_answers(const nlohmann::json& ours, const nlohmann::json& others)
{
    require(ours.size() == files_per_call && others.size() == files_per_call, "an answer is missing");
    for (std::size_t i = 0; i < ours.size(); ++i) {
        const std::string file = ours[i].at("file").get<std::string>();
        require(ours[i].at("converged").get<bool>(), file + " is not solved");
        const std::map<std::string, double> values = values_of(ours[i]);
        const auto expected = others[i].at("values").get<std::map<std::string, double>>();
        require(values.size() == expected.size(), file + ": a value is missing");
        for (const auto& [name, value] : values)
            require_close(value, expected.at(name), value_tolerance, file + ", " + name);
    }
}

/// Without the reports, which tell the time of a run where a second ended within it.
nlohmann::json without_reports(nlohmann::json answers)
{
    for (auto& answer : answers)
        answer.erase("report");
    return answers;
}

contender process(const std::string& name, std::vector<std::string> words)
{
    return {name, [words = std::move(words)] { run_process(words); }};
}

int usable_processors()
{
    cpu_set_t set;
    CPU_ZERO(&set);
    require(sched_getaffinity(0, sizeof set, &set) == 0, "the processors are not told");
    return CPU_COUNT(&set);
}

} // namespace

void measure_batch()
{
    if (!std::filesystem::exists(program_beside("yardstick-solver"))) {
        return print_note("no muParser and GSL to compare with");
    }
    const batch_folder folder;
    const auto measure = [&](int equations, double wanted) {
        const std::vector<std::string> files = write_problems(folder.path(), equations, files_per_call);
        compare_answers(output_of(solve_command(files), folder.path()),
                        output_of(yardstick_command(files), folder.path()));
        const spread seen = ratios({process("yardstick", yardstick_command(files))},
                                   process("ours", solve_command(files)), rounds, seconds_per_round)
                                .front();
        print_line("files of " + std::to_string(equations) + ": muParser and GSL hybrids / kelvarin-solve", seen,
                   at_least(wanted));
    };
    measure(30, 2.5);
    measure(100, 5.0);
    measure(150, 7.0);
}

void measure_jobs()
{
    if (usable_processors() < 2) return print_note("needs two processors: run it without taskset");
    const batch_folder folder;
    const std::vector<std::string> files = write_problems(folder.path(), 100, 4 * files_per_call);
    const contender one = process("--jobs 1", solve_command(files, "1"));
    const contender two = process("--jobs 2", solve_command(files, "2"));
    const auto answers = [&](const std::string& jobs) {
        return without_reports(output_of(solve_command(files, jobs), folder.path()));
    };
    require(answers("1") == answers("2"), "the answers differ with --jobs");
    print_line("files of 100: --jobs 1 / --jobs 2", ratios({one}, two, rounds, seconds_per_round).front(),
               at_least(1.7));
}

void measure_memory()
{
    const batch_folder folder;
    const std::vector<std::string> files = write_problems(folder.path(), 200, 1);
    const finished_process finished = run_process(solve_command(files));
    require(finished.status == 0, "200 equations are not solved");
    print_line("200 equations: largest resident memory, MB", {finished.memory, finished.memory, finished.memory},
               at_most(30.0));
}

} // namespace kelvarin::bench
