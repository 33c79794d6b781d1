// SPDX-License-Identifier: MIT
#include "problem_files.h"

#include "values.h"

#include <fstream>

namespace kelvarin::bench
{

namespace
{

/// One kind of system, row i of n: its nonlinear part in x(i), and how it goes on from there.
struct system_kind
{
    std::string title;
    /// What becomes an explicit equation in some rows; @ stands for the unknown, & for (n + 1)^2.
    std::string nonlinear;
    std::string before;
    std::string behind;
    std::string left;
    std::string right;
    std::string guess;
};

const system_kind& kind_of(int number)
{
    static const std::vector<system_kind> kinds = {
        {"Broyden tridiagonal", "(3-2*@)*@", "", "+1", "-", "-2*", "-1"},
        {"Discrete boundary value", "(@+1.5)^3", "2*@+0.5/&*", "", "-", "-", "0"},
        {"Reaction in a slab", "exp(@/(1+0.1*@))", "2*@-1/&*", "", "-", "-", "0.1"},
    };
    return kinds[static_cast<std::size_t>(number) % kinds.size()];
}

std::string filled(const std::string& pattern, const std::string& unknown, int n)
{
    std::string text;
    for (const char c : pattern) {
        if (c == '@') {
            text += unknown;
        } else if (c == '&') {
            text += std::to_string((n + 1) * (n + 1));
        } else {
            text += c;
        }
    }
    return text;
}

/// Letters only and of one length, so that none stands inside another name.
std::string explicit_name(int i)
{
    return {'q', static_cast<char>('a' + i / 26), static_cast<char>('a' + i % 26)};
}

} // namespace

std::string problem_text(int equations, int number)
{
    const system_kind& kind = kind_of(number);
    const int explicit_count = equations / 5;
    const int n = equations - explicit_count;
    const auto unknown = [](int i) { return "x" + std::to_string(i); };
    const std::string method = number % 2 == 0 ? "0" : "1";
    std::string text = kind.title + " " + std::to_string(number) + " |KVRVER05_" + method + "\n";
    std::string definitions;
    std::string guesses;
    for (int i = 1; i <= n; ++i) {
        std::string nonlinear = filled(kind.nonlinear, unknown(i), n);
        if (i % 4 == 0 && i / 4 <= explicit_count) {
            definitions += explicit_name(i / 4) + " = " + nonlinear + "\n";
            nonlinear = explicit_name(i / 4);
        }
        text += "f(" + unknown(i) + ") = " + filled(kind.before, unknown(i), n) + nonlinear;
        if (i > 1) text += kind.left + unknown(i - 1);
        if (i < n) text += kind.right + unknown(i + 1);
        // Each problem has its own right side, so that none repeats another one.
        text += kind.behind + "-" + std::to_string(number) + "/100000\n";
        guesses += unknown(i) + "(0)=" + kind.guess + "\n";
    }
    return text + definitions + guesses;
}

std::vector<std::string> write_problems(const std::filesystem::path& folder, int equations, int count)
{
    std::vector<std::string> paths;
    for (int number = 0; number < count; ++number) {
        paths.push_back(folder / (std::to_string(equations) + "-" + std::to_string(number) + ".kvr"));
        std::ofstream file(paths.back());
        file << problem_text(equations, number);
        require(file.good(), paths.back() + " can not be written");
    }
    return paths;
}

} // namespace kelvarin::bench
