// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin::test
{

/// A problem of [StRD] with its certified answer, from a file of tests/data/nist.
struct certified_problem
{
    struct parameter
    {
        std::string name;
        std::vector<double> starts;
        double value = 0.0;
        double standard_deviation = 0.0;
    };

    /// "y = b1*x", as the workbench writes models.
    std::string model;
    std::vector<parameter> parameters;
    double rss = 0.0;
    /// The columns of the data, y first, as texts and as numbers.
    std::vector<std::pair<std::string, std::vector<std::string>>> texts;
    std::vector<std::vector<double>> columns;

    const std::vector<double>& y() const { return columns.front(); }
    const std::vector<double>& x() const { return columns.at(1); }
    std::vector<double> start(std::size_t which) const
    {
        std::vector<double> a;
        for (const parameter& each : parameters)
            a.push_back(each.starts.at(which));
        return a;
    }
};

inline std::vector<std::string> fields_of(const std::string& line)
{
    std::vector<std::string> fields;
    std::istringstream rest(line);
    for (std::string field; std::getline(rest, field, '\t');)
        fields.push_back(field);
    return fields;
}

/// A start value as it would be typed.
inline std::string shortest_text(double value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}

inline certified_problem read_certified(const std::string& name)
{
    certified_problem problem;
    std::ifstream file(std::string(KELVARIN_TEST_DATA) + "/nist/" + name + ".txt");
    if (!file.is_open()) throw std::runtime_error("there is no certified problem " + name);
    const auto number = [](const std::string& text) { return std::strtod(text.c_str(), nullptr); };
    for (std::string line; std::getline(file, line);) {
        const std::vector<std::string> fields = fields_of(line);
        if (fields.empty() || line.front() == '#' || fields.front() == "n") continue;
        if (fields.front() == "model") {
            problem.model = fields[1];
        } else if (fields.front() == "parameter") {
            certified_problem::parameter read;
            read.name = fields[1];
            for (std::size_t i = 2; i + 2 < fields.size(); ++i)
                read.starts.push_back(number(fields[i]));
            read.value = number(fields[fields.size() - 2]);
            read.standard_deviation = number(fields.back());
            problem.parameters.push_back(read);
        } else if (fields.front() == "rss") {
            problem.rss = number(fields[1]);
        } else if (fields.front() == "data") {
            problem.columns.resize(fields.size() - 1);
            for (std::size_t i = 1; i < fields.size(); ++i)
                problem.texts.push_back({fields[i], {}});
        } else {
            for (std::size_t i = 0; i < fields.size(); ++i) {
                problem.columns.at(i).push_back(number(fields[i]));
                problem.texts[i].second.push_back(fields[i]);
            }
        }
    }
    if (problem.columns.empty()) throw std::runtime_error("no data in " + name);
    return problem;
}

} // namespace kelvarin::test
