// SPDX-License-Identifier: MIT
#pragma once

#include "rounds.h"

#include <string>

namespace kelvarin::bench
{

struct goal
{
    enum class kind
    {
        none,
        at_most,
        at_least
    };

    kind sense = kind::none;
    double value = 0.0;
};

inline goal at_most(double value)
{
    return {goal::kind::at_most, value};
}

inline goal at_least(double value)
{
    return {goal::kind::at_least, value};
}

/// The head of the table, and of each section.
void print_head();
void print_section(const std::string& name);
/// One line: lowest, median and highest of all rounds; the goal is compared with the median.
void print_line(const std::string& what, const spread& seen, const goal& wanted = {});
void print_note(const std::string& note);

} // namespace kelvarin::bench
