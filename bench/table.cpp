// SPDX-License-Identifier: MIT
#include "table.h"

#include <cstdio>

namespace kelvarin::bench
{

namespace
{

std::string verdict(const spread& seen, const goal& wanted)
{
    if (wanted.sense == goal::kind::none) return "";
    const bool at_most_it = wanted.sense == goal::kind::at_most;
    const bool reached = at_most_it ? seen.median <= wanted.value : seen.median >= wanted.value;
    char text[64];
    std::snprintf(text, sizeof text, "%s %-5g %s", at_most_it ? "at most " : "at least", wanted.value,
                  reached ? "reached" : "behind");
    return text;
}

} // namespace

void print_head()
{
    std::printf("%-58s %8s %8s %8s   %s\n", "ratio per round", "lowest", "median", "highest", "goal");
}

void print_section(const std::string& name)
{
    std::printf("\n%s\n", name.c_str());
}

void print_line(const std::string& what, const spread& seen, const goal& wanted)
{
    std::printf("  %-56s %8.2f %8.2f %8.2f   %s\n", what.c_str(), seen.lowest, seen.median, seen.highest,
                verdict(seen, wanted).c_str());
    std::fflush(stdout);
}

void print_note(const std::string& note)
{
    std::printf("  (%s)\n", note.c_str());
    std::fflush(stdout);
}

} // namespace kelvarin::bench
