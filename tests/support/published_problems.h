// SPDX-License-Identifier: MIT
#pragma once

#include "support/deq_problems.h"
#include "support/equation_rows.h"

#include <cstddef>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

/// Initial value problems of the literature with their end values.
namespace kelvarin::test
{

struct published_problem
{
    std::string name;
    bool stiff = false;
    deq_content content;
    std::vector<std::string> start;
    std::vector<double> end;
};

/// Those of ode/initial_value_problems.txt in the folder of test data.
inline std::vector<published_problem> published_problems(const std::string& folder)
{
    std::vector<published_problem> problems;
    std::ifstream file(folder + "/ode/initial_value_problems.txt");
    for (std::string text; std::getline(file, text);) {
        std::istringstream line(text);
        std::string key, rest;
        line >> key >> std::ws;
        std::getline(line, rest);
        const std::string name = rest.substr(0, rest.find(" = "));
        std::istringstream items(rest);
        if (key == "problem")
            problems.emplace_back().name = rest;
        else if (key == "stiff")
            problems.back().stiff = true;
        else if (key == "range")
            problems.back().content.final_value = rest;
        else if (key == "variable")
            problems.back().content.rows.push_back(differential_row(name, rest.substr(name.size() + 3)));
        else if (key == "where")
            problems.back().content.rows.push_back(explicit_row(name, rest.substr(name.size() + 3)));
        else if (key == "start")
            problems.back().start.assign(std::istream_iterator<std::string>(items), {});
        else if (key == "end")
            problems.back().end.assign(std::istream_iterator<double>(items), {});
    }
    for (published_problem& problem : problems) {
        problem.content.independent = "t";
        problem.content.initial_value = "0";
        for (std::size_t i = 0; i < problem.start.size(); ++i)
            problem.content.rows.at(i).guess = problem.start[i];
    }
    return problems;
}

} // namespace kelvarin::test
