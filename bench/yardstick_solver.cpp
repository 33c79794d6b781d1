// SPDX-License-Identifier: MIT
// What a small program made of public libraries does with the same files: muParser, the hybrid method of
// GSL, values as JSON. It takes explicit equations in the order of the file and forgives no mistake.
#include "parsed_system.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <string_view>

namespace
{

using kelvarin::bench::named_text;

constexpr double tolerance = 1e-7;

struct problem
{
    std::vector<std::string> unknowns;
    std::vector<std::string> residuals;
    std::vector<named_text> explicit_equations;
    std::vector<double> guesses;
};

std::string trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \r");
    if (first == std::string_view::npos) return "";
    return std::string(text.substr(first, text.find_last_not_of(" \r") + 1 - first));
}

problem read_problem(const char* path)
{
    std::ifstream file(path);
    const std::string content(std::istreambuf_iterator<char>(file), {});
    problem read;
    std::map<std::string, double> guesses;
    bool is_title = true;
    for (std::string_view rest = content; !rest.empty();) {
        const std::size_t end = std::min(rest.find('\n'), rest.size() - 1);
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end + 1);
        const std::size_t equals = line.find('=');
        if (std::exchange(is_title, false) || equals == std::string_view::npos) continue;
        const std::string name = trimmed(line.substr(0, equals));
        const std::string text = trimmed(line.substr(equals + 1));
        if (name.starts_with("f(")) {
            read.unknowns.push_back(name.substr(2, name.size() - 3));
            read.residuals.push_back(text);
        } else if (name.ends_with("(0)")) {
            guesses[name.substr(0, name.size() - 3)] = std::strtod(text.c_str(), nullptr);
        } else {
            read.explicit_equations.push_back({name, text});
        }
    }
    for (const std::string& name : read.unknowns)
        read.guesses.push_back(guesses.at(name));
    return read;
}

void solve(const char* path)
{
    const problem read = read_problem(path);
    kelvarin::bench::parsed_system system(read.unknowns, read.explicit_equations, read.residuals);
    std::vector<double> x = read.guesses;
    const kelvarin::bench::hybrids_result solved = kelvarin::bench::solve_by_hybrids(system, x, tolerance);
    std::vector<double> residuals(x.size());
    system.evaluate(x, residuals);
    std::printf("{\"file\": \"%s\", \"converged\": %s, \"iterations\": %d, \"values\": {", path,
                solved.converged ? "true" : "false", solved.iterations);
    const char* separator = "";
    for (std::size_t i = 0; i < x.size(); ++i, separator = ", ")
        std::printf("%s\"%s\": %.17g", separator, read.unknowns[i].c_str(), x[i]);
    for (std::size_t i = 0; i < read.explicit_equations.size(); ++i)
        std::printf(", \"%s\": %.17g", read.explicit_equations[i].name.c_str(), system.explicit_value(i));
    std::printf("}}");
}

} // namespace

int main(int argc, char** argv)
{
    std::printf("[");
    for (int i = 1; i < argc; ++i) {
        if (i > 1) std::printf(",\n");
        solve(argv[i]);
    }
    std::printf("]\n");
    return 0;
}
